#pragma once

#include "platform/database/records/result_rows.h"

/// The result of any other SELECT (several tables, expressions, groups), read once when it is opened. It cannot be
/// changed.
class ReadOnlyRows : public ResultRows {
  public:
    ReadOnlyRows(Connection& connection, Tokens query);

    bool isUpdatable() const override { return false; }
    int count() const override { return int(rows_.size()); }
    Row read(int row) override { return rows_[size_t(row)]; }
    int firstMatch(const Tokens& criteria) override;

  private:
    Connection& connection_;
    Tokens query_;
    std::vector<Row> rows_;
};
