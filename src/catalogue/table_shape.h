#pragma once

#include "platform/database/records/database.h"

#include <QString>
#include <optional>
#include <vector>

/// A table as others see it: its fields, and the texts that open it.

struct FieldShape {
    QString name;
    FieldType type = FieldType::text;
    int size = 0;
};

using TableShape = std::vector<FieldShape>;

/// The fields of a table; throws `Error` when the database has no such table.
TableShape shapeOf(const Database& database, const QString& table);

/// The field of that name, in either case of letters; nothing when there is none.
std::optional<FieldShape> fieldNamed(const TableShape& shape, const QString& name);

/// All records of a table, in the order of a column when one is named.
QString allRecordsSql(const QString& table, const QString& orderColumn = {});

/// None of its records: for the shape of the table, and for records that join it.
QString noRecordsSql(const QString& table);
