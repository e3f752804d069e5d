#pragma once

#include "catalogue/runs/run_report.h"
#include "catalogue/runs/run_watch.h"

#include <QRect>
#include <functional>

class QProgressBar;
class TabControl;

/// The progress bar prg2: it is to be seen as long as a run lasts.
class RunBar {
  public:
    using Run = std::function<RunReport(RunWatch&)>;

    explicit RunBar(TabControl* sstFz);

    /// Runs while the bar stands on a page, in twips of the tab control.
    RunReport during(int page, const QRect& place, const Run& run);
    /// Runs while it stands in the strip of captions.
    RunReport during(const QRect& place, const Run& run);

  private:
    TabControl* sstFz_;
    QProgressBar* prg2;  ///< The bar.
};
