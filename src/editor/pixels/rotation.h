#pragma once

#include <QImage>
#include <functional>

/// The size in twips of the box around a rotated picture: floor(|cos| * w + |sin| * h) and the other way round. The
/// angle is in degrees, turned into radians by 3.14 / 180 as everywhere in the rotation.
QSize rotatedSize(QSize twips, double degrees);

/// Turns a picture counter-clockwise into a new one of `target` pixels, both around their middle (half sizes are whole
/// numbers, cut off). Each pixel is the source pixel nearest to where it comes from (coordinates in single precision,
/// halves to the even neighbour); pixels from outside, and from the outermost line of the source, are `background`. A
/// right angle is 3.14 / 2, so 90 degrees leave a thin wedge along the edges. `progress` hears the percentage now and
/// then, on the calling thread.
QImage rotated(const QImage& source, QSize target, double degrees, QRgb background,
               const std::function<void(int percent)>& progress = {});
