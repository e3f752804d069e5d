#pragma once

#include "platform/picture/picture.h"

/// Decodes a JPEG picture from an open device, piece by piece, in the colours of the file. A picture whose data ends
/// early shows what is there. Throws `Error` with `name` when nothing can be shown.
Picture readJpeg(QIODevice& device, const QString& name, QSize target);

/// Size of the upright picture by what comes before its pixels. Throws `Error` with `name` when `readJpeg` would refuse
/// that.
QSize jpegSize(QIODevice& device, const QString& name);

/// The profile of the red, green and blue of a JPEG, from the beginning of its bytes; empty where it has none that can
/// be used.
QByteArray jpegProfile(const QByteArray& beginning);
