#include "catalogue/album_tables.h"

#include "catalogue/album_rules.h"
#include "catalogue/fixed_tables.h"
#include "catalogue/table_shape.h"
#include "platform/base/error.h"

#include <QFileInfo>
#include <algorithm>
#include <filesystem>
#include <system_error>

using namespace Qt::Literals::StringLiterals;

namespace {

bool hasColumn(const TableShape& shape, const QString& name) {
    return std::ranges::find(shape, name, &FieldShape::name) != shape.end();
}

}  // namespace

bool isAlbumTable(const Database& catalogue, const QString& table) {
    if (table.size() != tableNameLength || fixedTables().contains(table, Qt::CaseInsensitive)) return false;
    TableShape shape;
    attempt([&] { shape = shapeOf(catalogue, table); });
    return std::ranges::all_of(albumColumns(), [&](const QString& column) { return hasColumn(shape, column); });
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

bool isSameFile(const QString& one, const QString& other) {
    std::error_code failed;  // neither file need exist
    return std::filesystem::equivalent(QFileInfo(one).filesystemFilePath(), QFileInfo(other).filesystemFilePath(),
                                       failed);
}
