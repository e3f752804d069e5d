#pragma once

#include "platform/database/records/database.h"

#include <utility>
#include <vector>

using RowValues = std::vector<std::pair<QString, FieldValue>>;

inline void setFields(Recordset& rows, const RowValues& values) {
    for (const auto& [column, value] : values) rows.Fields(column).SetValue(value);
    rows.Update();
}

/// Adds a row.
inline void addRow(Recordset& rows, const RowValues& values) {
    rows.AddNew();
    setFields(rows, values);
}

/// Changes the current row.
inline void changeRow(Recordset& rows, const RowValues& values) {
    rows.Edit();
    setFields(rows, values);
}
