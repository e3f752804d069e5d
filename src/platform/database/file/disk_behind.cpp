#include "platform/database/file/disk_behind.h"

#include <sqlite3.h>

#include <QtGlobal>

#ifdef Q_OS_LINUX
#include <fcntl.h>
#include <sys/types.h>
#endif

namespace {

#ifdef Q_OS_LINUX

constexpr off64_t begunAtOnce = 2 << 20;  ///< Shorter changes are soon on the disk in any case.

using Write = ssize_t (*)(int, const void*, size_t, off64_t);
Write writeBefore = nullptr;

/// Bytes that were written one after the other, and that the disk was not told of.
struct Gathered {
    int file = -1;
    off64_t from = 0;
    off64_t to = 0;
};
thread_local Gathered gathered;

ssize_t writePage(int file, const void* bytes, size_t count, off64_t at) {
    const ssize_t written = writeBefore(file, bytes, count, at);
    if (file != gathered.file || at != gathered.to) gathered = {file, at, at};
    if (written > 0) gathered.to += written;
    if (gathered.to - gathered.from < begunAtOnce) return written;
    sync_file_range(file, gathered.from, gathered.to - gathered.from, SYNC_FILE_RANGE_WRITE);
    gathered.from = gathered.to;
    return written;
}

bool replaceWrite() {
    sqlite3_vfs* system = sqlite3_vfs_find("unix");
    if (system == nullptr) return false;
    writeBefore = reinterpret_cast<Write>(system->xGetSystemCall(system, "pwrite64"));
    return writeBefore != nullptr &&
           system->xSetSystemCall(system, "pwrite64", reinterpret_cast<sqlite3_syscall_ptr>(writePage)) == SQLITE_OK;
}

#endif

}  // namespace

void DiskBehind::takePartInWrites() {
#ifdef Q_OS_LINUX
    [[maybe_unused]] static const bool isDone = replaceWrite();
#endif
}
