#include "intake/databases/source_sample.h"

#include "catalogue/picture_field.h"
#include "catalogue/table_shape.h"
#include "platform/base/error.h"
#include "platform/desktop/placing.h"
#include "settings/frame/columns.h"

#include <QBuffer>
#include <QHeaderView>
#include <QTableWidget>
#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int records = 3;
constexpr int headingHeight = 18, lineHeight = 18;  ///< Pixels; with a scroll bar below there is room for so much.
constexpr int narrowest = 40, widest = 140;
constexpr QSize smallPicture(40, lineHeight - 1), largePicture(240, 180);

/// A tool tip with the picture in it.
QString enlarged(const QImage& image) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.scaled(largePicture, Qt::KeepAspectRatio, Qt::SmoothTransformation).save(&buffer, "JPG");
    return u"<img src=\"data:image/jpeg;base64,%1\">"_s.arg(QString::fromLatin1(bytes.toBase64()));
}

QTableWidgetItem* pictureCell(Recordset& record, const QString& field) {
    auto cell = std::make_unique<QTableWidgetItem>();
    if (const auto picture = pictureFromField(record, field, largePicture)) {
        cell->setData(Qt::DecorationRole,
                      picture->image().scaled(smallPicture, Qt::KeepAspectRatio, Qt::SmoothTransformation));
        cell->setToolTip(enlarged(picture->image()));
        cell->setData(Qt::AccessibleTextRole, u"图片"_s);
    } else if (record.Fields(field).FieldSize() > 0) {
        cell->setText(u"（不是图片）"_s);
    }
    return cell.release();
}

QTableWidgetItem* cellOf(Recordset& record, const Field& field) {
    if (field.Type() == FieldType::longBinary) return pictureCell(record, field.Name());
    const QString text = field.Type() == FieldType::binary ? u"（字节）"_s : field.Value().textOr();
    auto* cell = new QTableWidgetItem(text);
    cell->setToolTip(cell->text());
    return cell;
}

}  // namespace

SourceSample::SourceSample(const SettingsFrame& frame)
    : grdYl(make<QTableWidget>(frame.sstFz->page(intakeTab), u"grdYl"_s)) {
    grdYl->setAccessibleName(u"源表的前三条记录"_s);
    grdYl->setRowCount(records);
    grdYl->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grdYl->setSelectionMode(QAbstractItemView::NoSelection);
    grdYl->setTabKeyNavigation(false);
    grdYl->setWordWrap(false);
    grdYl->setIconSize(smallPicture);
    grdYl->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    grdYl->verticalHeader()->hide();
    grdYl->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    grdYl->verticalHeader()->setMinimumSectionSize(lineHeight);
    grdYl->verticalHeader()->setDefaultSectionSize(lineHeight);
    grdYl->horizontalHeader()->setFixedHeight(headingHeight);
    grdYl->horizontalHeader()->setMinimumSectionSize(narrowest);
    grdYl->horizontalHeader()->setMaximumSectionSize(widest);
    grdYl->horizontalHeader()->setHighlightSections(false);
    frame.sstFz->putOn(intakeTab, grdYl, 5180, 5400, 4100, 1290);
    letGrow(grdYl, beside(intakeShare, 1) + movesDown);
    grdYl->hide();
}

void SourceSample::show(const Database& source, const QString& table) {
    grdYl->clear();
    QStringList headings;
    for (const FieldShape& field : shapeOf(source, table)) headings << field.name;
    grdYl->setColumnCount(int(headings.size()));
    grdYl->setHorizontalHeaderLabels(headings);
    attempt([&] {
        Recordset rows = source.OpenRecordset(allRecordsSql(table));
        for (int row = 0; row < std::min(rows.rowCount(), records); ++row)
            attempt([&] {
                rows.moveToRow(row);
                showRecord(rows, row);
            });
    });
    showPicturesFirst(source, table);
    grdYl->resizeColumnsToContents();
    grdYl->scrollToTop();
    grdYl->show();
    grdYl->raise();
}

/// Behind the first column, so that they are seen in a small window too.
void SourceSample::showPicturesFirst(const Database& source, const QString& table) {
    QHeaderView* headings = grdYl->horizontalHeader();
    const TableShape shape = shapeOf(source, table);
    for (int column = 0; column < int(shape.size()); ++column)
        headings->moveSection(headings->visualIndex(column), column);
    for (int column = 2; column < int(shape.size()); ++column)
        if (shape[std::size_t(column)].type == FieldType::longBinary)
            headings->moveSection(headings->visualIndex(column), 1);
}

void SourceSample::showRecord(Recordset& record, int row) {
    for (int column = 0; column < record.FieldCount(); ++column)
        attempt([&] { grdYl->setItem(row, column, cellOf(record, record.Fields(column))); });
}

void SourceSample::hide() {
    grdYl->hide();
    grdYl->clear();
}

bool SourceSample::isShown() const {
    return !grdYl->isHidden();
}
