#pragma once

#include "platform/picture/exif.h"

#include <QString>
#include <optional>

/// What the words of the operations in the window's caption, such as " 水平翻转 90度", have done to the whole picture,
/// when they are flips and turns by right angles alone; nothing when there is any other among them. No words: upright.
std::optional<Orientation> turnOfTrail(const QString& trail);
