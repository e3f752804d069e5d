#pragma once

#include <QtGlobal>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

/// How long a group waits for a thing that is not ready, before it is ended.
inline constexpr std::chrono::milliseconds usualPatience(20);

/// Prepares the things of a run, in their order, in a thread of its own: while one is stored, the next ones are read
/// and looked at on the other processor. It is ahead by so many things and bytes at most; with no things at all, each
/// is prepared when it is taken. One thread takes them, that of the run. The destructor waits for the thing in hand.
template <typename Prepared>
class ReadAhead {
  public:
    using Prepare = std::function<Prepared(qsizetype place)>;
    struct Limits {
        std::size_t things = 64;
        qint64 bytes = 12 << 20;
    };

    /// `begin` gives what prepares a thing. It is called in the thread, where the `Prepare` is used and destroyed, too:
    /// it may hold a database. Another one is made where things are taken, when one has to be prepared there. `bytesOf`
    /// tells how much memory a prepared thing takes.
    ReadAhead(qsizetype count, std::function<Prepare()> begin, std::function<qint64(const Prepared&)> bytesOf,
              Limits limits = Limits())
        : count_(count), begin_(std::move(begin)), bytesOf_(std::move(bytesOf)), limits_(limits) {
        if (limits_.things > 0) thread_ = std::thread([this] { work(); });
    }

    ~ReadAhead() {
        {
            const std::lock_guard lock(mutex_);
            ended_ = true;
        }
        changed_.notify_all();
        if (thread_.joinable()) thread_.join();
    }
    ReadAhead(const ReadAhead&) = delete;
    ReadAhead& operator=(const ReadAhead&) = delete;

    /// Waits for a thing, and gives it away; throws what its preparation threw. Those before it are not kept: one that
    /// is asked for all the same is prepared once more, in this thread.
    Prepared take(qsizetype place) {
        if (limits_.things == 0 || place < next_) return prepareHere(place);
        Outcome outcome;
        while (next_ <= place) outcome = takeNext();
        if (outcome.failure) std::rethrow_exception(outcome.failure);
        return std::move(*outcome.prepared);
    }

    /// Whether a thing is ready, or becomes so within the time.
    bool isAtHand(qsizetype place, std::chrono::milliseconds patience = usualPatience) const {
        if (limits_.things == 0) return true;
        std::unique_lock lock(mutex_);
        return changed_.wait_for(lock, patience, [&] { return place < next_ + qsizetype(ready_.size()); });
    }

  private:
    struct Outcome {
        std::optional<Prepared> prepared = {};
        std::exception_ptr failure = {};
        qint64 bytes = 0;
    };

    Prepared prepareHere(qsizetype place) {
        if (!prepareHere_) prepareHere_ = begin_();
        return prepareHere_(place);
    }

    Outcome takeNext() {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [&] { return !ready_.empty(); });
        Outcome outcome = std::move(ready_.front());
        ready_.pop_front();
        bytes_ -= outcome.bytes;
        ++next_;
        lock.unlock();
        changed_.notify_all();
        return outcome;
    }

    void work() {
        std::exception_ptr failure;
        Prepare prepare;
        try {
            prepare = begin_();
        } catch (...) {
            failure = std::current_exception();
        }
        for (qsizetype place = 0; place < count_ && waitForRoom(); ++place)
            add(failure ? Outcome{.failure = failure} : outcomeOf(prepare, place));
    }

    Outcome outcomeOf(const Prepare& prepare, qsizetype place) const {
        Outcome outcome;
        try {
            outcome.prepared.emplace(prepare(place));
            outcome.bytes = bytesOf_(*outcome.prepared);
        } catch (...) {
            outcome.failure = std::current_exception();
        }
        return outcome;
    }

    /// False when nothing more is wanted.
    bool waitForRoom() {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [&] {
            return ended_ || ready_.empty() || (ready_.size() < limits_.things && bytes_ < limits_.bytes);
        });
        return !ended_;
    }

    void add(Outcome outcome) {
        {
            const std::lock_guard lock(mutex_);
            bytes_ += outcome.bytes;
            ready_.push_back(std::move(outcome));
        }
        changed_.notify_all();
    }

    const qsizetype count_;
    const std::function<Prepare()> begin_;
    const std::function<qint64(const Prepared&)> bytesOf_;
    const Limits limits_;
    mutable std::mutex mutex_;
    mutable std::condition_variable changed_;
    std::deque<Outcome> ready_;
    qint64 bytes_ = 0;    ///< Of what is ready.
    qsizetype next_ = 0;  ///< Place of the first thing that is ready, or will be. Only the taking thread changes it.
    bool ended_ = false;
    Prepare prepareHere_;  ///< Of the thread that takes; made when it is needed.
    std::thread thread_;
};
