#include "platform/database/file/file_check.h"

#include "platform/database/dialect/sql_functions.h"
#include "platform/database/file/database_file.h"
#include "platform/database/file/engine_errors.h"

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <mutex>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace {

struct Checks {
    std::mutex mutex;
    std::vector<FileCheck*> running;
};

Checks& checks() {
    static Checks all;
    return all;
}

SQLite::Database openToRead(const QString& path) {
    requireDatabaseFile(path);
    try {
        return SQLite::Database(path.toStdString(), SQLite::OPEN_READONLY);
    } catch (const SQLite::Exception& failure) {
        throw engineError(path, failure.getErrorCode(), QString::fromUtf8(failure.what()));
    }
}

}  // namespace

FileCheck::FileCheck(const QString& path) : path_(path), database_(openToRead(path)) {
    setUpDialect(database_.getHandle());
    const std::lock_guard lock(checks().mutex);
    checks().running.push_back(this);
}

FileCheck::~FileCheck() {
    const std::lock_guard lock(checks().mutex);
    std::erase(checks().running, this);
}

void FileCheck::interrupt() {
    interrupted_ = true;
    sqlite3_interrupt(database_.getHandle());
}

void FileCheck::interruptAll() {
    const std::lock_guard lock(checks().mutex);
    for (FileCheck* check : checks().running) check->interrupt();
}

FileCheck::Outcome FileCheck::run() {
    interrupted_ = false;
    const Outcome outcome = look();
    // A file that is gone, with the disk or the network that it was on, is not damaged.
    if (outcome == Outcome::damaged) requireDatabaseFile(path_);
    // An interrupted check has not seen all pages, and may report the others as lost.
    return interrupted_ ? Outcome::interrupted : outcome;
}

/// The engine reports a page that it could not read as damage. That counts only when a second check finds it too, and
/// the file can be read.
FileCheck::Outcome FileCheck::look() {
    try {
        if (!hasHeader()) return Outcome::damaged;
        if (isSound() || isSound()) return Outcome::whole;
        requireReadable();
        return Outcome::damaged;
    } catch (const SQLite::Exception& failure) {
        switch (failure.getErrorCode() & 0xff) {
            case SQLITE_INTERRUPT:
            case SQLITE_BUSY:
                return Outcome::interrupted;
            case SQLITE_CORRUPT:
            case SQLITE_NOTADB:
                return Outcome::damaged;
            default:
                throw engineError(path_, failure.getErrorCode(), QString::fromUtf8(failure.what()),
                                  sqlite3_system_errno(database_.getHandle()));
        }
    }
}

bool FileCheck::isSound() {
    SQLite::Statement check(database_, "PRAGMA quick_check(1)");
    check.executeStep();
    return check.getColumn(0).getString() == "ok";
}

/// The engine takes a file without content for a new database. The header is read through the engine: opening and
/// closing the file here would take away all locks that the program has on it.
bool FileCheck::hasHeader() {
    static constexpr std::array<char, 16> header{"SQLite format 3"};
    std::array<char, 16> begin{};
    return read(begin, 0) && begin == header;
}

void FileCheck::requireReadable() {
    std::vector<char> part(size_t(1) << 20);
    for (qint64 at = 0; !interrupted_ && read(part, at); at += qint64(part.size())) {
    }
}

/// False at the end of the file.
bool FileCheck::read(std::span<char> bytes, qint64 at) {
    sqlite3_file* file = nullptr;
    sqlite3_file_control(database_.getHandle(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
    const int code = file->pMethods->xRead(file, bytes.data(), int(bytes.size()), at);
    const int reason = errno;
    if (code == SQLITE_OK || code == SQLITE_IOERR_SHORT_READ) return code == SQLITE_OK;
    throw engineError(path_, code, {}, reason);
}
