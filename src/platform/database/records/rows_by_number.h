#pragma once

#include "platform/database/records/database.h"

#include <QHash>
#include <vector>

/// Where the records of a table are, by the whole numbers in one of its columns. One pass over the column notes the
/// identities of the rows; a row is then read or removed without looking through the table. A row that comes later gets
/// none of these identities, even when theirs are gone.
class RowsByNumber {
  public:
    RowsByNumber() = default;
    /// Of the rows with these numbers that meet a further condition: " AND …", or empty. Throws `Error` when there is no
    /// such table or column.
    RowsByNumber(const Database& database, const QString& table, const QString& column,
                 const std::vector<qint32>& numbers, const QString& andCondition = {});

    /// The identities of the rows with that number, in the order of the table.
    std::vector<qint64> of(qint32 number) const { return rows_.value(number); }

  private:
    QHash<qint32, std::vector<qint64>> rows_;
};

/// The records of the rows that are still there, in the order of the table.
Recordset recordsOfRows(const Database& database, const QString& table, const std::vector<qint64>& rows);

/// Removes them as one change.
void removeRows(const Database& database, const QString& table, const std::vector<qint64>& rows);
