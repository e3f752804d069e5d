#pragma once

#include <QDateTime>
#include <QString>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

class FileCheck;

/// How a file was when it was found whole.
struct CheckedState {
    qint64 size = 0;
    QDateTime changed;
    QDateTime checked;
};

/// Whether a file is to be looked through: a small one always, a large one that has changed once a day, one that has
/// not changed once a month, since disks forget too.
bool isCheckDue(const std::optional<CheckedState>& last, qint64 size, const QDateTime& changed, const QDateTime& now);

/// Looks through the catalogue's file once, in a thread of its own that leaves processor and disk to all others, and
/// gives way to everything that the program writes. When the file was last found whole is kept in `memory`, a file that
/// may be lost at any time. Ends at once with the object.
class OpenCheck {
  public:
    struct Pace {
        std::chrono::milliseconds start{5000};  ///< The first pages and pictures come before it.
        std::chrono::milliseconds rest{10000};  ///< After a change, doubled with every further one.
    };

    /// `damaged` is called in the thread when the file is damaged.
    OpenCheck(const QString& file, const QString& memory, std::function<void()> damaged, Pace pace);
    OpenCheck(const QString& file, const QString& memory, std::function<void()> damaged)
        : OpenCheck(file, memory, std::move(damaged), Pace()) {}
    ~OpenCheck();
    OpenCheck(const OpenCheck&) = delete;
    OpenCheck& operator=(const OpenCheck&) = delete;

  private:
    void work(const std::stop_token& stop);
    bool check(const std::stop_token& stop);
    void waitFor(std::chrono::milliseconds time, const std::stop_token& stop);

    QString file_;
    QString memory_;
    std::function<void()> damaged_;
    Pace pace_;
    std::mutex mutex_;
    std::condition_variable_any woken_;
    bool ended_ = false;
    std::jthread thread_;  ///< Last: it ends before what it uses goes.
};
