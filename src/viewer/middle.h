#pragma once

#include "platform/picture/picture.h"

/// The middle of a picture, as much of it as has the shape of that place: shown there it fills it and is not distorted.
Picture middleFor(QSize place, const Picture& picture);
