#pragma once

#include "platform/database/records/recordset.h"
#include "platform/database/records/result_rows.h"

/// What a recordset and its fields share: the rows, the place in them, and a change that is under way.
class RecordsetState {
  public:
    RecordsetState(std::shared_ptr<Connection> connection, const QString& source);

    enum class Place {
        nowhere,  ///< The set is empty.
        before,   ///< In front of the first record.
        record,
        gap,  ///< Where a record was that has been deleted; `row` is the one behind it.
        behind,
    };

    const std::vector<Column>& columns() const { return rows->columns(); }
    const Column& column(int index) const { return columns()[size_t(index)]; }

    void goTo(int row);
    void leaveRecord(Place where, int row);
    void cancelUpdate();
    void update();
    void remove();
    void requireRecord() const;
    void requireEditing() const;
    void requireUpdatable() const;

    /// The values of the current record, read again when something in the file has changed since.
    const Row& currentRow();
    /// The same of any record. The values that were read last are kept.
    const Row& valuesOf(int row);
    /// What `SetValue` and the like have set for a column since `Edit` or `AddNew`; nullptr when nothing.
    PendingValue* pendingValue(int index);

    std::shared_ptr<Connection> connection;
    std::unique_ptr<ResultRows> rows;
    Place place = Place::nowhere;
    int row = 0;
    int visited = 0;
    bool noMatch = false;
    Recordset::Mode mode = Recordset::Mode::none;
    PendingValues pending;

  private:
    std::optional<Row> read_;
    int readRow_ = 0;
    qint64 readAt_ = 0;  ///< The connection's count of changes at that time.
};
