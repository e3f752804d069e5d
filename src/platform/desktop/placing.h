#pragma once

#include "platform/base/twips.h"

#include <QString>
#include <QWidget>

/// Placing of controls in twips.

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
    control->setGeometry(rectFromTwips(left, top, width, height));
}

inline void place(QWidget* control, int left, int top) {
    control->move(pixelsFromTwips(left), pixelsFromTwips(top));
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
