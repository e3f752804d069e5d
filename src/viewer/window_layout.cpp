#include "viewer/window_layout.h"

#include "platform/base/twips.h"

#include <algorithm>

namespace {
constexpr int pageLeft = 1950;
constexpr int frameLeft = 1930;
constexpr int columnLeft = 75;
constexpr int columnWidth = 1800;
constexpr int innerMargin = 40;
constexpr int endOfLeftGroup = 5280;  // of the tool bar, room for a separator behind it
constexpr int rightGroup = 5280;
}  // namespace

WindowLayout windowLayout(int width, int height, int raise) {
    WindowLayout layout{};
    layout.page = {pageLeft, 510 - raise, width - 2160, height - 1590};
    layout.buttonStripHeight = layout.page.height - 795;

    const int bottom = height - 1070 - raise;
    layout.top = {frameLeft, 480 - raise, width - 190, 480 - raise};
    layout.left = {frameLeft, 490 - raise, frameLeft, bottom};
    layout.bottom = {frameLeft, bottom, width - 200, bottom};
    layout.right = {width - 190, 510 - raise, width - 190, bottom};

    layout.outerFrame = {columnLeft, 510 - raise, columnWidth, layout.page.height};
    layout.innerFrame = {columnLeft + innerMargin, 570 - raise, columnWidth - 2 * innerMargin,
                         layout.page.height - 115};
    layout.barWidth = width - 100;
    layout.stripWidth = width - 200;
    layout.messagePanelWidth = width - 6950;
    return layout;
}

StripLayout stripLayout(int width) {
    StripLayout strip{};
    strip.titleLeft = width / 2 - 800;
    strip.titleWidth = std::max(0, std::min(3600, width / 2 - 4630));
    // In the narrowest windows the right group is cut off at the edge, so that it does not cover the left one.
    const int right = std::max(width, endOfLeftGroup + rightGroup);
    strip.draw = right - rightGroup;
    strip.columns = right - 4700;
    strip.show = right - 3960;
    strip.interval = right - 3550;
    strip.captions = right - 3120;
    strip.fullScreen = right - 2400;
    strip.original = right - 1680;
    strip.help = right - 1190;
    strip.leave = right - 700;
    return strip;
}

int ButtonColumn::topOf(int slot) const {
    return 405 + gap + slot * (gap + buttonHeight);
}

ButtonColumn buttonColumn(int stripHeight) {
    const int slots = std::max(0, stripHeight / 1250);
    return {slots, roundHalfEven(double(stripHeight % 1225) / (slots + 1))};
}
