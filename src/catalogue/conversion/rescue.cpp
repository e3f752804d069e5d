#include "catalogue/conversion/rescue.h"

#include "catalogue/album_directory.h"
#include "catalogue/album_rules.h"
#include "catalogue/album_tables.h"
#include "catalogue/bin.h"
#include "catalogue/conversion/album_taking.h"
#include "catalogue/conversion/conversion.h"
#include "catalogue/conversion/fixed_taking.h"
#include "catalogue/conversion/rescue_source.h"
#include "catalogue/conversion/verification.h"
#include "catalogue/picture_hashes.h"
#include "catalogue/selection_buttons.h"
#include "platform/base/error.h"

#include <QSet>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int percentOfTaking = 70;

/// What is remembered of the catalogue as such, and of the person's ways. What is said of single pictures goes by ids
/// that are others in the new file.
const QStringList remembered{u"catalogue.id"_s,     u"backup.good"_s,      u"backup.reminder"_s, u"window.frmSz"_s,
                             u"window.frmBz"_s,     u"grid.0"_s,           u"grid.1"_s,          u"grid.2"_s,
                             u"grid.3"_s,           u"intake.skipKnown"_s, u"intake.sources"_s,  u"manual.shipped"_s,
                             u"viewer.stillTitle"_s};

/// The second reading is one of the damaged file itself. Notes which pictures have changed since they were stored.
class RescueVerification : public Verification {
  public:
    RescueVerification(const Database& damaged, const Database& target, const std::vector<TablePair>& pairs)
        : Verification(damaged, target, pairs), hashes_(damaged) {}

    /// Rows of an album, from 0 on.
    bool isChanged(const QString& album, int row) const { return changed_.contains({album, row}); }

  protected:
    /// What arrived with the fingerprint of the day it was stored needs no second reading.
    Fingerprint read(const StoredValue& value, const Fingerprint& stored) const override {
        const bool isKnown = !stored.sha256.isEmpty() && keptOf(value) == stored;
        return isKnown ? stored : fingerprintOf(value);
    }
    Fingerprint kept(const TablePair& pair, int row, const StoredValue& old, const Fingerprint& read) override {
        const Fingerprint kept = keptOf(old);
        if (kept.sha256.isEmpty() || kept == read) return read;
        changed_.insert({pair.target, row});
        return kept;
    }

  private:
    /// An empty one where the damaged catalogue has lost it.
    Fingerprint keptOf(const StoredValue& value) const {
        Fingerprint kept;
        attempt([&] { kept = hashes_.of(value); });
        return kept;
    }

    PictureHashes hashes_;
    QSet<std::pair<QString, int>> changed_;
};

class Rescue {
  public:
    Rescue(const RescueOrder& order, RunWatch& watch)
        : order_(order), source_(order.damaged, order.target + u".recover"_s, watch) {}

    RunReport run(RunWatch& watch) {
        copyFresh(order_.fresh, order_.target);
        target_ = OpenDatabase(order_.target);
        OwnValues(target_).prepare(Bin::tables());
        {
            Transaction together(target_);
            for (const RescueSource::Table& table : source_.tables())
                if (!table.isAlbum) takeFixed(table);
            for (const RescueSource::Table& table : source_.tables())
                if (table.isAlbum) makeAlbum(table);
            makeLostAlbums();
            together.commit();
        }
        takeRemembered();
        noteLost();
        RunReport report = takeAlbums(watch);
        if (report.cameToEnd && !report.stopped) verify(report, watch);
        report.items.insert(report.items.begin(), notes_.begin(), notes_.end());
        return report;
    }

  private:
    int countOf(const QString& records) const { return source_.database().OpenRecordset(records).rowCount(); }

    /// All its records in the place of those of the new catalogue. The buttons need the one for all pictures, and the
    /// settings their row: where these are lost, those of the new catalogue stay.
    void takeFixed(const RescueSource::Table& table) {
        if (countOf(table.records) == 0 && table.name != u"tcbm") return;
        const bool keepsAll = table.name == u"tcan" && !hasAllPictures(table.records);
        target_.Execute(u"DELETE FROM "_s + table.name + (keepsAll ? u" WHERE 编号 <> 'v'"_s : QString()));
        if (!keepsAll) makeRoomFor(source_.database(), table.name, target_, table.name);
        int row = 0;
        for (const TableTaking::Taken& taken :
             takeTable(source_.database(), table.name, target_, table.name, {}, table.records)) {
            const QString number = taken.number.isEmpty() ? QString::number(row + 1) : taken.number;
            ++row;
            for (const QString& odd : taken.odd) notes_.push_back(noteAbout(table.name, number, odd));
        }
        if (!keepsAll) pairs_.push_back({table.name, table.name, false, table.records});
    }

