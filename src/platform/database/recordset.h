#pragma once

#include "platform/database/stored_value.h"
#include "platform/database/value_source.h"
#include "platform/database/variant.h"

#include <QString>
#include <memory>

struct Cell;
class Recordset;
class RecordsetState;

/// The types that a column can be declared with. The numbers are the engine's own type codes, which messages show.
enum class FieldType {
    boolean = 1,
    byte = 2,
    integer = 3,
    longInteger = 4,
    currency = 5,
    single = 6,
    real = 7,
    date = 8,
    binary = 9,  ///< A few bytes that lie in the row itself.
    text = 10,
    longBinary = 11,
    memo = 12,
    guid = 15,
    decimal = 20
};

/// One column of the current record. A light handle: valid as long as its recordset.
class Field {
  public:
    QString Name() const;
    FieldType Type() const;
    /// Declared length of a text column in characters and of a binary one in bytes, bytes of a number, 0 for a memo or
    /// long-binary column.
    int Size() const;

    /// Reads the value. A long-binary value is read whole: copying one field to another is what this is for there.
    Variant Value() const;
    /// Under `Edit` or `AddNew`. Texts are converted to the declared type; a value that does not fit the type or the
    /// length is refused with an `Error` that names column and value.
    void SetValue(const Variant& value);

    bool isNull() const;  ///< Without reading a long-binary value.

    /// Byte length of a long-binary value, 0 for Null.
    qint64 FieldSize() const;
    /// `count` bytes of a long-binary value from `offset`, fewer at its end, none behind it.
    QByteArray GetChunk(qint64 offset, qint64 count) const;
    /// Under `Edit` or `AddNew`: the first call starts the value anew, later ones add to its end. The pieces gather in
    /// memory until `Update`.
    void AppendChunk(const QByteArray& bytes);
    /// Under `Edit` or `AddNew`: `Update` stores what the source gives, piece by piece. Nothing can be read of the
    /// value before that.
    void TakeFrom(std::unique_ptr<ValueSource> source);

  private:
    friend class Recordset;
    friend class FieldDevice;
    Field(RecordsetState& state, int column) : state_(&state), column_(column) {}
    RecordsetState* state_;
    int column_;
};

/// The records of a table or of a SELECT. An object made by default is "Nothing": every operation on it throws.
///
/// On one table the records can be changed. The set remembers which rows belong to it, in their order; the values of a
/// record are read when they are asked for, a long-binary one only on demand. A new record that `Update` stores joins
/// the end of the set. Changes are durable when `Update` or `Delete` returns (unless a `Transaction` is open).
///
/// Every operation throws `Error` when there is no current record, or when the database refuses it.
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
    std::vector<Variant> valuesAt(int row) const;
    Variant valueAt(int row, const QString& column) const;
    /// What a long-binary column of a record holds, to be read later.
    StoredValue storedAt(int row, const QString& column) const;

  private:
    friend class Database;
    explicit Recordset(std::unique_ptr<RecordsetState> state);
    Cell cellAt(int row, const QString& column) const;
    std::unique_ptr<RecordsetState> state_;
};
