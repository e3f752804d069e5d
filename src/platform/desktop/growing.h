#pragma once

#include <QRect>
#include <initializer_list>

class QWidget;

/// Growing of controls with the window, page or group that they are on. A control is placed where it is in the smallest
/// window; what its parent has gained since moves its edges.

/// The share of what the parent has gained by which each edge of a control moves.
struct Growth {
    double left = 0, top = 0, right = 0, bottom = 0;

    constexpr Growth operator+(const Growth& other) const {
        return {left + other.left, top + other.top, right + other.right, bottom + other.bottom};
    }
    constexpr Growth operator*(double share) const {
        return {left * share, top * share, right * share, bottom * share};
    }
};

inline constexpr Growth movesRight{1, 0, 1, 0};
inline constexpr Growth movesDown{0, 1, 0, 1};
inline constexpr Growth widens{0, 0, 1, 0};
inline constexpr Growth heightens{0, 0, 0, 1};
inline constexpr Growth fills = widens + heightens;

/// For what is one of several beside each other: its sides move by these shares of the width.
constexpr Growth beside(double left, double right) {
    return {left, 0, right, 0};
}

/// The place of a control in a parent that has gained so much; both in pixels.
QRect grownPlace(const QRect& smallest, const Growth& growth, QSize gained);

/// A control grows in this way from now on, on whatever parent. Its present place is that in the smallest window.
void letGrow(QWidget* control, const Growth& growth);
void letGrow(std::initializer_list<QWidget*> controls, const Growth& growth);

/// Places a control, in pixels of the smallest window.
void setSmallestPlace(QWidget* control, const QRect& place);

/// Where the control is in the smallest window, in pixels. That of one that does not grow is its own.
QRect smallestPlace(const QWidget* control);
