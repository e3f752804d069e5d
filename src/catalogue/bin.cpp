#include "catalogue/bin.h"

#include "catalogue/album_tables.h"
#include "catalogue/bin_columns.h"
#include "platform/database/dialect/sql_tokens.h"

#include <QDateTime>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString pictureColumn = u"图片"_s;
const QString buttonTable = u"tcan"_s;

QString now() {
    return QDateTime::currentDateTime().toString(binTimeFormat);
}

QVariant plain(const FieldValue& value) {
    if (value.isNull()) return {};
    if (const auto* number = std::get_if<qint32>(&value.storage())) return *number;
    return value.toText();
}

}  // namespace

QString binKindName(BinKind kind) {
    return binKindNames.at(std::size_t(kind));
}

OwnTables Bin::tables() {
    return {
        .names = {u"lunq_bin"_s, u"lunq_bin_picture"_s, u"lunq_bin_removal"_s, u"lunq_bin_keeps"_s,
                  u"lunq_bin_deleted"_s},
        .creation = {
            u"CREATE TABLE IF NOT EXISTS lunq_bin (id INTEGER PRIMARY KEY AUTOINCREMENT, removal INTEGER NOT NULL, "
            "kind TEXT NOT NULL, removed TEXT NOT NULL, album TEXT, title TEXT, 序号, 编号, 大小, 规格, 日期, 备注, "
            "名称, 图册, 图片 INTEGER, bytes INTEGER NOT NULL DEFAULT 0, successor INTEGER)"_s,
            u"CREATE INDEX IF NOT EXISTS lunq_bin_picture ON lunq_bin (图片)"_s,
            u"CREATE INDEX IF NOT EXISTS lunq_bin_removal ON lunq_bin (removal)"_s,
            // The triggers of an album remove a picture with its row, also in a file that older programs have made.
            u"CREATE TRIGGER IF NOT EXISTS lunq_bin_keeps BEFORE DELETE ON long_binary "
            "WHEN EXISTS (SELECT 1 FROM lunq_bin WHERE 图片 = OLD.id) BEGIN SELECT RAISE(IGNORE); END"_s,
            u"CREATE TRIGGER IF NOT EXISTS lunq_bin_deleted AFTER DELETE ON lunq_bin WHEN OLD.图片 IS NOT NULL "
            "BEGIN DELETE FROM long_binary WHERE id = OLD.图片; END"_s}};
}

Bin::Bin(const Database& catalogue) : catalogue_(catalogue), rows_(catalogue), isKept_(rows_.has(u"lunq_bin"_s)) {}

/// The highest number that an item was ever given. It is at least as high as that of any removal.
qint64 Bin::newestRemoval() const {
    return isKept_ ? rows_.number(u"SELECT seq FROM sqlite_sequence WHERE name = 'lunq_bin'"_s) : 0;
}

qint64 Bin::removal() {
    if (removal_ == 0) removal_ = newestRemoval() + 1;
    return removal_;
}

/// `columns` are those of the bin that `table` has besides its picture.
void Bin::take(const QString& table, const QString& columns, const QString& where, const OwnRows::Values& values,
               BinKind kind) {
    if (!isKept_) return;
    const QString sql =
        u"INSERT INTO lunq_bin (removal, kind, removed, album, title, 图片, bytes, %1) "
        "SELECT ?, ?, ?, ?, (SELECT 标题 FROM tcbm WHERE 表名 = ?), 图片, "
        "ifnull((SELECT length(bytes) FROM long_binary WHERE id = 图片), 0), %1 FROM %2 WHERE %3"_s.arg(
            columns, quotedName(table), where);
    const QVariant album = table == buttonTable ? QVariant() : QVariant(table);
    rows_.run(sql, OwnRows::Values{removal(), binKindName(kind), now(), album, table} + values);
}

void Bin::takeAlbum(const QString& table) {
    if (!isKept_) return;
    rows_.run(
        u"INSERT INTO lunq_bin (removal, kind, removed, album, title, 序号, 备注) "
        "SELECT ?, ?, ?, 表名, 标题, 序号, 备注 FROM tcbm WHERE 表名 = ? LIMIT 1"_s,
        {removal(), binKindName(BinKind::album), now(), table});
    if (isAlbumTable(catalogue_, table)) take(table, binAlbumColumns, u"1 ORDER BY 序号"_s, {}, BinKind::deleted);
}

void Bin::takeRows(const QString& album, const std::vector<qint64>& rows, BinKind kind) {
    QStringList listed;
    for (const qint64 row : rows) listed << QString::number(row);
    take(album, binAlbumColumns, u"_rowid_ IN (%1) ORDER BY 序号"_s.arg(listed.join(u',')), {}, kind);
}

/// A picture belongs to one row only. One without a picture is found by its number.
void Bin::takeRecord(const QString& table, const Recordset& record, BinKind kind) {
    const QString& columns = table == buttonTable ? binButtonColumns : binAlbumColumns;
    const qint64 picture = record.storedAt(record.row(), pictureColumn).id();
    if (picture != 0) {
        take(table, columns, u"图片 = ?"_s, {picture}, kind);
        return;
    }
    take(table, columns, u"图片 IS NULL AND 序号 IS ? AND 编号 IS ? LIMIT 1"_s,
         {plain(record.Fields(u"序号"_s).Value()), plain(record.Fields(u"编号"_s).Value())}, kind);
}

/// A picture that is in use must not be in the bin.
void Bin::noteSuccessor(const StoredValue& picture) {
    if (!isKept_) return;
    const qint64 item = newestRemoval();
    rows_.run(u"UPDATE lunq_bin SET successor = ?1, 图片 = nullif(图片, ?1) WHERE id = ?2"_s, {picture.id(), item});
    rows_.run(u"DELETE FROM lunq_bin WHERE id = ? AND 图片 IS NULL"_s, {item});
}

void removeIntoBin(const Database& catalogue, const QString& table, Recordset& record, BinKind kind) {
    Transaction together(catalogue);
    Bin(catalogue).takeRecord(table, record, kind);
    record.Delete();
    together.commit();
}

void updateIntoBin(const Database& catalogue, const QString& table, Recordset& record) {
    Transaction together(catalogue);
    Bin bin(catalogue);
    const StoredValue before = record.storedAt(record.row(), pictureColumn);
    if (!before.isNull()) bin.takeRecord(table, record, table == buttonTable ? BinKind::button : BinKind::replaced);
    record.Update();
    const StoredValue after = record.storedAt(record.row(), pictureColumn);
    if (!before.isNull()) bin.noteSuccessor(after);
    together.commit();
}
