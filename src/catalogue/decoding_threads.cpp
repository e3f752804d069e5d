#include "catalogue/decoding_threads.h"

#include "platform/base/error.h"

#include <QThread>
#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

DecodingThreads::Result done(const DecodingThreads::Job& job) {
    DecodingThreads::Result result{job.ticket, {}, job.decoded};
    attempt([&] {
        if (result.decoded.isNull()) result.decoded = LoadPicture(job.bytes, u"picture"_s, job.target, Colours::ofFile);
        result.picture = inScreenColours(shrunkTo(result.decoded, job.target));
    });
    return result;
}

}  // namespace

DecodingThreads::DecodingThreads(std::function<void()> notify) : notify_(std::move(notify)) {
    for (int i = 0; i < count(); ++i) threads_.emplace_back([this](const std::stop_token& stop) { work(stop); });
}

// All threads are asked to stop before the first is waited for, so that none begins another picture meanwhile.
DecodingThreads::~DecodingThreads() {
    for (std::jthread& thread : threads_) thread.request_stop();
}

int DecodingThreads::count() {
    return std::max(1, QThread::idealThreadCount());
}

void DecodingThreads::give(Job job) {
    {
        const std::lock_guard lock(mutex_);
        jobs_.push_back(std::move(job));
    }
    jobGiven_.notify_one();
}

std::vector<quint64> DecodingThreads::dropWaiting() {
    const std::lock_guard lock(mutex_);
    std::vector<quint64> tickets;
    for (const Job& job : jobs_) tickets.push_back(job.ticket);
    jobs_.clear();
    return tickets;
}

std::vector<DecodingThreads::Result> DecodingThreads::take(QDeadlineTimer deadline) {
    std::unique_lock lock(mutex_);
    if (results_.empty() && !deadline.hasExpired())
        resultReady_.wait_until(lock, deadline.deadline<std::chrono::steady_clock>(),
                                [this] { return !results_.empty(); });
    return std::exchange(results_, {});
}

void DecodingThreads::work(const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    while (jobGiven_.wait(lock, stop, [this] { return !jobs_.empty(); })) {
        if (stop.stop_requested()) return;
        const Job job = std::move(jobs_.front());
        jobs_.pop_front();
        lock.unlock();
        Result result = done(job);
        lock.lock();
        const bool isFirst = results_.empty();
        results_.push_back(std::move(result));
        resultReady_.notify_one();
        if (isFirst) notify_();
    }
}
