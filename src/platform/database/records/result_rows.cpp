#include "platform/database/records/result_rows.h"

#include "platform/base/error.h"
#include "platform/database/records/editable_rows.h"
#include "platform/database/records/read_only_rows.h"

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

void ResultRows::requireUpdatable() const {
    if (!isUpdatable()) throw Error(u"这个查询的结果只能读取，不能修改。"_s);
}

void ResultRows::update(int, const PendingValues&) {
    requireUpdatable();
}

void ResultRows::add(const PendingValues&) {
    requireUpdatable();
}

void ResultRows::remove(int) {
    requireUpdatable();
}

std::unique_ptr<ResultRows> openRows(Connection& connection, const QString& source) {
    const QString text = source.trimmed();
    if (!isSelect(text)) {
        SelectQuery whole;
        whole.table = bareTableName(text);
        if (connection.columnsOf(whole.table).empty()) throw connection.missingTable(whole.table);
        return std::make_unique<EditableRows>(connection, whole);
    }
    const Tokens tokens = tokensOf(text);
    for (const Token& token : tokens) {
        if (isName(token) && isReservedTable(token.text)) throw connection.missingTable(token.text);
    }
    const auto query = selectQuery(tokens);
    if (query && !connection.columnsOf(query->table).empty()) return std::make_unique<EditableRows>(connection, *query);
    return std::make_unique<ReadOnlyRows>(connection, tokens);
}