    bool hasAllPictures(const QString& records) const {
        const Recordset buttons = source_.database().OpenRecordset(records);
        bool has = false;
        for (int row = 0; row < buttons.rowCount() && !has; ++row)
            attempt([&] { has = buttons.valueAt(row, u"编号"_s).textOr() == allPicturesCode; });
        return has;
    }

    /// One that the directory has lost is listed again, under its table's name.
    void makeAlbum(const RescueSource::Table& table) {
        if (!tableNamed(target_, table.name).isEmpty()) target_.Execute(u"DROP TABLE ["_s + table.name + u']');
        if (findAlbum(target_, table.name)) {
            target_.Execute(createAlbumSql(table.name));
        } else {
            Album album = proposedAlbum(target_);
            album.table = table.name;
            album.title = isDemo(table.name) ? u"演示"_s : table.name;
            createAlbum(target_, album);
            notes_.push_back(noteAbout(table.name, u"图册目录中的标题已损坏，标题为“%1”"_s.arg(album.title)));
        }
        makeRoomFor(source_.database(), table.name, target_, table.name);
        pairs_.push_back({table.name, table.name, true, table.records});
        taken_.push_back({table.name, table.name, countOf(table.records), {}, table.records});
    }

    void makeLostAlbums() {
        for (const Album& album : allAlbums(target_)) {
            if (!tableNamed(target_, album.table).isEmpty()) continue;
            target_.Execute(createAlbumSql(album.table));
            notes_.push_back(noteAbout(album.table, u"图册“%1”的图片都已损坏，建立了空的图册"_s.arg(album.title)));
        }
    }

    RunReport takeAlbums(RunWatch& watch) {
        AlbumTaking::Order order{source_.database(), target_, taken_, percentOfTaking};
        order.deed = u"取出"_s;
        order.openAgain = [this] { return source_.openAgain(); };
        return AlbumTaking(std::move(order)).run(watch);
    }

    void takeRemembered() {
        for (const QString& name : remembered)
            attempt([&] {
                if (const auto value = OwnValues(source_.database()).value(name))
                    OwnValues(target_).setValue(name, *value);
            });
    }

    void noteLost() {
        for (const QString& table : source_.unreadable())
            notes_.push_back(noteAbout(table, u"整个表已损坏，不能读取"_s));
        for (const RescueSource::Table& table : source_.tables())
            for (const QString& part : table.missing) notes_.push_back(noteAbout(table.name, part));
        if (!source_.recovery().isEmpty()) notes_.push_back(noteAbout(u"sqlite3"_s, source_.recovery()));
    }

    void verify(RunReport& report, RunWatch& watch) {
        RescueVerification verification(source_.database(), target_, pairs_);
        verification.run(report, watch, percentOfTaking, u"，没有取出"_s);
        qsizetype first = 0;
        for (const TakenAlbum& album : taken_) {
            for (RunItem& item : report.items)
                if (item.place >= first && item.place < first + album.records &&
                    verification.isChanged(album.album, int(item.place - first)))
                    noteChange(item);
            first += album.records;
        }
    }

    static void noteChange(RunItem& item) {
        item.fate = Fate::doubtful;
        item.reason = (item.reason.isEmpty() ? QString() : item.reason + u'；') +
                      u"图片与录入时的指纹不同，可能有损坏，按原样取出"_s;
    }

    const RescueOrder& order_;
    RescueSource source_;
    Database target_;
    std::vector<TakenAlbum> taken_;
    std::vector<TablePair> pairs_;
    std::vector<RunItem> notes_;
};

}  // namespace

RunReport rescueCatalogue(const RescueOrder& order, RunWatch& watch) {
    return Rescue(order, watch).run(watch);
}
