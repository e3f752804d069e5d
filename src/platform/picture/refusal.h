#pragma once

#include <QSize>
#include <QString>

/// Throws the `Error` that says which picture cannot be opened, and why.
[[noreturn]] void refusePicture(const QString& name, const QString& reason);

/// Refuses a picture with a side of 0 or above `longestPictureSide`.
void checkSides(QSize pixels, const QString& name);

/// Refuses a large picture of which there are fewer bytes than one of a single colour needs: decoding what a few bytes
/// claim to be would take as long as decoding what they claim.
void checkSubstance(QSize pixels, qint64 bytes, const QString& name);

/// Bytes of an image in memory.
qint64 imageBytes(QSize pixels);

/// Refuses a picture when all that is held at once to decode it would take more memory than this computer can
/// reasonably give.
void checkMemory(qint64 bytes, QSize pixels, const QString& name);

/// Bytes that decoding one picture may take.
qint64 pictureMemoryLimit();
