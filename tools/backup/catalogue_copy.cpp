#include "backup/catalogue_copy.h"

#include "backup/copy_pace.h"
#include "platform/base/error.h"
#include "platform/base/file_lock.h"
#include "platform/base/files.h"
#include "platform/base/system_reason.h"

#include <SQLiteCpp/Backup.h>
#include <SQLiteCpp/Database.h>
#include <sqlite3.h>

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QThread>
#include <filesystem>
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

/// A good backup must not make way for the copy of a damaged catalogue.
void requireWhole(SQLite::Database& copy, const QString& from) {
    if (copy.execAndGet("PRAGMA quick_check(1)").getString() != "ok")
        throw Error(u"图册数据库“%1”有损坏的地方，没有备份，以前的备份不变。"_s.arg(from));
}

/// The copy is on the disk afterwards.
void copyDatabase(const QString& from, const QString& to) {
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
        // The engine has ended the copy when this object is gone, not before: only then is it looked through.
        copyPages(SQLite::Backup(copy, source), from, written);
        requireWhole(copy, from);
    } catch (const SQLite::Exception& failed) {
        throw Error(u"“%1”不能备份到“%2”：%3。"_s.arg(from, to, reasonOf(failed)));
    }
    syncToDisk(written);
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
    copyDatabase(from, made.path());
    std::error_code failed;
    std::filesystem::rename(fileName(made.path()), fileName(to), failed);
    if (failed) throw failure(to, systemReason(failed.value()));
    syncFolderToDisk(target.absolutePath());
}
