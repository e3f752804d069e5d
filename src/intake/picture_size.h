#pragma once

#include <QSize>

/// Target for a picture of which only the size is wanted: it may be decoded as small as the decoder can.
inline constexpr QSize sizeOnly{1, 1};
