#include "platform/database/dialect/select_query.h"

#include "platform/base/error.h"

#include <array>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Reads the clauses of a SELECT from the first word to the last.
class SelectReader {
  public:
    explicit SelectReader(const Tokens& tokens) : tokens_(tokens) {}

    std::optional<SelectQuery> read() {
        SelectQuery query;
        if (!take(u"SELECT") || !readColumns(query) || !readTable(query)) return std::nullopt;
        if (take(u"WHERE")) query.where = readClause(u"WHERE", u"ORDER");
        if (take(u"ORDER")) {
            if (!take(u"BY")) return std::nullopt;
            query.order = readClause(u"ORDER BY", {});
        }
        if (at_ < tokens_.size() || hasFurtherClause(query.where) || hasFurtherClause(query.order)) return std::nullopt;
        return query;
    }

  private:
    bool at(QStringView text) const { return at_ < tokens_.size() && isToken(tokens_[at_], text); }

    bool take(QStringView text) {
        const bool there = at(text);
        if (there) ++at_;
        return there;
    }

    bool takeName(QString& name) {
        if (at_ >= tokens_.size() || !isName(tokens_[at_])) return false;
        name = tokens_[at_++].text;
        return true;
    }

    bool readColumns(SelectQuery& query) {
        if (take(u"*")) return true;
        do {
            QString column;
            if (at(u"DISTINCT") || at(u"ALL") || !takeName(column)) return false;
            query.columns << column;
        } while (take(u","));
        return true;
    }

    bool readTable(SelectQuery& query) {
        if (!take(u"FROM") || !takeName(query.table)) return false;
        if (take(u"AS")) return takeName(query.alias);
        if (!at(u"WHERE") && !at(u"ORDER")) takeName(query.alias);
        return true;
    }

    /// The words up to the keyword that begins the next clause.
    Tokens readClause(QStringView clause, QStringView next) {
        const size_t start = at_;
        int depth = 0;
        for (; at_ < tokens_.size(); ++at_) {
            if (depth == 0 && !next.isEmpty() && at(next)) break;
            if (at(u"(")) ++depth;
            if (at(u")")) --depth;
        }
        if (at_ == start) throw Error(u"语句有错：“%1”之后没有内容。"_s.arg(clause));
        return {tokens_.begin() + std::ptrdiff_t(start), tokens_.begin() + std::ptrdiff_t(at_)};
    }

    static bool hasFurtherClause(const Tokens& clause) {
        static const std::array keywords{u"GROUP"_s, u"HAVING"_s, u"LIMIT"_s, u"UNION"_s, u"EXCEPT"_s, u"INTERSECT"_s};
        int depth = 0;
        for (const Token& token : clause) {
            if (isToken(token, u"(")) ++depth;
            if (isToken(token, u")")) --depth;
            const auto matches = [&](const QString& keyword) { return isToken(token, keyword); };
            if (depth == 0 && std::any_of(keywords.begin(), keywords.end(), matches)) return true;
        }
        return false;
    }

    const Tokens& tokens_;
    size_t at_ = 0;
};

}  // namespace

QString SelectQuery::rowidSql() const {
    QString sql = u"SELECT _rowid_ FROM "_s + quotedName(table);
    if (!alias.isEmpty()) sql += u" AS "_s + quotedName(alias);
    if (!where.empty()) sql += u" WHERE "_s + engineSql(where);
    sql += u" ORDER BY "_s;
    if (!order.empty()) sql += engineSql(order) + u", "_s;
    return sql + u"_rowid_"_s;
}

std::optional<SelectQuery> selectQuery(const Tokens& tokens) {
    return SelectReader(tokens).read();
}
