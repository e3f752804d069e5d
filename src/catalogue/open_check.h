#pragma once

#include "platform/database/file/file_check.h"

#include <QString>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

/// Checks the catalogue's file once, in a thread of its own. It works only when processor and disk have nothing else to
/// do, and gives way to everything that the program writes. It ends at once with the object.
class OpenCheck {
  public:
    struct Pace {
        std::chrono::milliseconds start{5000};  ///< The first pages and pictures come before it.
        std::chrono::milliseconds rest{10000};  ///< After a change, doubled with every further one.
    };

    /// `finished` is called in the thread when the file is known to be whole or damaged.
    using Finished = std::function<void(FileCheck::Outcome)>;
    OpenCheck(const QString& file, Finished finished, Pace pace);
    OpenCheck(const QString& file, Finished finished) : OpenCheck(file, std::move(finished), Pace()) {}
    ~OpenCheck();
    OpenCheck(const OpenCheck&) = delete;
    OpenCheck& operator=(const OpenCheck&) = delete;

  private:
    void work(const std::stop_token& stop);
    bool check(const std::stop_token& stop);
    void waitFor(std::chrono::milliseconds time, const std::stop_token& stop);

    QString file_;
    Finished finished_;
    Pace pace_;
    std::mutex mutex_;
    std::condition_variable_any woken_;
    bool ended_ = false;
    std::jthread thread_;  ///< Last: it ends before the members that it uses.
};
