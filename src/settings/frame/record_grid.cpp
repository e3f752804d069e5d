#include "settings/frame/record_grid.h"

#include "catalogue/mektp.h"
#include "platform/desktop/data_control.h"
#include "platform/desktop/grid.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/tab_control.h"
#include "settings/frame/settings_tab.h"

using namespace Qt::Literals::StringLiterals;

RecordGrid::RecordGrid(TabControl* sstFz)
    : sstFz_(sstFz),
      datBj(make<DataControl>(sstFz->page(editingTab), u"datBj"_s)),
      msgBm(make<Grid>(sstFz->page(setupTab), u"msgBm"_s)) {
    msgBm->setAccessibleName(u"记录"_s);
    msgBm->bind(datBj);
    datBj->useDatabase(mekTp::catalogue);
    datBj->mayGoTo = [this](int row) { return !mayGoTo || mayGoTo(row); };
    connect(msgBm, &Grid::rowSelected, this, [this] { Q_EMIT rowSelected(); });
    connect(msgBm, &Grid::rowClicked, this, [this] { Q_EMIT rowClicked(); });
    connect(datBj, &DataControl::refreshed, this, &RecordGrid::listed);
    connect(datBj, &DataControl::repositioned, this, &RecordGrid::moved);
}

void RecordGrid::list(const QString& source) {
    list(source, mekTp::cataloguePath());
}

void RecordGrid::list(const QString& source, const QString& database) {
    datBj->setDatabaseName(database);
    datBj->setRecordSource(source);
    datBj->Refresh();
}

void RecordGrid::listAlbum(const QString& table, const QString& orderColumn) {
    list(u"SELECT * FROM "_s + table + u" ORDER BY ["_s + orderColumn + u']');
}

void RecordGrid::listAgain() {
    datBj->Refresh();
}

void RecordGrid::clear() {
    msgBm->Clear();
}

int RecordGrid::total() const {
    return datBj->total();
}

Recordset& RecordGrid::records() const {
    return datBj->Recordset();
}

void RecordGrid::moveToRow(int row) {
    datBj->moveToRow(row);
}

bool RecordGrid::findFirst(const QString& criteria) {
    return datBj->findFirst(criteria);
}

void RecordGrid::hold() {
    msgBm->hold();
}

void RecordGrid::release() {
    msgBm->release();
}

void RecordGrid::setEnabled(bool on) {
    msgBm->setEnabled(on);
}

void RecordGrid::setHeadings(const QString& headings) {
    msgBm->setFormatString(headings);
}

void RecordGrid::putOn(int page, const QRect& at) {
    sstFz_->putOn(page, msgBm, at.x(), at.y(), at.width(), at.height());
    msgBm->show();
}

void RecordGrid::raise() {
    msgBm->raise();
}

void RecordGrid::putIn(QWidget* group, const QRect& at) {
    msgBm->setParent(group);
    place(msgBm, at.x(), at.y(), at.width(), at.height());
    msgBm->show();
}

void RecordGrid::putMoverIn(QWidget* group, const QRect& at, const QString& caption) {
    datBj->setParent(group);
    datBj->show();
    datBj->setCaption(caption);
    place(datBj, at.x(), at.y(), at.width(), at.height());
}

void RecordGrid::setMoverEnabled(bool on) {
    datBj->setEnabled(on);
}
