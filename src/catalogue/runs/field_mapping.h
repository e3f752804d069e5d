#pragma once

#include "catalogue/table_shape.h"

/// A field of the target table and the source field whose values it gets; `source` is empty for an unmapped one.
struct FieldPair {
    QString target;
    QString source;
    bool operator==(const FieldPair&) const = default;
};

/// One pair for every field of the target table, in its order.
using FieldMapping = std::vector<FieldPair>;

/// The source field of a target field; empty for an unmapped one.
QString sourceOf(const FieldMapping& mapping, const QString& target);

/// The criteria that find a record by its key. Throws `Error` for a text or a 16-bit integer: records are found by keys
/// of other types, such as the 序号 of an album.
QString keyCriteria(const FieldShape& indexField, const QString& key);
