#include "platform/base/file_lock.h"

#include <QFile>
#include <QFileInfo>
#include <utility>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#endif

QString runMarkOf(const QString& catalogue) {
    return QFileInfo(QFileInfo(catalogue).canonicalFilePath()).path() + QStringLiteral("/lunq.lock");
}

#ifdef F_OFD_SETLK

namespace {

/// Behind the 512 bytes by which the engine locks. They are at the beginning of a page of 16 KB that it never uses:
/// where a lock keeps others from reading, no content is behind it. A file need not be so long.
constexpr off_t lockedByte = 0x40000400;

int openFor(int access, const QString& path) {
    return open(QFile::encodeName(path).constData(), access | O_CLOEXEC | O_NONBLOCK);
}

}  // namespace

FileLock::Outcome FileLock::take(const QString& path) {
    if (isOn(path)) return Outcome::taken;
    release();
    struct flock lock {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    lock.l_start = lockedByte;
    lock.l_len = 1;
    descriptor_ = openFor(O_RDWR, path);
    if (descriptor_ < 0) {
        lock.l_type = F_RDLCK;
        descriptor_ = openFor(O_RDONLY, path);
    }
    if (descriptor_ < 0) return Outcome::impossible;
    if (fcntl(descriptor_, F_OFD_SETLK, &lock) == 0) return Outcome::taken;
    const bool held = errno == EAGAIN || errno == EACCES;
    release();
    return held ? Outcome::heldByAnother : Outcome::impossible;
}

bool FileLock::isOn(const QString& path) const {
    struct stat locked {
    }, standing{};
    return descriptor_ >= 0 && fstat(descriptor_, &locked) == 0 &&
           stat(QFile::encodeName(path).constData(), &standing) == 0 && locked.st_dev == standing.st_dev &&
           locked.st_ino == standing.st_ino;
}

void FileLock::release() {
    if (descriptor_ >= 0) close(std::exchange(descriptor_, -1));
}

#else

FileLock::Outcome FileLock::take(const QString&) {
    return Outcome::impossible;
}

void FileLock::release() {}

#endif

FileLock::~FileLock() {
    release();
}
