#pragma once

#include "platform/database/records/field.h"
#include "platform/database/records/stored_value.h"

#include <QString>
#include <memory>

struct Cell;
class RecordsetState;

/// The records of a table or of a SELECT. An object made by default is "Nothing": only `isNothing` can be asked of it.
///
/// The records of one table can be changed. The set keeps the identities of its rows, in their order, and reads the
/// values of a record when they are asked for, a long-binary one by `Field` alone. A new record that `Update` stores
/// joins the end of the set. Changes are durable when `Update` or `Delete` returns (unless a `Transaction` is open).
/// The records of any other SELECT are read once and cannot be changed.
///
/// Operations throw `Error` when they need a current record and there is none, or when the database refuses them.
class Recordset {
  public:
    enum class Mode { none = 0, edit = 1, add = 2 };

    Recordset();
    ~Recordset();
    Recordset(Recordset&& other) noexcept;
    Recordset& operator=(Recordset&& other) noexcept;
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;

    bool isNothing() const { return state_ == nullptr; }

    /// Count of the records visited so far: the total after `MoveLast`. A set that has records starts on the first one.
    int RecordCount() const;
    bool Eof() const;
    bool Bof() const;
    void MoveFirst();
    void MoveLast();
    void MoveNext();  ///< Leaves a changed but not updated record as it was before.
    void MovePrevious();

    /// Goes to the first record, from the beginning of the set, that meets a criteria text such as `序号 = 7`. With
    /// `NoMatch` the current record stays.
    void FindFirst(const QString& criteria);
    bool NoMatch() const;

    Field Fields(const QString& name) const;
    Field Fields(int index) const;
    int FieldCount() const;

    void AddNew();
    void Edit();
    void Update();
    /// Drops what `Edit` or `AddNew` has begun.
    void CancelUpdate();
    /// Removes the current record. There is no current record until the next move.
    void Delete();
    Mode EditMode() const;

    // What grids and pages need, beside the current record -----------------------------------------------------------

    /// Number of records without visiting them.
    int rowCount() const;
    /// Place of the current record from 0, -1 when there is none.
    int row() const;
    void moveToRow(int row);
    /// The values of a record without moving to it; a long-binary column gives Null.
    std::vector<FieldValue> valuesAt(int row) const;
    FieldValue valueAt(int row, const QString& column) const;
    /// What a long-binary column of a record holds, to be read later.
    StoredValue storedAt(int row, const QString& column) const;

  private:
    friend class Database;
    explicit Recordset(std::unique_ptr<RecordsetState> state);
    Cell cellAt(int row, const QString& column) const;
    std::unique_ptr<RecordsetState> state_;
};
