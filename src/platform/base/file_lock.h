#pragma once

#include <QString>

/// A lock on a file itself: it is seen under every name, link or mount that leads to the file and by every user, and
/// ends with the process, however that ends. It stands apart from the locks of the database engine, but when it goes,
/// the locks that the engine has on the file in this process go with it: it has to outlive every connection.
class FileLock {
  public:
    enum class Outcome {
        taken,
        heldByAnother,
        impossible,  ///< No such file, no access, or a file system without locks.
    };

    FileLock() = default;
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    /// Locks the file that stands at `path` now. Whoever can only read it shares it with other readers, not with a
    /// writer. Taken again, it stays as it is, or moves on to a file that has taken the place of the first.
    Outcome take(const QString& path);

  private:
    bool isOn(const QString& path) const;
    void release();

    int descriptor_ = -1;
};
