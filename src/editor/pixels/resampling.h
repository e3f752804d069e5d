#pragma once

#include <QImage>

/// A picture of the editor's format, stretched. Sizes are pixels. All throw `Error` when there is no memory.

/// Stretched to a new one of `target` pixels: a side that shrinks is averaged over the pixels that fall together (parts
/// of pixels count for their part), a side that grows is interpolated.
QImage resampled(const QImage& picture, QSize target);

/// Of what `resampled` gives for `target` only a part that lies inside it; the same pixels.
QImage resampled(const QImage& picture, QSize target, const QRect& part);

/// The same part of a picture that has grown to `target`: every pixel of it is a block of one colour.
QImage inBlocks(const QImage& picture, QSize target, const QRect& part);
