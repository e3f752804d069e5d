#pragma once

#include "platform/database/dialect/select_query.h"
#include "platform/database/file/connection.h"
#include "platform/database/records/field_value.h"

#include <map>
#include <memory>
#include <optional>

/// One value of a row: for a long-binary column its key in the side table instead of its bytes.
struct Cell {
    FieldValue value;
    qint64 longBinaryKey = 0;  ///< 0 for Null.
};

using Row = std::vector<Cell>;

/// The new value of a column under `Edit` or `AddNew`. A long-binary value has `bytes`; Null has neither.
struct PendingValue {
    FieldValue value;
    std::unique_ptr<PendingBytes> bytes;
};

using PendingValues = std::map<int, PendingValue>;

/// The rows of a recordset in their order.
class ResultRows {
  public:
    virtual ~ResultRows() = default;

    const std::vector<Column>& columns() const { return columns_; }
    virtual bool isUpdatable() const = 0;
    virtual int count() const = 0;
    virtual Row read(int row) = 0;
    /// The first row that meets the criteria, -1 for none.
    virtual int firstMatch(const Tokens& criteria) = 0;

    // These three throw unless the source is updatable. A new row joins the end.
    virtual void update(int row, const PendingValues& values);
    virtual void add(const PendingValues& values);
    virtual void remove(int row);
    void requireUpdatable() const;

  protected:
    std::vector<Column> columns_;
};

/// The rows of `source`, a table's name or a SELECT.
std::unique_ptr<ResultRows> openRows(Connection& connection, const QString& source);
