#pragma once

#include "catalogue/bin.h"

#include <optional>

/// What is in the bin, and how it goes for good. A catalogue without a bin has an empty one. All throw `Error`.

/// Days that an item stays (see `BinDays`).
inline constexpr int binDays = 30;

struct BinItem {
    qint64 id = 0;
    qint64 removal = 0;
    BinKind kind = BinKind::deleted;
    QString removed = {};  ///< Local time, such as `2026-11-22 16:30:00`.
    QString album = {};    ///< Table of the album, and its title; both empty for a button.
    QString title = {};
    int number = 0;       ///< 序号
    QString codes = {};   ///< 编号
    QString remark = {};  ///< 备注
    QString name = {};    ///< Of a button.
    qint64 picture = 0;   ///< Id of its value, 0 for none.
    qint64 bytes = 0;     ///< Of its picture.
    qint64 successor = 0;

    bool isRecord() const { return kind != BinKind::album && kind != BinKind::button; }
};

bool isBinEmpty(const Database& catalogue);

/// The ids of all items, the newest removal first, and in it in the order of the album.
std::vector<qint64> binItems(const Database& catalogue);
/// Nothing for an item that is gone.
std::optional<BinItem> binItem(const Database& catalogue, qint64 id);
/// Those of them that are there still.
std::vector<BinItem> binItems(const Database& catalogue, const std::vector<qint64>& ids);
/// The same ids, and for each album those of the records that went with it.
std::vector<qint64> withRecordsOfAlbums(const Database& catalogue, const std::vector<qint64>& ids);

struct BinTotals {
    int items = 0;
    int albums = 0;
    int buttons = 0;
    qint64 bytes = 0;  ///< Of all pictures.

    int pictures() const { return items - albums - buttons; }
};
BinTotals totalsOf(const std::vector<BinItem>& items);
BinTotals binTotals(const Database& catalogue);
/// Of the removals after that one.
BinTotals binTotalsSince(const Database& catalogue, qint64 removal);
/// Of removals after that one: whether they were all of this kind. A button that got another picture counts as
/// `replaced`.
bool isBinOnly(const Database& catalogue, qint64 removal, BinKind kind);
std::vector<qint64> binItemsSince(const Database& catalogue, qint64 removal);

/// Removes items with their pictures.
void removeFromBin(const Database& catalogue, const std::vector<qint64>& ids);

/// The oldest items that hold so many bytes together, as far as there are so many.
std::vector<qint64> oldestBinItems(const Database& catalogue, qint64 bytes);

/// The items of all removals up to that one, the oldest first, and no more than it takes to remove them in a moment.
std::vector<qint64> binItemsUpTo(const Database& catalogue, qint64 removal);
