#include "catalogue/open_check.h"

#include "platform/base/error.h"
#include "platform/base/processes.h"

using namespace std::chrono_literals;

namespace {
constexpr auto knock = 2ms;
}  // namespace

OpenCheck::OpenCheck(const QString& file, Finished finished, Pace pace)
    : file_(file), finished_(std::move(finished)), pace_(pace) {
    thread_ = std::jthread([this](const std::stop_token& stop) { work(stop); });
}

/// A check that is just about to begin would miss a single call.
OpenCheck::~OpenCheck() {
    thread_.request_stop();
    std::unique_lock lock(mutex_);
    while (!woken_.wait_for(lock, knock, [this] { return ended_; })) FileCheck::interruptAll();
}

void OpenCheck::work(const std::stop_token& stop) {
    workInTheBackground();
    waitFor(pace_.start, stop);
    attempt([&] {
        for (auto rest = pace_.rest; !stop.stop_requested() && !check(stop); rest *= 2) waitFor(rest, stop);
    });
    const std::lock_guard lock(mutex_);
    ended_ = true;
    woken_.notify_all();
}

/// True when nothing is left to do.
bool OpenCheck::check(const std::stop_token& stop) {
    FileCheck check(file_);
    const FileCheck::Outcome outcome = check.run();
    if (outcome == FileCheck::Outcome::interrupted || stop.stop_requested()) return false;
    finished_(outcome);
    return true;
}

void OpenCheck::waitFor(std::chrono::milliseconds time, const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    woken_.wait_for(lock, stop, time, [] { return false; });
}
