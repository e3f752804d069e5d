#pragma once

#include "platform/database/records/database.h"

#include <QVariant>
#include <functional>
#include <vector>

/// The program's own tables of a file (`lunq_…`), which recordsets do not open, and what passes between them and other
/// tables. Statements are in the engine's own language. Values are numbers, texts, bytes, or invalid for a Null. Throws
/// `Error` when the file refuses a statement, and for a foreign database.
class OwnRows {
  public:
    using Values = QVariantList;

    explicit OwnRows(const Database& database);

    /// Whether the file was made by this program and has that table.
    bool has(const QString& table) const;

    /// Runs a statement as one change, once or with each list of values; returns the number of changed rows.
    qint64 run(const QString& sql, const Values& values = {}) const { return runEach(sql, {values}); }
    qint64 runEach(const QString& sql, const std::vector<Values>& lists) const;

    using Use = std::function<void(const Values& row)>;
    void each(const QString& sql, const Values& values, const Use& use) const { eachOf(sql, {values}, use); }
    /// The rows of a statement with each list of values.
    void eachOf(const QString& sql, const std::vector<Values>& lists, const Use& use) const;
    /// The first column of the first row; 0 where there is none.
    qint64 number(const QString& sql, const Values& values = {}) const;

    /// The identity for a new row of a table (see `Connection::newRowId`).
    qint64 newRowId(const QString& table) const;
    /// The long-binary value of that id.
    StoredValue value(qint64 id) const;

  private:
    Database database_;
    std::shared_ptr<Connection> connection_;
};
