#pragma once

#include <QtGlobal>

/// How many pages to copy in one step: a step locks the source, and a writer should not have to wait long.
class CopyPace {
  public:
    int pages() const { return int(pages_); }

    /// A step took `ms`, the wait for the disk included, and `done` pages of the source are copied by now: not more
    /// than before when the source has changed and the copy begun anew.
    void stepTook(qint64 ms, int done);

  private:
    qint64 pages_ = 256;
    qint64 mostPages_ = 2048;
    qint64 fairMs_ = 200;
    int done_ = 0;
};
