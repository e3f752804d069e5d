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
    /// Of the rows with these numbers that meet a further condition: " AND …", or empty. Throws `Error` when there is
    /// no such table or column.
    RowsByNumber(const Database& database, const QString& table, const QString& column,
                 const std::vector<qint32>& numbers, const QString& andCondition = {});

    /// The identities of the rows with that number, in the order of the table.
    std::vector<qint64> of(qint32 number) const { return rows_.value(number); }

  private:
    QHash<qint32, std::vector<qint64>> rows_;
};

/// The records of the rows that are still there, in the order of the table.
Recordset recordsOfRows(const Database& database, const QString& table, const std::vector<qint64>& rows);

/// Records of a table that are read one after the other. Their rows are looked up together, some hundreds at a time: to
/// open a recordset for each takes longer than to read it.
class RecordsInTurn {
  public:
    RecordsInTurn(const Database& database, const QString& table, std::vector<qint64> rows)
        : database_(database), table_(table), rows_(std::move(rows)) {}

    /// The record at a place of `rows`; there is none (`Eof`) where the row is gone. Valid until the next call.
    const Recordset& at(std::size_t place);

  private:
    void open(std::size_t first);

    Database database_;
    QString table_;
    std::vector<qint64> rows_;
    std::vector<qint64> looked_;  ///< Those of them that were looked up together, in the order of the table.
    std::size_t first_ = 0;       ///< Place of the first of these.
    Recordset together_;
    bool areAllThere_ = false;
    Recordset alone_;
};

/// Removes them as one change.
void removeRows(const Database& database, const QString& table, const std::vector<qint64>& rows);
