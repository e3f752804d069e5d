#include "catalogue/bin_restoring.h"

#include "catalogue/album_directory.h"
#include "catalogue/album_rules.h"
#include "catalogue/album_tables.h"
#include "catalogue/bin_columns.h"
#include "catalogue/next_number.h"
#include "catalogue/selection_buttons.h"
#include "platform/base/error.h"
#include "platform/database/dialect/sql_tokens.h"

#include <QMap>
#include <QSet>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString buttonTable = u"tcan"_s;

/// "tc" and two characters that no table has yet.
QString freeTableName(const Database& catalogue) {
    const QStringList taken = catalogue.TableDefs();
    const QString digits = u"0123456789abcdefghijklmnopqrstuvwxyz"_s;
    for (const QChar first : digits)
        for (const QChar second : digits) {
            const QString name = u"tc"_s + first + second;
            if (!taken.contains(name, Qt::CaseInsensitive) && !findAlbum(catalogue, name)) return name;
        }
    throw Error(u"没有可用的表名，不能再建立图册。"_s);
}

/// One restoring, within a change.
class Restoring {
  public:
    explicit Restoring(const Database& catalogue) : catalogue_(catalogue), rows_(catalogue) {}

    Restored restore(const std::vector<BinItem>& items) {
        QMap<QString, std::vector<BinItem>> records;  // by the album into which they go
        for (const BinItem& item : items) {
            if (item.kind == BinKind::album)
                albumFor(item);
            else if (item.successor != 0 && changePlaces(item))
                ++(item.kind == BinKind::button ? restored_.buttons : restored_.pictures);
            else if (item.kind == BinKind::button)
                restoreButton(item);
            else
                records[albumFor(item)].push_back(item);
        }
        for (auto album = records.cbegin(); album != records.cend(); ++album) addRecords(album.key(), album.value());
        for (const BinItem& item : items)
            if (item.kind == BinKind::album) forget({item});
        return restored_;
    }

    void restoreButton(const BinItem& item, const QString& code) {
        const qint64 number = rows_.number(u"SELECT count(*) FROM tcan WHERE 序号 = ?"_s, {item.number}) == 0
                                  ? item.number
                                  : rows_.number(u"SELECT max(序号) + 1 FROM tcan"_s);
        rows_.run(
            u"INSERT INTO tcan (_rowid_, 序号, 编号, 名称, 图册, 图片) "
            "SELECT ?, ?, ?, 名称, 图册, 图片 FROM lunq_bin WHERE id = ?"_s,
            {rows_.newRowId(buttonTable), number, code, item.id});
        forget({item});
        ++restored_.buttons;
    }

  private:
    void restoreButton(const BinItem& item) {
        if (item.codes.isEmpty() || !buttonsWithCode(catalogue_, item.codes).Eof())
            restored_.codeTaken.push_back(item.id);
        else
            restoreButton(item, item.codes);
    }

    /// The items go, and their pictures stay where they are by now.
    void forget(const std::vector<BinItem>& items) {
        std::vector<OwnRows::Values> ids;
        ids.reserve(items.size());
        for (const BinItem& item : items) ids.push_back({item.id});
        rows_.runEach(u"UPDATE lunq_bin SET 图片 = NULL WHERE id = ?"_s, ids);
        rows_.runEach(u"DELETE FROM lunq_bin WHERE id = ?"_s, ids);
    }

    /// False where the picture that came for it is there no longer.
    bool changePlaces(const BinItem& item) {
        const bool isButton = item.kind == BinKind::button;
        const QString table = isButton ? buttonTable : item.album;
        if (!isButton && !isAlbumTable(catalogue_, table)) return false;
        Recordset record = catalogue_.OpenRecordset(
            u"SELECT * FROM [%1] WHERE 图片 = %2"_s.arg(table, QString::number(item.successor)));
        if (record.Eof()) return false;
        Bin bin(catalogue_);
        bin.takeRecord(table, record, item.kind);
        // The record's own values are in the item that it has just become. Codes say where it is shown: it keeps some.
        const QString others =
            u", (大小, 规格, 日期, 备注, 编号) = (SELECT b.大小, b.规格, b.日期, b.备注, "
            "iif(trim(ifnull(b.编号, '')) = '', %1.编号, b.编号) FROM lunq_bin AS b WHERE b.id = ?3)"_s;
        const QString name = quotedName(table);
        rows_.run(u"UPDATE %1 SET 图片 = ?2%2 WHERE 图片 = ?1"_s.arg(name, isButton ? QString() : others.arg(name)),
                  isButton ? OwnRows::Values{item.successor, item.picture}
                           : OwnRows::Values{item.successor, item.picture, item.id});
        bin.noteSuccessor(rows_.value(item.picture));
        forget({item});
        return true;
    }

