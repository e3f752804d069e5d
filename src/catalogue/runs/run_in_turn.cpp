#include "catalogue/runs/run_in_turn.h"

#include <QElapsedTimer>
#include <algorithm>
#include <iterator>
#include <utility>

/// What is stored together.
struct RunInTurn::Group {
    explicit Group(const RunProgress& before) : start(before) { time.start(); }

    RunProgress start;
    std::vector<RunItem> stored = {};
    std::optional<RunItem> failed = {};  ///< It ends the group.
    QElapsedTimer time;
};

namespace {
constexpr qint64 fewestBytes = 4 << 20;
constexpr std::size_t mostThings = 128;
constexpr qint64 mostMs = 400;  ///< Before the group is written to the disk; with that it may take
constexpr qint64 wholeMs = 500;
}  // namespace

RunInTurn::RunInTurn(QStringList names, qint64 mostBytes)
    : names_(std::move(names)), end_(names_.size()), mostBytes_(mostBytes), groupBytes_(fewestBytes) {}

RunReport RunInTurn::run(RunWatch& watch) {
    watch_ = &watch;
    progress_.all = names_.size();
    try {
        open();
        while (progress_.done < end_) takeGroup();
    } catch (const std::exception& failure) {
        report_.failure = reasonOf(failure);
    }
    askAbout(settleLast());
    report_.close(names_, progress_.done);
    return std::move(report_);
}

void RunInTurn::takeGroup() {
    Group group(progress_);
    bool isLost = false;
    try {
        beginGroup();
        do takeNext(group);
        while (!isFull(group));
        if (!group.stored.empty()) storeGroup();
        close(group);
    } catch (const std::exception& failure) {
        lose(group, reasonOf(failure));
        isLost = true;
    }
    endGroup();
    const auto failedBefore = settleLast();
    const auto failedLater = group.stored.empty() ? std::nullopt : finish(group.stored);
    unsettled_ = std::move(group.stored);
    if (group.failed) unsettled_.push_back(*group.failed);
    for (const auto& failed : {failedBefore, failedLater, group.failed}) askAbout(failed);
    if (isLost && progress_.done < end_) open();
}

std::optional<RunItem> RunInTurn::settleLast() {
    if (unsettled_.empty()) return {};
    std::vector<RunItem> items = std::exchange(unsettled_, {});
    const std::optional<RunItem> failed = settle(items);
    std::ranges::move(items, std::back_inserter(report_.items));
    return failed;
}

void RunInTurn::takeNext(Group& group) {
    const qsizetype place = progress_.done;
    try {
        const Taken taken = take(place);
        if (taken.fate == Fate::left) return;
        group.stored.push_back({place, names_[place], taken.fate, taken.reason, taken.file});
        progress_.bytes += taken.bytes;
    } catch (const std::exception& failure) {
        group.failed = RunItem{place, names_[place], Fate::failed, reasonOf(failure)};
    }
    pass(place);
}

/// The run is through with a thing.
void RunInTurn::pass(qsizetype place) {
    progress_.percent = percentWith(place);
    progress_.done = place + 1;
    goesOn();
}

bool RunInTurn::goesOn() {
    if (!report_.stopped && !watch_->progress(progress_)) {
        report_.stopped = true;
        end_ = progress_.done;
    }
    return !report_.stopped;
}

bool RunInTurn::isFull(const Group& group) const {
    return group.failed || progress_.done >= end_ || progress_.done <= singlyUpTo_ ||
           progress_.bytes - group.start.bytes >= groupBytes_ || group.stored.size() >= mostThings ||
           group.time.hasExpired(mostMs) || !isAtHand(progress_.done);
}

/// The next group is as large as this disk allows.
void RunInTurn::close(const Group& group) {
    const qint64 bytes = progress_.bytes - group.start.bytes;
    if (bytes == 0) return;
    groupBytes_ = std::clamp(bytes * wholeMs / std::max(group.time.elapsed(), qint64(1)), fewestBytes, mostBytes_);
}

/// Goes back to the beginning of a group that was lost. A thing that was alone in it has failed.
void RunInTurn::lose(Group& group, const QString& reason) {
    const qsizetype end = progress_.done;
    const qsizetype start = group.start.done;
    progress_ = group.start;
    group.stored.clear();
    if (end - start > 1) {
        group.failed.reset();
        singlyUpTo_ = end;
        return;
    }
    if (!group.failed) group.failed = RunItem{start, names_[start], Fate::failed, reason};
    if (end == start)
        pass(start);
    else
        progress_.done = end;
}

/// Nobody is asked any more when the run has ended. While somebody thinks about the answer he may stop the run, too.
void RunInTurn::askAbout(const std::optional<RunItem>& failed) {
    if (!failed || passesOver_ || report_.stopped || !report_.failure.isEmpty()) return;
    passesOver_ = watch_->passesOver(*failed);
    if (passesOver_) {
        goesOn();
        return;
    }
    report_.failure = failed->reason;
    end_ = progress_.done;
}
