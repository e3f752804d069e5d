#pragma once

#include "platform/picture/formats/picture_format.h"
#include "platform/picture/picture.h"

#include <QByteArray>
#include <QIODevice>

/// A picture of any format, upright, with what its file says beside the pixels.
struct AnyPicture {
    PictureFormat format = PictureFormat::none;
    Picture picture = {};        ///< In the colours of the file; transparent parts have become white.
    bool isGrey = false;         ///< It has no colours.
    QSize pixelsOfColour{1, 1};  ///< How many pixels share one colour in the file: 2 x 2 in most photographs.
    QByteArray exif = {};        ///< As a TIFF file begins, corrected for the upright picture.
    QByteArray xmp = {};         ///< A packet of text.
};

/// Reads a picture: of GIF and WebP the first frame, of TIFF the first page; 16 bits a channel become 8. Formats whose
/// decoders had holes are decoded by a program beside this one, in a process with limits: a malformed file can end that
/// process, never this one. Throws `Error` with `name` when it is none of the formats, damaged or too large, or when
/// something that would read it is not installed. Of JPEG and BMP the picture alone is read.
AnyPicture readAnyPicture(QIODevice& device, const QString& name);
AnyPicture readAnyPicture(const QByteArray& bytes, const QString& name);
/// The same for a file, which the error names.
AnyPicture readAnyPicture(const QString& path);

/// The JPEG that an album keeps of such a picture: as many pixels share a colour as in the file, and camera data, text
/// and profile go with it. Data that is too long for the format is left out. Throws `Error` when there is no picture.
QByteArray jpegOf(const AnyPicture& picture, int quality = 92);
