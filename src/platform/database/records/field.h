#pragma once

#include "platform/database/dialect/field_type.h"
#include "platform/database/file/value_source.h"
#include "platform/database/records/field_value.h"

#include <QString>
#include <memory>

class RecordsetState;

/// One column of the current record. A light handle: valid as long as its recordset.
class Field {
  public:
    QString Name() const;
    FieldType Type() const;
    /// Declared length of a text column in characters and of a binary one in bytes, bytes of a number, 0 for a memo or
    /// long-binary column.
    int Size() const;

    /// Reads the value. A long-binary value is read whole, to be copied to another field.
    FieldValue Value() const;
    /// Under `Edit` or `AddNew`. Texts are converted to the declared type; a value that does not fit the type or the
    /// length is refused with an `Error` that names column and value.
    void SetValue(const FieldValue& value);

    bool isNull() const;  ///< Without reading a long-binary value.

    /// Byte length of a long-binary value, 0 for Null.
    qint64 FieldSize() const;
    /// `count` bytes of a long-binary value from `offset`, fewer at its end, none behind it.
    QByteArray GetChunk(qint64 offset, qint64 count) const;
    /// Under `Edit` or `AddNew`: the first call starts the value anew, later ones add to its end. The pieces gather in
    /// memory until `Update`.
    void AppendChunk(const QByteArray& bytes);
    /// Under `Edit` or `AddNew`: `Update` stores the bytes of the source, piece by piece. The new value cannot be read
    /// before that.
    void TakeFrom(std::unique_ptr<ValueSource> source);

  private:
    friend class Recordset;
    friend class FieldDevice;
    Field(RecordsetState& state, int column) : state_(&state), column_(column) {}
    RecordsetState* state_;
    int column_;
};
