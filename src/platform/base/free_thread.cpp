#include "platform/base/free_thread.h"

#include "platform/base/error.h"

#include <QCoreApplication>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

namespace {

/// The threads that run. The object is never destroyed: one of them may be stuck in a read when the program ends.
class RunningThreads {
  public:
    static RunningThreads& all() {
        static auto* threads = new RunningThreads;
        return *threads;
    }

    void begin(std::function<void()> work) {
        {
            const std::lock_guard lock(mutex_);
            ++running_;
        }
        std::thread([this, work = std::move(work)]() mutable {
            attempt(work);
            work = nullptr;
            {
                const std::lock_guard lock(mutex_);
                --running_;
            }
            ended_.notify_all();
        }).detach();
    }

  private:
    RunningThreads() {
        qAddPostRoutine([] { all().waitForAll(); });
    }
    void waitForAll() {
        std::unique_lock lock(mutex_);
        ended_.wait_for(lock, longestWait, [this] { return running_ == 0; });
    }

    static constexpr std::chrono::seconds longestWait{2};
    std::mutex mutex_;
    std::condition_variable ended_;
    int running_ = 0;
};

}  // namespace

/// Shared with the thread, which may outlive the owner.
class FreeThread::Presence : public Owner {
  public:
    bool isThere() const override { return isThere_; }
    void tell(const std::function<void()>& news) override {
        const std::lock_guard lock(mutex_);
        if (isThere_) news();
    }
    void end() {
        const std::lock_guard lock(mutex_);
        isThere_ = false;
    }

  private:
    std::atomic<bool> isThere_ = true;
    std::mutex mutex_;
};

FreeThread::FreeThread(std::function<void(Owner&)> work) : presence_(std::make_shared<Presence>()) {
    RunningThreads::all().begin([presence = presence_, work = std::move(work)] { work(*presence); });
}

FreeThread::~FreeThread() {
    presence_->end();
}
