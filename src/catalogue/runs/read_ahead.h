#pragma once

#include <QtGlobal>
#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <deque>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

/// How long a group waits for a thing that is not ready, before it is ended.
inline constexpr std::chrono::milliseconds usualPatience(20);

/// Prepares the things of a run in threads of its own: while one is stored, the next ones are read and looked at on the
/// other processors. They are begun and given away in their order. It is ahead by so many things at most, and begins no
/// other one while those that wait take so many bytes; with no things at all, each is prepared when it is taken. One
/// thread takes them, that of the run. The destructor waits for the things in hand.
template <typename Prepared>
class ReadAhead {
  public:
    using Prepare = std::function<Prepared(qsizetype place)>;
    struct Limits {
        std::size_t things = 64;
        qint64 bytes = 12 << 20;
        int threads = 1;  ///< More are of use where the preparing takes longer than the reading and the storing.
    };

    /// `begin` gives what prepares a thing. It is called in each thread, where the `Prepare` is used and destroyed,
    /// too: it may hold a database. Another one is made where things are taken, when one has to be prepared there.
    /// `bytesOf` tells how much memory a prepared thing takes.
    ReadAhead(qsizetype count, std::function<Prepare()> begin, std::function<qint64(const Prepared&)> bytesOf,
              Limits limits = Limits())
        : count_(count), begin_(std::move(begin)), bytesOf_(std::move(bytesOf)), limits_(limits) {
        if (limits_.things == 0) return;
        threads_.reserve(std::size_t(limits_.threads));
        for (int i = 0; i < limits_.threads; ++i) threads_.emplace_back([this] { work(); });
    }

    ~ReadAhead() {
        {
            const std::lock_guard lock(mutex_);
            ended_ = true;
        }
        changed_.notify_all();
        for (std::thread& thread : threads_) thread.join();
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
        return changed_.wait_for(lock, patience, [&] { return isReadyUpTo(place); });
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

    bool isReadyUpTo(qsizetype place) const {
        const qsizetype count = place + 1 - next_;
        return count <= qsizetype(begun_.size()) &&
               std::all_of(begun_.begin(), begun_.begin() + std::max(count, qsizetype(0)),
                           [](const auto& outcome) { return outcome.has_value(); });
    }

    Outcome takeNext() {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [&] { return isReadyUpTo(next_); });
        Outcome outcome = std::move(*begun_.front());
        begun_.pop_front();
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
        while (const std::optional<qsizetype> place = nextPlace())
            add(*place, failure ? Outcome{.failure = failure} : outcomeOf(prepare, *place));
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

    bool isThrough() const { return ended_ || next_ + qsizetype(begun_.size()) >= count_; }
    bool hasRoom() const { return begun_.empty() || (begun_.size() < limits_.things && bytes_ < limits_.bytes); }

    /// Waits for room for another thing; none when nothing more is wanted.
    std::optional<qsizetype> nextPlace() {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return isThrough() || hasRoom(); });
        if (isThrough()) return {};
        begun_.emplace_back();
        return next_ + qsizetype(begun_.size()) - 1;
    }

    void add(qsizetype place, Outcome outcome) {
        {
            const std::lock_guard lock(mutex_);
            bytes_ += outcome.bytes;
            begun_[std::size_t(place - next_)] = std::move(outcome);
        }
        changed_.notify_all();
    }

    const qsizetype count_;
    const std::function<Prepare()> begin_;
    const std::function<qint64(const Prepared&)> bytesOf_;
    const Limits limits_;
    mutable std::mutex mutex_;
    mutable std::condition_variable changed_;
    std::deque<std::optional<Outcome>> begun_;  ///< From the next place on; empty while a thing is in hand.
    qint64 bytes_ = 0;                          ///< Of what is ready.
    qsizetype next_ = 0;  ///< Place of the thing that is given away next. Only the taking thread changes it.
    bool ended_ = false;
    Prepare prepareHere_;  ///< Of the thread that takes; made when it is needed.
    std::vector<std::thread> threads_;
};
