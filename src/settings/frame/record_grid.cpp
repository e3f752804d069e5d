#include "settings/frame/record_grid.h"

#include "catalogue/mektp.h"
#include "catalogue/remembered.h"
#include "platform/desktop/data_control.h"
#include "platform/desktop/grid.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/tab_control.h"
#include "settings/frame/settings_tab.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

QString textOfWidths(const Grid::Widths& widths) {
    QJsonObject object;
    for (auto width = widths.begin(); width != widths.end(); ++width) object[width.key()] = width.value();
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

/// None where the text is none of ours.
Grid::Widths widthsOfText(const QString& text) {
    constexpr int widest = 2000;
    Grid::Widths widths;
    const QJsonObject object = QJsonDocument::fromJson(text.toUtf8()).object();
    for (auto width = object.begin(); width != object.end(); ++width)
        if (width->isDouble()) widths[width.key()] = std::clamp(width->toInt(), 0, widest);
    return widths;
}

}  // namespace

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
    connect(msgBm, &Grid::widthGiven, this,
            [this] { remembered::setText(widthsName_, textOfWidths(msgBm->widths())); });
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

void RecordGrid::setGrowth(const Growth& growth) {
    letGrow(msgBm, growth);
}

void RecordGrid::rememberWidths(int page) {
    widthsName_ = u"grid.%1"_s.arg(page);
    msgBm->setWidths(widthsOfText(remembered::text(widthsName_)));
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
