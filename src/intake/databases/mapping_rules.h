#pragma once

#include "catalogue/runs/field_mapping.h"

#include <QStringList>

/// Rules of the mapping of source fields to the fields of a target table, and their texts.

/// The fields of a table that is told by its name alone: that of `first` when it has such a table, otherwise that of
/// `second`. Throws `Error` when neither has it.
TableShape shapeByName(const Database& first, const Database& second, const QString& table);

/// The tables of a foreign database but for the system's own.
QStringList withoutSystemTables(const QStringList& tables);

/// Caption of a target field.
QString mappingCaption(const QString& targetField);

/// What is said when the types differ, and what is asked when the target is shorter; empty when there is no cause.
QString typeWarning(const FieldShape& source, const FieldShape& target);
QString lengthQuestion(const FieldShape& source, const FieldShape& target);

/// Place of the first field that has another type in the two tables; -1 when all types agree as far as both reach.
int firstTypeMismatch(const TableShape& opened, const TableShape& other);

/// Throws `Error` when the target table has no field by which a record could be found that is to be replaced.
void requireKeyColumn(const TableShape& target, const QString& table, const QString& key);

/// Number of target fields that get values.
int mappedFields(const FieldMapping& mapping);
