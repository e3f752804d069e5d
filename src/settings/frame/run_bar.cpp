#include "settings/frame/run_bar.h"

#include "catalogue/mektp.h"
#include "platform/base/file_lock.h"
#include "platform/desktop/elided_label.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/tab_control.h"
#include "settings/frame/report_window.h"
#include "settings/frame/settings_tab.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QProgressBar>
#include <QPushButton>
#include <QThread>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

// To the left of the buttons below the pages.
constexpr int rowTop = 6855;
constexpr int lineLeft = 120, lineWidth = 4950;
constexpr int momentMs = 200;
constexpr int stopLeft = 5175, stopWidth = 990, stopHeight = 330;

/// A backup waits while the run holds its mark. To see whether there is one it takes it for a moment itself.
void takeMark(FileLock& mark) {
    constexpr int tries = 50, pauseMs = 2;
    const QString path = runMarkOf(mekTp::cataloguePath());
    for (int i = 0; i < tries && mark.take(path) == FileLock::Outcome::heldByAnother; ++i) QThread::msleep(pauseMs);
}

}  // namespace

/// Lives in the thread of the run.
class RunBar::Watch : public RunWatch {
  public:
    Watch(RunBar& bar, const RunWords& words) : bar_(bar), words_(words) { time_.start(); }

    bool progress(const RunProgress& progress) override {
        const QString text = progressText(progress, time_.elapsed() - askedMs_);
        bar_.work_.show([bar = &bar_, percent = progress.percent, text] { bar->showProgress(percent, text); });
        return !bar_.work_.isToStop();
    }

    bool passesOver(const RunItem& failed) override {
        constexpr int stops = 0, passes = 1;
        const qint64 askedAt = time_.elapsed();
        int answer = stops;
        bar_.work_.inWindow([&] {
            // Who has stopped the run already has nothing left to decide.
            if (bar_.work_.isToStop()) {
                answer = passes;
                return;
            }
            answer = choose(bar_.form_, failureQuestion(failed, words_), {u"停止"_s, u"跳过并继续"_s}, stops, stops);
        });
        askedMs_ += time_.elapsed() - askedAt;
        return answer == passes;
    }

  private:
    RunBar& bar_;
    RunWords words_;
    QElapsedTimer time_;
    qint64 askedMs_ = 0;  ///< So long it has waited for an answer.
};

RunBar::RunBar(QWidget* form, TabControl* sstFz)
    : form_(form),
      sstFz_(sstFz),
      prg2(make<QProgressBar>(sstFz->page(editingTab), u"prg2"_s)),
      lblJd(make<ElidedLabel>(form, u"lblJd"_s)),
      cmdTz(make<QPushButton>(form, u"cmdTz"_s, u"停 止"_s)),
      bar_(prg2),
      work_(form, cmdTz) {
    lblJd->setElideMode(Qt::ElideRight);
    // The key that has answered the question before a run, pressed once too often, stops nothing.
    cmdTz->setFocusPolicy(Qt::NoFocus);
    cmdTz->setToolTip(u"做完手上的一张就停止（Esc）"_s);
    place(lblJd, lineLeft, rowTop, lineWidth, stopHeight);
    place(cmdTz, stopLeft, rowTop, stopWidth, stopHeight);
    letGrow(lblJd, widens + movesDown);
    letGrow(cmdTz, movesRight + movesDown);
    prg2->hide();
    cmdTz->hide();
    longStep_.setSingleShot(true);
    longStep_.callOnTimeout(this, &RunBar::showControls);
    connect(&work_, &LongWork::begun, this, &RunBar::begin);
    connect(&work_, &LongWork::stopAsked, this, &RunBar::setStopping);
    connect(&work_, &LongWork::ended, this, &RunBar::end);
    connect(&work_, &LongWork::over, this, &RunBar::leaveIfWanted);
}

void RunBar::start(const Place& place, const RunWords& words, Run run, After after) {
    makeRoom();
    startReading(place, words, std::move(run), std::move(after));
}

void RunBar::makeRoom() const {
    if (beforeRun) beforeRun();
}

void RunBar::startReading(const Place& place, const RunWords& words, Run run, After after) {
    placeBar(place);
    isStep_ = false;
    launch(words, std::move(run), [this, after = std::move(after)](const RunReport& report) { finish(report, after); });
}

void RunBar::startStep(const RunWords& words, Run run, After after) {
    bar_ = prg2;
    isStep_ = true;
    launch(words, std::move(run), std::move(after));
}

