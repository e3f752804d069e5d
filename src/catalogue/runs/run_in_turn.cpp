#include "catalogue/runs/run_in_turn.h"

#include <QElapsedTimer>

/// What shares one change of the target.
struct RunInTurn::Group {
    explicit Group(const RunProgress& before) : start(before) { time.start(); }

    RunProgress start;
    std::vector<RunItem> stored = {};
    std::optional<RunItem> failed = {};  ///< It ends the group.
    QElapsedTimer time;
};

namespace {
constexpr qint64 groupBytes = 32 << 20;
constexpr std::size_t groupThings = 128;
constexpr qint64 groupMs = 400;
}  // namespace

RunReport RunInTurn::run(RunWatch& watch) {
    progress_.all = names_.size();
    try {
        open();
        while (goesOn_ && progress_.done < names_.size()) takeGroup(watch);
    } catch (const std::exception& failure) {
        report_.failure = reasonOf(failure);
    }
    report_.close(names_, progress_.done);
    return std::move(report_);
}

void RunInTurn::takeGroup(RunWatch& watch) {
    Group group(progress_);
    bool isLost = false;
    try {
        beginGroup();
        do takeNext(group, watch);
        while (!isFull(group));
        if (!group.stored.empty()) storeGroup();
    } catch (const std::exception& failure) {
        lose(group, reasonOf(failure));
        isLost = true;
    }
    endGroup();
    const auto failedLater = group.stored.empty() ? std::nullopt : finish(group.stored);
    report_.items.insert(report_.items.end(), group.stored.begin(), group.stored.end());
    if (group.failed) report_.items.push_back(*group.failed);
    for (const auto& failed : {failedLater, group.failed})
        if (failed) askAbout(*failed, watch);
    if (isLost && goesOn_) open();
}

void RunInTurn::takeNext(Group& group, RunWatch& watch) {
    const qsizetype place = progress_.done;
    try {
        const Taken taken = take(place);
        group.stored.push_back({place, names_[place], taken.fate, taken.reason, taken.file});
        progress_.bytes += taken.bytes;
    } catch (const std::exception& failure) {
        group.failed = RunItem{place, names_[place], Fate::failed, reasonOf(failure)};
    }
    progress_.percent = percentWith(place);
    ++progress_.done;
    if (!watch.progress(progress_)) {
        goesOn_ = false;
        report_.stopped = true;
    }
}

bool RunInTurn::isFull(const Group& group) const {
    return !goesOn_ || group.failed || progress_.done == names_.size() || progress_.done <= singlyUpTo_ ||
           progress_.bytes - group.start.bytes >= groupBytes || group.stored.size() >= groupThings ||
           group.time.hasExpired(groupMs) || !isAtHand(progress_.done);
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
    progress_.done = start + 1;
}

void RunInTurn::askAbout(const RunItem& failed, RunWatch& watch) {
    passesOver_ = passesOver_ || watch.passesOver(failed);
    if (passesOver_) return;
    report_.failure = failed.reason;
    goesOn_ = false;
}
