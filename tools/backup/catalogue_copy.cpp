#include "backup/catalogue_copy.h"

#include "backup/copy_pace.h"
#include "catalogue/album_tables.h"
#include "catalogue/backup_file.h"
#include "catalogue/picture_proof.h"
#include "platform/base/error.h"
#include "platform/base/file_lock.h"
#include "platform/base/files.h"
#include "platform/base/system_reason.h"
#include "platform/database/records/value_hashes.h"

#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/Database.h>
#include <fcntl.h>
#include <sqlite3.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QStorageInfo>
#include <QThread>
#include <algorithm>
#include <exception>
#include <filesystem>
#include <thread>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int pauseMs = 5;
constexpr int knockMs = 1;
constexpr int knocks = 1000;
/// A catalogue that never rests that long cannot be copied.
constexpr qint64 patienceMs = 60 * 60 * 1000;
constexpr int runPauseMs = 100;

/// A file that is gone again unless it was moved away.
class NewFile {
  public:
    explicit NewFile(QString path) : path_(std::move(path)) { QFile::remove(path_); }
    ~NewFile() { QFile::remove(path_); }
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;
    const QString& path() const { return path_; }

  private:
    QString path_;
};

Error failure(const QString& path, const QString& reason) {
    return Error(u"备份文件“%1”不能写入：%2。"_s.arg(path, reason));
}

QString reasonOf(const SQLite::Exception& failed) {
    switch (failed.getErrorCode() & 0xff) {
        case SQLITE_FULL:
            return u"磁盘已满"_s;
        case SQLITE_IOERR:
            return u"读写文件失败，磁盘或网络文件夹可能已断开"_s;
        case SQLITE_CORRUPT:
        case SQLITE_NOTADB:
            return u"图册数据库已损坏"_s;
        case SQLITE_BUSY:
            return u"图册数据库正被使用"_s;
        default:
            return QString::fromUtf8(failed.what());
    }
}

std::string fileName(const QString& path) {
    return QFile::encodeName(path).toStdString();
}

/// A program that stores one picture after another leaves the catalogue free for moments only: the engine's own
/// waiting, a tenth of a second at a time, would mostly miss them.
int waitForAMoment(void*, int tried) {
    QThread::msleep(knockMs);
    return tried < knocks ? 1 : 0;
}

/// Whether the program takes pictures in or out just now, in long runs of changes: each would make the copy begin anew.
/// A program that was killed has no run.
bool isRunUnderWay(const QString& catalogue) {
    FileLock mark;
    return mark.take(runMarkOf(catalogue)) == FileLock::Outcome::heldByAnother;
}

/// All pages under one short lock after another. A change of the source in between makes the engine begin anew; the
/// locks then grow longer, up to what a writer is ready to wait for. Every step goes to the disk before the next one,
/// while the source is free: were it left to gather, the system would some time make a step wait for all of it.
void copyPages(SQLite::Backup&& backup, const QString& from, QFile& written) {
    QElapsedTimer whole;
    whole.start();
    CopyPace pace;
    while (!whole.hasExpired(patienceMs)) {
        if (isRunUnderWay(from)) {
            QThread::msleep(runPauseMs);
            whole.restart();
            continue;
        }
        QElapsedTimer step;
        step.start();
        const int result = backup.executeStep(pace.pages());
        if (result == SQLITE_DONE) return;
        if (result == SQLITE_OK) {
            syncToDisk(written);
            pace.stepTook(step.elapsed(), backup.getTotalPageCount() - backup.getRemainingPageCount());
        }
        QThread::msleep(pauseMs);
    }
    throw Error(u"图册数据库一直在改动，没有备份。"_s);
}

/// The copy tells which one it is, where the catalogue has room for that.
void sign(SQLite::Database& copy, const BackupFile& as) {
    if (!copy.tableExists("lunq_values")) return;
    SQLite::Statement set(copy, "INSERT OR REPLACE INTO lunq_values (name, value) VALUES (?, ?)");
    const std::pair<QString, QString> values[] = {{backupNumberName, QString::number(as.number)},
                                                  {backupTimeName, as.made.toString(Qt::ISODate)}};
    for (const auto& [name, value] : values) {
        set.bind(1, name.toStdString());
        set.bind(2, value.toStdString());
        set.exec();
        set.reset();
    }
}

