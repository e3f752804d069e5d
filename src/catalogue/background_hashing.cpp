#include "catalogue/background_hashing.h"

#include "catalogue/album_tables.h"
#include "platform/base/error.h"
#include "platform/base/processes.h"
#include "platform/database/records/value_hashes.h"

#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The pictures without a fingerprint. Where none are kept there is nothing to do.
std::vector<StoredValue> bareOnes(const Database& catalogue) {
    const ValueHashes hashes(catalogue);
    std::vector<StoredValue> all;
    if (!hashes.areKept()) return all;
    for (const QString& album : albumTables(catalogue))
        attempt([&] { std::ranges::move(hashes.without(album, u"图片"_s), std::back_inserter(all)); });
    return all;
}

}  // namespace

BackgroundHashing::BackgroundHashing(const QString& catalogue, std::function<bool()> mayWork,
                                     std::function<void()> offer, Pace pace)
    : catalogue_(catalogue), mayWork_(std::move(mayWork)), offer_(std::move(offer)), pace_(pace) {
    thread_ = std::jthread([this](const std::stop_token& stop) { work(stop); });
}

BackgroundHashing::~BackgroundHashing() = default;

std::vector<BackgroundHashing::Made> BackgroundHashing::take() {
    const std::lock_guard lock(mutex_);
    const auto end = made_.begin() + qsizetype(std::min(made_.size(), batchSize));
    std::vector<Made> batch(std::make_move_iterator(made_.begin()), std::make_move_iterator(end));
    made_.erase(made_.begin(), end);
    return batch;
}

void BackgroundHashing::giveBack(std::vector<Made> batch) {
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

/// The file is closed while the work rests, and what is bare is looked up anew then. A picture that cannot be read is
/// left alone.
void BackgroundHashing::lookThrough(const std::stop_token& stop) {
    for (bool isThrough = false; !isThrough && !stop.stop_requested();) {
        if (!goesOn(stop)) {
            waitFor(pace_.look, stop);
            continue;
        }
        std::vector<StoredValue> bare = bareOnes(OpenDatabase(catalogue_));
        std::erase_if(bare, [this](const StoredValue& picture) { return seen_.contains(picture.id()); });
        isThrough = std::ranges::all_of(bare, [&](const StoredValue& picture) {
            Fingerprint print;
            const bool isRead = attempt([&] { print = fingerprintOf(picture, [&] { return goesOn(stop); }); });
            if (isRead && print.sha256.isEmpty()) return false;
            seen_.insert(picture.id());
            if (isRead) add({picture.id(), std::move(print)});
            return true;
        });
    }
}

void BackgroundHashing::add(Made made) {
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
