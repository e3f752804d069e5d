#pragma once

#include "catalogue/fingerprint.h"
#include "platform/database/records/database.h"

#include <QSet>
#include <QString>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

/// Makes the fingerprints that pictures of the catalogue lack, in a thread of its own that only reads. It works when
/// processor and disk have nothing better to do, piece by piece, so that no writer waits for it, and keeps the file
/// open only meanwhile. It ends at once with the object.
class BackgroundHashing {
  public:
    struct Made {
        qint64 picture = 0;  ///< Id of the value.
        Fingerprint print = {};
    };
    struct Pace {
        std::chrono::milliseconds start{15000};  ///< The first pages and pictures come before it.
        std::chrono::milliseconds look{200};     ///< So often it looks whether it may go on,
        std::chrono::milliseconds rest{60000};   ///< and whether new pictures have come when it is through.
        std::chrono::milliseconds batch{10000};  ///< What was made waits no longer until it is offered.
    };
    static constexpr std::size_t batchSize = 500;

    /// Both are called in the thread: `mayWork` before each piece, `offer` when a batch is there to be taken.
    BackgroundHashing(const QString& catalogue, std::function<bool()> mayWork, std::function<void()> offer, Pace pace);
    ~BackgroundHashing();
    BackgroundHashing(const BackgroundHashing&) = delete;
    BackgroundHashing& operator=(const BackgroundHashing&) = delete;

    /// What was made, a batch at most. It is given away once.
    std::vector<Made> take();
    /// What could not be stored comes first when it is taken again.
    void giveBack(std::vector<Made> batch);

  private:
    using Clock = std::chrono::steady_clock;

    void work(const std::stop_token& stop);
    void lookThrough(const std::stop_token& stop);
    void add(Made made);
    void offerIfDue(bool always);
    bool isFull();
    bool goesOn(const std::stop_token& stop);
    void waitFor(std::chrono::milliseconds time, const std::stop_token& stop);

    const QString catalogue_;
    const std::function<bool()> mayWork_;
    const std::function<void()> offer_;
    const Pace pace_;
    QSet<qint64> seen_;  ///< Of the thread, as is the time of the last offer.
    Clock::time_point offered_ = Clock::now();
    std::mutex mutex_;
    std::condition_variable_any woken_;
    std::vector<Made> made_;
    std::jthread thread_;  ///< Last: it ends before the members that it uses.
};
