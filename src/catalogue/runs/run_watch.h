#pragma once

#include <QtGlobal>

struct RunItem;

/// How far a run has come.
struct RunProgress {
    int percent = 0;     ///< As a progress bar shows it; each run has its own measure.
    qsizetype done = 0;  ///< Files or records that the run is through with.
    qsizetype all = 0;   ///< Those that it was given.
    qint64 bytes = 0;    ///< Of the pictures that it has moved so far.
};

/// Who watches a run. It is called in the thread of the run; this one watches nothing.
class RunWatch {
  public:
    RunWatch() = default;
    virtual ~RunWatch() = default;
    RunWatch(const RunWatch&) = delete;
    RunWatch& operator=(const RunWatch&) = delete;

    /// Called after each file or record. False ends the run there; what is done stays done.
    virtual bool progress(const RunProgress&) { return true; }
    /// Called at the first failure of a run. True passes over what failed, and over all failures that follow; false
    /// ends the run there. Nothing is open in the catalogue meanwhile: the answer may take as long as a person needs.
    virtual bool passesOver(const RunItem&) { return false; }
};
