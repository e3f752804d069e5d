#pragma once

#include "platform/picture/picture.h"

/// Decodes a JPEG picture from an open device, piece by piece: the coded bytes are never held whole. A picture whose
/// data ends early shows what is there. Throws `Error` with `name` when nothing can be shown.
Picture readJpeg(QIODevice& device, const QString& name, QSize target);
