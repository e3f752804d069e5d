#include "soak/unsynced_vfs.h"

#include <sqlite3.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <map>
#include <memory>
#include <mutex>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace {

constexpr sqlite3_int64 sectorSize = 512;
constexpr int oneIn = 40;  ///< Of so many writes one lets held sectors through.
constexpr int sectorsOfAStep = 64;
constexpr int longestWait = 60;  ///< Steps until the power goes.

volatile std::sig_atomic_t stepsToGo = 0;  ///< 0 while the power is not about to go.
volatile std::sig_atomic_t chance = 1;

/// What one file is to become, in sectors that differ from those on the disk.
struct HeldFile {
    std::map<sqlite3_int64, std::vector<char>> sectors;
    sqlite3_int64 size = 0;
    int users = 0;
    bool isDeleted = false;  ///< In the eyes of this process; the disk still has the file.
};

struct File;

struct Layer {
    sqlite3_vfs vfs{};
    sqlite3_vfs* disk = nullptr;
    std::map<std::string, std::shared_ptr<HeldFile>> files;
    std::set<File*> open;
    std::mt19937 random;
    std::recursive_mutex mutex;  ///< Runs and the background use the file in threads of their own.
};

Layer& layer() {
    static Layer one;
    return one;
}

struct File {
    sqlite3_file base;
    HeldFile* held;
    std::string* path;
    sqlite3_file* disk;  ///< Behind this structure, in the same memory.
};

using Lock = std::lock_guard<std::recursive_mutex>;

File& fileOf(sqlite3_file* file) {
    return *reinterpret_cast<File*>(file);
}

sqlite3_int64 diskSize(File& file) {
    sqlite3_int64 size = 0;
    file.disk->pMethods->xFileSize(file.disk, &size);
    return size;
}

/// The sector as it is to become, begun with what is on the disk.
std::vector<char>& sectorAt(File& file, sqlite3_int64 number) {
    auto [place, isNew] = file.held->sectors.try_emplace(number);
    if (isNew) {
        place->second.assign(sectorSize, '\0');
        const sqlite3_int64 at = number * sectorSize;
        const sqlite3_int64 there = std::clamp<sqlite3_int64>(diskSize(file) - at, 0, sectorSize);
        if (there > 0) file.disk->pMethods->xRead(file.disk, place->second.data(), int(there), at);
    }
    return place->second;
}

int passOn(File& file, sqlite3_int64 number, const std::vector<char>& bytes) {
    const sqlite3_int64 at = number * sectorSize;
    const sqlite3_int64 count = std::clamp<sqlite3_int64>(file.held->size - at, 0, sectorSize);
    if (count == 0) return SQLITE_OK;
    return file.disk->pMethods->xWrite(file.disk, bytes.data(), int(count), at);
}

/// The disk writes in the order that suits it.
void letSomeThrough(File& file) {
    Layer& all = layer();
    for (const auto& [number, bytes] : file.held->sectors)
        if (all.random() % 3 == 0) passOn(file, number, bytes);
}

/// The process ends here. Each file keeps what it has on the disk, or some of what is held, or all of it.
[[noreturn]] void cutThePower() {
    Layer& all = layer();
    for (File* file : all.open) {
        const auto share = all.random() % 3;
        for (const auto& [number, bytes] : file->held->sectors)
            if (all.random() % 2 < share) passOn(*file, number, bytes);
        if (all.random() % 2 == 0 && diskSize(*file) > file->held->size)
            file->disk->pMethods->xTruncate(file->disk, file->held->size);
    }
    std::raise(SIGKILL);
    std::abort();
}

void step() {
    if (stepsToGo == 0) return;
    stepsToGo = stepsToGo - 1;
    if (stepsToGo == 0) cutThePower();
}

void powerWillGo(int) {
    stepsToGo = 1 + chance;
}

int closeFile(sqlite3_file* base) {
    const Lock lock(layer().mutex);
    File& file = fileOf(base);
    layer().open.erase(&file);
    const int code = file.disk->pMethods->xClose(file.disk);
    Layer& all = layer();
    // What was not synced may go on waiting: nobody has asked for it to be safe.
    if (--file.held->users == 0 && file.held->sectors.empty() && !file.held->isDeleted) all.files.erase(*file.path);
    delete file.path;
    return code;
}