void RunBar::launch(const RunWords& words, Run run, After after) {
    words_ = words;
    const auto report = std::make_shared<RunReport>();
    work_.start(
        [this, words, report, run = std::move(run)] {
            Watch watch(*this, words);
            FileLock mark;
            takeMark(mark);
            try {
                *report = run(watch);
            } catch (const std::exception& failure) {
                *report = {.failure = reasonOf(failure)};
            }
        },
        [report, after = std::move(after)] {
            noteFailures(*report);
            after(*report);
        });
}

void RunBar::placeBar(const Place& at) {
    bar_ = at.bar != nullptr ? at.bar : prg2;
    letGrow(bar_, at.growth);
    if (at.page) {
        sstFz_->putOn(*at.page, bar_, at.at.x(), at.at.y(), at.at.width(), at.at.height());
    } else {
        bar_->setParent(sstFz_);
        place(bar_, at.at.x(), at.at.y(), at.at.width(), at.at.height());
    }
    bar_->setRange(0, 100);
    bar_->setValue(0);
}

void RunBar::begin() {
    qApp->removeEventFilter(this);
    stopping_ = false;
    setLine({});
    cmdTz->setEnabled(true);
    if (isStep_)
        longStep_.start(momentMs);
    else
        showControls();
    hourglass_.emplace(form_, Qt::BusyCursor);
    Q_EMIT begun();
}

void RunBar::showControls() {
    for (QWidget* part : {static_cast<QWidget*>(bar_), static_cast<QWidget*>(cmdTz)}) {
        part->setVisible(part == cmdTz || !isStep_);
        part->raise();
    }
}

void RunBar::setStopping() {
    stopping_ = true;
    cmdTz->setEnabled(false);
    setLine(u"正在停止…"_s);
}

void RunBar::showProgress(int percent, const QString& text) {
    if (!isAtWork()) return;
    bar_->setValue(percent);
    if (!stopping_ && !cmdTz->isHidden()) setLine(text);
}

void RunBar::end() {
    longStep_.stop();
    if (isStep_) setLine({});
    bar_->hide();
    cmdTz->hide();
    hourglass_.reset();
    Q_EMIT ended();
}

void RunBar::finish(const RunReport& report, const After& after) {
    keepOutcome(outcomeText(report, words_));
    after(report);
}

/// What does not fit is in the tool tip.
void RunBar::setLine(const QString& text) {
    lblJd->setText(text);
    lblJd->setToolTip(text);
}

/// Until the person does something else in the window.
void RunBar::keepOutcome(const QString& text) {
    setLine(text);
    qApp->installEventFilter(this);
}

bool RunBar::eventFilter(QObject* watched, QEvent* event) {
    const bool isAction = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::KeyPress;
    if (isAction && watched->isWidgetType() && static_cast<QWidget*>(watched)->window() == form_->window()) {
        qApp->removeEventFilter(this);
        setLine({});
    }
    return QObject::eventFilter(watched, event);
}

void RunBar::tellReport(const RunReport& report, const RunWords& words, const Retry& retry) {
    keepOutcome(outcomeText(report, words));
    if (isAsExpected(report)) return;
    auto* window = new ReportWindow(form_, report, words, retry != nullptr);
    report_ = window;
    connect(window, &QObject::destroyed, this, [this] { leaveIfWanted(); });
    connect(window, &ReportWindow::retryAsked, form_, guarded(form_, [this, retry, places = placesToRetry(report)] {
                leave_ = nullptr;
                retry(places);
            }));
    window->show();
}

void RunBar::askToLeave(std::function<void()> leave) {
    constexpr int stops = 0, goesOn = 1;
    const QString question =
        u"正在%1，还没有完成。\n\n要停止并关闭，请按《停止并关闭》，已经%1的保留；否则按《继续》。"_s;
    work_.whileAsking([&] {
        if (choose(form_, question.arg(words_.deed), {u"停止并关闭"_s, u"继续"_s}, goesOn, goesOn) != stops) return;
        leave_ = std::move(leave);
        work_.stop();
    });
}

void RunBar::leaveIfWanted() {
    if (leave_ == nullptr || isAtWork() || (report_ != nullptr && report_->isVisible())) return;
    QMetaObject::invokeMethod(
        form_, [this, leave = std::exchange(leave_, nullptr)] { runHandler(form_, leave); }, Qt::QueuedConnection);
}
