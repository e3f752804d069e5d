#include "platform/database/records/read_only_rows.h"

#include "platform/base/error.h"
#include "platform/database/records/value_conversion.h"

using namespace Qt::Literals::StringLiterals;

namespace {

FieldType typeOfValue(const SQLite::Column& value) {
    if (value.isInteger()) return FieldType::longInteger;
    return value.isFloat() ? FieldType::real : FieldType::memo;
}

/// The declared type of a result column; what is computed has the type of its value.
Column resultColumn(SQLite::Statement& statement, int index) {
    const QString name = QString::fromUtf8(statement.getColumnName(index));
    QString declared;
    if (attempt([&] { declared = QString::fromUtf8(statement.getColumnDeclaredType(index)); })) {
        return declaredColumn(name, declared);
    }
    return {name, statement.hasRow() ? typeOfValue(statement.getColumn(index)) : FieldType::memo, 0};
}

}  // namespace

ReadOnlyRows::ReadOnlyRows(Connection& connection, Tokens query) : connection_(connection), query_(std::move(query)) {
    SQLite::Statement statement = connection.prepare(engineSql(query_));
    bool there = connection.step(statement);
    for (int i = 0; i < statement.getColumnCount(); ++i) columns_.push_back(resultColumn(statement, i));
    for (; there; there = connection.step(statement)) rows_.push_back(storedRow(statement, columns_));
}

int ReadOnlyRows::firstMatch(const Tokens& criteria) {
    SQLite::Statement search = connection_.prepare(
        u"SELECT \"row number\" FROM (SELECT row_number() OVER () AS \"row number\", * FROM (%1)) WHERE %2 LIMIT 1"_s
            .arg(engineSql(query_), engineSql(criteria)));
    const int found = connection_.step(search) ? search.getColumn(0).getInt() - 1 : -1;
    return found < count() ? found : -1;  // the search sees records that have come since
}
