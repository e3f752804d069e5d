#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QString>

/// Whether bytes are a whole picture, judged by headers, segments and their end.
enum class PictureBytes {
    whole,
    truncated,    ///< The beginning of a BMP or JPEG whose end is missing.
    notAPicture,  ///< Neither BMP nor JPEG.
};

/// Reads the device once, from its present place to the end of the picture, and decodes nothing: much quicker than
/// loading. Bytes behind the picture do not matter, be they zeros or a second picture. Throws `Error` that calls the
/// picture `name` when the device fails.
PictureBytes pictureBytes(QIODevice& device, const QString& name);
PictureBytes pictureBytes(const QByteArray& bytes);

/// The same for a file. Throws `Error` that names it when it cannot be read.
PictureBytes pictureBytesOfFile(const QString& path);
