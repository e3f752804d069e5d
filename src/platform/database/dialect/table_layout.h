#pragma once

#include "platform/database/dialect/field_type.h"
#include "platform/database/dialect/sql_tokens.h"

#include <QStringList>
#include <vector>

/// One column as its table declares it.
struct Column {
    QString name;
    FieldType type = FieldType::memo;
    int size = 0;
};

/// Whether a table is reserved: it belongs to the engine, holds the long-binary values, or is one of the program's own
/// (`lunq_…`). No list shows it, and it cannot be opened by its name.
bool isReservedTable(const QString& table);

/// A column from its name and declared type such as `TEXT(10)`. A type that the dialect does not know becomes the one
/// that the engine would store.
Column declaredColumn(const QString& name, const QString& declaration);

/// Place of a column by its name, in either case; -1 when there is none.
int columnIndex(const std::vector<Column>& columns, const QString& name);

/// A CREATE TABLE of the dialect, translated.
struct TableCreation {
    QString table;
    QString sql;
    QStringList longBinaryColumns;
};

/// Throws `Error` when the statement is no CREATE TABLE, or uses an unknown type.
TableCreation tableCreation(const Tokens& tokens);

/// The triggers by which the long-binary values of a column go with their rows.
QStringList longBinaryTriggers(const QString& table, const QString& column);
