#pragma once

#include <QImage>

/// Stretches a picture of the editor's format to a new one of `target` pixels: a side that shrinks is averaged over
/// the pixels that fall together (parts of pixels count for their part), a side that grows is interpolated.
QImage resampled(const QImage& picture, QSize target);
