#pragma once

#include <QByteArray>
#include <QString>

/// By which the soak knows pictures again: the worked program and whoever looks at the catalogue afterwards compute the
/// same.

/// Of the bytes of a picture, as short as can be told in a line.
QString fingerprintOf(const QByteArray& bytes);

/// The bytes as which a catalogue stores those of a file.
QByteArray asStored(const QByteArray& file);

/// What is wrong with the bytes of a stored picture or of a picture file; empty when they are a whole JPEG or BMP.
QString faultOfPicture(const QByteArray& bytes);