/// The copy is on the disk afterwards, and no longer in the memory of the system: who reads it reads the disk.
void copyDatabase(const QString& from, const QString& to, const BackupFile& as) {
    QFile written(to);
    if (!written.open(QIODevice::ReadWrite)) throw failure(to, writeFailure(written));
    try {
        // Also a catalogue that a power cut has left half changed is copied whole: opened for writing, it repairs
        // itself.
        SQLite::Database source(fileName(from), SQLite::OPEN_READWRITE);
        sqlite3_busy_handler(source.getHandle(), waitForAMoment, nullptr);
        SQLite::Database copy(fileName(to), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        // A copy that fails is thrown away, and what is written goes to the disk while the source is free.
        copy.exec("PRAGMA journal_mode = OFF");
        copy.exec("PRAGMA synchronous = OFF");
        // The engine has ended the copy when this object is gone, not before: only then is it written to.
        copyPages(SQLite::Backup(copy, source), from, written);
        sign(copy, as);
    } catch (const SQLite::Exception& failed) {
        throw Error(u"“%1”不能备份到“%2”：%3。"_s.arg(from, to, reasonOf(failed)));
    }
    syncToDisk(written);
    posix_fadvise(written.handle(), 0, 0, POSIX_FADV_DONTNEED);
}

/// A good backup must not make way for the copy of a damaged catalogue.
Error damageOf(const QString& from) {
    return Error(u"图册数据库“%1”有损坏的地方，没有备份。"_s.arg(from));
}

void requireSound(const QString& copy, const QString& from) {
    try {
        SQLite::Database database(fileName(copy), SQLite::OPEN_READONLY);
        if (database.execAndGet("PRAGMA quick_check(1)").getString() != "ok") throw damageOf(from);
    } catch (const SQLite::Exception& failed) {
        if ((failed.getErrorCode() & 0xff) == SQLITE_CORRUPT) throw damageOf(from);
        throw Error(u"备份“%1”不能读回来：%2。"_s.arg(copy, reasonOf(failed)));
    }
}

/// Says whose pictures are damaged: those of the catalogue, or only the copies of them.
Error damageOf(const QString& from, const QString& to, const std::vector<Proven>& damaged) {
    const Database source = OpenDatabase(from);
    const auto of = ValueHashes(source).of(damaged.front().picture);
    const auto found = of ? prove(source, {damaged.front().picture, {of->length, of->sha256}}, [] { return true; })
                          : std::optional<Proven>();
    if (found && found->fault == Fault::none)
        return Error(u"备份“%1”读回来与图册不同，没有备份。放备份的磁盘可能有问题。"_s.arg(to));
    return Error(u"图册数据库“%1”中有 %2 张图片变了，例如%3，没有备份。请在“图册备份设置”中按《校 验》。"_s.arg(from)
                     .arg(damaged.size())
                     .arg(textOf(placeOf(source, damaged.front().picture))));
}

void requireWholePictures(const QString& copy, const QString& from, const QString& to) {
    std::vector<ToProve> all;
    {
        const Database database = OpenDatabase(copy);
        if (database.isOurs()) all = picturesWithPrints(database);
    }
    std::vector<Proven> found = proveAll(copy, all, [](qsizetype, qint64) { return true; });
    std::erase_if(found, [](const Proven& one) { return one.fault == Fault::none; });
    if (!found.empty()) throw damageOf(from, to, found);
}

/// Reads the copy from the disk, its structure and its pictures at the same time.
void requireWhole(const QString& copy, const QString& from, const QString& to) {
    std::exception_ptr unsound;
    {
        const std::jthread structure([&] {
            try {
                requireSound(copy, from);
            } catch (...) {
                unsound = std::current_exception();
            }
        });
        try {
            requireWholePictures(copy, from, to);
        } catch (...) {
            if (!unsound) unsound = std::current_exception();
        }
    }
    if (unsound) std::rethrow_exception(unsound);
}

/// A catalogue without a name by which its backups know it gets one, where it can be written to.
QString identityIn(const QString& catalogue) {
    attempt([&] {
        const Database database = OpenDatabase(catalogue);
        if (database.isOurs()) giveIdentity(database);
    });
    try {
        SQLite::Database database(fileName(catalogue), SQLite::OPEN_READONLY);
        sqlite3_busy_handler(database.getHandle(), waitForAMoment, nullptr);
        SQLite::Statement find(database, "SELECT value FROM lunq_values WHERE name = 'catalogue.id'");
        return find.executeStep() ? QString::fromStdString(find.getColumn(0).getString()) : QString();
    } catch (const SQLite::Exception&) {
        return {};  // an older file has none
    }
}

qint64 freeBytes(const QString& path) {
    return QStorageInfo(QFileInfo(path).absolutePath()).bytesAvailable();
}

/// The last backup gets its dated name, and loses the other one when the new one comes in its place. Where nobody knows
/// what it is of, it stays only where there is room for yet another one. A file that is no catalogue of this program
/// always stays: it is somebody's.
void keepLast(const QString& to, const QList<BackupFile>& there, const QString& catalogue, qint64 room) {
    if (!QFileInfo::exists(to)) return;
    const bool isBackup = !there.isEmpty() && there.front().path == to;
    if (isBackup && there.front().catalogue.isEmpty() && (catalogue.isEmpty() || freeBytes(to) < room)) return;
    const QString dated = datedPath(to, isBackup ? there.front().made : FileDateTime(to));
    std::error_code failed;
    std::filesystem::create_hard_link(fileName(to), fileName(dated), failed);
    if (failed) std::filesystem::rename(fileName(to), fileName(dated), failed);
    if (failed) throw failure(dated, systemReason(failed.value()));
}

/// A kill may have come right behind the giving of the dated name.
bool hasDatedName(const QString& backup) {
    const QString folder = QFileInfo(backup).path() + u'/';
    return std::ranges::any_of(datedNames(backup),
                               [&](const QString& name) { return isSameFile(folder + name, backup); });
}

/// What became of the earlier backups when there is no new one.
QString textOfEarlier(const QList<BackupFile>& removed) {
    return removed.isEmpty() ? u"以前的备份不变。"_s
                             : u"为了腾出地方，已经删除最早的 %1 份备份，其余的不变。"_s.arg(removed.size());
}

void remove(const QList<BackupFile>& backups) {
    for (const BackupFile& one : backups) QFile::remove(one.path);
}

/// The number of the next backup: the clock may have been put back.
BackupFile nextBackup(const QString& to, const QString& catalogue, const QList<BackupFile>& there) {
    BackupFile next{.path = to, .catalogue = catalogue, .number = 1, .made = QDateTime::currentDateTime()};
    for (const BackupFile& one : there)
        if (one.catalogue == catalogue) next.number = std::max(next.number, one.number + 1);
    return next;
}

}  // namespace

