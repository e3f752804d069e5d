#pragma once

#include <QByteArray>
#include <QString>

/// Fingerprints by which the soak recognises pictures: the worked program and the later inspection compute the same.

/// Fingerprint of the bytes of a picture, short enough for a line of the report.
QString fingerprintOf(const QByteArray& bytes);

/// The bytes as which a catalogue stores those of a file.
QByteArray asStored(const QByteArray& file);

/// What is wrong with the bytes of a stored picture or of a picture file; empty when they are a whole JPEG or BMP.
QString faultOfPicture(const QByteArray& bytes);
