#include "platform/database/file/free_space.h"

#include <sqlite3.h>

#include <QtEndian>
#include <algorithm>
#include <vector>

namespace {

// Places in the file's header.
constexpr int headerLength = 100;
constexpr int pageSizeAt = 16;
constexpr int reservedAt = 20;
constexpr int pageCountAt = 28;
constexpr int freeCountAt = 36;
constexpr int largestRootAt = 52;  // 0 where the engine keeps no map of the pages
constexpr int isIncrementalAt = 64;

// Map pages name the kind and the owner of the pages behind them. The first of them is page 2.
constexpr int mapEntryLength = 5;
constexpr qint64 firstMap = 2;
constexpr uchar freePage = 2;

/// A part of the file, read through the engine: opening and closing the file here would take away all locks that the
/// program has on it.
std::vector<uchar> part(sqlite3* connection, qint64 at, int length) {
    sqlite3_file* file = nullptr;
    sqlite3_file_control(connection, "main", SQLITE_FCNTL_FILE_POINTER, &file);
    std::vector<uchar> bytes(size_t(length), 0);
    const bool read = file != nullptr && file->pMethods != nullptr &&
                      file->pMethods->xRead(file, bytes.data(), length, at) == SQLITE_OK;
    return read ? bytes : std::vector<uchar>();
}

qint64 number(const std::vector<uchar>& header, int at) {
    return qFromBigEndian<quint32>(&header[size_t(at)]);
}

}  // namespace

bool isShortenedByEveryChange(sqlite3* connection) {
    const std::vector<uchar> header = part(connection, 0, headerLength);
    return !header.empty() && number(header, largestRootAt) != 0 && number(header, isIncrementalAt) == 0;
}

FreeSpace freeSpace(sqlite3* connection) {
    const std::vector<uchar> header = part(connection, 0, headerLength);
    if (header.empty() || number(header, largestRootAt) == 0 || number(header, isIncrementalAt) == 0) return {};
    const int stored = qFromBigEndian<quint16>(&header[pageSizeAt]);
    const int pageSize = stored == 1 ? 65536 : stored;
    const qint64 pages = number(header, pageCountAt);
    FreeSpace space{number(header, freeCountAt), 0};
    const qint64 end = std::max(pages - space.pages, firstMap);

    const int mapped = (pageSize - header[reservedAt]) / mapEntryLength;
    if (space.pages == 0 || mapped <= 0) return {};
    for (qint64 map = (end - firstMap) / (mapped + 1) * (mapped + 1) + firstMap; map < pages; map += mapped + 1) {
        const std::vector<uchar> kinds = part(connection, (map - 1) * pageSize, mapped * mapEntryLength);
        if (kinds.empty()) return {};
        for (qint64 page = std::max(end, map) + 1; page <= std::min(pages, map + mapped); ++page)
            if (kinds[size_t((page - map - 1) * mapEntryLength)] != freePage) ++space.pagesToMove;
    }
    return space;
}
