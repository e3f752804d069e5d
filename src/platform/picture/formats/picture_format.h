#pragma once

#include <QByteArrayView>
#include <QString>

/// The formats of pictures that can be read.
enum class PictureFormat { none, jpeg, bmp, png, gif, webp, tiff, heic, avif };

/// So many bytes from the beginning of a file tell its format.
inline constexpr qsizetype formatBytes = 64;

/// The format by the first bytes, whatever the name of the file says. That the rest is sound is not looked for.
PictureFormat pictureFormat(QByteArrayView beginning);

/// As people call it: "PNG".
QString formatName(PictureFormat format);
