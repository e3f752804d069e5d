#pragma once

#include "platform/desktop/growing.h"

/// How the pages of the settings window share the width that it has gained. What is on the left, the grid for the most
/// part, takes this much of it; what is on the right takes the rest.
inline constexpr double leftShare = 2.0 / 3;  ///< 图册设置 and 图册编辑
inline constexpr double intakeShare = 0.5, transferShare = 0.7;

inline constexpr Growth leftColumn = beside(0, leftShare), rightColumn = beside(leftShare, 1);
