#include "catalogue/conversion/joining.h"

#include "catalogue/album_directory.h"
#include "catalogue/album_rules.h"
#include "catalogue/album_tables.h"
#include "catalogue/conversion/album_taking.h"
#include "catalogue/conversion/fixed_taking.h"
#include "catalogue/conversion/verification.h"
#include "catalogue/selection_buttons.h"
#include "platform/base/error.h"
#include "platform/database/records/second_reading.h"

#include <QRegularExpression>
#include <QSet>
#include <algorithm>
#include <iterator>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int percentOfTaking = 70;
const QString becomesAlbum = u"成为图册 %1《"_s;

struct OldButton {
    QString code;
    QString name;
    QStringList albums;  ///< Table names.
    QByteArray picture;
};

std::vector<OldButton> oldButtons(const Database& old) {
    std::vector<OldButton> buttons;
    const QString table = tableNamed(old, u"tcan"_s);
    if (table.isEmpty()) return buttons;
    attempt([&] {
        for (Recordset rows = old.OpenRecordset(allRecordsSql(table)); !rows.Eof(); rows.MoveNext()) {
            OldButton button;
            attempt([&] { button.code = rows.Fields(u"编号"_s).Value().textOr().trimmed(); });
            attempt([&] { button.name = rows.Fields(u"名称"_s).Value().textOr(); });
            attempt([&] { button.albums = tablesOfButton(rows.Fields(u"图册"_s).Value().textOr()); });
            attempt([&] { button.picture = rows.Fields(u"图片"_s).Value().toBytes(); });
            if (button.code.size() == 1 && !isAllPictures(button.code)) buttons.push_back(std::move(button));
        }
    });
    return buttons;
}

/// That of a button with this name; empty when there is none.
QString codeOfButton(const Database& ours, const QString& name) {
    const Recordset same = ours.OpenRecordset(u"SELECT * FROM tcan WHERE 名称 = "_s + quoted(name));
    return same.Eof() ? QString() : same.Fields(u"编号"_s).Value().textOr().trimmed();
}

QString freeCode(const Database& ours) {
    const QString signs = u"0123456789abcdefghijklmnopqrstuwxyzαβγδεζηθικλμνξοπρστυφχψω甲乙丙丁戊己庚辛壬癸"_s;
    for (const QChar sign : signs)
        if (buttonsWithCode(ours, sign).Eof()) return sign;
    throw Error(u"按钮太多，没有空余的编号了。"_s);
}

qint32 nextNumber(const Database& ours, const QString& table) {
    qint32 highest = 0;
    for (Recordset rows = ours.OpenRecordset(table); !rows.Eof(); rows.MoveNext())
        attempt([&] { highest = std::max(highest, rows.Fields(u"序号"_s).Value().toInteger()); });
    return highest + 1;
}

QString wantedTitle(const OldAlbum& album) {
    return titleFits(album.title) ? album.title : album.name;
}

/// A title with a number behind it, as much of it as fits.
QString numbered(QString title, const QString& number) {
    while (!title.isEmpty() && !titleFits(title + number)) title.chop(1);
    return title + number;
}

/// The title of an album, with a number behind it where that is taken.
QString freeTitle(const Database& ours, const QString& wanted) {
    QString title = wanted;
    for (int number = 2; title.isEmpty() || findTitle(ours, title); ++number)
        title = numbered(wanted, QString::number(number));
    return title;
}

std::vector<OldAlbum> albumsToJoin(const Database& old) {
    std::vector<OldAlbum> albums = oldAlbums(old);
    std::erase_if(albums, [](const OldAlbum& album) { return album.table.isEmpty() || isDemo(album.table); });
    return albums;
}

/// Whether `freeTitle` makes that title of the wanted one.
bool isNumberedTitle(const QString& title, const QString& wanted) {
    static const QRegularExpression numbers(u"([2-9]|[1-9][0-9]+)$"_s);
    const QString number = numbers.match(title).captured(1);
    return !number.isEmpty() && title == numbered(wanted, number);
}

/// What tells a record from others, without its picture.
QString likenessOf(const Recordset& rows, int row) {
    QStringList texts;
    for (const QString& column : {u"序号"_s, u"大小"_s, u"规格"_s, u"备注"_s}) {
        QString text;
        attempt([&] { text = rows.valueAt(row, column).textOr().trimmed(); });
        texts << text;
    }
    return texts.join(u'\n');
}

Fingerprint printOf(const Recordset& rows, int row) {
    Fingerprint print;
    attempt([&] { print = fingerprintOf(rows.storedAt(row, u"图片"_s)); });
    return print;
}

