#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <utility>

/// A thread that does steps for its owner, one after the other. What a step opens stays open for the next one, so a
/// database can have a connection of its own there; it has to be closed by a step, too. No step throws.
class OtherThread {
  public:
    OtherThread() : thread_([this] { work(); }) {}
    ~OtherThread() {
        begin(nullptr);
        thread_.join();
    }
    OtherThread(const OtherThread&) = delete;
    OtherThread& operator=(const OtherThread&) = delete;

    void begin(std::function<void()> step) {
        {
            const std::lock_guard lock(mutex_);
            steps_.push_back(std::move(step));
        }
        changed_.notify_all();
    }
    /// Returns when it is done, and all that was begun before.
    void run(std::function<void()> step) {
        begin(std::move(step));
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return steps_.empty(); });
    }

  private:
    /// A step is in the queue until it is done; an empty one is the last.
    void work() {
        std::unique_lock lock(mutex_);
        for (;;) {
            changed_.wait(lock, [this] { return !steps_.empty(); });
            if (steps_.front() == nullptr) return;
            const std::function<void()> step = steps_.front();
            lock.unlock();
            step();
            lock.lock();
            steps_.pop_front();
            changed_.notify_all();
        }
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<std::function<void()>> steps_;
    std::thread thread_;  ///< Last: it uses the others.
};
