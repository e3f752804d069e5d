#pragma once

#include <QSize>
#include <QString>

/// Throws the `Error` that says which picture cannot be opened, and why.
[[noreturn]] void refusePicture(const QString& name, const QString& reason);

/// Refuses a picture with a side of 0 or above `longestPictureSide`.
void checkSides(QSize pixels, const QString& name);

/// Refuses an image that would take more memory than this computer can reasonably give.
void checkMemory(QSize decoded, const QString& name);

/// Bytes that one decoded picture may take.
qint64 pictureMemoryLimit();
