#pragma once

#include <QtGlobal>

struct sqlite3;

/// The unused pages of an open file, and the work of making the file shorter by them.
struct FreeSpace {
    qint64 pages = 0;
    qint64 pagesToMove = 0;  ///< Used pages behind the place where the shorter file ends.
};

/// Whether the engine gives all free pages back at the end of every change.
bool isShortenedByEveryChange(sqlite3* connection);

/// Reads a few pages for each gigabyte. Nothing for a file that is not kept so that it can be made shorter.
FreeSpace freeSpace(sqlite3* connection);
