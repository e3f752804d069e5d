#include "platform/database/table_rows.h"

#include "platform/base/error.h"
#include "platform/database/values.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

std::vector<Column> selectedColumns(const std::vector<Column>& all, const SelectQuery& query) {
    if (query.columns.isEmpty()) return all;
    std::vector<Column> columns;
    for (const QString& name : query.columns) {
        const int index = columnIndex(all, name);
        if (index < 0) throw Error(u"表“%1”中没有列“%2”。"_s.arg(query.table, name));
        columns.push_back(all[static_cast<size_t>(index)]);
    }
    return columns;
}

}  // namespace

TableRows::TableRows(Connection& connection, const SelectQuery& query)
    : connection_(connection), table_(query.table), rowids_(rowidsOf(query.rowidSql())) {
    columns_ = selectedColumns(connection.columnsOf(query.table), query);
}

std::vector<qint64> TableRows::rowidsOf(const QString& sql) {
    std::vector<qint64> rowids;
    SQLite::Statement list = connection_.prepare(sql);
    while (connection_.step(list)) rowids.push_back(list.getColumn(0).getInt64());
    return rowids;
}

QString TableRows::columnList() const {
    QStringList names;
    for (const Column& column : columns_) names << quotedName(column.name);
    return names.join(u", ");
}

Row TableRows::read(int row) {
    if (!readRow_) {
        const QString sql = u"SELECT %1 FROM %2 WHERE _rowid_ = ?"_s.arg(columnList(), quotedName(table_));
        readRow_.emplace(connection_.prepare(sql));
    }
    connection_.checked([&] {
        readRow_->reset();
        readRow_->bind(1, static_cast<int64_t>(rowids_[static_cast<size_t>(row)]));
    });
    if (!connection_.step(*readRow_)) failDeleted();
    Row cells = storedRow(*readRow_, columns_);
    readRow_->reset();
    return cells;
}

int TableRows::firstMatch(const Tokens& criteria) {
    SelectQuery query;
    query.table = table_;
    query.where = criteria;
    const std::vector<qint64> matches = rowidsOf(query.rowidSql());  // in the order of the identities
    const auto meets = [&](qint64 rowid) { return std::ranges::binary_search(matches, rowid); };
    const auto found = std::ranges::find_if(rowids_, meets);
    return found == rowids_.end() ? -1 : static_cast<int>(found - rowids_.begin());
}

void TableRows::update(int row, const PendingValues& values) {
    if (values.empty()) return;
    QStringList assignments;
    for (const auto& [column, value] : values) {
        assignments << quotedName(columns_[static_cast<size_t>(column)].name) + u" = ?"_s;
    }
    runWith(u"UPDATE %1 SET %2 WHERE _rowid_ = ?"_s.arg(quotedName(table_), assignments.join(u", ")), values,
            rowids_[static_cast<size_t>(row)]);
}

void TableRows::add(const PendingValues& values) {
    QStringList names;
    QStringList places;
    for (const auto& [column, value] : values) {
        names << quotedName(columns_[static_cast<size_t>(column)].name);
        places << u"?"_s;
    }
    const QString content =
        names.isEmpty() ? u"DEFAULT VALUES"_s : u"(%1) VALUES (%2)"_s.arg(names.join(u", "), places.join(u", "));
    runWith(u"INSERT INTO %1 %2"_s.arg(quotedName(table_), content), values, std::nullopt);
    rowids_.push_back(connection_.lastRowId());
}

void TableRows::runWith(const QString& sql, const PendingValues& values, std::optional<qint64> rowid) {
    Change change(connection_);
    SQLite::Statement statement = connection_.prepare(sql);
    int place = 0;
    for (const auto& [column, pending] : values) {
        ++place;
        if (!pending.bytes) {
            connection_.checked([&] { bindValue(statement, place, pending.value); });
            continue;
        }
        const qint64 key = connection_.longBinaries().store(*pending.bytes);
        connection_.checked([&] { statement.bind(place, static_cast<int64_t>(key)); });
    }
    const int changed = connection_.checked([&] {
        if (rowid) statement.bind(place + 1, static_cast<int64_t>(*rowid));
        return statement.exec();
    });
    if (changed == 0) failDeleted();
    change.commit();
}

void TableRows::remove(int row) {
    Change change(connection_);
    SQLite::Statement statement = connection_.prepare(u"DELETE FROM %1 WHERE _rowid_ = ?"_s.arg(quotedName(table_)));
    const int changed = connection_.checked([&] {
        statement.bind(1, static_cast<int64_t>(rowids_[static_cast<size_t>(row)]));
        return statement.exec();
    });
    if (changed == 0) failDeleted();
    change.commit();
    rowids_.erase(rowids_.begin() + row);
    attempt([this] { connection_.giveBackSpace(); });
}

void TableRows::failDeleted() const {
    throw Error(u"表“%1”的这条记录已被删除。"_s.arg(table_));
}
