#include "catalogue/runs/run_in_turn.h"

RunReport RunInTurn::run(RunWatch& watch) {
    RunReport report;
    RunProgress progress{.all = names_.size()};
    try {
        open();
        bool goesOn = true;
        while (goesOn && progress.done < names_.size()) {
            progress.bytes += takeNext(report, progress.done++);
            progress.percent = percentWith(progress.done - 1);
            goesOn = watch.progress(progress);
        }
    } catch (const std::exception& failure) {
        report.failure = reasonOf(failure);
    }
    report.close(names_, progress.done);
    return report;
}

/// Returns the bytes of the picture.
qint64 RunInTurn::takeNext(RunReport& report, qsizetype place) {
    try {
        const Taken taken = take(place);
        report.items.push_back({place, names_[place], taken.fate});
        return taken.bytes;
    } catch (const std::exception& failure) {
        report.items.push_back({place, names_[place], Fate::failed, reasonOf(failure)});
        throw;
    }
}
