#pragma once

#include <QImage>
#include <QString>

class QWidget;

/// Of every JPEG that the editor makes.
inline constexpr int jpegQuality = 80;

/// Picture files that the editor writes. Everything written over stands or falls whole; failures throw `Error`.

/// Asks for the file that a picture is to be kept in; empty when the dialog was cancelled.
QString askPictureFile(QWidget* parent, const QString& title);

/// Writes a picture file: a JPEG of quality 80 when the name ends in "jpg", exactly so, otherwise a bitmap.
void writePictureFile(const QImage& image, const QString& path);

/// The name under which a picture is kept: one that ends in "jpg" as it is, any other with the ending "bmp".
QString savingName(const QString& chosen);
