#pragma once

#include "../../support/failure_of.h"

#include <QByteArray>
#include <QImage>

/// Pictures as bytes; those with faulty bytes are made by hand.

struct JpegOptions {
    enum class Kind { baseline, progressive, coloursApart, grayscale, inks, invertedInks, lights, arithmetic };
    Kind kind = Kind::baseline;
    int orientation = 0;     ///< 0 writes no EXIF segment.
    bool bigEndian = false;  ///< Byte order of the EXIF segment.
    QSize sampling{2, 2};    ///< Of the brightness, where the colours have one.
    unsigned restartInterval = 0;
    int quality = 95;
    bool ownCodes = false;  ///< Codes made for this picture.
};

QByteArray jpegBytes(const QImage& image, const JpegOptions& options = {});

/// The JPEG with an EXIF segment that carries a small picture of it, as cameras write it.
QByteArray withPreview(const QByteArray& jpeg, const QByteArray& preview, int orientation = 1, bool bigEndian = false);

/// The JPEG with its first scan so many times more.
QByteArray withMoreScans(const QByteArray& jpeg, int more);

/// Four quadrants: A red, B green on top; C blue, D white below.
QImage quadrants(QSize pixels);
/// The contents of the quadrants of an image, row by row: "ABCD" for the one above.
QByteArray quadrantsOf(const QImage& image);

/// A BMP of 4 x 2 pixels, the upper row red, the lower blue.
QByteArray bmpBytes(int depth, bool topDown = false, bool runLength = false);

/// A BMP of 2 x 2 pixels, the upper row red, the lower blue, with a header of 52 or 56 bytes.
QByteArray bmpWithHeader(int length, quint16 depth);

/// The bytes with other sides in the JPEG or BMP header.
QByteArray withSides(QByteArray picture, QSize pixels);
