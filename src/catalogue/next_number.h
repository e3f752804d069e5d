#pragma once

#include "platform/database/records/database.h"

/// The numbers (序号) for records that join an album table, one after the other: from the highest one there + 1, or
/// from 1 where there is none above 0. The order of the rows does not count, nor do records without a number: no number
/// that exists is given again.
class NextNumber {
  public:
    /// Reads the table once. Throws `Error` when it has no 序号.
    NextNumber(const Database& database, const QString& table);

    /// The number for the next record. Throws `Error` when all are used up.
    int value() const;
    /// The record is stored.
    void take() { ++number_; }

  private:
    qint64 number_ = 1;
};
