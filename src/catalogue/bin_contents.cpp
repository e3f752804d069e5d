#include "catalogue/bin_contents.h"

#include "catalogue/bin_columns.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int mostAtOnce = 200;                  ///< Items that go in one change,
constexpr qint64 mostBytesAtOnce = 256LL << 20;  ///< and bytes.

const QString columns = u"id, removal, kind, removed, album, title, 序号, 编号, 备注, 名称, 图片, bytes, successor"_s;

BinItem itemOf(const OwnRows::Values& row) {
    const auto kind = std::ranges::find(binKindNames, row[2].toString());
    return {.id = row[0].toLongLong(),
            .removal = row[1].toLongLong(),
            .kind = kind == binKindNames.end() ? BinKind::deleted : BinKind(kind - binKindNames.begin()),
            .removed = row[3].toString(),
            .album = row[4].toString(),
            .title = row[5].toString(),
            .number = row[6].toInt(),
            .codes = row[7].toString().trimmed(),
            .remark = row[8].toString().trimmed(),
            .name = row[9].toString(),
            .picture = row[10].toLongLong(),
            .bytes = row[11].toLongLong(),
            .successor = row[12].toLongLong()};
}

std::vector<OwnRows::Values> lists(const std::vector<qint64>& ids) {
    std::vector<OwnRows::Values> all;
    all.reserve(ids.size());
    for (const qint64 id : ids) all.push_back({id});
    return all;
}

/// Nothing where there is no bin.
void eachRow(const Database& catalogue, const QString& sql, const OwnRows::Values& values,
             const std::function<void(const OwnRows::Values&)>& use) {
    if (Bin(catalogue).isKept()) OwnRows(catalogue).each(sql, values, use);
}

std::vector<qint64> idsOf(const Database& catalogue, const QString& sql, const OwnRows::Values& values = {}) {
    std::vector<qint64> ids;
    eachRow(catalogue, sql, values, [&](const OwnRows::Values& row) { ids.push_back(row[0].toLongLong()); });
    return ids;
}

/// The beginning of a list of items with their bytes, until that is enough.
std::vector<qint64> firstOf(const Database& catalogue, const QString& sql, const OwnRows::Values& values, qint64 bytes,
                            std::size_t most) {
    std::vector<qint64> ids;
    qint64 sum = 0;
    eachRow(catalogue, sql, values, [&](const OwnRows::Values& row) {
        if (sum >= bytes || ids.size() >= most) return;
        ids.push_back(row[0].toLongLong());
        sum += row[1].toLongLong();
    });
    return ids;
}

}  // namespace

bool isBinEmpty(const Database& catalogue) {
    return idsOf(catalogue, u"SELECT id FROM lunq_bin LIMIT 1"_s).empty();
}

std::vector<qint64> binItems(const Database& catalogue) {
    return idsOf(catalogue, u"SELECT id FROM lunq_bin ORDER BY removal DESC, id"_s);
}

std::optional<BinItem> binItem(const Database& catalogue, qint64 id) {
    const std::vector<BinItem> found = binItems(catalogue, {id});
    if (found.empty()) return {};
    return found.front();
}

std::vector<BinItem> binItems(const Database& catalogue, const std::vector<qint64>& ids) {
    std::vector<BinItem> items;
    if (Bin(catalogue).isKept())
        OwnRows(catalogue).eachOf(u"SELECT %1 FROM lunq_bin WHERE id = ?"_s.arg(columns), lists(ids),
                                  [&](const OwnRows::Values& row) { items.push_back(itemOf(row)); });
    return items;
}

std::vector<qint64> withRecordsOfAlbums(const Database& catalogue, const std::vector<qint64>& ids) {
    std::vector<qint64> all = ids;
    for (const BinItem& item : binItems(catalogue, ids)) {
        if (item.kind != BinKind::album) continue;
        const auto records =
            idsOf(catalogue, u"SELECT id FROM lunq_bin WHERE removal = ? AND album = ?"_s, {item.removal, item.album});
        all.insert(all.end(), records.begin(), records.end());
    }
    std::ranges::sort(all);
    all.erase(std::unique(all.begin(), all.end()), all.end());
    return all;
}

BinTotals totalsOf(const std::vector<BinItem>& items) {
    BinTotals totals{.items = int(items.size())};
    for (const BinItem& item : items) {
        if (item.kind == BinKind::album) ++totals.albums;
        if (item.kind == BinKind::button) ++totals.buttons;
        totals.bytes += item.bytes;
    }
    return totals;
}

BinTotals binTotals(const Database& catalogue) {
    return binTotalsSince(catalogue, 0);
}

BinTotals binTotalsSince(const Database& catalogue, qint64 removal) {
    BinTotals totals;
    eachRow(catalogue,
            u"SELECT count(*), ifnull(sum(kind = 'album'), 0), ifnull(sum(kind = 'button'), 0), ifnull(sum(bytes), 0) "
            "FROM lunq_bin WHERE removal > ?"_s,
            {removal}, [&](const OwnRows::Values& row) {
                totals = {row[0].toInt(), row[1].toInt(), row[2].toInt(), row[3].toLongLong()};
            });
    return totals;
}

bool isBinOnly(const Database& catalogue, qint64 removal, BinKind kind) {
    return idsOf(catalogue,
                 u"SELECT id FROM lunq_bin WHERE removal > ?1 AND ?2 <> "
                 "iif(kind = 'button' AND ifnull(successor, 0) <> 0, 'replaced', kind) LIMIT 1"_s,
                 {removal, binKindName(kind)})
        .empty();
}

std::vector<qint64> binItemsSince(const Database& catalogue, qint64 removal) {
    return idsOf(catalogue, u"SELECT id FROM lunq_bin WHERE removal > ? ORDER BY id"_s, {removal});
}

void removeFromBin(const Database& catalogue, const std::vector<qint64>& ids) {
    if (!ids.empty()) OwnRows(catalogue).runEach(u"DELETE FROM lunq_bin WHERE id = ?"_s, lists(ids));
}

std::vector<qint64> oldestBinItems(const Database& catalogue, qint64 bytes) {
    return firstOf(catalogue, u"SELECT id, bytes FROM lunq_bin ORDER BY removal, id"_s, {}, bytes, SIZE_MAX);
}

std::vector<qint64> binItemsUpTo(const Database& catalogue, qint64 removal) {
    return firstOf(catalogue, u"SELECT id, bytes FROM lunq_bin WHERE removal <= ? ORDER BY removal, id"_s, {removal},
                   mostBytesAtOnce, mostAtOnce);
}
