#pragma once

#include "platform/database/dialect/sql_tokens.h"

#include <QStringList>
#include <optional>

/// A SELECT of whole columns from one table: the kind whose records can be changed.
struct SelectQuery {
    QString table;
    QString alias;        ///< Empty when the table has none.
    QStringList columns;  ///< Empty for all of them.
    Tokens where;
    Tokens order;

    /// The statement that lists the row identities in order; rows that are equal in it follow each other as they were
    /// made.
    QString rowidSql() const;
};

/// Nothing when the statement is of another kind (several tables, expressions, groups). Throws `Error` when nothing
/// follows WHERE or ORDER BY.
std::optional<SelectQuery> selectQuery(const Tokens& tokens);
