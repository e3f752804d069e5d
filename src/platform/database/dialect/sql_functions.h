#pragma once

struct sqlite3;

/// Gives a connection the functions of the dialect: InStr, Left, IsNull, LCase and DateValue. Also switches off the
/// rule that an unknown name between double quotes is a text: names go to the engine between double quotes. All this
/// belongs to the connection; nothing in the file depends on it.
void setUpDialect(sqlite3* connection);