/// Whether the album is the beginning of the old one, with its pictures as far as the first and the last one tell. A
/// joining that is killed may leave an empty one.
bool isBeginningOf(const Recordset& album, const Recordset& old) {
    if (album.rowCount() > old.rowCount()) return false;
    for (int row = 0; row < album.rowCount(); ++row)
        if (likenessOf(album, row) != likenessOf(old, row)) return false;
    for (const int row : {0, album.rowCount() - 1})
        if (album.rowCount() > 0 && printOf(album, row) != printOf(old, row)) return false;
    return true;
}

/// The longest of our albums that begins as the old one does, among those of its very title, or of numbered ones.
/// Those in `claimed` are what others have become.
std::optional<JoinedAlbum> joinedAs(const OldAlbum& album, const Database& old, const Database& ours, bool isNumbered,
                                    const QSet<QString>& claimed) {
    const Recordset theirs = old.OpenRecordset(allRecordsSql(album.table));
    const QString wanted = wantedTitle(album);
    std::optional<JoinedAlbum> found;
    for (const Album& own : allAlbums(ours)) {
        const bool isTitle = isNumbered ? isNumberedTitle(own.title, wanted) : own.title == wanted;
        if (!isTitle || isDemo(own.table) || claimed.contains(own.table) || !isAlbumTable(ours, own.table)) continue;
        const Recordset records = ours.OpenRecordset(allRecordsSql(own.table));
        if (!isBeginningOf(records, theirs) || (found && found->records >= records.rowCount())) continue;
        found = {album.table,        own.table,         own.title,
                 records.rowCount(), theirs.rowCount(), records.rowCount() == theirs.rowCount()};
    }
    return found;
}

class Joining {
  public:
    explicit Joining(const JoinOrder& order)
        : order_(order), old_(OpenDatabase(order.old)), ours_(OpenDatabase(order.ours)) {}

    RunReport run(RunWatch& watch) {
        SecondReading second(order_.old);
        notes_ = lostParts(old_);
        prepare();
        const auto change = [this](const QString& column, const QString& text) {
            return column == u"编号" ? newCodes(text) : text;
        };
        RunReport report = AlbumTaking({old_, ours_, taken_, percentOfTaking, change}).run(watch);
        if (!report.cameToEnd) attempt([&] { dropEmptyAlbums(); });
        report.items.insert(report.items.begin(), notes_.begin(), notes_.end());
        if (report.cameToEnd && !report.stopped) verify(second.take(), report, watch);
        return report;
    }

  private:
    /// Albums and buttons, in one change.
    void prepare() {
        Transaction together(ours_);
        std::vector<OldAlbum> albums = albumsToJoin(old_);
        goOn(albums);
        nameAlbums(albums, ours_.TableDefs());
        for (const OldAlbum& album : albums) makeAlbum(album);
        for (const OldButton& button : oldButtons(old_)) takeButton(button);
        together.commit();
    }

    /// Leaves those albums that are still to come.
    void goOn(std::vector<OldAlbum>& albums) {
        for (const JoinedAlbum& joined : order_.joined) {
            const auto album = std::ranges::find(albums, joined.table, &OldAlbum::table);
            if (album == albums.end()) continue;
            const QString name = joined.album + u'《' + joined.title + u'》';
            if (joined.isWhole) {
                names_[nameOfOld(*album)] = joined.album;
                notes_.push_back(noteAbout(joined.table, u"已经加入过：图册 "_s + name));
                albums.erase(album);
            } else {
                deleteAlbum(ours_, joined.album);
                notes_.push_back(noteAbout(joined.table, u"不全的图册 %1 放进了回收站，重新加入"_s.arg(name)));
            }
        }
    }

    static QString nameOfOld(const OldAlbum& album) {
        return (album.isListed ? album.listedAs : album.table).toLower();
    }

    void makeAlbum(const OldAlbum& album) {
        const QString title = freeTitle(ours_, wantedTitle(album));
        createAlbum(ours_, {QString::number(nextNumber(ours_, u"tcbm"_s)), album.name, title, album.remark});
        makeRoomFor(old_, album.table, ours_, album.name);
        taken_.push_back({album.table, album.name, old_.OpenRecordset(allRecordsSql(album.table)).rowCount()});
        names_[nameOfOld(album)] = album.name;
        notes_.push_back(noteAbout(album.table, becomesAlbum.arg(album.name) + title + u'》'));
    }

