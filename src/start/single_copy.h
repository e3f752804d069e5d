#pragma once

#include "platform/base/file_lock.h"

#include <QLockFile>

/// Keeps a catalogue to one copy of the program, by two locks: one on the catalogue's file, which every link to it
/// leads to, and the lock file beside it, which the script that brings a backup back takes too. What a copy that has
/// ended, or one on another computer, has left behind counts for nothing: the folder may have been copied while the
/// program ran. Nor does a folder that cannot be written to: it holds no lock file, and is there to be looked at.
class SingleCopy {
  public:
    SingleCopy(const QString& catalogue, const QString& lockFile);

    /// Takes the locks; false when somebody else has one of them. Asked again, it locks a catalogue that has been
    /// placed meanwhile. The object has to outlive the open catalogue (see `FileLock`).
    bool isOnly();

  private:
    bool takeLockFile(FileLock::Outcome catalogue);
    bool isOwnerAlive(FileLock::Outcome catalogue) const;

    QString catalogue_;
    FileLock file_;
    QLockFile lockFile_;
};
