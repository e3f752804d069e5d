#include "disk_order.h"

#include <dlfcn.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <cstdio>
#include <map>
#include <mutex>
#include <utility>

namespace {

/// Of what has been waited for: a single file with its length at that time, or all files of a disk.
struct Watch {
    std::mutex mutex;
    int watching = 0;
    std::map<std::pair<dev_t, ino_t>, off_t> syncedFiles;
    std::map<dev_t, bool> syncedDisks;
    QStringList named, tooEarly;
};

Watch& watch() {
    static Watch all;
    return all;
}

template <typename Function>
Function* systemsOwn(const char* name) {
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

void noteSync(int file, bool wholeDisk) {
    struct stat status {};
    Watch& all = watch();
    const std::lock_guard lock(all.mutex);
    if (all.watching == 0 || fstat(file, &status) != 0) return;
    if (wholeDisk)
        all.syncedDisks[status.st_dev] = true;
    else
        all.syncedFiles[{status.st_dev, status.st_ino}] = status.st_size;
}

/// Of a name that has been given.
int noteName(int result, const char* name) {
    struct stat status {};
    Watch& all = watch();
    const std::lock_guard lock(all.mutex);
    if (all.watching == 0 || result != 0 || stat(name, &status) != 0 || !S_ISREG(status.st_mode)) return result;
    const QString path = QFile::decodeName(name);
    all.named << path;
    const auto synced = all.syncedFiles.find({status.st_dev, status.st_ino});
    const bool isWhole = synced != all.syncedFiles.end() && synced->second == status.st_size;
    if (!isWhole && !all.syncedDisks[status.st_dev]) all.tooEarly << path;
    return result;
}

}  // namespace

DiskOrder::DiskOrder() {
    const std::lock_guard lock(watch().mutex);
    ++watch().watching;
    watch().syncedFiles.clear();
    watch().syncedDisks.clear();
    watch().named.clear();
    watch().tooEarly.clear();
}

DiskOrder::~DiskOrder() {
    const std::lock_guard lock(watch().mutex);
    --watch().watching;
}

QStringList DiskOrder::named() {
    const std::lock_guard lock(watch().mutex);
    return watch().named;
}

QStringList DiskOrder::namedTooEarly() {
    const std::lock_guard lock(watch().mutex);
    return watch().tooEarly;
}

extern "C" {

int fsync(int file) {
    const int result = systemsOwn<int(int)>("fsync")(file);
    if (result == 0) noteSync(file, false);
    return result;
}

int syncfs(int file) noexcept {
    const int result = systemsOwn<int(int)>("syncfs")(file);
    if (result == 0) noteSync(file, true);
    return result;
}

int rename(const char* from, const char* to) noexcept {
    return noteName(systemsOwn<int(const char*, const char*)>("rename")(from, to), to);
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to, unsigned flags) noexcept {
    using Call = int(int, const char*, int, const char*, unsigned);
    return noteName(systemsOwn<Call>("renameat2")(fromFolder, from, toFolder, to, flags), to);
}

int link(const char* from, const char* to) noexcept {
    return noteName(systemsOwn<int(const char*, const char*)>("link")(from, to), to);
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
    using Call = int(int, const char*, int, const char*, int);
    return noteName(systemsOwn<Call>("linkat")(fromFolder, from, toFolder, to, flags), to);
}

}  // extern "C"
