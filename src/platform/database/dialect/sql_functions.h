#pragma once

struct sqlite3;

/// Lets a connection speak the dialect: gives it the functions InStr, Left, IsNull, LCase and DateValue, and takes an
/// unknown name for an unknown name: between double quotes, as names go to the engine, it would otherwise pass for a
/// text. All this lives in the connection alone; nothing in the file depends on it.
void setUpDialect(sqlite3* connection);
