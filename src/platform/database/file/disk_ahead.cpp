#include "platform/database/file/disk_ahead.h"

#include <sqlite3.h>

#include <algorithm>

#ifdef Q_OS_LINUX
#include <fcntl.h>
#include <sys/types.h>
#endif

namespace {

thread_local qint64 wanted = 0;

#ifdef Q_OS_LINUX

constexpr qint64 askedAtOnce = 256 << 10;  ///< The system passes over the rest of a larger wish.
constexpr size_t smallestPage = 512;       ///< The engine reads nothing but pages, and shorter headers.

using Read = ssize_t (*)(int, void*, size_t, off64_t);
Read readBefore = nullptr;

ssize_t readPage(int file, void* to, size_t count, off64_t at) {
    if (wanted > 0 && count >= smallestPage) {
        for (qint64 done = 0; done < wanted; done += askedAtOnce)
            posix_fadvise64(file, at + done, std::min(askedAtOnce, wanted - done), POSIX_FADV_WILLNEED);
        wanted = 0;
    }
    return readBefore(file, to, count, at);
}

bool replaceRead() {
    sqlite3_vfs* system = sqlite3_vfs_find("unix");
    if (system == nullptr) return false;
    readBefore = reinterpret_cast<Read>(system->xGetSystemCall(system, "pread64"));
    return readBefore != nullptr &&
           system->xSetSystemCall(system, "pread64", reinterpret_cast<sqlite3_syscall_ptr>(readPage)) == SQLITE_OK;
}

#endif

}  // namespace

DiskAhead::DiskAhead(qint64 bytes) {
    wanted = bytes;
}

DiskAhead::~DiskAhead() {
    wanted = 0;
}

void DiskAhead::takePartInReads() {
#ifdef Q_OS_LINUX
    [[maybe_unused]] static const bool isDone = replaceRead();
#endif
}
