#pragma once

#include "platform/base/error.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <atomic>

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

    /// Reads the whole file. Throws `Error` when there is nothing left to read.
    Outcome run();

    /// Ends a run that another thread is in. One that is only about to begin may miss it: to be repeated until it ends.
    void interrupt();
    /// The same for all checks of the program.
    static void interruptAll();

  private:
    Outcome look();
    bool hasHeader();

    QString path_;
    SQLite::Database database_;
    std::atomic<bool> interrupted_ = false;
};