int readFile(sqlite3_file* base, void* to, int count, sqlite3_int64 offset) {
    const Lock lock(layer().mutex);
    File& file = fileOf(base);
    std::memset(to, 0, size_t(count));
    const sqlite3_int64 there = std::clamp<sqlite3_int64>(file.held->size - offset, 0, count);
    if (there > 0) {
        const sqlite3_int64 onDisk = std::clamp<sqlite3_int64>(diskSize(file) - offset, 0, there);
        if (onDisk > 0) {
            const int code = file.disk->pMethods->xRead(file.disk, to, int(onDisk), offset);
            if (code != SQLITE_OK) return code;
        }
        const sqlite3_int64 end = offset + there;
        for (auto at = file.held->sectors.lower_bound(offset / sectorSize);
             at != file.held->sectors.end() && at->first * sectorSize < end; ++at) {
            const sqlite3_int64 begin = std::max(offset, at->first * sectorSize);
            const sqlite3_int64 stop = std::min(end, (at->first + 1) * sectorSize);
            std::memcpy(static_cast<char*>(to) + (begin - offset), at->second.data() + (begin - at->first * sectorSize),
                        size_t(stop - begin));
        }
    }
    return there == count ? SQLITE_OK : SQLITE_IOERR_SHORT_READ;
}

int writeFile(sqlite3_file* base, const void* from, int count, sqlite3_int64 offset) {
    const Lock lock(layer().mutex);
    File& file = fileOf(base);
    for (sqlite3_int64 at = offset; at < offset + count;) {
        const sqlite3_int64 number = at / sectorSize, within = at % sectorSize;
        const sqlite3_int64 part = std::min(sectorSize - within, offset + count - at);
        std::memcpy(sectorAt(file, number).data() + within, static_cast<const char*>(from) + (at - offset),
                    size_t(part));
        at += part;
    }
    file.held->size = std::max(file.held->size, offset + count);
    step();
    if (layer().random() % oneIn == 0) letSomeThrough(file);
    return SQLITE_OK;
}

int truncateFile(sqlite3_file* base, sqlite3_int64 size) {
    const Lock lock(layer().mutex);
    File& file = fileOf(base);
    HeldFile& held = *file.held;
    held.sectors.erase(held.sectors.lower_bound((size + sectorSize - 1) / sectorSize), held.sectors.end());
    if (size % sectorSize != 0) {
        std::vector<char>& last = sectorAt(file, size / sectorSize);
        std::fill(last.begin() + size % sectorSize, last.end(), '\0');
    }
    // When the file grows again, old bytes on the disk beyond its end must not come back.
    for (sqlite3_int64 at = size; at < diskSize(file); at += sectorSize)
        held.sectors[at / sectorSize].resize(sectorSize);
    held.size = size;
    step();
    return SQLITE_OK;
}

int syncFile(sqlite3_file* base, int flags) {
    const Lock lock(layer().mutex);
    File& file = fileOf(base);
    if (diskSize(file) > file.held->size) file.disk->pMethods->xTruncate(file.disk, file.held->size);
    for (const auto& [number, bytes] : file.held->sectors) {
        if (number % sectorsOfAStep == 0) step();
        if (const int code = passOn(file, number, bytes); code != SQLITE_OK) return code;
    }
    file.held->sectors.clear();
    const int code = file.disk->pMethods->xSync(file.disk, flags);
    step();
    return code;
}

int sizeOfFile(sqlite3_file* base, sqlite3_int64* size) {
    const Lock lock(layer().mutex);
    *size = fileOf(base).held->size;
    return SQLITE_OK;
}

int lockFile(sqlite3_file* base, int kind) {
    sqlite3_file* disk = fileOf(base).disk;
    return disk->pMethods->xLock(disk, kind);
}
int unlockFile(sqlite3_file* base, int kind) {
    sqlite3_file* disk = fileOf(base).disk;
    return disk->pMethods->xUnlock(disk, kind);
}
int isReserved(sqlite3_file* base, int* result) {
    sqlite3_file* disk = fileOf(base).disk;
    return disk->pMethods->xCheckReservedLock(disk, result);
}
int control(sqlite3_file* base, int operation, void* argument) {
    // A hint to make the file larger at once would not be held back.
    if (operation == SQLITE_FCNTL_SIZE_HINT || operation == SQLITE_FCNTL_CHUNK_SIZE) return SQLITE_OK;
    sqlite3_file* disk = fileOf(base).disk;
    return disk->pMethods->xFileControl(disk, operation, argument);
}
int sectorOf(sqlite3_file* base) {
    sqlite3_file* disk = fileOf(base).disk;
    return disk->pMethods->xSectorSize(disk);
}
int characteristics(sqlite3_file* base) {
    sqlite3_file* disk = fileOf(base).disk;
    return disk->pMethods->xDeviceCharacteristics(disk);
}

