#pragma once

#include "platform/database/records/result_rows.h"

#include <SQLiteCpp/SQLiteCpp.h>

/// A value as a column of its type takes it: texts become numbers and dates, numbers texts. Throws `Error` that names
/// column and value when it does not fit the type or the length. Bytes pass for a long-binary column only.
FieldValue fitted(const Column& column, const FieldValue& value);

/// Binds a fitted value of a column of this type, in the form in which the file keeps it: dates as
/// `2003-10-01 12:30:00`, truth values as 0 and 1, single-precision numbers as the shortest decimal that gives them
/// back, amounts and decimals of more digits than a number keeps as the bytes of their text.
void bindValue(SQLite::Statement& statement, int index, const FieldValue& value, FieldType type);

/// The value of a result column that is not long-binary. What another program has stored against the declared type
/// comes as it is.
FieldValue storedValue(SQLite::Statement& statement, int index, FieldType type);

/// All values of a result row.
Row storedRow(SQLite::Statement& statement, const std::vector<Column>& columns);