void copyCatalogue(const QString& from, const QString& to) {
    const QFileInfo source(from), target(to);
    if (!source.isFile()) throw Error(u"图册数据库“%1”不存在，没有备份。"_s.arg(from));
    if (target.exists() && target.canonicalFilePath() == source.canonicalFilePath())
        throw Error(u"备份文件“%1”就是图册数据库本身，没有备份。"_s.arg(to));
    if (!QFileInfo(target.absolutePath()).isDir())
        throw Error(u"备份文件夹“%1”不存在，没有备份。"_s.arg(target.absolutePath()));
    if (target.isDir()) throw Error(u"备份文件“%1”是一个文件夹，没有备份。"_s.arg(to));

    QLockFile lock(to + u".lock"_s);
    lock.setStaleLockTime(0);
    if (!lock.tryLock()) {
        if (lock.error() == QLockFile::LockFailedError) throw Error(u"向“%1”的另一次备份正在进行。"_s.arg(to));
        throw Error(u"备份文件夹“%1”不能写入，没有备份。"_s.arg(target.absolutePath()));
    }
    const NewFile made(to + u".new"_s);
    const QString catalogue = identityIn(from);
    const QList<BackupFile> there = backupsBeside(to, false);
    const QList<BackupFile> way = makingWay(datedBeside(to, false), catalogue, source.size(), freeBytes(to));
    remove(way);
    try {
        copyDatabase(from, made.path(), nextBackup(to, catalogue, there));
        requireWhole(made.path(), from, to);
    } catch (const Error& failed) {
        throw Error(failed.text() + textOfEarlier(way));
    }
    if (!hasDatedName(to)) keepLast(to, there, catalogue, source.size());
    std::error_code failed;
    std::filesystem::rename(fileName(made.path()), fileName(to), failed);
    if (failed) throw failure(to, systemReason(failed.value()));
    syncFolderToDisk(target.absolutePath());
    remove(surplusBackups(datedBeside(to, false), catalogue));
}
