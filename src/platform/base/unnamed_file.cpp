#include "platform/base/unnamed_file.h"

#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/base/system_reason.h"

#include <QDir>
#include <QFileInfo>
#include <QRandomGenerator>
#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <utility>

#ifdef Q_OS_LINUX
#include <fcntl.h>
#include <unistd.h>
#endif

using namespace Qt::Literals::StringLiterals;

namespace {

std::string encoded(const QString& path) {
    return QFile::encodeName(path).toStdString();
}

#ifdef Q_OS_LINUX
/// Under this name the system knows a file that has none.
std::string entryOf(const QFile& file) {
    return "/proc/self/fd/" + std::to_string(file.handle());
}

/// -1 where such a file could not be had, or not be named afterwards.
int openWithoutName(const QString& folder) {
    constexpr mode_t usualRights = 0666;
    const int file = ::open(encoded(folder).c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, usualRights);
    if (file < 0 || access("/proc/self/fd", X_OK) == 0) return file;
    close(file);
    return -1;
}
#endif

/// Where what is written to `path` goes: the file itself behind a link.
QString realPlace(const QString& path) {
    const QFileInfo place(path);
    if (!place.isSymLink()) return path;
    return place.exists() ? place.canonicalFilePath() : place.symLinkTarget();
}

}  // namespace

UnnamedFile::UnnamedFile(const QString& path, QString complaint) : path_(path), complaint_(std::move(complaint)) {
    open();
}

UnnamedFile::~UnnamedFile() {
    file_.close();
    if (!ownName_.isEmpty()) QFile::remove(ownName_);
}

void UnnamedFile::fail(const QString& reason) const {
    throw Error(complaint_.arg(QDir::toNativeSeparators(path_), reason));
}

void UnnamedFile::fail(int error) const {
    fail(writeFailure(path_, systemReason(error)));
}

void UnnamedFile::open() {
#ifdef Q_OS_LINUX
    if (const int file = openWithoutName(QFileInfo(realPlace(path_)).path()); file >= 0) {
        file_.open(file, QIODevice::ReadWrite | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle);
        return;
    }
#endif
    openNamed();
}

void UnnamedFile::openNamed() {
    const QString name = freeNameBeside();
    file_.setFileName(name);
    if (!file_.open(QIODevice::ReadWrite | QIODevice::NewOnly | QIODevice::Unbuffered))
        fail(writeFailure(path_, systemReason(file_.errorString())));
    ownName_ = name;
}

QString UnnamedFile::freeNameBeside() const {
    const QString folder = QFileInfo(realPlace(path_)).path();
    QString name;
    do {
        const auto number = QRandomGenerator::global()->generate() & 0xFFFFFF;
        name = joinedPath(folder, u"lunq-%1.part"_s.arg(number, 6, 16, QLatin1Char('0')));
    } while (QFileInfo::exists(name) || QFileInfo(name).isSymLink());
    return name;
}

void UnnamedFile::write(QByteArrayView bytes) {
    if (file_.write(bytes.data(), bytes.size()) != bytes.size())
        fail(writeFailure(path_, systemReason(file_.errorString())));
}

void UnnamedFile::setRights(QFileDevice::Permissions rights) {
    file_.setPermissions(rights);
}

void UnnamedFile::sync() {
    try {
        syncToDisk(file_);
    } catch (const Error&) {
        fail(errno);
    }
}

void UnnamedFile::beginSync() {
#ifdef Q_OS_LINUX
    sync_file_range(file_.handle(), 0, 0, SYNC_FILE_RANGE_WRITE);
#endif
}

void UnnamedFile::compare(QByteArrayView bytes, qint64 ofDisk) {
    constexpr qint64 piece = 1 << 18;
#ifdef Q_OS_UNIX
    posix_fadvise(file_.handle(), 0, off_t(ofDisk), POSIX_FADV_DONTNEED);
#endif
    QByteArray read(piece, Qt::Uninitialized);
    bool isSame = file_.size() == bytes.size() && file_.seek(0);
    for (qint64 offset = 0; isSame && offset < bytes.size(); offset += piece) {
        const QByteArrayView expected = bytes.sliced(offset).first(std::min(piece, bytes.size() - offset));
        isSame = file_.read(read.data(), expected.size()) == expected.size() &&
                 QByteArrayView(read).first(expected.size()) == expected;
    }
    if (!isSame) fail(u"读回的内容与原图不同"_s);
}

bool UnnamedFile::takeNewName() {
#ifdef Q_OS_LINUX
    if (ownName_.isEmpty()) {
        const std::string name = encoded(path_);
        if (linkat(AT_FDCWD, entryOf(file_).c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) != 0) {
            if (errno == EEXIST) return false;
            fail(errno);
        }
        file_.close();
        return true;
    }
#endif
    if (!renameNew(ownName_, path_)) return false;  // `replace` may still be called
    file_.close();
    ownName_.clear();
    return true;
}

void UnnamedFile::replace() {
    const QString place = realPlace(path_);
    if (const QFileInfo before(place); before.exists()) {
        // A rename would pass over what keeps a file from being written.
        if (!before.isFile() || !isWritableNow(place)) fail(EACCES);
        setRights(before.permissions());
    }
    sync();
    giveName(place);
    syncFolderToDisk(QFileInfo(place).path());
}

/// A name cannot be taken from another file by a link: the file has one of its own for a moment.
void UnnamedFile::giveName(const QString& name) {
#ifdef Q_OS_LINUX
    if (ownName_.isEmpty()) {
        const QString own = freeNameBeside();
        if (linkat(AT_FDCWD, entryOf(file_).c_str(), AT_FDCWD, encoded(own).c_str(), AT_SYMLINK_FOLLOW) != 0)
            fail(errno);
        ownName_ = own;
    }
#endif
    file_.close();
    std::error_code failed;
    std::filesystem::rename(encoded(ownName_), encoded(name), failed);
    if (failed) fail(failed.value());
    ownName_.clear();
}
