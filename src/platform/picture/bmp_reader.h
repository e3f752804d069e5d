#pragma once

#include "platform/picture/picture.h"

/// Decodes a BMP picture of any depth from an open random-access device, in the colours of the file. Transparency is
/// ignored: programs seldom mean what they write into the fourth byte of a pixel. Throws `Error` with `name` when
/// nothing can be shown.
Picture readBmp(QIODevice& device, const QString& name);

/// Size of the picture by its header. Throws `Error` with `name` when `readBmp` would refuse that.
QSize bmpSize(QIODevice& device, const QString& name);
