#include "catalogue/conversion/old_records.h"

#include "platform/base/error.h"
#include "platform/database/records/reading_notes.h"

using namespace Qt::Literals::StringLiterals;

std::vector<TakenColumn> commonColumns(const Database& old, const QString& from, const Database& target,
                                       const QString& to) {
    const TableShape shape = shapeOf(old, from);
    std::vector<TakenColumn> columns;
    for (const FieldShape& column : shapeOf(target, to))
        if (const auto found = fieldNamed(shape, column.name))
            columns.push_back({found->name, column.name, column.type});
    return columns;
}

OldRecords::OldRecords(const Database& old, const QString& table, std::vector<TakenColumn> columns,
                       const QString& source)
    : columns_(std::move(columns)), records_(old.OpenRecordset(source.isEmpty() ? allRecordsSql(table) : source)) {
    const TableShape shape = shapeOf(old, table);
    // The copy numbers its records in their order. A long value that is lost is noticed when it is read.
    for (const ReadingNotes::LostValue& lost : ReadingNotes(old).lostValues(table))
        if (const auto column = fieldNamed(shape, lost.column); column && column->type != FieldType::longBinary)
            lost_[int(lost.row) - 1] << lost.column;
}

OldRecord OldRecords::read(int row) {
    records_.moveToRow(row);
    OldRecord record{.lost = lost_.value(row)};
    record.values.resize(columns_.size());
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        std::optional<FieldValue>& value = record.values[i];
        try {
            value = records_.Fields(columns_[i].source).Value();
        } catch (const Error&) {
            continue;
        }
        const auto* bytes = std::get_if<QByteArray>(&value->storage());
        if (columns_[i].target == u"图片" && bytes != nullptr) record.picture = *bytes;
    }
    return record;
}
