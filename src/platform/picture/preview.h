#pragma once

#include "platform/picture/picture.h"

/// Within so many bytes from the beginning of a JPEG file lies the small picture of itself that a camera puts into it.
inline constexpr qint64 previewReach = 72 * 1024;

/// That small picture, upright, from the first `previewReach` bytes of a file (or all of them); a null one where there
/// is none that can be read. Decoding it costs a hundredth of decoding the photograph.
Picture LoadPreview(const QByteArray& beginning);
