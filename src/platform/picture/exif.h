#pragma once

#include <QByteArrayView>
#include <QImage>
#include <QSize>

/// How a stored picture has to be turned to be upright: the EXIF values 1 (as it is) to 8.
using Orientation = int;
inline constexpr Orientation uprightOrientation = 1;

/// The orientation in an APP1 segment (without its marker and length); upright when the segment is damaged or not EXIF.
Orientation orientationFromApp1(QByteArrayView segment);

/// The same in a bare block, as a TIFF file begins.
Orientation orientationFromTiff(QByteArrayView block);

/// Such a block for the picture that has been turned upright and has these sides: its numbers say so, and a small
/// picture that is not upright is cut off. Empty where the block is none.
QByteArray uprightExif(const QByteArray& block, QSize pixels);

/// The JPEG bytes of the small picture that such a segment carries; none when it carries none, or damaged ones.
QByteArrayView previewFromApp1(QByteArrayView segment);

/// Whether the orientation exchanges width and height.
inline bool liesOnItsSide(Orientation orientation) {
    return orientation >= 5;
}

inline QSize turned(QSize size, Orientation orientation) {
    return liesOnItsSide(orientation) ? size.transposed() : size;
}

QImage uprightImage(const QImage& stored, Orientation orientation);
