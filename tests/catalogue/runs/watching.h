#pragma once

#include "catalogue/runs/run_report.h"
#include "catalogue/runs/run_watch.h"

#include <QList>

/// Notes what a run tells, and ends it after so many files or records, or at its first failure.
class Watching : public RunWatch {
  public:
    explicit Watching(qsizetype endAfter = -1) : endAfter_(endAfter) {}

    bool progress(const RunProgress& progress) override {
        percents << progress.percent;
        last = progress;
        return progress.done != endAfter_ || timesMore-- > 0;
    }
    bool passesOver(const RunItem& item) override {
        asked << item.name;
        return passes;
    }

    QList<int> percents;
    RunProgress last;
    QStringList asked;    ///< About these failures.
    bool passes = false;  ///< Over what fails.
    int timesMore = 0;    ///< The run may ask so many times more before it is ended.

  private:
    qsizetype endAfter_;
};
