#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QString>

/// What bytes that should be a picture are worth, told from headers, segments and where they end.
enum class PictureBytes {
    whole,
    truncated,    ///< The beginning of a BMP or JPEG whose end is missing.
    notAPicture,  ///< Neither BMP nor JPEG.
};

/// Looks at the bytes from where the device stands, once from front to back, and decodes nothing: much quicker than
/// loading. What lies behind the picture counts for nothing, be it zeros or a second picture. Throws `Error` that calls
/// the picture `name` when the device fails.
PictureBytes pictureBytes(QIODevice& device, const QString& name);
PictureBytes pictureBytes(const QByteArray& bytes);

/// The same for a file. Throws `Error` that names it when it cannot be read.
PictureBytes pictureBytesOfFile(const QString& path);