    // Albums ---------------------------------------------------------------------------------------------------------

    /// The table of the album into which an item goes.
    QString albumFor(const BinItem& item) {
        QString& known = albums_[item.album + u'\n' + item.title];
        if (known.isEmpty()) known = existingAlbum(item);
        if (known.isEmpty()) known = makeAlbum(item);
        return known;
    }

    QString existingAlbum(const BinItem& item) const {
        const auto ofTable = findAlbum(catalogue_, item.album);
        const bool isSame = ofTable ? ofTable->title == item.title : item.title.isEmpty();
        if (isSame && isAlbumTable(catalogue_, item.album)) return item.album;
        const auto ofTitle = item.title.isEmpty() ? std::nullopt : findTitle(catalogue_, item.title);
        if (ofTitle && isAlbumTable(catalogue_, ofTitle->table)) return ofTitle->table;
        return {};
    }

    /// Number and remark are those of the album's own item, if that is in the bin.
    QString makeAlbum(const BinItem& item) {
        Album album{proposedAlbum(catalogue_).number, item.album, item.title, {}};
        rows_.each(
            u"SELECT 序号, 备注 FROM lunq_bin WHERE kind = ? AND album = ? AND title IS ? ORDER BY id DESC LIMIT 1"_s,
            {binKindName(BinKind::album), item.album, item.title}, [&](const OwnRows::Values& row) {
                album.number = row[0].toString();
                album.remark = row[1].toString();
            });
        const bool isFree = tableNameFault(album.table).isEmpty() && !findAlbum(catalogue_, album.table) &&
                            !catalogue_.TableDefs().contains(album.table, Qt::CaseInsensitive);
        if (!isFree) album.table = freeTableName(catalogue_);
        addAlbum(catalogue_, album);
        offerAlbum(catalogue_, allPicturesCode, album.table);
        ++restored_.albums;
        return album.table;
    }

    // Records --------------------------------------------------------------------------------------------------------

    void addRecords(const QString& album, const std::vector<BinItem>& items) {
        QSet<int> taken;
        rows_.each(u"SELECT 序号 FROM "_s + quotedName(album), {},
                   [&](const OwnRows::Values& row) { taken.insert(row[0].toInt()); });
        std::vector<BinItem> others;
        std::vector<OwnRows::Values> numbered;
        const auto add = [&](const BinItem& item, int number) {
            numbered.push_back({rows_.newRowId(album), number, item.id});
        };
        for (const BinItem& item : items) {
            if (item.number < 1 || taken.contains(item.number)) {
                others.push_back(item);
                continue;
            }
            taken.insert(item.number);
            add(item, item.number);
        }
        insert(album, numbered);
        numbered.clear();
        NextNumber next(catalogue_, album);
        for (const BinItem& item : others) {
            add(item, next.value());
            next.take();
        }
        insert(album, numbered);
        forget(items);
        restored_.pictures += int(items.size());
    }

    void insert(const QString& album, const std::vector<OwnRows::Values>& numbered) {
        rows_.runEach(
            u"INSERT INTO %1 (_rowid_, 序号, 编号, 大小, 规格, 日期, 图片, 备注) "
            "SELECT ?, ?, 编号, 大小, 规格, 日期, 图片, 备注 FROM lunq_bin WHERE id = ?"_s.arg(quotedName(album)),
            numbered);
    }

    const Database& catalogue_;
    OwnRows rows_;
    Restored restored_;
    QMap<QString, QString> albums_;  ///< Tables, by table and title of the items.
};

}  // namespace

Restored restoreFromBin(const Database& catalogue, const std::vector<qint64>& ids) {
    Transaction together(catalogue);
    const Restored restored = Restoring(catalogue).restore(binItems(catalogue, withRecordsOfAlbums(catalogue, ids)));
    together.commit();
    return restored;
}

QString binCodeFault(const Database& catalogue, const QString& code) {
    if (code.size() != 1 || code.trimmed().isEmpty()) return u"编号应为一个字符。"_s;
    if (buttonsWithCode(catalogue, code).Eof()) return {};
    return u"编号“%1”已有按钮“%2”在用，请另给一个。"_s.arg(code, nameOfCode(catalogue, code));
}

void restoreButton(const Database& catalogue, qint64 id, const QString& code) {
    if (const QString fault = binCodeFault(catalogue, code); !fault.isEmpty()) throw Error(fault);
    Transaction together(catalogue);
    if (const auto item = binItem(catalogue, id)) Restoring(catalogue).restoreButton(*item, code);
    together.commit();
}
