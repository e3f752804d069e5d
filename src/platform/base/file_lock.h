#pragma once

#include <QString>

/// The file that stands for a long run of changes to a catalogue: while it is under way, `FileLock` holds it. It is the
/// lock file beside the catalogue, whatever name leads there.
QString runMarkOf(const QString& catalogue);

/// A lock on a file itself: every user sees it, under every name, link or mount that leads to the file. It ends with
/// the process, however that ends. It is no lock of the database engine. But when it goes, the engine's locks on the
/// file in this process go too, so it has to outlive every connection.
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

    /// Locks the file that is at `path` now. A file that can only be read is shared with other readers, not with a
    /// writer. A second call changes nothing, unless another file is at `path` by then: it locks that one instead.
    Outcome take(const QString& path);

  private:
    bool isOn(const QString& path) const;
    void release();

    int descriptor_ = -1;
};
