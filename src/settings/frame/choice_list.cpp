#include "settings/frame/choice_list.h"

#include "platform/desktop/list_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/tab_control.h"
#include "settings/frame/settings_tab.h"

#include <QScrollBar>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {
// Twips.
constexpr int lineHeight = 180, frameHeight = 60, listWidth = 600;
constexpr int highestTop = 240;
const QColor green(0, 255, 0);
}  // namespace

ChoiceList::ChoiceList(TabControl* sstFz) : sstFz_(sstFz), lstBh(make<ListBox>(sstFz->page(editingTab), u"lstBh"_s)) {
    lstBh->setAccessibleName(u"可选的编号"_s);
    connect(lstBh, &ListBox::lineClicked, this, [this](int line) { Q_EMIT lineClicked(lstBh->List(line)); });
    connect(lstBh, &ListBox::lineActivated, this, [this](int line) { Q_EMIT lineActivated(lstBh->List(line)); });
}

void ChoiceList::fill(const QStringList& lines) {
    lstBh->clear();
    lstBh->addItems(lines);
}

void ChoiceList::fillAgain(const QStringList& lines) {
    QScrollBar* bar = lstBh->horizontalScrollBar();
    const int place = bar->value();
    const int line = lstBh->currentRow();
    fill(lines);
    lstBh->setCurrentRow(line);
    bar->setValue(place);
}

void ChoiceList::setEnabled(bool on) {
    lstBh->setEnabled(on);
}

void ChoiceList::setToolTip(const QString& text) {
    lstBh->setToolTip(text);
}

void ChoiceList::putOn(int page, const QRect& at, int columns, const Growth& growth) {
    growth_ = growth;
    lstBh->setColumns(columns);
    letGrow(lstBh, growth_);
    sstFz_->putOn(page, lstBh, at.x(), at.y(), at.width(), at.height());
    lstBh->show();
    lstBh->raise();
}

void ChoiceList::openOver(const QWidget* box, const QStringList& lines, const QStringList& tips) {
    if (!isOpen()) borrow(box->parentWidget());
    fill(lines);
    for (int i = 0; i < lstBh->count(); ++i) {
        lstBh->item(i)->setSizeHint({0, pixelsFromTwips(lineHeight)});
        lstBh->item(i)->setToolTip(tips.at(i));
    }
    lstBh->setCurrentRow(-1);
    placeOver(box);
    lstBh->show();
    lstBh->raise();
}

void ChoiceList::borrow(QWidget* group) {
    group_ = group;
    home_ = lstBh->parentWidget();
    place_ = smallestPlace(lstBh);
    palette_ = lstBh->palette();
    font_ = lstBh->font();
    focus_ = lstBh->focusPolicy();
    columns_ = lstBh->columns();
    enabled_ = lstBh->isEnabled();

    letGrow(lstBh, {});
    lstBh->setParent(group);
    lstBh->setColumns(1);
    lstBh->setEnabled(true);
    lstBh->setFocusPolicy(Qt::NoFocus);  // the box goes on being typed into
    QPalette colours = palette_;
    colours.setColor(QPalette::Base, green);
    lstBh->setPalette(colours);
    // The ground of a list follows the program's style sheet, not its palette.
    lstBh->setStyleSheet(u"QListView { background: %1; color: black; }"_s.arg(green.name()));
    QFont small = font_;
    small.setPixelSize(pixelsFromTwips(lineHeight) - 1);
    lstBh->setFont(small);
}

void ChoiceList::placeOver(const QWidget* box) {
    const int room = topOf(box) - highestTop;
    const int whole = lstBh->count() * lineHeight + frameHeight;
    const int height = std::min(whole, room);
    // A scroll bar stands beside the names, not on them.
    const int bar = whole > room ? twipsFromPixels(lstBh->verticalScrollBar()->sizeHint().width()) : 0;
    place(lstBh, leftOf(box), topOf(box) - height, listWidth + bar, height);
}

bool ChoiceList::covers(const QPoint& at) const {
    return lstBh->geometry().contains(at);
}

void ChoiceList::close() {
    if (!isOpen()) return;
    group_ = nullptr;
    lstBh->hide();
    lstBh->clear();
    lstBh->setParent(home_);
    letGrow(lstBh, growth_);
    setSmallestPlace(lstBh, place_);
    lstBh->setStyleSheet(QString());
    lstBh->setPalette(palette_);
    lstBh->setFont(font_);
    lstBh->setFocusPolicy(focus_);
    lstBh->setColumns(columns_);
    lstBh->setEnabled(enabled_);
}
