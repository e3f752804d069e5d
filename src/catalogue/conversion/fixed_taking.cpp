#include "catalogue/conversion/fixed_taking.h"

#include "catalogue/album_rules.h"
#include "catalogue/conversion/table_taking.h"
#include "catalogue/selection_buttons.h"
#include "platform/base/error.h"
#include "platform/database/records/reading_notes.h"
#include "platform/picture/picture_bytes.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The parts that are taken, and what is to be told of them.
class FixedTaking {
  public:
    FixedTaking(const Database& old, const Database& target, const std::vector<OldAlbum>& albums)
        : old_(old), target_(target), albums_(albums) {}

    std::vector<RunItem> take() {
        Transaction together(target_);
        takeDirectory();
        takeButtons();
        takeBackgrounds();
        takeOwnScheme();
        takeSettings();
        together.commit();
        return std::move(notes_);
    }

  private:
    void takeDirectory() {
        target_.Execute(u"DELETE FROM tcbm"_s);
        takeAll(u"tcbm"_s, [this](const QString& column, const QString& text) {
            return column == u"表名" ? newName(text) : text;
        });
        for (const OldAlbum& album : albums_) {
            if (!album.isListed) list(album);
            if (album.table.isEmpty())
                notes_.push_back(
                    noteAbout(album.listedAs, u"图册目录中有，但原来的像册中没有这个表，建立了空的图册"_s));
            else if (album.name != (album.isListed ? album.listedAs : album.table))
                notes_.push_back(noteAbout(album.table, u"这个表名不能使用，改为 "_s + album.name));
        }
    }

    void list(const OldAlbum& album) {
        Recordset rows = target_.OpenRecordset(u"SELECT * FROM tcbm  ORDER BY [序号]"_s);
        int number = 0;
        for (; !rows.Eof(); rows.MoveNext())
            attempt([&] { number = std::max(number, rows.Fields(u"序号"_s).Value().toInteger()); });
        rows.AddNew();
        rows.Fields(u"序号"_s).SetValue(number + 1);
        rows.Fields(u"表名"_s).SetValue(album.name);
        rows.Fields(u"标题"_s).SetValue(album.title);
        rows.Fields(u"备注"_s).SetValue(album.remark);
        rows.Update();
        notes_.push_back(noteAbout(album.table, u"原来的图册目录中没有列出，标题为“%1”"_s.arg(album.title)));
    }

    QString newName(const QString& listed) const {
        const auto found = std::ranges::find_if(albums_, [&](const OldAlbum& album) {
            return album.isListed && album.listedAs.compare(listed.trimmed(), Qt::CaseInsensitive) == 0;
        });
        return found == albums_.end() ? listed : found->name;
    }

    void takeButtons() {
        bool hasAll = false;
        attempt([&] { hasAll = !buttonsWithCode(old_, allPicturesCode).Eof(); });
        // The albums need the button for all pictures.
        target_.Execute(hasAll ? u"DELETE FROM tcan"_s : u"DELETE FROM tcan WHERE 编号 <> 'v'"_s);
        takeAll(u"tcan"_s, [this](const QString& column, const QString& text) {
            return column == u"图册" ? newNames(text) : text;
        });
        for (const OldAlbum& album : albums_) offerAlbum(target_, allPicturesCode, album.name);
    }

    QString newNames(const QString& tables) const {
        QString names;
        for (const QString& table : tablesOfButton(tables)) names += newName(table);
        return names;
    }

    void takeBackgrounds() {
        const QString table = tableNamed(old_, u"pmtp"_s);
        if (table.isEmpty() || old_.OpenRecordset(table).Eof()) return;
        target_.Execute(u"DELETE FROM pmtp"_s);
        takeAll(u"pmtp"_s, {});
    }

    /// All records of a table of that name, where the old catalogue has one.
    void takeAll(const QString& name, const TableTaking::Change& change) {
        const QString from = tableNamed(old_, name);
        if (from.isEmpty()) {
            notes_.push_back(noteAbout(name, u"原来的像册中没有这个表"_s));
            return;
        }
        if (target_.OpenRecordset(name).Eof()) makeRoomFor(old_, from, target_, name);
        for (const TableTaking::Taken& taken : takeTable(old_, from, target_, name, change))
            for (const QString& odd : taken.odd) notes_.push_back(noteAbout(name, taken.number, odd));
    }

