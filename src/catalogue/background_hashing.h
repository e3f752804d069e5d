#pragma once

#include "catalogue/picture_proof.h"
#include "platform/database/records/database.h"

#include <QSet>
#include <QString>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

/// Makes the fingerprints that pictures of the catalogue lack, then proves those whose time has come, in a thread of
/// its own that only reads. It works when processor and disk have nothing better to do, piece by piece, so that no
/// writer waits for it, and keeps the file open only meanwhile. It ends at once with the object.
class BackgroundHashing {
  public:
    struct Pace {
        std::chrono::milliseconds start{15000};  ///< The first pages and pictures come before it.
        std::chrono::milliseconds look{200};     ///< So often it looks whether it may go on,
        std::chrono::milliseconds rest{60000};   ///< and whether new pictures have come when it is through.
        std::chrono::milliseconds batch{10000};  ///< What was made waits no longer until it is offered.
        double share = 0.04;                     ///< Of a processor, for the proof.
    };
    static constexpr std::size_t batchSize = 500;
    /// A picture is proved so many days after the last time: all of them within a month of use.
    static constexpr int daysBetweenProofs = 25;

    /// Both are called in the thread: `mayWork` before each piece, `offer` when a batch is there to be taken.
    BackgroundHashing(const QString& catalogue, std::function<bool()> mayWork, std::function<void()> offer, Pace pace);
    ~BackgroundHashing();
    BackgroundHashing(const BackgroundHashing&) = delete;
    BackgroundHashing& operator=(const BackgroundHashing&) = delete;

    /// What was made, a batch at most. It is given away once.
    std::vector<Proven> take();
    /// What could not be stored comes first when it is taken again.
    void giveBack(std::vector<Proven> batch);

  private:
    using Clock = std::chrono::steady_clock;

    void work(const std::stop_token& stop);
    void lookThrough(const std::stop_token& stop);
    void makePrints(const std::stop_token& stop);
    void proveDue(const std::stop_token& stop);
    bool waitsForPrints(const Database& catalogue);
    bool isThroughWith(const Database& catalogue, const ToProve& picture, const std::stop_token& stop);
    void add(Proven made);
    void offerIfDue(bool always);
    bool isFull();
    bool goesOn(const std::stop_token& stop);
    void waitFor(std::chrono::milliseconds time, const std::stop_token& stop);

    const QString catalogue_;
    const std::function<bool()> mayWork_;
    const std::function<void()> offer_;
    const Pace pace_;
    QSet<qint64> seen_;     ///< What has got a print. Of the thread, as is all that follows until the mutex.
    QSet<qint64> printed_;  ///< The same, as far as it may not be stored yet.
    QSet<qint64> proved_;   ///< On the day `provedOn_`.
    QDate provedOn_;
    Clock::time_point offered_ = Clock::now();
    std::mutex mutex_;
    std::condition_variable_any woken_;
    std::vector<Proven> made_;
    std::jthread thread_;  ///< Last: it ends before the members that it uses.
};
