#pragma once

#include "catalogue/runs/run_report.h"
#include "catalogue/runs/run_watch.h"
#include "platform/desktop/long_work.h"
#include "settings/frame/run_words.h"

#include <QDialog>
#include <functional>

class QLabel;
class QProgressBar;
class QPushButton;

/// The window frmZh, in which a run on a whole catalogue is done while the program has no other window. It shows how
/// far the run is, and closes by itself. Closing it before stops the run.
class RunWindow : public QDialog {
    Q_OBJECT

  public:
    struct Words {
        QString title;
        QString line;  ///< Says what is under way.
        QString stop;  ///< The tool tip of the stop button.
    };
    explicit RunWindow(const Words& words);

    /// Returns when the run is over. A failure of the new file ends it: nothing is asked. What it throws becomes the
    /// failure of the report.
    RunReport run(const std::function<RunReport(RunWatch&)>& work);

    void reject() override;

  private:
    class Watch;

    void showProgress(int percent, const QString& text);

    QLabel* lblZh;       ///< Says what is under way.
    QProgressBar* prg4;  ///< How much of it is done.
    QLabel* lblJd;       ///< The same in numbers.
    QPushButton* cmdTz;  ///< Stops it.
    LongWork work_;      ///< Last: it waits for the work before the rest goes.
};

/// Shows the report of a run, unless all is as expected, and waits until it is read.
void showReport(const RunReport& report, const RunWords& words);
