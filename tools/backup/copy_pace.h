#pragma once

#include <QtGlobal>

/// How many pages a step of a copy takes, so that it holds the source for about as long as is fair to a writer.
class CopyPace {
  public:
    int pages() const { return pages_; }

    /// A step took `ms`, and `done` pages of the source are copied by now: not more than before when the source has
    /// changed and the copy begun anew.
    void stepTook(qint64 ms, int done);

  private:
    int pages_ = 256;
    int done_ = 0;
    qint64 fairMs_ = 200;
};
