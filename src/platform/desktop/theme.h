#pragma once

#include <QColor>
#include <QString>

/// The colours that several windows or controls share. A colour of one control alone is in that control's file.
namespace theme {

inline constexpr QColor accent(0x1f, 0x6f, 0x8b);      ///< Teal: what is chosen or has the focus.
inline constexpr QColor accentTint(0xee, 0xf5, 0xf7);  ///< Its palest shade, as a ground.
inline constexpr QColor alert(0xc0, 0x39, 0x2b);       ///< Red: marks on a picture.
inline constexpr QColor muted(0x8d, 0x87, 0x7d);       ///< Text of less weight, or switched off.
inline constexpr QColor panel(0xfd, 0xfc, 0xf9);       ///< Ground of buttons and small dialogs.
inline constexpr QColor line(0xd8, 0xd0, 0xc2);        ///< Thin lines between parts.
inline constexpr QColor edge(0xc9, 0xc1, 0xb2);        ///< Border of a control.
inline constexpr QColor firmEdge(0xa9, 0xa1, 0x92);    ///< Border that has to be seen: small dialogs, the page.
inline constexpr QColor groove(0xe4, 0xde, 0xd3);      ///< Sunken parts.
inline constexpr QColor dial(0xcf, 0xc8, 0xba);        ///< Medium grey: dials, a selection that is switched off.
inline constexpr QColor shade(0x6f, 0x69, 0x5e);       ///< Dark outlines.
inline constexpr QColor shadow(0x80, 0x80, 0x80);      ///< The dark side of a raised frame, whose light one is white.

/// A style sheet in which `@accent`, `@edge` and so on are replaced by these colours.
QString filledIn(QString sheet);

}  // namespace theme
