#pragma once

#include <QString>
#include <optional>

/// Rules of the strip of page captions. Places are twips from the upper left corner of the tab control.

/// What the hint line tells about the page whose caption is at this place; nothing beside the captions.
std::optional<QString> captionHint(int x, int y);

/// Whether the pointer at this place is about to leave the page, so that unfinished work needs a warning. The blank
/// end of the strip is left out.
bool leadsToOtherPage(int x, int y);
