#pragma once

#include "platform/desktop/busy.h"
#include "platform/desktop/growing.h"
#include "platform/desktop/long_work.h"
#include "settings/frame/run_words.h"

#include <QPointer>
#include <QRect>
#include <QTimer>
#include <functional>
#include <optional>

class ElidedLabel;
class QProgressBar;
class QPushButton;
class TabControl;

/// Everything of a run that a person sees: the bar, a line below the pages that tells how far it has come and then what
/// it has done, the button that stops it, the question at its first failure, and its report. The run itself is done in
/// a thread, with a database that it opens there; meanwhile the window reads nothing.
class RunBar : public QObject {
    Q_OBJECT

  public:
    /// Called in the thread. What it throws becomes the failure of a report that names nothing.
    using Run = std::function<RunReport(RunWatch&)>;
    /// Called in the window, as a handler, when the run is over.
    using After = std::function<void(const RunReport&)>;
    /// Where the bar stands, in twips of the tab control.
    struct Place {
        QRect at;
        std::optional<int> page = {};  ///< None: in the strip of captions.
        QProgressBar* bar = nullptr;   ///< A page's own; none: prg2.
        Growth growth = {};
    };

    RunBar(QWidget* form, TabControl* sstFz);

    /// Begins a run. The handler that has called it has nothing more to do: the rest is up to `after`.
    void start(const Place& place, const RunWords& words, Run run, After after);
    /// The same for a run that puts nothing into the catalogue.
    void startReading(const Place& place, const RunWords& words, Run run, After after);
    /// A run that is a step of something longer, which is told of when all of it is over: the line and the stop button
    /// are there only when it takes longer than a moment, and its outcome is not told.
    void startStep(const RunWords& words, Run run, After after);
    bool isAtWork() const { return work_.isAtWork(); }

    /// Tells the outcome in the line, and what became of each thing unless all is as expected. `retry` tries those at
    /// some places again; none: they cannot be tried again.
    using Retry = std::function<void(const QList<qsizetype>& places)>;
    void tellReport(const RunReport& report, const RunWords& words, const Retry& retry);

    /// A button that asks whether to leave: it can be pressed during a run.
    void leaveFree(QPushButton* button) { work_.leaveFree(button); }
    /// Asks whether the run that is at work is to be stopped. If so, `leave` is called when its report is closed.
    void askToLeave(std::function<void()> leave);

    /// Before pictures are put into the catalogue: there should be room for them. `start` does it.
    void makeRoom() const;
    /// Called for that, as a part of the handler that puts them in. Not set: nothing.
    std::function<void()> beforeRun;

  Q_SIGNALS:
    void begun();
    void ended();  ///< Before `After` is called.

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    class Watch;

    void launch(const RunWords& words, Run run, After after);
    void placeBar(const Place& place);
    void showControls();
    void begin();
    void end();
    void finish(const RunReport& report, const After& after);
    void setStopping();
    void showProgress(int percent, const QString& text);
    void setLine(const QString& text);
    void keepOutcome(const QString& text);
    void leaveIfWanted();

    QWidget* form_;
    TabControl* sstFz_;
    QProgressBar* prg2;  ///< The bar.
    ElidedLabel* lblJd;  ///< How far the run has come; what it has done, until the next action.
    QPushButton* cmdTz;  ///< Stops the run.
    QProgressBar* bar_;  ///< That of the present run.
    RunWords words_;
    bool stopping_ = false;
    bool isStep_ = false;
    QTimer longStep_;  ///< Until the controls are shown for a step.
    std::optional<Hourglass> hourglass_;
    QPointer<QWidget> report_;  ///< The window of the last report.
    std::function<void()> leave_;
    LongWork work_;  ///< Last: it waits for the run before the rest goes.
};
