#pragma once

#include "platform/picture/exif.h"

#include <QByteArray>
#include <optional>

/// Turning a JPEG without decoding it: its blocks change their places, and nothing is lost.

/// The turn that has the effect of one after the other.
Orientation composed(Orientation first, Orientation then);

/// The stored pixels of a JPEG turned, as a file with the same segments. Nothing when a side that would come to the
/// upper or left edge is no whole number of blocks, or when the file is damaged.
std::optional<QByteArray> turnedJpeg(const QByteArray& jpeg, Orientation turn);
