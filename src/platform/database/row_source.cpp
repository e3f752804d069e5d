#include "platform/database/row_source.h"

#include "platform/base/error.h"
#include "platform/database/fixed_rows.h"
#include "platform/database/table_rows.h"

using namespace Qt::Literals::StringLiterals;

namespace {

bool isSelect(const QString& source) {
    const QString start = source.left(7);
    return start.startsWith(u"SELECT", Qt::CaseInsensitive) &&
           (start.size() == 6 || start[6].isSpace() || start[6] == u'*' || start[6] == u'[');
}

QString bareTableName(const QString& source) {
    const bool bracketed = source.startsWith(u'[') && source.endsWith(u']');
    return bracketed ? source.sliced(1, source.size() - 2) : source;
}

}  // namespace

void RowSource::requireUpdatable() const {
    if (!isUpdatable()) throw Error(u"这个查询的结果只能读取，不能修改。"_s);
}

void RowSource::update(int, const PendingValues&) {
    requireUpdatable();
}

void RowSource::add(const PendingValues&) {
    requireUpdatable();
}

void RowSource::remove(int) {
    requireUpdatable();
}

std::unique_ptr<RowSource> openRows(Connection& connection, const QString& source) {
    const QString text = source.trimmed();
    if (!isSelect(text)) {
        SelectQuery whole;
        whole.table = bareTableName(text);
        if (connection.columnsOf(whole.table).empty()) throw connection.missingTable(whole.table);
        return std::make_unique<TableRows>(connection, whole);
    }
    const Tokens tokens = tokensOf(text);
    for (const Token& token : tokens) {
        if (isName(token) && isReservedTable(token.text)) throw connection.missingTable(token.text);
    }
    const auto query = selectQuery(tokens);
    if (query && !connection.columnsOf(query->table).empty()) return std::make_unique<TableRows>(connection, *query);
    return std::make_unique<FixedRows>(connection, tokens);
}
