#pragma once

#include <QtGlobal>

/// How many pages a step of a copy takes, so that it holds the source for about as long as is fair to a writer.
class CopyPace {
  public:
    int pages() const { return static_cast<int>(pages_); }

    /// A step took `ms`, the wait for the disk included, and `done` pages of the source are copied by now: not more
    /// than before when the source has changed and the copy begun anew.
    void stepTook(qint64 ms, int done);

  private:
    qint64 pages_ = 256;
    qint64 mostPages_ = 2048;
    qint64 fairMs_ = 200;
    int done_ = 0;
};
