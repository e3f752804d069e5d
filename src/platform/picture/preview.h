#pragma once

#include "platform/picture/picture.h"

/// The small picture of itself that a camera puts into a JPEG file is within so many bytes of the beginning.
inline constexpr qint64 previewReach = 72 * 1024;

/// That small picture, upright and in the colours of the screen, from the first `previewReach` bytes of a file (or all
/// of them); a null one where there is none that can be read. Decoding it costs a hundredth of decoding the photograph.
Picture LoadPreview(const QByteArray& beginning);
