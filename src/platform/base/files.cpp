#include "platform/base/files.h"

#include "platform/base/error.h"
#include "platform/base/odd_names.h"
#include "platform/base/system_reason.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>
#include <cerrno>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <stdio.h>
#include <unistd.h>
#elif defined(Q_OS_WIN)
#include <io.h>
#endif

using namespace Qt::Literals::StringLiterals;

namespace {

QString& otherProgramFolder() {
    static QString folder;
    return folder;
}

QFileInfo existingFile(const QString& path) {
    QFileInfo info(path);
    if (!info.isFile()) throw Error(u"文件“%1”不存在。"_s.arg(path));
    return info;
}

[[noreturn]] void failToSync(const QString& path) {
    const QString reason = systemReason(errno);
    throw Error(u"“%1”没有写到磁盘上：%2。"_s.arg(QDir::toNativeSeparators(path), reason));
}

#ifdef Q_OS_UNIX
template <typename Sync>
void syncFolder(const QString& path, Sync sync) {
    const int folder = open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0) failToSync(path);
    const int code = sync(folder);
    const int reason = errno;
    close(folder);
    errno = reason;
    // Some file systems write their folders at once and refuse this call.
    if (code != 0 && reason != EINVAL && reason != ENOTSUP) failToSync(path);
}
#endif

#ifdef Q_OS_UNIX
/// 0, or why the name was not given.
int giveNewName(const QByteArray& from, const QByteArray& to) {
#ifdef RENAME_NOREPLACE
    if (renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0) return 0;
    if (errno != EINVAL && errno != ENOSYS && errno != ENOTSUP) return errno;
#endif
    if (link(from.constData(), to.constData()) == 0) return unlink(from.constData()) == 0 ? 0 : errno;
    if (errno == EEXIST) return errno;
    // A file system that knows neither: who takes the name at this very moment loses it.
    if (access(to.constData(), F_OK) == 0) return EEXIST;
    return rename(from.constData(), to.constData()) == 0 ? 0 : errno;
}
#endif

}  // namespace

QString programFolder() {
    const QString& other = otherProgramFolder();
    return QDir::toNativeSeparators(other.isEmpty() ? QCoreApplication::applicationDirPath() : other);
}

void setProgramFolder(const QString& folder) {
    otherProgramFolder() = folder;
}

QString joinedPath(const QString& folder, const QString& name) {
    const bool separated = folder.isEmpty() || folder.endsWith(QDir::separator()) || folder.endsWith(u'/');
    return separated ? folder + name : folder + QDir::separator() + name;
}

qint64 FileLen(const QString& path) {
    if (QFile odd; isStandIn(path) && openForReading(odd, path)) return odd.size();
    return existingFile(path).size();
}

QDateTime FileDateTime(const QString& path) {
    QFile odd;
    const bool isOdd = isStandIn(path) && openForReading(odd, path);
    const QDateTime changed =
        isOdd ? odd.fileTime(QFileDevice::FileModificationTime) : existingFile(path).lastModified();
    const QTime time = changed.time();
    return {changed.date(), QTime(time.hour(), time.minute(), time.second())};
}

bool fileExists(const QString& path) {
    return QFileInfo(path).isFile();
}

bool folderExists(const QString& path) {
    return QFileInfo(path).isDir();
}

bool isWritableNow(const QString& path) {
#ifdef Q_OS_UNIX
    return faccessat(AT_FDCWD, QFile::encodeName(path).constData(), W_OK, AT_EACCESS) == 0;
#else
    return QFileInfo(path).isWritable();
#endif
}

void Kill(const QString& path) {
    QFile file(existingFile(path).filePath());
    if (!file.remove()) throw Error(u"文件“%1”不能删除：%2。"_s.arg(path, systemReason(file.errorString())));
}

void MkDir(const QString& path) {
    if (QFileInfo::exists(path)) throw Error(u"文件夹“%1”不能建立：同名的文件或文件夹已存在。"_s.arg(path));
    if (!QDir().mkdir(path)) {
        const QString reason = systemReason(errno);
        throw Error(u"文件夹“%1”不能建立：%2。"_s.arg(path, writeFailure(QDir::cleanPath(path), reason)));
    }
    // What is moved into it goes with it when its own name is lost. Not every parent can be opened.
    attempt([&] { syncFolderToDisk(QFileInfo(QDir::cleanPath(path)).absolutePath()); });
}

void RmDir(const QString& path) {
    if (!folderExists(path)) throw Error(u"文件夹“%1”不存在。"_s.arg(path));
    if (!QDir().rmdir(path)) throw Error(u"文件夹“%1”不能删除：它不是空的，或没有权限。"_s.arg(path));
}

QString writeFailure(const QString& path, const QString& otherwise) {
    const QFileInfo place(path);
    const QFileInfo folder(place.absolutePath());
    constexpr qint64 hardlyAnything = 1 << 20;
    if (!folder.isDir()) return u"文件夹不存在"_s;
    if (place.isDir()) return u"那里有一个同名的文件夹"_s;
    if (place.exists() && !place.isFile()) return u"那里是同名的设备或管道，不是文件"_s;
    if (place.exists() && !isWritableNow(path)) return u"文件是只读的"_s;
    if (!isWritableNow(folder.filePath())) return u"文件夹不能写入"_s;
    const QStorageInfo storage(folder.absoluteFilePath());
    if (storage.isValid() && storage.bytesAvailable() < hardlyAnything) return u"磁盘空间不足"_s;
    return otherwise;
}

QString writeFailure(const QFileDevice& file) {
    return writeFailure(file.fileName(), systemReason(file.errorString()));
}

void syncToDisk(QFileDevice& file) {
    if (!file.flush()) throw Error(u"文件“%1”不能写入：%2。"_s.arg(file.fileName(), writeFailure(file)));
#ifdef Q_OS_UNIX
    if (fsync(file.handle()) != 0) failToSync(file.fileName());
#elif defined(Q_OS_WIN)
    if (_commit(file.handle()) != 0) failToSync(file.fileName());
#endif
}

void syncFolderToDisk(const QString& path) {
#ifdef Q_OS_UNIX
    syncFolder(path, [](int folder) { return fsync(folder); });
#else
    Q_UNUSED(path);
#endif
}

void syncFileSystemOf(const QString& folder) {
#if defined(Q_OS_LINUX)
    syncFolder(folder, [](int descriptor) { return syncfs(descriptor); });
#elif defined(Q_OS_UNIX)
    Q_UNUSED(folder);
    sync();
#else
    Q_UNUSED(folder);
#endif
}

bool renameNew(const QString& from, const QString& to) {
#ifdef Q_OS_UNIX
    const int failed = giveNewName(QFile::encodeName(from), QFile::encodeName(to));
    if (failed == 0) return true;
    if (failed == EEXIST) return false;
    const QString reason = failed == EINVAL ? systemReason(EILSEQ) : systemReason(failed);
#else
    if (QFile::rename(from, to)) return true;
    if (QFileInfo::exists(to)) return false;
    const QString reason = u"名称或磁盘不能使用"_s;
#endif
    throw Error(u"文件“%1”不能建立：%2。"_s.arg(QDir::toNativeSeparators(to), reason));
}
