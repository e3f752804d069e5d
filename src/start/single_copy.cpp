#include "start/single_copy.h"

#include "platform/base/processes.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSysInfo>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#endif

using Outcome = FileLock::Outcome;

namespace {

/// Whoever has made a lock file through `QLockFile` keeps it locked for as long as he lives.
bool isHeld(const QString& lockFile) {
#ifdef Q_OS_UNIX
    const int file = open(QFile::encodeName(lockFile).constData(), O_WRONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0) return false;
    const bool held = flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    close(file);
    return held;
#else
    Q_UNUSED(lockFile);
    return false;
#endif
}

}  // namespace

SingleCopy::SingleCopy(const QString& catalogue, const QString& lockFile) : catalogue_(catalogue), lockFile_(lockFile) {
    lockFile_.setStaleLockTime(0);
}

bool SingleCopy::isOnly() {
    const Outcome catalogue = file_.take(catalogue_);
    if (catalogue == Outcome::heldByAnother || !takeLockFile(catalogue)) return false;
    // Until the lock file was taken, a backup could have come in the place of the catalogue.
    return file_.take(catalogue_) != Outcome::heldByAnother;
}

bool SingleCopy::takeLockFile(Outcome catalogue) {
    if (lockFile_.isLocked() || lockFile_.tryLock() || lockFile_.error() != QLockFile::LockFailedError) return true;
    // A catalogue that is free may have come in the place of the one that the owner has open.
    if (isOwnerAlive(catalogue) || isHeld(lockFile_.fileName())) return false;
    // Where it cannot be removed (a disc, the file of another user), the lock on the catalogue has to do.
    return !lockFile_.removeStaleLockFile() || lockFile_.tryLock() || lockFile_.error() != QLockFile::LockFailedError;
}

/// A lock file of a process of this computer that has ended is removed by tryLock, unless that is forbidden or the
/// process's number has been given to another copy of the program, which may work on another catalogue.
bool SingleCopy::isOwnerAlive(Outcome catalogue) const {
    const bool catalogueIsFree = catalogue == Outcome::taken;
    qint64 process = 0;
    QString computer, program;
    if (!lockFile_.getLockInfo(&process, &computer, &program)) return !catalogueIsFree;
    if (computer != QSysInfo::machineHostName() || !isRunning(process)) return false;
    const bool isThisProgram = program == QFileInfo(QCoreApplication::applicationFilePath()).fileName();
    return !(catalogueIsFree && isThisProgram);
}
