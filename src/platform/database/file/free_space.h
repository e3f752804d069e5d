#pragma once

#include <QtGlobal>

struct sqlite3;

/// The pages of an open file that nothing lies in, and what stands in the way of ending the file so much earlier.
struct FreeSpace {
    qint64 pages = 0;
    qint64 pagesToMove = 0;  ///< In use behind the place where the file could end.
};

/// Whether the engine gives all free pages back at the end of every change.
bool isShortenedByEveryChange(sqlite3* connection);

/// Reads a few pages for each gigabyte. Nothing for a file that is not kept so that it can be made shorter.
FreeSpace freeSpace(sqlite3* connection);