    void takeOwnScheme() {
        const QString where = u" WHERE 序号 = '5'"_s;
        takeRow(u"tcys"_s, where, [](const QString&, const FieldValue&) { return true; });
    }

    void takeSettings() {
        takeRow(u"tcsz"_s, {}, [this](const QString& column, const FieldValue& value) {
            if (column == u"帮助") return false;
            if (column == u"封面") return pictureBytes(value.toBytes()) == PictureBytes::whole;
            return column != u"颜色" ||
                   !target_.OpenRecordset(u"SELECT * FROM tcys WHERE 序号 = "_s + quoted(value.textOr())).Eof();
        });
        Recordset row = target_.OpenRecordset(u"tcsz"_s);
        if (row.Eof()) return;
        const QString last = row.Fields(u"当前像册"_s).Value().textOr();
        const QString name = last.isEmpty() ? QString() : newName(u"tc"_s + last).mid(2);
        if (name == last) return;
        row.Edit();
        row.Fields(u"当前像册"_s).SetValue(name);
        row.Update();
    }

    /// The values of the first row there, into the row of the new catalogue.
    void takeRow(const QString& table, const QString& where,
                 const std::function<bool(const QString& column, const FieldValue& value)>& isTaken) {
        const QString from = tableNamed(old_, table);
        Recordset to = target_.OpenRecordset(u"SELECT * FROM "_s + table + where);
        Recordset source;
        const bool isOpen = !from.isEmpty() &&
                            attempt([&] { source = old_.OpenRecordset(u"SELECT * FROM ["_s + from + u']' + where); });
        if (!isOpen || source.Eof() || to.Eof()) {
            notes_.push_back(noteAbout(table, u"原来的像册中没有，用了新的"_s));
            return;
        }
        const TableShape shape = shapeOf(old_, from);
        to.Edit();
        for (int i = 0; i < to.FieldCount(); ++i) {
            const QString column = to.Fields(i).Name();
            const auto old = fieldNamed(shape, column);
            if (!old || source.Fields(old->name).isNull()) continue;
            const bool fits = attempt([&] {
                const FieldValue value = source.Fields(old->name).Value();
                if (isTaken(column, value)) to.Fields(i).SetValue(value);
            });
            if (!fits) notes_.push_back(noteAbout(table, u"“%1”不能存入，用了新的"_s.arg(column)));
        }
        to.Update();
    }

    const Database& old_;
    const Database& target_;
    const std::vector<OldAlbum>& albums_;
    std::vector<RunItem> notes_;
};

}  // namespace

std::vector<RunItem> takeFixedTables(const Database& old, const Database& target, const std::vector<OldAlbum>& albums) {
    return FixedTaking(old, target, albums).take();
}

RunItem noteAbout(const QString& table, const QString& reason) {
    return {.place = -1, .name = table, .fate = Fate::noted, .reason = reason};
}

RunItem noteAbout(const QString& table, const QString& number, const QString& reason) {
    return noteAbout(u"%1 序号＝%2"_s.arg(table, number), reason);
}

std::vector<RunItem> lostParts(const Database& old) {
    std::vector<RunItem> lost;
    const ReadingNotes notes(old);
    if (notes.isCatalogueDamaged()) lost.push_back(noteAbout(u"（表的目录）"_s, u"已损坏，可能还有别的表"_s));
    for (const QString& table : notes.unreadableTables()) lost.push_back(noteAbout(table, u"整个表已损坏，不能读取"_s));
    for (const QString& table : old.TableDefs()) {
        const int missing = notes.missingRecords(table);
        const QString count = missing < 0 ? u"一些"_s : u" %1 条"_s.arg(missing);
        if (missing != 0) lost.push_back(noteAbout(table, u"有%1记录已损坏，不能读取"_s.arg(count)));
    }
    return lost;
}
