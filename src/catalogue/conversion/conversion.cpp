#include "catalogue/conversion/conversion.h"

#include "catalogue/album_rules.h"
#include "catalogue/conversion/album_taking.h"
#include "catalogue/conversion/fixed_taking.h"
#include "catalogue/conversion/verification.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/base/system_reason.h"
#include "platform/database/records/own_values.h"
#include "platform/database/records/second_reading.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <iterator>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int percentOfTaking = 70;

class Conversion {
  public:
    explicit Conversion(const ConversionOrder& order)
        : order_(order), second_(order.old), old_(OpenDatabase(order.old)) {}

    RunReport run(RunWatch& watch) {
        copyFresh(order_.fresh, order_.target);
        target_ = OpenDatabase(order_.target);
        OwnValues(target_).prepare();
        const std::vector<OldAlbum> albums = oldAlbums(old_);
        makeAlbums(albums);
        std::vector<RunItem> notes = lostParts(old_);
        if (taken_.empty() && !(albums.empty() && notes.empty() && hasDirectory(old_)))
            throw Error(u"旧像册“%1”中没有一个图册能够读取。"_s.arg(order_.old));
        std::ranges::move(takeFixedTables(old_, target_, albums), std::back_inserter(notes));
        RunReport report = AlbumTaking({old_, target_, taken_, percentOfTaking}).run(watch);
        report.items.insert(report.items.begin(), notes.begin(), notes.end());
        if (report.cameToEnd && !report.stopped) verify(second_.take(), report, watch);
        return report;
    }

  private:
    /// The demonstration album of the old catalogue takes the place of the new one's.
    void makeAlbums(const std::vector<OldAlbum>& albums) {
        Transaction together(target_);
        for (const OldAlbum& album : albums) {
            if (!tableNamed(target_, album.name).isEmpty()) target_.Execute(u"DROP TABLE ["_s + album.name + u']');
            target_.Execute(createAlbumSql(album.name));
            if (album.table.isEmpty()) continue;
            makeRoomFor(old_, album.table, target_, album.name);
            taken_.push_back({album.table, album.name, old_.OpenRecordset(allRecordsSql(album.table)).rowCount()});
        }
        together.commit();
    }

    void verify(const Database& again, RunReport& report, RunWatch& watch) {
        std::vector<TablePair> pairs;
        for (const QString& table : {u"tcbm"_s, u"tcan"_s, u"pmtp"_s}) {
            const QString old = tableNamed(old_, table);
            const auto rows = [](const Database& database, const QString& name) {
                return database.OpenRecordset(allRecordsSql(name)).rowCount();
            };
            if (!old.isEmpty() && rows(old_, old) == rows(target_, table)) pairs.push_back({old, table, false});
        }
        for (const TakenAlbum& album : taken_) pairs.push_back({album.table, album.album});
        Verification(again, target_, pairs).run(report, watch, percentOfTaking, u"，没有转换"_s);
    }

    const ConversionOrder& order_;
    SecondReading second_;  ///< Begins beside the first one.
    Database old_;
    Database target_;
    std::vector<TakenAlbum> taken_;
};

}  // namespace

void copyFresh(const QString& fresh, const QString& target) {
    if (!fileExists(fresh)) throw Error(u"要用随软件的空像册“%1”，它不见了，请重新安装本软件。"_s.arg(fresh));
    QFile copy(fresh);
    if (!copy.copy(target))
        throw Error(u"新的像册文件“%1”不能写入：%2。"_s.arg(target, systemReason(copy.errorString())));
    QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner);
}

RunReport convertCatalogue(const ConversionOrder& order, RunWatch& watch) {
    return Conversion(order).run(watch);
}
