#pragma once

#include "platform/picture/picture.h"

/// Decodes a BMP picture of any depth from an open random-access device. Transparency is passed over: what programs
/// write into the fourth byte of a pixel is seldom meant. Throws `Error` with `name` when nothing can be shown.
Picture readBmp(QIODevice& device, const QString& name);
