#include "viewer/drop_list.h"

#include "platform/desktop/placing.h"

#include <algorithm>

DropList::DropList(QWidget* form) : ListBox(form) {
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideNone);
    setSelectionMode(QAbstractItemView::SingleSelection);
    hide();
}

DropList::Role DropList::roleAt(int left) {
    if (left > 4200) return Role::columns;
    if (left > 3000) return Role::numbers;
    return left < 2900 ? Role::albums : Role::none;
}

DropList::Role DropList::role() const {
    return roleAt(leftOf(this));
}

void DropList::open(const QStringList& lines, int left, int top, int width, int height) {
    clear();
    addItems(lines);
    const int rowWidth = sizeHintForColumn(0);
    const bool isNarrow = rowWidth > pixelsFromTwips(width);
    for (int i = 0; isNarrow && i < count(); ++i) item(i)->setTextAlignment(Qt::AlignCenter);
    const int rim = 2 * frameWidth() + 2;
    const int needed = twipsFromPixels(int(lines.size()) * std::max(1, sizeHintForRow(0)) + rim);
    const int room = heightOf(parentWidget()) - top;
    place(this, left, top, width, std::max(height, std::min(needed, room)));
    show();
    raise();
}

void DropList::takeKeys() {
    opener_ = window()->focusWidget();
    if (currentRow() < 0) setCurrentRow(0);
    setFocus(Qt::PopupFocusReason);
}

void DropList::hideEvent(QHideEvent* event) {
    ListBox::hideEvent(event);
    if (hasFocus() && opener_) opener_->setFocus(Qt::PopupFocusReason);
}
