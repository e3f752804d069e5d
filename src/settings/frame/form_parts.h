#pragma once

#include "platform/database/records/recordset.h"
#include "platform/desktop/placing.h"
#include "settings/frame/columns.h"

#include <QGroupBox>
#include <QLabel>
#include <functional>

class QPushButton;
class TabControl;
class TextBox;

/// The pieces that the groups of the page 图册设置 are made of. Lengths are twips.

inline constexpr int rowHeight = 330;
inline constexpr int rowPitch = 390;
inline constexpr int firstRow = 300;

/// Top of row `index` inside a group.
constexpr int rowTop(int index) {
    return firstRow + index * rowPitch;
}

/// A group with its caption on a page; the place is told from the corner of the tab control.
QGroupBox* makeGroup(TabControl* sstFz, int page, const QString& name, const QString& caption, const QRect& twips,
                     const Growth& growth);

QLabel* makeCaption(QWidget* group, const QString& text, int left, int top, int width);

/// A control with its caption in front of it, which stays there when the control grows.
template <typename Control>
Control* makeLabelled(QWidget* group, const QString& name, const QString& caption, const QPoint& at, int captionWidth,
                      int width, const Growth& growth = {}) {
    QLabel* label = makeCaption(group, caption, at.x(), at.y(), captionWidth);
    auto* control = make<Control>(group, name);
    place(control, at.x() + captionWidth, at.y(), width, rowHeight);
    letGrow(control, growth);
    letGrow(label, {growth.left, growth.top, growth.left, growth.bottom});
    label->setBuddy(control);
    return control;
}

/// At the right edge of what grows wider.
QPushButton* makeButton(QWidget* group, const QString& name, const QString& caption, int left, int top,
                        int width = 1000);

/// What is said of a box whose text is longer than its typing limit, with both counts; empty when it fits.
QString lengthFault(const QString& caption, const TextBox& box);

/// Typing in a box stops where the column ends that it is stored in.
void limitTyping(TextBox* box, const Recordset& records, const QString& column);

/// Asks what becomes of changes that are not stored yet. True when they were stored, or may be lost; `store` tells
/// whether it has stored them.
bool mayBeLeft(QWidget* form, const QString& text, const std::function<bool()>& store);

/// A box that only shows a value, in grey.
void makeDisplayOnly(TextBox* box);
