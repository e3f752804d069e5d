#pragma once

#include <QColor>
#include <QString>

/// The colours that windows and controls share, and the rules of contrast. A colour of one control alone is in that
/// control's file.
namespace theme {

/// One set of colours. `light()` is the usual one; on a dark ground the whole program wears `dark()`.
struct Colours {
    QColor window;       ///< Ground of windows.
    QColor base;         ///< Ground of boxes, lists and menus.
    QColor alternate;    ///< The same, in every second row.
    QColor panel;        ///< Ground of buttons and small dialogs.
    QColor button;       ///< Ground of controls that the toolkit draws.
    QColor midlight;     ///< Ground on which a lit edge shows.
    QColor ink;          ///< Text.
    QColor faint;        ///< Text of less weight.
    QColor muted;        ///< Text that is switched off.
    QColor accent;       ///< What is chosen or has the focus.
    QColor onAccent;     ///< Text on it.
    QColor quietChoice;  ///< What is chosen in a window that is not active.
    QColor accentTint;   ///< Its palest shade, as a ground.
    QColor hover;        ///< Ground under the mouse.
    QColor hoverEdge;    ///< Border under the mouse.
    QColor pressed;      ///< Ground of what is pressed or switched on.
    QColor line;         ///< Thin lines between parts.
    QColor edge;         ///< Border of a control.
    QColor firmEdge;     ///< Border that has to be seen: small dialogs, the page.
    QColor off;          ///< Ground of what is switched off.
    QColor offEdge;      ///< Border of what is switched off.
    QColor locked;       ///< Ground of a box that takes no typing.
    QColor header;       ///< Ground of the heads of tables, and of scroll bars.
    QColor headerText;   ///< Text of heads and tabs.
    QColor handle;       ///< Handle of a scroll bar.
    QColor groove;       ///< Sunken parts.
    QColor bench;        ///< Ground around a picture that is worked on.
    QColor dial;         ///< Dials, a choice that is switched off.
    QColor shade;        ///< Firm outlines.
    QColor lit;          ///< The light side of a raised frame.
    QColor shadow;       ///< The dark side of a raised frame.
    QColor alert;        ///< Red: marks on a picture.
    QColor visited;      ///< A link that was followed.
    QColor tip;          ///< Ground of tool tips.
    QColor tipText;      ///< Text of tool tips.

    bool operator==(const Colours& other) const = default;
};

Colours light();

/// Colours in the tone of a dark ground.
Colours dark(const QColor& ground);

/// What the program wears now; `wearColours` (look.h) changes it.
const Colours& worn();
void setWorn(const Colours& colours);

/// A style sheet in which `@accent`, `@edge` and so on are replaced by the colours worn.
QString filledIn(QString sheet);

/// How much two colours differ in brightness: 1 for the same, 21 for black and white.
double contrast(const QColor& one, const QColor& other);

/// Contrasts that can be read and seen with ease.
inline constexpr double textContrast = 4.5;
inline constexpr double signContrast = 3;

/// Whether white is easier to read on that ground than black.
bool isDark(const QColor& ground);

/// `share` of the second colour, the rest of the first.
QColor mixed(const QColor& first, const QColor& second, double share);

/// The colour, where needed made so much lighter or darker that it is seen on the ground.
QColor readable(const QColor& colour, const QColor& ground, double least = textContrast);

/// A colour chosen for light grounds: as it is on them, and made readable where the program wears dark colours.
QColor adapted(const QColor& colour);

/// The colour, faded into the ground: seen there, but clearly switched off.
QColor faded(const QColor& colour, const QColor& ground);

}  // namespace theme
