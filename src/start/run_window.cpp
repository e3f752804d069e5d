#include "start/run_window.h"

#include "platform/desktop/placing.h"
#include "settings/frame/report_window.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <memory>

using namespace Qt::Literals::StringLiterals;

/// Lives in the thread of the work.
class RunWindow::Watch : public RunWatch {
  public:
    explicit Watch(RunWindow& window) : window_(window) { time_.start(); }

    bool progress(const RunProgress& progress) override {
        const QString text = progressText(progress, time_.elapsed());
        window_.work_.show(
            [window = &window_, percent = progress.percent, text] { window->showProgress(percent, text); });
        return !window_.work_.isToStop();
    }

  private:
    RunWindow& window_;
    QElapsedTimer time_;
};

RunWindow::RunWindow(const Words& words)
    : lblZh(make<QLabel>(this, u"lblZh"_s, words.line)),
      prg4(make<QProgressBar>(this, u"prg4"_s)),
      lblJd(make<QLabel>(this, u"lblJd"_s, u"正在读取…"_s)),
      cmdTz(make<QPushButton>(this, u"cmdTz"_s, u"停 止"_s)),
      work_(this, cmdTz) {
    constexpr int width = 480;
    setObjectName(u"frmZh"_s);
    setWindowTitle(words.title);
    lblZh->setTextFormat(Qt::PlainText);
    lblZh->setWordWrap(true);
    prg4->setRange(0, 0);
    cmdTz->setToolTip(words.stop);
    auto* lines = new QVBoxLayout(this);
    for (QWidget* part : {static_cast<QWidget*>(lblZh), static_cast<QWidget*>(prg4), static_cast<QWidget*>(lblJd)})
        lines->addWidget(part);
    lines->addWidget(cmdTz, 0, Qt::AlignRight);
    setMinimumWidth(width);
    connect(&work_, &LongWork::stopAsked, this, [this] {
        cmdTz->setEnabled(false);
        lblJd->setText(u"正在停止…"_s);
    });
}

RunReport RunWindow::run(const std::function<RunReport(RunWatch&)>& work) {
    auto report = std::make_shared<RunReport>();
    QEventLoop waiting;
    show();
    work_.start(
        [this, report, &work] {
            try {
                Watch watch(*this);
                *report = work(watch);
            } catch (const std::exception& failure) {
                *report = {.failure = reasonOf(failure)};
            }
        },
        [&waiting] { waiting.quit(); });
    waiting.exec();
    hide();
    RunReport things = *report;
    things.failure.clear();  // who has ordered the run tells it
    noteFailures(things);
    return *report;
}

void RunWindow::reject() {
    work_.stop();
}

void RunWindow::showProgress(int percent, const QString& text) {
    if (work_.isToStop()) return;
    prg4->setRange(0, 100);
    prg4->setValue(percent);
    lblJd->setText(text);
}

void showReport(const RunReport& report, const RunWords& words) {
    if (isAsExpected(report)) return;
    auto* window = new ReportWindow(nullptr, report, words, false);
    QEventLoop reading;
    QObject::connect(window, &QObject::destroyed, &reading, &QEventLoop::quit);
    window->show();
    reading.exec();
}
