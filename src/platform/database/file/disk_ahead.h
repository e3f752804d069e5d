#pragma once

#include <QtGlobal>

/// While it lives, the first page that the engine reads in this thread makes the system bring the bytes behind it, too,
/// without waiting for them. The engine reads a large value page by page, in the order of the file: so all of it is at
/// hand when it is read. The engine's own descriptor is used: closing another one would cost it all its locks. Does
/// nothing where the system has no such call.
class DiskAhead {
  public:
    explicit DiskAhead(qint64 bytes);
    ~DiskAhead();
    DiskAhead(const DiskAhead&) = delete;
    DiskAhead& operator=(const DiskAhead&) = delete;

    /// Called before the first file is opened.
    static void takePartInReads();
};
