#include "fuzzing.h"

#include <sqlite3.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>

using namespace Qt::Literals::StringLiterals;

extern "C" size_t LLVMFuzzerMutate(uint8_t* data, size_t size, size_t largest);

namespace {

constexpr int instructionsPerLook = 1000;
constexpr int mostLooks = 2000;

int looksOf(sqlite3_stmt* statement) {
    return sqlite3_stmt_status(statement, SQLITE_STMTSTATUS_VM_STEP, 0) / instructionsPerLook;
}

/// Asked by the engine while statements run: anything but 0 ends the one that does.
int isEnough(void* connection) {
    auto* database = static_cast<sqlite3*>(connection);
    for (sqlite3_stmt* statement = nullptr; (statement = sqlite3_next_stmt(database, statement));) {
        if (sqlite3_stmt_busy(statement) && looksOf(statement) > mostLooks) return 1;
    }
    return 0;
}

int boundConnection(sqlite3* connection, const char**, const void*) {
    sqlite3_progress_handler(connection, instructionsPerLook, isEnough, connection);
    return SQLITE_OK;
}

const QTemporaryDir& scratchFolder() {
    static const QTemporaryDir folder((QFileInfo(u"/dev/shm"_s).isWritable() ? u"/dev/shm"_s : QDir::tempPath()) +
                                      u"/lunq-fuzz-XXXXXX"_s);
    return folder;
}

}  // namespace

void expect(bool holds, const char* what) {
    if (holds) return;
    std::fprintf(stderr, "EXPECTED: %s\n", what);
    std::abort();
}

bool goesThrough(const std::function<void()>& step) {
    try {
        step();
        return true;
    } catch (const Error& error) {
        expect(!error.text().isEmpty(), "a failure says something");
    } catch (const std::exception& other) {
        std::fprintf(stderr, "%s\n", other.what());
        expect(false, "every failure is an Error");
    }
    return false;
}

QString scratchFile(const QString& name, const QByteArray& bytes) {
    const QString path = scratchFolder().filePath(name);
    for (const QString& suffix : {u"-journal"_s, u"-wal"_s, u"-shm"_s}) QFile::remove(path + suffix);
    QFile::remove(path);
    QFile file(path);
    expect(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(), "there is room for scratch files");
    return path;
}

void boundStatements() {
    sqlite3_auto_extension(reinterpret_cast<void (*)()>(boundConnection));
}

size_t mutatePages(uint8_t* data, size_t size, size_t largest, unsigned seed, size_t pageSize) {
    std::minstd_rand random(seed);
    const auto below = [&](size_t end) { return end == 0 ? 0 : random() % end; };
    const size_t pages = size / pageSize;
    if (pages < 2) return LLVMFuzzerMutate(data, size, largest);

    uint8_t* page = data + below(pages) * pageSize;
    const size_t kind = below(20);
    if (kind == 0) return LLVMFuzzerMutate(data, size, largest);
    if (kind == 1) return size - below(pages) * pageSize;
    if (kind == 2) {
        std::memmove(page, data + below(pages) * pageSize, pageSize);
        return size;
    }
    if (kind == 3 && size + pageSize <= largest) {
        std::memmove(data + size, page, pageSize);
        return size + pageSize;
    }
    const size_t window = std::size_t{4} << below(5);
    const size_t reach = kind < 12 ? std::min<size_t>(pageSize, 256) : pageSize;
    uint8_t* place = page + below(reach - std::min(window, reach - 1));
    LLVMFuzzerMutate(place, window, window);
    return size;
}
