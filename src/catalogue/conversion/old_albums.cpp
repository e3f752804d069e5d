#include "catalogue/conversion/old_albums.h"

#include "catalogue/album_rules.h"
#include "catalogue/fixed_tables.h"
#include "catalogue/table_shape.h"
#include "platform/base/error.h"
#include "platform/database/dialect/sql_tokens.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

bool hasColumn(const Database& database, const QString& table, const QString& column) {
    bool has = false;
    attempt([&] { has = fieldNamed(shapeOf(database, table), column).has_value(); });
    return has;
}

/// The table of an album has pictures at least.
bool holdsPictures(const Database& old, const QString& table) {
    return !fixedTables().contains(table, Qt::CaseInsensitive) && hasColumn(old, table, u"图片"_s);
}

/// Nobody has listed it, so more is asked for.
bool looksLikeAlbum(const Database& old, const QString& table) {
    return table.startsWith(u"tc"_s, Qt::CaseInsensitive) && holdsPictures(old, table) &&
           hasColumn(old, table, u"序号"_s);
}

QString textOf(const Recordset& rows, const QString& column) {
    QString text;
    attempt([&] { text = rows.Fields(column).Value().textOr().trimmed(); });
    return text;
}

QStringList listedTables(const std::vector<OldAlbum>& albums) {
    QStringList tables;
    for (const OldAlbum& album : albums) tables << album.table << album.listedAs;
    return tables;
}

std::vector<OldAlbum> listedAlbums(const Database& old) {
    std::vector<OldAlbum> albums;
    if (!hasDirectory(old)) return albums;
    const QString directory = tableNamed(old, u"tcbm"_s);
    const bool inOrder = hasColumn(old, directory, u"序号"_s);
    for (Recordset rows = old.OpenRecordset(allRecordsSql(directory, inOrder ? u"序号"_s : QString())); !rows.Eof();
         rows.MoveNext()) {
        const QString name = textOf(rows, u"表名"_s);
        if (name.isEmpty() || listedTables(albums).contains(name, Qt::CaseInsensitive)) continue;
        const QString table = tableNamed(old, name);
        albums.push_back({!table.isEmpty() && holdsPictures(old, table) ? table : QString(),
                          {},
                          name,
                          textOf(rows, u"标题"_s),
                          textOf(rows, u"备注"_s),
                          true});
    }
    return albums;
}

/// Statements name albums without quotes.
bool canBeName(const QString& name) {
    return name.size() == tableNameLength && name.front().isLetter() && !isKeyword(name) &&
           !fixedTables().contains(name, Qt::CaseInsensitive) &&
           std::ranges::all_of(name, [](QChar sign) { return sign.isLetterOrNumber(); });
}

}  // namespace

QString tableNamed(const Database& database, const QString& name) {
    const QStringList tables = database.TableDefs();
    const auto found = std::ranges::find_if(
        tables, [&](const QString& table) { return table.compare(name, Qt::CaseInsensitive) == 0; });
    return found == tables.end() ? QString() : *found;
}

QString freeAlbumName(const QStringList& taken) {
    constexpr int mostAlbums = 99;
    for (int number = 1; number <= mostAlbums; ++number)
        if (QString name = albumTableName(number); !taken.contains(name, Qt::CaseInsensitive)) return name;
    throw Error(u"图册太多，没有空余的表名了。"_s);
}

bool hasDirectory(const Database& old) {
    const QString directory = tableNamed(old, u"tcbm"_s);
    return !directory.isEmpty() && hasColumn(old, directory, u"表名"_s);
}

bool isOldCatalogue(const Database& database) {
    if (!database.isForeign()) return false;
    if (!tableNamed(database, u"tcbm"_s).isEmpty() || !tableNamed(database, u"tcsz"_s).isEmpty()) return true;
    const QStringList tables = database.TableDefs();
    return std::ranges::any_of(tables, [&](const QString& table) { return looksLikeAlbum(database, table); });
}

std::vector<OldAlbum> oldAlbums(const Database& old) {
    std::vector<OldAlbum> albums = listedAlbums(old);
    for (const QString& table : old.TableDefs()) {
        if (listedTables(albums).contains(table, Qt::CaseInsensitive) || !looksLikeAlbum(old, table)) continue;
        albums.push_back(
            {table, {}, {}, isDemo(table) ? u"演示"_s : table + u"（未列出）"_s, u"原来的图册目录中没有列出"_s, false});
    }
    nameAlbums(albums, {});
    return albums;
}

void nameAlbums(std::vector<OldAlbum>& albums, QStringList taken) {
    for (OldAlbum& album : albums) album.name.clear();
    const auto take = [&](OldAlbum& album, const QString& name) {
        album.name = name;
        taken << name;
    };
    const auto ownName = [](const OldAlbum& album) { return album.isListed ? album.listedAs : album.table; };
    // Those that can keep their names do, before the others look for free ones.
    for (OldAlbum& album : albums)
        if (canBeName(ownName(album)) && !taken.contains(ownName(album), Qt::CaseInsensitive))
            take(album, ownName(album));
    for (OldAlbum& album : albums)
        if (album.name.isEmpty()) take(album, freeAlbumName(taken));
}
