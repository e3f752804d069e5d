#include "catalogue/album_tables.h"

#include "catalogue/album_rules.h"
#include "catalogue/fixed_tables.h"
#include "platform/base/error.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

QStringList columnsOf(const Database& catalogue, const QString& table) {
    QStringList columns;
    attempt([&] {
        const Recordset rows = catalogue.OpenRecordset(u"SELECT * FROM ["_s + table + u"] WHERE 1 = 0"_s);
        for (int i = 0; i < rows.FieldCount(); ++i) columns << rows.Fields(i).Name();
    });
    return columns;
}

}  // namespace

bool isAlbumTable(const Database& catalogue, const QString& table) {
    if (table.size() != tableNameLength || fixedTables().contains(table, Qt::CaseInsensitive)) return false;
    const QStringList columns = columnsOf(catalogue, table);
    return std::ranges::all_of(albumColumns(), [&](const QString& column) { return columns.contains(column); });
}

QStringList albumTables(const Database& catalogue) {
    QStringList albums = catalogue.TableDefs();
    albums.removeIf([&](const QString& table) { return !isAlbumTable(catalogue, table); });
    return albums;
}

QStringList changeableAlbums(const Database& catalogue) {
    QStringList albums = albumTables(catalogue);
    albums.removeIf(isDemo);
    return albums;
}
