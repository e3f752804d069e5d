#include "platform/database/records/editable_rows.h"

#include "platform/base/error.h"
#include "platform/database/records/value_conversion.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

std::vector<Column> selectedColumns(const std::vector<Column>& all, const SelectQuery& query) {
    if (query.columns.isEmpty()) return all;
    std::vector<Column> columns;
    for (const QString& name : query.columns) {
        const int index = columnIndex(all, name);
        if (index < 0) throw Error(u"表“%1”中没有列“%2”。"_s.arg(query.table, name));
        columns.push_back(all[size_t(index)]);
    }
    return columns;
}

/// The first place of a statement is the identity.
constexpr int firstValue = 2;

/// Where a statement takes the value of that number, counted from 0.
QString place(qsizetype number) {
    return u'?' + QString::number(firstValue + number);
}

}  // namespace

EditableRows::EditableRows(Connection& connection, const SelectQuery& query)
    : connection_(connection), table_(query.table), rowids_(rowidsOf(query.rowidSql())) {
    columns_ = selectedColumns(connection.columnsOf(query.table), query);
    if (!rowids_.empty()) connection.noteRowIds(table_, std::ranges::max(rowids_));
}

std::vector<qint64> EditableRows::rowidsOf(const QString& sql) {
    std::vector<qint64> rowids;
    SQLite::Statement list = connection_.prepare(sql, table_);
    while (connection_.step(list)) rowids.push_back(list.getColumn(0).getInt64());
    return rowids;
}

QString EditableRows::columnList() const {
    QStringList names;
    for (const Column& column : columns_) names << quotedName(column.name);
    return names.join(u", ");
}

Row EditableRows::read(int row) {
    if (!readRow_) {
        const QString sql = u"SELECT %1 FROM %2 WHERE _rowid_ = ?"_s.arg(columnList(), quotedName(table_));
        readRow_.emplace(connection_.prepare(sql, table_));
    }
    connection_.checked([&] {
        readRow_->reset();
        readRow_->bind(1, int64_t(rowids_[size_t(row)]));
    });
    if (!connection_.step(*readRow_)) failDeleted();
    Row cells = storedRow(*readRow_, columns_);
    readRow_->reset();
    return cells;
}

int EditableRows::firstMatch(const Tokens& criteria) {
    SelectQuery query;
    query.table = table_;
    query.where = criteria;
    const std::vector<qint64> matches = rowidsOf(query.rowidSql());  // in the order of the identities
    const auto meets = [&](qint64 rowid) { return std::ranges::binary_search(matches, rowid); };
    const auto found = std::ranges::find_if(rowids_, meets);
    return found == rowids_.end() ? -1 : int(found - rowids_.begin());
}

void EditableRows::update(int row, const PendingValues& values) {
    if (values.empty()) return;
    QStringList assignments;
    for (const auto& [column, value] : values)
        assignments << quotedName(columns_[size_t(column)].name) + u" = "_s + place(assignments.size());
    Change change(connection_);
    const QString sql = u"UPDATE %1 SET %2 WHERE _rowid_ = ?1"_s.arg(quotedName(table_), assignments.join(u", "));
    if (runWith(sql, rowids_[size_t(row)], values) == 0) failDeleted();
    change.commit();
}

void EditableRows::add(const PendingValues& values) {
    Change change(connection_);
    // The identity comes first: in another program's table a column may be the identity itself, and the last one
    // counts.
    QStringList names{u"_rowid_"_s}, places{u"?1"_s};
    for (const auto& [column, value] : values) {
        places << place(names.size() - 1);
        names << quotedName(columns_[size_t(column)].name);
    }
    runWith(u"INSERT INTO %1 (%2) VALUES (%3)"_s.arg(quotedName(table_), names.join(u", "), places.join(u", ")),
            connection_.newRowId(table_), values);
    const qint64 rowid = connection_.lastRowId();
    change.commit();
    rowids_.push_back(rowid);
}

int EditableRows::runWith(const QString& sql, qint64 identity, const PendingValues& values) {
    auto statement = connection_.kept(sql, table_);
    connection_.checked([&] { statement->bind(1, int64_t(identity)); });
    int place = firstValue;
    for (const auto& [at, pending] : values) {
        if (!pending.bytes) {
            connection_.checked([&, &at = at, &stored = pending.value] {
                bindValue(*statement, place, stored, columns_[size_t(at)].type);
            });
        } else {
            const qint64 key = connection_.longBinaries().store(*pending.bytes);
            connection_.checked([&] { statement->bind(place, int64_t(key)); });
        }
        ++place;
    }
    return connection_.checked([&] { return statement->exec(); });
}

void EditableRows::remove(int row) {
    Change change(connection_);
    const QString sql = u"DELETE FROM %1 WHERE _rowid_ = ?1"_s.arg(quotedName(table_));
    if (runWith(sql, rowids_[size_t(row)], {}) == 0) failDeleted();
    change.commit();
    rowids_.erase(rowids_.begin() + row);
    connection_.giveBackSpaceLater();
}

void EditableRows::failDeleted() const {
    throw Error(u"表“%1”的这条记录已被删除。"_s.arg(table_));
}
