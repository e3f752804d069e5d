#include "single_copy.h"

#include <QSysInfo>

namespace {

// A process that has ended on this computer is noticed when the lock is taken.
bool isOfAnotherComputer(const QLockFile& lock) {
    qint64 process = 0;
    QString computer, program;
    return lock.getLockInfo(&process, &computer, &program) && computer != QSysInfo::machineHostName();
}

}  // namespace

bool isSecondCopy(QLockFile& lock) {
    lock.setStaleLockTime(0);
    if (lock.tryLock() || lock.error() != QLockFile::LockFailedError) return false;
    if (isOfAnotherComputer(lock) && lock.removeStaleLockFile() && lock.tryLock()) return false;
    return lock.error() == QLockFile::LockFailedError;
}
