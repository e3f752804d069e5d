#include "catalogue/runs/backup_return.h"

#include "catalogue/album_directory.h"
#include "catalogue/album_rules.h"
#include "catalogue/album_tables.h"
#include "catalogue/backup_file.h"
#include "catalogue/picture_proof.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/base/system_reason.h"
#include "platform/database/file/file_check.h"

#include <QFile>
#include <QScopeGuard>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Tells of one album as a part of all.
class PartWatch : public RunWatch {
  public:
    /// `before` is what was done of all by then. `passes` is the answer to the question about failures, once for all.
    PartWatch(RunWatch& whole, const RunProgress& before, bool& passes)
        : whole_(whole), before_(before), now_(before), passes_(passes) {}

    bool progress(const RunProgress& part) override {
        now_.done = before_.done + part.done;
        now_.bytes = before_.bytes + part.bytes;
        now_.percent = int(now_.done * 100 / std::max<qsizetype>(1, now_.all));
        return whole_.progress(now_);
    }
    bool passesOver(const RunItem& failed) override { return passes_ = passes_ || whole_.passesOver(failed); }
    qint64 bytes() const { return now_.bytes; }

  private:
    RunWatch& whole_;
    RunProgress before_, now_;
    bool& passes_;
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

CopyOrder orderFor(const QString& backup, const Return& one) {
    return {.sourcePath = backup,
            .sourceTable = one.table,
            .indexField = u"序号"_s,
            .mapping = sameColumns(),
            .records = recordsOfKeys(one.numbers),
            .fillFields = false,
            .takesDoubtful = true,
            .keepNumbers = true,
            .skipKnown = true};
}

/// `before` records of other albums come before those of `done`.
void addPart(RunReport& all, RunReport&& done, qsizetype before) {
    for (RunItem& item : done.items) {
        item.place += before;
        all.items.push_back(std::move(item));
    }
    all.count += done.count;
    all.missing += done.missing;
    all.failure = done.failure;
    all.stopped = done.stopped;
    all.cameToEnd = done.cameToEnd;
}

/// An album that the run did not reach.
void leave(RunReport& report, const Return& album, qsizetype before) {
    for (qsizetype i = 0; i < album.numbers.size(); ++i)
        report.items.push_back({before + i, album.numbers[i], Fate::left});
    report.cameToEnd = false;
}

Album albumIn(const Database& backup, const QString& table) {
    return findAlbum(backup, table).value_or(Album{u"1"_s, table, table, {}});
}

/// Copying takes the most of a restore, the proof the rest.
constexpr int copyingPercent = 70;

RunProgress restoreProgress(qint64 percent, int pictures, qint64 bytes) {
    return {.percent = int(percent), .done = pictures * percent / 100, .all = pictures, .bytes = bytes};
}

void copyFile(const QString& from, const QString& to, int pictures, RunWatch& watch, RunReport& report) {
    constexpr qint64 pieceSize = 4 << 20;
    QFile source(from), target(to);
    if (!source.open(QIODevice::ReadOnly))
        throw Error(u"备份“%1”不能读取：%2。"_s.arg(from, systemReason(source.errorString())));
    const auto failed = [&] { return Error(u"备份不能复制到“%1”：%2。"_s.arg(to, writeFailure(target))); };
    if (!target.open(QIODevice::WriteOnly)) throw failed();
    const qint64 size = std::max<qint64>(1, source.size());
    while (!source.atEnd() && !report.stopped) {
        const QByteArray piece = source.read(pieceSize);
        if (piece.isEmpty()) throw Error(u"备份“%1”没有读完。"_s.arg(from));
        if (target.write(piece) != piece.size()) throw failed();
        const qint64 percent = source.pos() * copyingPercent / size;
        report.stopped = !watch.progress(restoreProgress(percent, pictures, source.pos()));
    }
    if (!target.flush()) throw failed();
    syncToDisk(target);
}

void proveCopy(const QString& copy, const QString& backup, RunWatch& watch, RunReport& report) {
    const std::vector<ToProve> all = picturesWithPrints(OpenDatabase(copy));
    const int count = int(all.size());
    const qint64 copied = FileLen(copy);
    const std::vector<Proven> found = proveAll(copy, all, [&](qsizetype done, qint64 bytes) {
        const qint64 percent = copyingPercent + done * (100 - copyingPercent) / (count + 1);
        report.stopped = report.stopped || !watch.progress(restoreProgress(percent, count, copied + bytes));
        return !report.stopped;
    });
    if (report.stopped) return;
    report.count = int(std::ranges::count(found, Fault::none, &Proven::fault));
    if (report.count != count)
        throw Error(u"备份“%1”中有 %2 张图片变了，没有恢复，现在的图册数据库不变。请另选一个备份。"_s.arg(backup).arg(
            count - report.count));
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
    RunProgress before;
    for (const Return& one : returns) before.all += one.numbers.size();
    RunReport report{.cameToEnd = true};
    bool passes = false;
    for (const Return& one : returns) {
        PartWatch part(watch, before, passes);
        if (report.cameToEnd && !report.stopped) {
            try {
                const QString album = albumFor(catalogue, albumIn(source, one.table));
                if (!one.numbers.isEmpty())
                    addPart(report, sklr(catalogue, album, orderFor(backup, one), part), before.done);
            } catch (const std::exception& failed) {
                report.failure = reasonOf(failed);
                leave(report, one, before.done);
            }
        } else {
            leave(report, one, before.done);
        }
        before.done += one.numbers.size();
        before.bytes = part.bytes();
    }
    return report;
}

RunReport prepareRestore(const QString& backup, const QString& prepared, RunWatch& watch) {
    RunReport report;
    auto remove = qScopeGuard([&] { QFile::remove(prepared); });
    copyFile(backup, prepared, describedBackup(backup, true).pictures, watch, report);
    if (!report.stopped) proveCopy(prepared, backup, watch, report);
    if (report.stopped) return report;
    report.cameToEnd = true;
    remove.dismiss();
    return report;
}
