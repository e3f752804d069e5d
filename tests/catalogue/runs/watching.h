#pragma once

#include "catalogue/runs/run_watch.h"

#include <QList>

/// Notes what a run tells, and ends it after so many files or records; it never does by itself.
class Watching : public RunWatch {
  public:
    explicit Watching(qsizetype endAfter = -1) : endAfter_(endAfter) {}

    bool progress(const RunProgress& progress) override {
        percents << progress.percent;
        last = progress;
        return progress.done != endAfter_;
    }

    QList<int> percents;
    RunProgress last;

  private:
    qsizetype endAfter_;
};
