#pragma once

struct sqlite3;

/// Gives a connection the functions of the dialect: InStr, Left, IsNull, LCase, DateValue. They live in the connection
/// alone; nothing in the file depends on them.
void registerFunctions(sqlite3* connection);
