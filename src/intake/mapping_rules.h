#pragma once

#include "platform/database/records/database.h"

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

/// Rules of the mapping of source fields to the fields of a target table, and their texts.

/// A field of the target table and the source field whose values it gets; `source` is empty for an unmapped one.
struct FieldPair {
    QString target;
    QString source;
    bool operator==(const FieldPair&) const = default;
};

/// One pair for every field of the target table, in its order.
using FieldMapping = std::vector<FieldPair>;

/// What the checks need of a field.
struct FieldShape {
    QString name;
    FieldType type = FieldType::text;
    int size = 0;
};

using TableShape = std::vector<FieldShape>;

/// The fields of a table; throws `Error` when the database has no such table.
TableShape shapeOf(const Database& database, const QString& table);

/// The fields of a table that is told by its name alone: that of `first` when it has such a table, otherwise that of
/// `second`. Throws `Error` when neither has it.
TableShape shapeByName(const Database& first, const Database& second, const QString& table);

/// The field of that name, in either case of letters; nothing when there is none.
std::optional<FieldShape> fieldNamed(const TableShape& shape, const QString& name);

/// The tables of a foreign database but for the system's own.
QStringList withoutSystemTables(const QStringList& tables);

/// All records of a table, in the order of a column when one is named.
QString allRecordsSql(const QString& table, const QString& orderColumn = {});

/// The criteria that find a record by its key. Throws `Error` for a text or a 16-bit integer: records are found by keys
/// of other types, such as the 序号 of an album.
QString keyCriteria(const FieldShape& indexField, const QString& key);

/// Caption of a target field.
QString mappingCaption(const QString& targetField);

/// What is said when the types differ, and what is asked when the target is shorter; empty when there is no cause.
QString typeWarning(const FieldShape& source, const FieldShape& target);
QString lengthQuestion(const FieldShape& source, const FieldShape& target);

/// Place of the first field that has another type in the two tables; -1 when all types agree as far as both reach.
int firstTypeMismatch(const TableShape& opened, const TableShape& other);

/// Throws `Error` when the target table has no field by which a record could be found that is to be replaced.
void requireKeyColumn(const TableShape& target, const QString& table, const QString& key);

/// The source field of a target field; empty for an unmapped one.
QString sourceOf(const FieldMapping& mapping, const QString& target);

/// Number of target fields that get values.
int mappedFields(const FieldMapping& mapping);
