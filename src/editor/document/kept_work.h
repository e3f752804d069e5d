#pragma once

#include "editor/document/picture_source.h"

#include <optional>

/// Where the picture of the steps in the catalogue came from. It is kept with them, so that after a crash or a power
/// cut the work can go on. None of these throws.

void keepSource(const PictureSource& source);
/// The steps are gone, or belong to nothing any more.
void forgetSource();
/// Nothing where there are no steps, or nobody knows of what.
std::optional<PictureSource> keptSource();
