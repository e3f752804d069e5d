#pragma once

#include <QSize>
#include <QString>

/// Throws the `Error` that says which picture cannot be opened, and why.
[[noreturn]] void refusePicture(const QString& name, const QString& reason);

/// Refuses a picture with a side of 0 or above `longestPictureSide`.
void checkSides(QSize pixels, const QString& name);

/// Refuses a large picture with fewer bytes than even one of a single colour needs: decoding it would take as long as a
/// real picture of the size that its header claims.
void checkSubstance(QSize pixels, qint64 bytes, const QString& name);

/// Bytes of an image in memory.
qint64 imageBytes(QSize pixels);

/// Refuses a picture when decoding it takes more bytes of memory than this computer can reasonably give.
void checkMemory(qint64 bytes, QSize pixels, const QString& name);

/// Bytes that decoding one picture may take.
qint64 pictureMemoryLimit();
