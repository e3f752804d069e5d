#pragma once

#include <sqlite3.h>

#include <QtGlobal>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <map>
#include <thread>

/// A failing disk for all files that the engine opens while the object lives. Set the faults before each use; at first
/// there are none.
class FailingDisk {
  public:
    /// The engine's code for a failed call, and the system's reason.
    struct Fault {
        int code = SQLITE_OK;
        int reason = 0;
        int calls = -1;  ///< So many calls fail, later ones succeed; negative: all fail.
        int before = 0;  ///< So many calls succeed before that.
    };

    FailingDisk() : real_(*sqlite3_vfs_find(nullptr)), failing_(real_) {
        current() = this;
        failing_.zName = "failing";
        failing_.xOpen = open;
        sqlite3_vfs_register(&failing_, 1);
    }
    ~FailingDisk() { sqlite3_vfs_unregister(&failing_); }
    FailingDisk(const FailingDisk&) = delete;
    FailingDisk& operator=(const FailingDisk&) = delete;

    Fault reading, writing, syncing;
    sqlite3_int64 readingFrom = 0;  ///< Bytes before this one can be read.

    /// How long other threads than the one that made this object wait for each piece that they read, and how many
    /// pieces they have read.
    std::atomic<int> pauseOfOthersMs = 0;
    std::atomic<int> readByOthers = 0;

  private:
    static FailingDisk*& current() {
        static FailingDisk* disk = nullptr;
        return disk;
    }

    static bool isMet(Fault& fault) {
        if (fault.code == SQLITE_OK || fault.calls == 0) return false;
        if (fault.before > 0) {
            --fault.before;
            return false;
        }
        if (fault.calls > 0) --fault.calls;
        errno = fault.reason;
        return true;
    }

    /// The engine's own files, but for the methods that may fail.
    static int open(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* opened) {
        FailingDisk& disk = *current();
        const int code = disk.real_.xOpen(&disk.real_, name, file, flags, opened);
        if (file->pMethods == nullptr) return code;
        disk.realMethods_ = file->pMethods;
        const auto [methods, isNew] = disk.methods_.try_emplace(file->pMethods, *file->pMethods);
        if (isNew) {
            methods->second.xRead = read;
            methods->second.xWrite = write;
            methods->second.xSync = sync;
        }
        file->pMethods = &methods->second;
        return code;
    }
    static int read(sqlite3_file* file, void* bytes, int length, sqlite3_int64 at) {
        FailingDisk& disk = *current();
        if (std::this_thread::get_id() != disk.maker_) {
            ++disk.readByOthers;
            std::this_thread::sleep_for(std::chrono::milliseconds(disk.pauseOfOthersMs));
        }
        if (at + length > disk.readingFrom && isMet(disk.reading)) return disk.reading.code;
        return disk.realMethods_.load()->xRead(file, bytes, length, at);
    }
    static int write(sqlite3_file* file, const void* bytes, int length, sqlite3_int64 at) {
        FailingDisk& disk = *current();
        return isMet(disk.writing) ? disk.writing.code : disk.realMethods_.load()->xWrite(file, bytes, length, at);
    }
    static int sync(sqlite3_file* file, int flags) {
        FailingDisk& disk = *current();
        return isMet(disk.syncing) ? disk.syncing.code : disk.realMethods_.load()->xSync(file, flags);
    }

    const std::thread::id maker_ = std::this_thread::get_id();
    sqlite3_vfs real_;
    sqlite3_vfs failing_;
    /// All kinds of files read, write and sync by the same ones.
    std::atomic<const sqlite3_io_methods*> realMethods_ = nullptr;
    std::map<const sqlite3_io_methods*, sqlite3_io_methods> methods_;  ///< By the real ones: only databases are locked.
};
