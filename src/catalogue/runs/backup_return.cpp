#include "catalogue/runs/backup_return.h"

#include "catalogue/album_directory.h"
#include "catalogue/album_rules.h"
#include "catalogue/album_tables.h"
#include "catalogue/picture_proof.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/base/system_reason.h"
#include "platform/database/file/file_check.h"

#include <QFile>
#include <QScopeGuard>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Tells of one album as a part of all.
class PartWatch : public RunWatch {
  public:
    PartWatch(RunWatch& whole, qsizetype before, qsizetype all) : whole_(whole), before_(before), all_(all) {}

    bool progress(const RunProgress& part) override {
        bytes_ = part.bytes;
        const qsizetype done = before_ + part.done;
        return whole_.progress(
            {.percent = int(done * 100 / std::max<qsizetype>(1, all_)), .done = done, .all = all_, .bytes = bytes_});
    }
    bool passesOver(const RunItem& failed) override { return whole_.passesOver(failed); }

  private:
    RunWatch& whole_;
    qsizetype before_, all_;
    qint64 bytes_ = 0;
};

FieldMapping sameColumns() {
    FieldMapping mapping;
    for (const QString& column : albumColumns()) mapping.push_back({column, column});
    return mapping;
}

QString freeTable(const Database& catalogue, const QString& wanted) {
    const QStringList taken = catalogue.TableDefs();
    QString table = wanted;
    for (int i = 1; taken.contains(table, Qt::CaseInsensitive) || findAlbum(catalogue, table); ++i)
        table = albumTableName(i);
    if (table.size() != tableNameLength) throw Error(u"图册的表名已经用完，没有恢复。"_s);
    return table;
}

/// The album of the catalogue that an album of a backup is.
QString albumFor(const Database& catalogue, const Album& album) {
    const auto there = findTitle(catalogue, album.title);
    if (there && isAlbumTable(catalogue, there->table) && !isDemo(there->table)) return there->table;
    Album made = album;
    made.table = freeTable(catalogue, album.table);
    createAlbum(catalogue, made);
    return made.table;
}

Album albumIn(const Database& backup, const QString& table) {
    return findAlbum(backup, table).value_or(Album{u"1"_s, table, table, {}});
}

void copyFile(const QString& from, const QString& to, RunWatch& watch, RunReport& report) {
    constexpr qint64 pieceSize = 4 << 20;
    constexpr int copying = 70;  // percent; the rest is the proof
    QFile source(from), target(to);
    if (!source.open(QIODevice::ReadOnly))
        throw Error(u"备份“%1”不能读取：%2。"_s.arg(from, systemReason(source.errorString())));
    const auto failed = [&] { return Error(u"备份不能复制到“%1”：%2。"_s.arg(to, writeFailure(target))); };
    if (!target.open(QIODevice::WriteOnly)) throw failed();
    const qint64 size = std::max<qint64>(1, source.size());
    while (!source.atEnd()) {
        const QByteArray piece = source.read(pieceSize);
        if (piece.isEmpty()) throw Error(u"备份“%1”没有读完。"_s.arg(from));
        if (target.write(piece) != piece.size()) throw failed();
        report.stopped = !watch.progress({.percent = int(source.pos() * copying / size), .bytes = source.pos()});
        if (report.stopped) return;
    }
    if (!target.flush()) throw failed();
    syncToDisk(target);
}

void proveCopy(const QString& copy, const QString& backup, RunWatch& watch, RunReport& report) {
    std::vector<ToProve> all = allPictures(OpenDatabase(copy));
    for (ToProve& one : all) one.decodes = false;
    const std::vector<Proven> found = proveAll(copy, all, [&](qsizetype done, qint64 bytes) {
        report.stopped = report.stopped || !watch.progress({.percent = 70 + int(done * 30 / qsizetype(all.size() + 1)),
                                                            .done = done,
                                                            .all = qsizetype(all.size()),
                                                            .bytes = bytes});
        return !report.stopped;
    });
    if (report.stopped) return;
    report.count = int(std::ranges::count(found, Fault::none, &Proven::fault));
    if (report.count != int(all.size()))
        throw Error(u"备份“%1”中有 %2 张图片变了，没有恢复，现在的图册数据库不变。请另选一个备份。"_s.arg(backup).arg(
            int(all.size()) - report.count));
    if (FileCheck(copy).run() == FileCheck::Outcome::damaged)
        throw Error(u"备份“%1”有损坏的地方，没有恢复，现在的图册数据库不变。请另选一个备份。"_s.arg(backup));
}

}  // namespace

Return wholeAlbum(const Database& backup, const QString& table) {
    Return all{table, {}};
    for (Recordset rows = backup.OpenRecordset(allRecordsSql(table, u"序号"_s)); !rows.Eof(); rows.MoveNext()) {
        const QString number = rows.Fields(u"序号"_s).Value().textOr();
        if (!number.isEmpty()) all.numbers << number;
    }
    return all;
}

RunReport takeBack(const Database& catalogue, const QString& backup, const QList<Return>& returns, RunWatch& watch) {
    const Database source = OpenDatabase(backup);
    qsizetype all = 0, before = 0;
    for (const Return& one : returns) all += one.numbers.size();
    RunReport report{.cameToEnd = true};
    for (const Return& one : returns) {
        const CopyOrder order{.sourcePath = backup,
                              .sourceTable = one.table,
                              .indexField = u"序号"_s,
                              .mapping = sameColumns(),
                              .records = recordsOfKeys(one.numbers),
                              .fillFields = false,
                              .takesDoubtful = true,
                              .keepNumbers = true,
                              .skipKnown = true};
        PartWatch part(watch, before, all);
        const QString album = albumFor(catalogue, albumIn(source, one.table));
        if (one.numbers.isEmpty()) continue;
        RunReport done = sklr(catalogue, album, order, part);
        for (RunItem& item : done.items) {
            item.place += before;
            report.items.push_back(std::move(item));
        }
        before += one.numbers.size();
        report.count += done.count;
        report.failure = done.failure;
        report.stopped = done.stopped;
        report.cameToEnd = report.cameToEnd && done.cameToEnd;
        if (report.stopped || !report.failure.isEmpty()) break;
    }
    return report;
}

RunReport prepareRestore(const QString& backup, const QString& prepared, RunWatch& watch) {
    RunReport report;
    auto remove = qScopeGuard([&] { QFile::remove(prepared); });
    copyFile(backup, prepared, watch, report);
    if (!report.stopped) proveCopy(prepared, backup, watch, report);
    if (report.stopped) return report;
    report.cameToEnd = true;
    remove.dismiss();
    return report;
}
