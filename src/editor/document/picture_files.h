#pragma once

#include <QImage>
#include <QString>

/// Picture files that the editor writes. Everything written over stands or falls whole; failures throw `Error`.

/// Of every JPEG that the editor makes.
inline constexpr int jpegQuality = 80;

/// The kinds of file that a person can choose from.
inline const QString savedKinds = QStringLiteral("BMP文件(*.bmp)|*.bmp|JPG文件(*.jpg)|*.jpg");

/// Writes a picture file: a JPEG of quality 80 when the name ends in "jpg", exactly so, otherwise a bitmap. The profile
/// that the image's colours need goes with it.
void writePictureFile(const QImage& image, const QByteArray& profile, const QString& path);

/// The name under which a picture is kept: one that ends in "jpg" as it is, any other with the ending "bmp".
QString savingName(const QString& chosen);
