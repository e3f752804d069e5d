#pragma once

#include "catalogue/conversion/old_records.h"

#include <functional>

/// A table of a new catalogue that takes the records of an old one, column by column under the same names. What these
/// lack stays Null.
class TableTaking {
  public:
    /// Changes a text on its way: of this column, from this value.
    using Change = std::function<QString(const QString& column, const QString& text)>;

    /// The columns are those of the records that are stored.
    TableTaking(const Database& target, const QString& table, std::vector<TakenColumn> columns);

    struct Taken {
        QString number = {};   ///< 序号 as text.
        QStringList odd = {};  ///< Sentences about what could not be taken as it is.
    };
    /// Adds the record. Throws `Error` when the table cannot be written.
    Taken store(const OldRecord& record, const Change& change = {});

  private:
    void storeValue(const TakenColumn& column, FieldValue value, const Change& change, Taken& taken);

    std::vector<TakenColumn> columns_;
    Recordset target_;
};

/// All records of a small table at once, in their order. `source` is the statement that lists them; empty for all.
std::vector<TableTaking::Taken> takeTable(const Database& old, const QString& from, const Database& target,
                                          const QString& to, const TableTaking::Change& change = {},
                                          const QString& source = {});

/// Where texts of the old table may be longer, the new one is made anew with room for them; it must be empty.
void makeRoomFor(const Database& old, const QString& from, const Database& target, const QString& to);
