#include "start/conversion_window.h"

#include "catalogue/conversion/conversion.h"
#include "platform/desktop/placing.h"
#include "settings/frame/run_words.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QFileInfo>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <memory>

using namespace Qt::Literals::StringLiterals;

/// Lives in the thread of the work. A failure of the new file ends the conversion: nothing is asked.
class ConversionWindow::Watch : public RunWatch {
  public:
    explicit Watch(ConversionWindow& window) : window_(window) { time_.start(); }

    bool progress(const RunProgress& progress) override {
        const QString text = progressText(progress, time_.elapsed());
        window_.work_.show(
            [window = &window_, percent = progress.percent, text] { window->showProgress(percent, text); });
        return !window_.work_.isToStop();
    }

  private:
    ConversionWindow& window_;
    QElapsedTimer time_;
};

ConversionWindow::ConversionWindow(const ConversionFiles& files, const QString& fresh)
    : files_(files),
      fresh_(fresh),
      lblZh(make<QLabel>(this, u"lblZh"_s, u"正在转换旧像册“%1”。原来的文件不会改动。"_s.arg(files.old()))),
      prg4(make<QProgressBar>(this, u"prg4"_s)),
      lblJd(make<QLabel>(this, u"lblJd"_s, u"正在读取…"_s)),
      cmdTz(make<QPushButton>(this, u"cmdTz"_s, u"停 止"_s)),
      work_(this, cmdTz) {
    constexpr int width = 480;
    setObjectName(u"frmZh"_s);
    setWindowTitle(u" 转换旧像册"_s);
    lblZh->setTextFormat(Qt::PlainText);
    lblZh->setWordWrap(true);
    prg4->setRange(0, 0);
    cmdTz->setToolTip(u"停止转换（Esc）：旧像册还是原来的样子"_s);
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

RunReport ConversionWindow::convert() {
    auto report = std::make_shared<RunReport>();
    QEventLoop waiting;
    show();
    work_.start(
        [this, report] {
            try {
                Watch watch(*this);
                *report = convertCatalogue({files_.old(), fresh_, files_.half()}, watch);
            } catch (const std::exception& failure) {
                *report = {.failure = reasonOf(failure)};
            }
        },
        [&waiting] { waiting.quit(); });
    waiting.exec();
    hide();
    return *report;
}

void ConversionWindow::reject() {
    work_.stop();
}

void ConversionWindow::showProgress(int percent, const QString& text) {
    if (work_.isToStop()) return;
    prg4->setRange(0, 100);
    prg4->setValue(percent);
    lblJd->setText(text);
}
