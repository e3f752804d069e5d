#pragma once

#include "catalogue/runs/run_watch.h"
#include "platform/desktop/busy.h"

#include <QProgressBar>

/// Shows how far a run has come. As long as it lives the bar is to be seen, and the pointer is an hourglass.
class ProgressBarWatch : public RunWatch {
  public:
    explicit ProgressBarWatch(QProgressBar* bar) : bar_(bar) {
        bar_->setRange(0, 100);
        bar_->setValue(0);
        bar_->show();
        bar_->raise();
        bar_->repaint();
    }
    ~ProgressBarWatch() override { bar_->hide(); }

    bool progress(const RunProgress& progress) override {
        if (bar_->value() == progress.percent) return true;
        bar_->setValue(progress.percent);
        bar_->repaint();
        return true;
    }

  private:
    const Hourglass hourglass_;
    QProgressBar* bar_;
};
