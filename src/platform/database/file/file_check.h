#pragma once

#include "platform/base/error.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <atomic>
#include <span>

/// Looks through a database file for damage, over a connection of its own that only reads. A reader keeps writers from
/// storing what they have written: as soon as one of this program waits for that, the check ends, and can be run again.
class FileCheck {
  public:
    enum class Outcome {
        whole,
        damaged,
        interrupted,  ///< By `interrupt`, or because somebody is just writing.
    };

    /// Throws `Error` when the file cannot be opened.
    explicit FileCheck(const QString& path);
    ~FileCheck();
    FileCheck(const FileCheck&) = delete;
    FileCheck& operator=(const FileCheck&) = delete;

    /// Reads the whole file. Throws `Error` when it cannot be read, for instance because a share does not answer: then
    /// nobody knows whether it is damaged.
    Outcome run();

    /// Ends the run of another thread. A run that is only about to begin may miss the call: repeat it until the run
    /// ends.
    void interrupt();
    /// The same for all checks of the program.
    static void interruptAll();

  private:
    Outcome look();
    bool hasHeader();
    bool isSound();
    void requireReadable();
    bool read(std::span<char> bytes, qint64 at);

    QString path_;
    SQLite::Database database_;
    std::atomic<bool> interrupted_ = false;
};
