#include "intake/browsing/chosen_lines.h"

#include "platform/desktop/list_box.h"
#include "platform/desktop/placing.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int mostColumns = 5;
}  // namespace

ChosenLines::ChosenLines(const SettingsFrame& frame)
    : sstFz_(frame.sstFz), lstSu(make<ListBox>(frame.sstFz->page(intakeTab), u"lstSu"_s)) {
    lstSu->setAccessibleName(u"选中的文件"_s);
    lstSu->hide();
    connect(lstSu, &ListBox::lineClicked, this, &ChosenLines::clicked);
}

int ChosenLines::count() const {
    return lstSu->count();
}

QString ChosenLines::at(int index) const {
    return lstSu->List(index);
}

QStringList ChosenLines::all() const {
    QStringList lines;
    for (int i = 0; i < count(); ++i) lines << at(i);
    return lines;
}

void ChosenLines::add(const QString& line) {
    lstSu->AddItem(line);
}

void ChosenLines::addAll(const QStringList& lines) {
    lstSu->addItems(lines);
}

void ChosenLines::drop(int index) {
    delete lstSu->takeItem(index);
}

void ChosenLines::clear() {
    lstSu->clear();
}

void ChosenLines::putOn(int page, const QRect& at, const Growth& growth) {
    letGrow(lstSu, growth);
    sstFz_->putOn(page, lstSu, at.x(), at.y(), at.width(), at.height());
}

void ChosenLines::show() {
    lstSu->show();
    lstSu->raise();
}

void ChosenLines::hide() {
    lstSu->hide();
}

void ChosenLines::setEnabled(bool on) {
    lstSu->setEnabled(on);
}

void ChosenLines::setColumns(int columns) {
    lstSu->setColumns(columns);
}

void ChosenLines::fitColumns() {
    const QListWidgetItem* widest = nullptr;
    for (int i = 0; i < count(); ++i)
        if (widest == nullptr || lstSu->item(i)->text().size() > widest->text().size()) widest = lstSu->item(i);
    const int needed =
        widest == nullptr ? 1 : std::max(1, lstSu->sizeHintForIndex(lstSu->indexFromItem(widest)).width());
    lstSu->setColumns(std::clamp(lstSu->viewport()->width() / needed, 1, mostColumns));
}