    void takeButton(const OldButton& button) {
        const Recordset own = buttonsWithCode(ours_, button.code);
        const bool isOther = !own.Eof() && own.Fields(u"名称"_s).Value().textOr() != button.name;
        const QString known = isOther && order_.newCodes ? codeOfButton(ours_, button.name) : QString();
        const QString code = !known.isEmpty() ? known : isOther && order_.newCodes ? freeCode(ours_) : button.code;
        if (known.isEmpty() && (own.Eof() || code != button.code)) addButton(button, code);
        if (code != button.code) {
            codes_[button.code.front()] = code.front();
            notes_.push_back(noteAbout(u"tcan"_s, u"按钮“%1”的编号“%2”改为“%3”"_s.arg(button.name, button.code, code)));
        }
        for (const QString& album : button.albums)
            if (const QString name = names_.value(album.toLower()); !name.isEmpty()) offerAlbum(ours_, code, name);
    }

    void addButton(const OldButton& button, const QString& code) {
        Recordset rows = ours_.OpenRecordset(u"tcan"_s);
        rows.AddNew();
        rows.Fields(u"序号"_s).SetValue(nextNumber(ours_, u"tcan"_s));
        rows.Fields(u"编号"_s).SetValue(code);
        constexpr qsizetype longestName = 20;
        rows.Fields(u"名称"_s).SetValue(button.name.left(longestName));
        if (!button.picture.isEmpty()) rows.Fields(u"图片"_s).SetValue(button.picture);
        rows.Update();
    }

    /// What the run did not reach is not there: a second try would make it once more.
    void dropEmptyAlbums() {
        Transaction together(ours_);
        for (const TakenAlbum& album : taken_) {
            if (album.records == 0 || ours_.OpenRecordset(allRecordsSql(album.album)).rowCount() > 0) continue;
            ours_.Execute(u"DROP TABLE ["_s + album.album + u']');
            ours_.Execute(u"DELETE FROM tcbm WHERE 表名 = "_s + quoted(album.album));
            dropFromButtons(album.album);
            std::erase_if(notes_, [start = becomesAlbum.arg(album.album)](const RunItem& note) {
                return note.reason.startsWith(start);
            });
            notes_.push_back(noteAbout(album.table, u"没有做到，图册没有建立"_s));
        }
        together.commit();
    }

    void dropFromButtons(const QString& album) {
        for (Recordset buttons = ours_.OpenRecordset(u"tcan"_s); !buttons.Eof(); buttons.MoveNext()) {
            const QString offered = buttons.Fields(u"图册"_s).Value().textOr();
            if (!offersAlbum(offered, album)) continue;
            buttons.Edit();
            buttons.Fields(u"图册"_s).SetValue(withoutAlbum(offered, album));
            buttons.Update();
        }
    }

    QString newCodes(QString codes) const {
        for (QChar& code : codes) code = codes_.value(code, code);
        return codes;
    }

    void verify(const Database& again, RunReport& report, RunWatch& watch) {
        const QList<qsizetype> failed = report.placesOf({Fate::failed});
        std::vector<TablePair> pairs;
        qsizetype start = 0;
        for (const TakenAlbum& album : taken_) {
            TablePair pair{album.table, album.album};
            for (const qsizetype place : failed)
                if (place >= start && place < start + album.records) pair.skipped << int(place - start);
            start += album.records;
            pairs.push_back(std::move(pair));
        }
        Verification(again, ours_, pairs).run(report, watch, percentOfTaking);
    }

    const JoinOrder& order_;
    Database old_, ours_;
    std::vector<TakenAlbum> taken_;
    QHash<QString, QString> names_;  ///< Of the new albums, by the old ones in lower case.
    QHash<QChar, QChar> codes_;      ///< Those that have changed.
    std::vector<RunItem> notes_;
};

}  // namespace

std::vector<TakenCode> takenCodes(const Database& old, const Database& ours) {
    std::vector<TakenCode> taken;
    for (const OldButton& button : oldButtons(old)) {
        const Recordset own = buttonsWithCode(ours, button.code);
        if (own.Eof()) continue;
        const QString name = own.Fields(u"名称"_s).Value().textOr();
        if (name != button.name) taken.push_back({button.code, name, button.name});
    }
    return taken;
}

std::vector<JoinedAlbum> joinedAlbums(const Database& old, const Database& ours) {
    const std::vector<OldAlbum> albums = albumsToJoin(old);
    std::vector<std::optional<JoinedAlbum>> known(albums.size());
    QSet<QString> claimed;
    for (const bool isNumbered : {false, true})
        for (std::size_t i = 0; i < albums.size(); ++i) {
            if (!known[i]) attempt([&] { known[i] = joinedAs(albums[i], old, ours, isNumbered, claimed); });
            if (known[i]) claimed.insert(known[i]->album);
        }
    std::vector<JoinedAlbum> joined;
    joined.reserve(albums.size());
    for (const auto& album : known)
        if (album) joined.push_back(*album);
    return joined;
}

RunReport joinCatalogue(const JoinOrder& order, RunWatch& watch) {
    return Joining(order).run(watch);
}
