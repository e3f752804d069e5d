#pragma once

#include "catalogue/table_shape.h"
#include "platform/database/records/database.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

/// A column of an old table that goes into one of the same name.
struct TakenColumn {
    QString source;
    QString target;
    FieldType type;  ///< Of the target.
};
/// Those that both tables have, in the order of the new one.
std::vector<TakenColumn> commonColumns(const Database& old, const QString& from, const Database& target,
                                       const QString& to);

/// A record apart from its table: what one thread has read, another one can store.
struct OldRecord {
    std::vector<std::optional<FieldValue>> values = {};  ///< One for each column, none where it cannot be read.
    QStringList lost = {};                               ///< Columns whose values were lost before: they read as Null.
    QByteArray picture = {};                             ///< The bytes of 图片, which are among the values, too.
};

/// The records of an old table, for one thread.
class OldRecords {
  public:
    /// `source` is the statement that lists them; empty for all.
    OldRecords(const Database& old, const QString& table, std::vector<TakenColumn> columns, const QString& source);

    const std::vector<TakenColumn>& columns() const { return columns_; }
    int count() const { return records_.rowCount(); }
    OldRecord read(int row);

  private:
    std::vector<TakenColumn> columns_;
    QHash<int, QStringList> lost_;  ///< By row.
    Recordset records_;
};
