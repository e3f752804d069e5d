#include "catalogue/background_hashing.h"

#include "platform/base/error.h"
#include "platform/base/processes.h"

#include <algorithm>
#include <ctime>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Of this thread.
std::chrono::nanoseconds processorTime() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

}  // namespace

BackgroundHashing::BackgroundHashing(const QString& catalogue, std::function<bool()> mayWork,
                                     std::function<void()> offer, Pace pace)
    : catalogue_(catalogue), mayWork_(std::move(mayWork)), offer_(std::move(offer)), pace_(pace) {
    thread_ = std::jthread([this](const std::stop_token& stop) { work(stop); });
}

BackgroundHashing::~BackgroundHashing() = default;

std::vector<Proven> BackgroundHashing::take() {
    const std::lock_guard lock(mutex_);
    const auto end = made_.begin() + qsizetype(std::min(made_.size(), batchSize));
    std::vector<Proven> batch(std::make_move_iterator(made_.begin()), std::make_move_iterator(end));
    made_.erase(made_.begin(), end);
    return batch;
}

void BackgroundHashing::giveBack(std::vector<Proven> batch) {
    const std::lock_guard lock(mutex_);
    made_.insert(made_.begin(), std::make_move_iterator(batch.begin()), std::make_move_iterator(batch.end()));
}

void BackgroundHashing::work(const std::stop_token& stop) {
    workInTheBackground();
    for (waitFor(pace_.start, stop); !stop.stop_requested(); waitFor(pace_.rest, stop)) {
        attempt([&] { lookThrough(stop); });
        offerIfDue(true);
    }
}

void BackgroundHashing::lookThrough(const std::stop_token& stop) {
    makePrints(stop);
    if (!printed_.isEmpty()) offerIfDue(true);
    proveDue(stop);
}

/// The file is closed while the work rests, and what is bare is looked up anew then.
void BackgroundHashing::makePrints(const std::stop_token& stop) {
    for (bool isThrough = false; !isThrough && !stop.stop_requested();) {
        if (!goesOn(stop)) {
            waitFor(pace_.look, stop);
            continue;
        }
        const Database catalogue = OpenDatabase(catalogue_);
        std::vector<StoredValue> bare = unprintedPictures(catalogue);
        std::erase_if(bare, [this](const StoredValue& picture) { return seen_.contains(picture.id()); });
        isThrough = std::ranges::all_of(bare, [&](const StoredValue& picture) {
            const auto found = prove(catalogue, {.picture = picture.id()}, [&] { return goesOn(stop); });
            if (!found && !goesOn(stop)) return false;
            seen_.insert(picture.id());
            if (!found) return true;
            if (found->isNew) printed_.insert(picture.id());
            add(*found);
            return true;
        });
    }
}

/// What is decoded is kept as the id up to which all are. So none may be left out before that: prints that were made
/// are stored first, otherwise their pictures would not be due yet. The next look at the catalogue goes on.
bool BackgroundHashing::waitsForPrints(const Database& catalogue) {
    if (printed_.isEmpty()) return false;
    const bool waits = std::ranges::any_of(
        unprintedPictures(catalogue), [this](const StoredValue& picture) { return printed_.contains(picture.id()); });
    if (!waits) printed_.clear();
    return waits;
}

/// In the same way. After each picture it rests long enough to take no more than its share of a processor.
void BackgroundHashing::proveDue(const std::stop_token& stop) {
    for (bool isThrough = false; !isThrough && !stop.stop_requested();) {
        if (!goesOn(stop)) {
            waitFor(pace_.look, stop);
            continue;
        }
        const Database catalogue = OpenDatabase(catalogue_);
        if (waitsForPrints(catalogue)) return;
        const QDate today = QDate::currentDate();
        if (std::exchange(provedOn_, today) != today) proved_.clear();
        std::vector<ToProve> due = picturesDue(catalogue, today.addDays(-daysBetweenProofs));
        std::erase_if(due, [this](const ToProve& one) { return proved_.contains(one.picture); });
        isThrough = std::ranges::all_of(due, [&](const ToProve& one) { return isThroughWith(catalogue, one, stop); });
    }
}

bool BackgroundHashing::isThroughWith(const Database& catalogue, const ToProve& picture, const std::stop_token& stop) {
    const std::chrono::nanoseconds before = processorTime();
    const auto found = prove(catalogue, picture, [&] { return goesOn(stop); });
    if (!found && !goesOn(stop)) return false;
    proved_.insert(picture.picture);
    if (found) add(*found);
    const std::chrono::duration<double, std::nano> rest = (processorTime() - before) * (1 / pace_.share - 1);
    waitFor(std::chrono::duration_cast<std::chrono::milliseconds>(rest), stop);
    return true;
}

void BackgroundHashing::add(Proven made) {
    {
        const std::lock_guard lock(mutex_);
        made_.push_back(std::move(made));
    }
    offerIfDue(isFull());
}

void BackgroundHashing::offerIfDue(bool always) {
    if (!always && Clock::now() < offered_ + pace_.batch) return;
    offered_ = Clock::now();
    offer_();
}

bool BackgroundHashing::isFull() {
    const std::lock_guard lock(mutex_);
    return made_.size() >= batchSize;
}

/// Two batches that nobody has taken are enough.
bool BackgroundHashing::goesOn(const std::stop_token& stop) {
    if (stop.stop_requested() || !mayWork_()) return false;
    const std::lock_guard lock(mutex_);
    return made_.size() < 2 * batchSize;
}

void BackgroundHashing::waitFor(std::chrono::milliseconds time, const std::stop_token& stop) {
    std::unique_lock lock(mutex_);
    woken_.wait_for(lock, stop, time, [] { return false; });
}
