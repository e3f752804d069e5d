#pragma once

#include "platform/base/twips.h"
#include "platform/desktop/growing.h"

#include <QString>
#include <QWidget>

/// Placing of controls in twips. A control that grows (see `letGrow`) is placed where it is in the smallest window;
/// `leftOf` and the like tell where it is by now.

/// Makes a control with its object name on a parent. Elements of a control array are named `imgAn(3)`.
template <typename Control, typename... Arguments>
Control* make(QWidget* parent, const QString& name, Arguments&&... arguments) {
    auto* control = new Control(std::forward<Arguments>(arguments)..., parent);
    control->setObjectName(name);
    return control;
}

/// The object name of element `index` of a control array.
inline QString element(const QString& array, int index) {
    return array + u'(' + QString::number(index) + u')';
}

inline void place(QWidget* control, int left, int top, int width, int height) {
    setSmallestPlace(control, rectFromTwips(left, top, width, height));
}

inline void place(QWidget* control, int left, int top) {
    setSmallestPlace(control, {QPoint(pixelsFromTwips(left), pixelsFromTwips(top)), smallestPlace(control).size()});
}

inline int leftOf(const QWidget* control) {
    return twipsFromPixels(control->x());
}
inline int topOf(const QWidget* control) {
    return twipsFromPixels(control->y());
}
inline int widthOf(const QWidget* control) {
    return twipsFromPixels(control->width());
}
inline int heightOf(const QWidget* control) {
    return twipsFromPixels(control->height());
}
