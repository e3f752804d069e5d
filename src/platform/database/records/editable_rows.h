#pragma once

#include "platform/database/records/result_rows.h"

/// Rows of one table, known by their identities. A row is read when it is asked for, and can be changed.
class EditableRows : public ResultRows {
  public:
    EditableRows(Connection& connection, const SelectQuery& query);

    bool isUpdatable() const override { return true; }
    int count() const override { return int(rowids_.size()); }
    Row read(int row) override;
    int firstMatch(const Tokens& criteria) override;
    void update(int row, const PendingValues& values) override;
    void add(const PendingValues& values) override;
    void remove(int row) override;

  private:
    std::vector<qint64> rowidsOf(const QString& sql);
    QString columnList() const;
    /// Runs a statement of which the first value is the identity of a row. Returns the number of changed rows. Called
    /// within a change.
    int runWith(const QString& sql, qint64 identity, const PendingValues& values);
    [[noreturn]] void failDeleted() const;

    Connection& connection_;
    QString table_;
    std::vector<qint64> rowids_;
    std::optional<SQLite::Statement> readRow_;
};