/// Without the shared memory of a write-ahead log and without mapped pages: both would go past this layer.
const sqlite3_io_methods methods{1,        closeFile,  readFile,   writeFile, truncateFile, syncFile,        sizeOfFile,
                                 lockFile, unlockFile, isReserved, control,   sectorOf,     characteristics, nullptr,
                                 nullptr,  nullptr,    nullptr,    nullptr,   nullptr};

bool isHeld(int flags) {
    return (flags & (SQLITE_OPEN_MAIN_DB | SQLITE_OPEN_MAIN_JOURNAL)) != 0;
}

int openFile(sqlite3_vfs*, const char* name, sqlite3_file* base, int flags, int* outFlags) {
    const Lock lock(layer().mutex);
    Layer& all = layer();
    if (name == nullptr || !isHeld(flags)) return all.disk->xOpen(all.disk, name, base, flags, outFlags);
    auto found = all.files.find(name);
    if (found != all.files.end() && found->second->isDeleted) {
        all.disk->xDelete(all.disk, name, 0);
        all.files.erase(found);
        found = all.files.end();
    }
    File& file = fileOf(base);
    file.base.pMethods = nullptr;
    file.disk = reinterpret_cast<sqlite3_file*>(&file + 1);
    const int code = all.disk->xOpen(all.disk, name, file.disk, flags, outFlags);
    if (code != SQLITE_OK) return code;
    file.path = new std::string(name);
    if (found == all.files.end()) {
        found = all.files.emplace(name, std::make_shared<HeldFile>()).first;
        found->second->size = diskSize(file);
    }
    file.held = found->second.get();
    ++file.held->users;
    file.base.pMethods = &methods;
    all.open.insert(&file);
    return SQLITE_OK;
}

int access(sqlite3_vfs*, const char* name, int flags, int* result) {
    const Lock lock(layer().mutex);
    Layer& all = layer();
    const auto found = all.files.find(name);
    if (found != all.files.end() && found->second->isDeleted) {
        *result = 0;
        return SQLITE_OK;
    }
    // The engine takes a file without a byte for none.
    const int code = all.disk->xAccess(all.disk, name, flags, result);
    if (code == SQLITE_OK && flags == SQLITE_ACCESS_EXISTS && found != all.files.end())
        *result = found->second->size > 0 ? 1 : 0;
    return code;
}

int deleteFile(sqlite3_vfs*, const char* name, int syncFolder) {
    const Lock lock(layer().mutex);
    Layer& all = layer();
    if (syncFolder != 0) {
        all.files.erase(name);
        return all.disk->xDelete(all.disk, name, syncFolder);
    }
    int exists = 0;
    access(nullptr, name, SQLITE_ACCESS_EXISTS, &exists);
    if (exists == 0) {
        // The disk may still have it, empty.
        all.files.erase(name);
        return all.disk->xDelete(all.disk, name, 0);
    }
    auto deleted = std::make_shared<HeldFile>();
    deleted->isDeleted = true;
    all.files[name] = deleted;
    return SQLITE_OK;
}

}  // namespace

void loseUnsyncedWrites(uint32_t seed) {
    Layer& all = layer();
    all.random.seed(seed);
    chance = int(all.random() % longestWait);
    std::signal(SIGUSR1, powerWillGo);
    all.disk = sqlite3_vfs_find(nullptr);
    all.vfs = *all.disk;
    all.vfs.iVersion = std::min(all.disk->iVersion, 2);
    all.vfs.szOsFile = int(sizeof(File)) + all.disk->szOsFile;
    all.vfs.pNext = nullptr;
    all.vfs.zName = "unsynced";
    all.vfs.xOpen = openFile;
    all.vfs.xDelete = deleteFile;
    all.vfs.xAccess = access;
    sqlite3_vfs_register(&all.vfs, 1);
}
