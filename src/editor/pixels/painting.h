#pragma once

#include <QImage>
#include <QRect>

/// The stretched and mirrored paint on which scale, crop, flips and button pictures rest. Pixels.

enum class Mirror { none, horizontal, vertical };

/// A new picture of `target` pixels on which the part `source` of `picture` is painted over the whole area, stretched
/// where the sizes differ (averaged when it shrinks) and mirrored where asked. Where the part reaches beyond the
/// picture, `background` shows. At equal sizes every pixel is copied as it is.
QImage painted(const QImage& picture, const QRect& source, QSize target, Mirror mirror, QRgb background);
