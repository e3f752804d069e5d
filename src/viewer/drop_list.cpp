#include "viewer/drop_list.h"

#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"

#include <algorithm>
#include <utility>

namespace {
constexpr int listTop = 380;  // below the tool bar
}

DropList::DropList(QWidget* form) : ListBox(form) {
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setTextElideMode(Qt::ElideNone);
    setSelectionMode(QAbstractItemView::SingleSelection);
    hide();
    connect(this, &ListBox::lineClicked, this, [this](int index) { runHandler(window(), [&] { choose(index); }); });
}

void DropList::choose(int index) {
    hide();
    chosen_(index);
}

void DropList::openUnder(const QWidget* box, const QStringList& lines, Chosen chosen) {
    open(box->accessibleName(), lines, leftOf(box) + 70, widthOf(box), 1000, std::move(chosen));
}

void DropList::open(const QString& name, const QStringList& lines, int left, int width, int height, Chosen chosen) {
    chosen_ = std::move(chosen);
    setAccessibleName(name);
    clear();
    addItems(lines);
    const int rowWidth = sizeHintForColumn(0);
    const bool isNarrow = rowWidth > pixelsFromTwips(width);
    for (int i = 0; isNarrow && i < count(); ++i) item(i)->setTextAlignment(Qt::AlignCenter);
    const int rim = 2 * frameWidth() + 2;
    const int needed = twipsFromPixels(int(lines.size()) * std::max(1, sizeHintForRow(0)) + rim);
    const int room = heightOf(parentWidget()) - listTop;
    place(this, left, listTop, width, std::max(height, std::min(needed, room)));
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
