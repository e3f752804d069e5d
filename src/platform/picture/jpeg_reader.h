#pragma once

#include "platform/picture/picture.h"

/// Decodes a JPEG picture from an open device, piece by piece. A picture whose data ends early shows what is there.
/// Throws `Error` with `name` when nothing can be shown.
Picture readJpeg(QIODevice& device, const QString& name, QSize target);

/// Size of the upright picture by what comes before its pixels. Throws `Error` with `name` when `readJpeg` would refuse
/// that.
QSize jpegSize(QIODevice& device, const QString& name);
