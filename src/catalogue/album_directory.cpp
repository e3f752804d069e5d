#include "catalogue/album_directory.h"

#include "catalogue/album_rules.h"
#include "catalogue/bin.h"
#include "catalogue/fixed_tables.h"
#include "catalogue/selection_buttons.h"
#include "platform/base/error.h"

#include <algorithm>
#include <functional>

using namespace Qt::Literals::StringLiterals;

namespace {

Recordset directoryWhere(const Database& catalogue, const QString& column, const QString& text) {
    return catalogue.OpenRecordset(u"SELECT * FROM tcbm WHERE "_s + column + u" = "_s + quoted(text));
}

Recordset directoryRow(const Database& catalogue, const QString& table) {
    return directoryWhere(catalogue, u"表名"_s, table);
}

Album albumAt(const Recordset& row) {
    const auto text = [&](const QString& column) { return row.Fields(column).Value().textOr(); };
    return {text(u"序号"_s), text(u"表名"_s), text(u"标题"_s), text(u"备注"_s)};
}

std::optional<Album> first(const Recordset& rows) {
    if (rows.Eof()) return {};
    return albumAt(rows);
}

/// False when there is no such button.
bool setAlbumsOfAllPictures(const Database& catalogue, const std::function<QString(const QString&)>& changed) {
    Recordset button = buttonsWithCode(catalogue, allPicturesCode);
    if (button.Eof()) return false;
    button.Edit();
    Field tables = button.Fields(u"图册"_s);
    tables.SetValue(changed(tables.Value().textOr()));
    button.Update();
    return true;
}

QString megabytesText(qint64 bytes) {
    const double megabytes = static_cast<double>(bytes) / 1e6;
    if (megabytes < 0.1) return u"不到 0.1 MB"_s;
    return QString::number(megabytes, 'f', megabytes < 10 ? 1 : 0) + u" MB"_s;
}

void removeTableAndRow(const Database& catalogue, const QString& table) {
    Bin(catalogue).takeAlbum(table);
    // The directory may name a table that is gone, or one that never was an album.
    if (catalogue.TableDefs().contains(table, Qt::CaseInsensitive) &&
        !fixedTables().contains(table, Qt::CaseInsensitive))
        catalogue.Execute(u"DROP TABLE ["_s + table + u']');
    Recordset row = directoryRow(catalogue, table);
    if (!row.Eof()) row.Delete();
}

}  // namespace

std::vector<Album> allAlbums(const Database& catalogue) {
    std::vector<Album> albums;
    for (Recordset rows = catalogue.OpenRecordset(u"tcbm"_s); !rows.Eof(); rows.MoveNext())
        albums.push_back(albumAt(rows));
    return albums;
}

std::optional<Album> findAlbum(const Database& catalogue, const QString& table) {
    return first(directoryRow(catalogue, table));
}

std::optional<Album> findTitle(const Database& catalogue, const QString& title) {
    return first(directoryWhere(catalogue, u"标题"_s, title));
}

Album proposedAlbum(const Database& catalogue) {
    Recordset rows = catalogue.OpenRecordset(u"SELECT * FROM tcbm  ORDER BY [序号]"_s);
    int number = 1;
    if (!rows.Eof()) {
        rows.MoveLast();
        number = rows.Fields(u"序号"_s).Value().toInteger();
    }
    const QString digits = QString::number(number);
    return {digits, albumTableName(number), u'第' + digits + u'册', {}};
}

QString tableNameFault(const QString& table) {
    const auto isPlain = [](QChar character) { return character.isLetterOrNumber(); };
    if (table.size() == 4 && table.startsWith(u"tc"_s) && std::all_of(table.begin(), table.end(), isPlain)) return {};
    return u"表名[%1]不能使用！\n\n表名应为4个字符（现在有 %2 个）：前两个是“tc”，后两个是数字、字母或汉字，例如 tc07。"_s
        .arg(table, QString::number(table.size()));
}

bool titleFits(const QString& title) {
    return wzcd(title) <= 16;
}

QString titleFault(const QString& title) {
    return titleTooLong + u"\n\n现在的标题相当于英文 %1 个。"_s.arg(wzcd(title));
}

QString titleInUse(const Album& owner) {
    return u"标题“%1”已经有了（图册 %2），请换一个标题！"_s.arg(owner.title, owner.table);
}

QString albumContents(const Database& catalogue, const Album& album) {
    QString text = u"%1（%2）"_s.arg(album.title, album.table);
    attempt([&] {
        const Recordset pictures = catalogue.OpenRecordset(album.table);
        text += u"，%1 张"_s.arg(pictures.rowCount());
        qint64 bytes = 0;
        for (int row = 0; row < pictures.rowCount(); ++row) bytes += pictures.storedAt(row, u"图片"_s).size();
        if (bytes > 0) text += u"，"_s + megabytesText(bytes);
    });
    return text;
}

void addAlbum(const Database& catalogue, const Album& album) {
    Transaction transaction(catalogue);
    catalogue.Execute(createAlbumSql(album.table));

    Recordset rows = catalogue.OpenRecordset(u"SELECT * FROM tcbm  ORDER BY [序号]"_s);
    rows.AddNew();
    rows.Fields(u"序号"_s).SetValue(album.number);
    rows.Fields(u"表名"_s).SetValue(album.table);
    rows.Fields(u"标题"_s).SetValue(album.title);
    rows.Fields(u"备注"_s).SetValue(album.remark);
    rows.Update();
    transaction.commit();
}

void createAlbum(const Database& catalogue, const Album& album) {
    Transaction transaction(catalogue);
    addAlbum(catalogue, album);
    if (!setAlbumsOfAllPictures(catalogue, [&](const QString& tables) { return tables + album.table; }))
        throw Error(u"没有编号为“v”的按钮，图册无法登记。"_s);
    transaction.commit();
}

void undoAlbum(const Database& catalogue, const QString& table) {
    Transaction transaction(catalogue);
    removeTableAndRow(catalogue, table);
    transaction.commit();
}

void deleteAlbum(const Database& catalogue, const QString& table) {
    Transaction transaction(catalogue);
    removeTableAndRow(catalogue, table);
    setAlbumsOfAllPictures(catalogue, [&](const QString& tables) { return withoutAlbum(tables, table); });
    transaction.commit();
}

void storeRemark(const Database& catalogue, const QString& table, const QString& remark) {
    Recordset row = directoryRow(catalogue, table);
    if (row.Eof()) throw Error(u"图册[%1]已不在图册目录中，备注没有保存。"_s.arg(table));
    row.Edit();
    row.Fields(u"备注"_s).SetValue(remark);
    row.Update();
}
