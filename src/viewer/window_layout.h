#pragma once

#include "viewer/page_layout.h"

/// Places of the fixed parts of the main window at a given size of the window. All lengths are twips; heights count
/// from below the menu bar.

struct LineEnds {
    int x1, y1, x2, y2;
    bool operator==(const LineEnds& other) const = default;
};

struct WindowLayout {
    int buttonStripHeight;
    Box page;                           ///< `pic1`, and `pic0` that covers it.
    LineEnds top, left, bottom, right;  ///< `lin1` to `lin4` around the page.
    Box outerFrame, innerFrame;         ///< `shpAb` and `shpA1` around the button column.
    int barWidth, stripWidth;           ///< `clb1` and `tlb1`.
    int messagePanelWidth;              ///< Third panel of the status bar.
};

/// `raise` is taken off vertical positions: half of `mekTp::titleBarExtra`.
WindowLayout windowLayout(int width, int height, int raise);

/// Places on the tool bar that follow the width of the window.
struct StripLayout {
    int titleLeft, titleWidth;  ///< `picBq`
    int draw, columns, show, interval, captions, fullScreen, original, help, leave;
};
StripLayout stripLayout(int width);

/// Place of a column of selection buttons, 4 by 3, in the outer frame: the rules of the button slots.
struct ButtonColumn {
    int slots, gap;
    /// Distance of a button's top from the top of the frame.
    int topOf(int slot) const;
};
inline constexpr int buttonHeight = 1225;
inline constexpr int buttonWidth = 1633;
ButtonColumn buttonColumn(int stripHeight);
