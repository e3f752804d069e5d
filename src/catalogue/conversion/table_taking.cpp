#include "catalogue/conversion/table_taking.h"

#include "platform/base/error.h"

#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

QString declaration(const FieldShape& column) {
    const QString name = u'[' + column.name + u"] "_s;
    switch (column.type) {
        case FieldType::boolean:
            return name + u"YESNO"_s;
        case FieldType::single:
            return name + u"SINGLE"_s;
        case FieldType::real:
            return name + u"DOUBLE"_s;
        case FieldType::date:
            return name + u"DATETIME"_s;
        case FieldType::longBinary:
            return name + u"LONGBINARY"_s;
        case FieldType::memo:
            return name + u"MEMO"_s;
        case FieldType::text:
            return name + u"TEXT(%1)"_s.arg(column.size);
        default:
            return name + u"LONG"_s;
    }
}

/// The column of a new table, with room for the texts of an old one.
FieldShape roomy(FieldShape column, const std::optional<FieldShape>& old) {
    if (column.type != FieldType::text || !old) return column;
    if (old->type == FieldType::memo) column.type = FieldType::memo;
    if (old->type == FieldType::text) column.size = std::max(column.size, old->size);
    return column;
}

QString shortened(const QString& text) {
    constexpr qsizetype most = 60;
    return text.size() > most ? text.left(most) + u'…' : text;
}

QString unreadable(const QString& column) {
    return u"“%1”损坏，不能读取"_s.arg(column);
}

}  // namespace

TableTaking::TableTaking(const Database& target, const QString& table, std::vector<TakenColumn> columns)
    : columns_(std::move(columns)), target_(target.OpenRecordset(noRecordsSql(table))) {}

TableTaking::Taken TableTaking::store(const OldRecord& record, const Change& change) {
    Taken taken;
    target_.AddNew();
    try {
        for (std::size_t i = 0; i < columns_.size(); ++i) {
            if (record.values[i])
                storeValue(columns_[i], *record.values[i], change, taken);
            else
                taken.odd << unreadable(columns_[i].target);
        }
        for (const QString& column : record.lost) taken.odd << unreadable(column);
        target_.Update();
    } catch (...) {
        attempt([&] { target_.CancelUpdate(); });
        throw;
    }
    return taken;
}

void TableTaking::storeValue(const TakenColumn& column, FieldValue value, const Change& change, Taken& taken) {
    if (value.isNull()) return;
    const bool isBytes = std::holds_alternative<QByteArray>(value.storage());
    if (change && !isBytes && column.type != FieldType::date) {
        const QString text = value.toText(), changed = change(column.target, text);
        if (changed != text) value = changed;
    }
    try {
        target_.Fields(column.target).SetValue(value);
    } catch (const Error&) {
        const QString shown = isBytes ? u"二进制数据"_s : u"“%1”"_s.arg(shortened(value.toText()));
        taken.odd << u"“%1”原来是%2，不能存入"_s.arg(column.target, shown);
        return;
    }
    if (column.target == u"序号") taken.number = value.toText();
}

std::vector<TableTaking::Taken> takeTable(const Database& old, const QString& from, const Database& target,
                                          const QString& to, const TableTaking::Change& change, const QString& source) {
    OldRecords records(old, from, commonColumns(old, from, target, to), source);
    TableTaking taking(target, to, records.columns());
    std::vector<TableTaking::Taken> all;
    all.reserve(std::size_t(records.count()));
    for (int row = 0; row < records.count(); ++row) all.push_back(taking.store(records.read(row), change));
    return all;
}

void makeRoomFor(const Database& old, const QString& from, const Database& target, const QString& to) {
    const TableShape shape = shapeOf(old, from);
    QStringList columns;
    bool isNew = false;
    for (const FieldShape& column : shapeOf(target, to)) {
        const FieldShape wider = roomy(column, fieldNamed(shape, column.name));
        isNew = isNew || wider.size != column.size || wider.type != column.type;
        columns << declaration(wider);
    }
    if (!isNew) return;
    Transaction transaction(target);
    target.Execute(u"DROP TABLE ["_s + to + u']');
    target.Execute(u"CREATE TABLE ["_s + to + u"] ("_s + columns.join(u',') + u')');
    transaction.commit();
}
