#pragma once

#include "platform/database/records/result_rows.h"

#include <SQLiteCpp/SQLiteCpp.h>

/// A value converted to the type of a column: texts become numbers and dates, numbers texts. Throws `Error` that names
/// column and value when it does not fit the type or the length. Only a long-binary column takes bytes.
FieldValue fitted(const Column& column, const FieldValue& value);

/// Binds a fitted value of a column of this type in the form that the file keeps: a date as `2003-10-01 12:30:00`, a
/// truth value as 0 or 1, a single-precision number as the shortest decimal for it, an amount or decimal with too many
/// digits for a number as the bytes of its text.
void bindValue(SQLite::Statement& statement, int index, const FieldValue& value, FieldType type);

/// The value of a result column that is not long-binary. Another program may have stored a value of a type that was not
/// declared: it is returned as it is.
FieldValue storedValue(SQLite::Statement& statement, int index, FieldType type);

/// All values of a result row.
Row storedRow(SQLite::Statement& statement, const std::vector<Column>& columns);
