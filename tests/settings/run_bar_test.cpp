#include "platform/base/error.h"
#include "platform/desktop/failure_list.h"
#include "settings_window.h"

#include <semaphore>

using namespace Qt::Literals::StringLiterals;

namespace {

struct EmptyPage : SettingsPage {
    PageLayout layout() const override { return {Qt::blue, Qt::green, {200, 400, 4000, 2000}, {}}; }
    void enter() override {}
};

/// The settings window with empty pages, and a run that goes on as far as it is let.
struct RunForm {
    RunForm() {
        chooseInBoxesWith([this](const BoxText& box) {
            boxes << box;
            return answerBox(box);
        });
        form = std::make_unique<frmSz>(windows, [this](const SettingsFrame& lent) {
            frame.emplace(lent);
            FrameContents contents;
            for (int i = 0; i < 4; ++i) contents.pages.push_back(std::make_unique<EmptyPage>());
            return contents;
        });
        form->show();
        form->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(form.get()));
    }
    ~RunForm() {
        steps.release(things);
        form.reset();
        chooseInBoxesWith({});
    }

    void start() { frame->runBar.start({{5000, 50, 2000, 285}}, {u"录入"_s}, run, after); }
    void startStep() { frame->runBar.startStep({u"录入"_s}, run, after); }
    void goOn(int by) { steps.release(by); }
    template <typename Control = QWidget>
    Control* find(const QString& name) const {
        return found<Control>(form.get(), name);
    }
    QString line() const { return find<QLabel>(u"lblJd"_s)->text(); }
    void click(const QString& name) const { QTest::mouseClick(find(name), Qt::LeftButton); }

    static constexpr int things = 3;
    const RunBar::Run run = [this](RunWatch& watch) {
        RunReport report;
        for (qsizetype i = 0; i < things && !report.stopped; ++i) {
            steps.acquire();
            report.items.push_back({i, QString::number(i)});
            report.stopped = !watch.progress({int((i + 1) * 100 / things), i + 1, things, 0});
        }
        hasEnded = true;
        return report;
    };
    const RunBar::After after = [this](const RunReport& report) { ended = report; };
    SampleCatalogue catalogue;
    RecordingWindows windows;
    QList<BoxText> boxes;
    std::function<int(const BoxText&)> answerBox = [](const BoxText& box) { return box.onEnter; };
    std::optional<SettingsFrame> frame;
    std::unique_ptr<frmSz> form;
    std::counting_semaphore<> steps{0};
    std::atomic<bool> hasEnded = false;
    std::optional<RunReport> ended;
};

class TestRunBar : public QObject {
    Q_OBJECT

    std::optional<RunForm> window_;

  private Q_SLOTS:
    void init() { window_.emplace(); }

    void aliveAndLocked() {
        for (int number = 11; number <= 60; ++number) addRow(u"tc01"_s, {{u"序号"_s, number}});
        window_->frame->grid.listAlbum(u"tc01"_s, u"序号"_s);
        const auto* grid = window_->find<Grid>(u"msgBm"_s);
        QCOMPARE(grid->cellText(0, 0), u"1"_s);
        QVERIFY(!window_->find(u"cmdTz"_s)->isVisible());
        window_->start();
        QVERIFY(window_->find(u"prg2"_s)->isVisible() && window_->find(u"cmdTz"_s)->isVisible());
        // What was read is shown, and nothing else is read.
        QCOMPARE(grid->cellText(0, 0), u"1"_s);
        QCOMPARE(grid->cellText(59, 0), QString());
        window_->goOn(1);
        QTRY_COMPARE(window_->line(), u"1 / 3 张"_s);
        QCOMPARE(window_->find<QProgressBar>(u"prg2"_s)->value(), 33);
        window_->click(u"cmdBz"_s);
        QTest::mouseClick(window_->frame->sstFz->tabBar(), Qt::LeftButton, {}, QPoint(100, 10));
        QTest::keyClick(window_->form.get(), Qt::Key_Tab, Qt::ControlModifier);
        QVERIFY(window_->windows.topics.isEmpty() && window_->frame->sstFz->currentIndex() == 0);
        window_->goOn(2);
        QTRY_VERIFY(window_->ended);
        QCOMPARE(grid->cellText(59, 0), u"60"_s);
        QVERIFY(!window_->find(u"prg2"_s)->isVisible() && !window_->find(u"cmdTz"_s)->isVisible());
        // The outcome stays until the next action.
        QCOMPARE(window_->line(), u"已录入 3 张"_s);
        window_->click(u"cmdBz"_s);
        QCOMPARE(window_->windows.topics.size(), 1);
        QCOMPARE(window_->line(), QString());
    }

    /// Only a step that takes long is seen, and its outcome is told by others.
    void aStep() {
        for (const bool isLong : {false, true}) {
            init();
            window_->startStep();
            QVERIFY(!window_->find(u"cmdTz"_s)->isVisible());
            if (isLong) QTRY_VERIFY(window_->find(u"cmdTz"_s)->isVisible() && !window_->find(u"prg2"_s)->isVisible());
            window_->goOn(RunForm::things);
            QTRY_VERIFY(window_->ended);
            QVERIFY(!window_->find(u"cmdTz"_s)->isVisible());
            QCOMPARE(window_->line(), QString());
        }
    }

    void stops() {
        const std::tuple<bool, int> cases[] = {
            {false, 0}, {true, 0}, {false, RunForm::things - 1}, {true, RunForm::things - 1}};
        for (const auto& [byKey, before] : cases) {
            init();
            window_->start();
            window_->goOn(before);
            QTRY_COMPARE(window_->line(), before == 0 ? QString() : u"%1 / 3 张"_s.arg(before));
            if (byKey)
                QTest::keyClick(window_->form.get(), Qt::Key_Escape);
            else
                window_->click(u"cmdTz"_s);
            QCOMPARE(window_->line(), u"正在停止…"_s);
            QVERIFY(!window_->find(u"cmdTz"_s)->isEnabled());
            window_->goOn(1);
            QTRY_VERIFY(window_->ended);
            QCOMPARE(int(window_->ended->items.size()), before + 1);
            QCOMPARE(window_->line(), u"已停止，已录入 %1 张"_s.arg(before + 1));
            // The next run is not stopped.
            window_->ended.reset();
            window_->start();
            QVERIFY(window_->find(u"cmdTz"_s)->isEnabled());
            window_->goOn(RunForm::things);
            QTRY_VERIFY(window_->ended && !window_->ended->stopped);
        }
    }

    void closingAsks_data() {
        QTest::addColumn<QString>("way");
        for (const char* way : {"cmdFh", "cmdGl", "X"}) QTest::newRow(way) << QString::fromLatin1(way);
    }
    void closingAsks() {
        QFETCH(QString, way);
        window_->start();
        const auto close = [&] {
            if (way == u"X"_s)
                window_->form->close();
            else
                window_->click(way);
        };
        const auto isLeft = [&] {
            return window_->windows.ended || !window_->windows.handedTo.isEmpty() || !window_->form->isVisible();
        };
        close();
        QCOMPARE(window_->boxes.size(), 1);
        QCOMPARE(window_->boxes[0].answers, (QStringList{u"停止并关闭"_s, u"继续"_s}));
        QVERIFY(window_->boxes[0].onEnter == 1 && window_->boxes[0].onEscape == 1);
        QVERIFY(window_->frame->runBar.isAtWork() && window_->line() != u"正在停止…"_s);
        window_->answerBox = [](const BoxText&) { return 0; };
        close();
        QCOMPARE(window_->line(), u"正在停止…"_s);
        QVERIFY(!isLeft());
        window_->goOn(1);
        QTRY_VERIFY(isLeft());
        QVERIFY(window_->ended && window_->ended->stopped);
    }

    /// What follows a run is never done inside the handler that asks about it.
    void theRunEndsBehindTheQuestion() {
        window_->start();
        window_->answerBox = [&](const BoxText&) {
            window_->goOn(RunForm::things);
            while (!window_->hasEnded) std::this_thread::yield();
            for (int i = 0; i < 10; ++i) QTest::qWait(1);
            return window_->ended ? -1 : 0;
        };
        window_->click(u"cmdGl"_s);
        QTRY_VERIFY(window_->windows.ended);
        QCOMPARE(window_->ended->items.size(), std::size_t(RunForm::things));
    }

    void theWindowIsLeftBehindTheReport() {
        window_->frame->runBar.start(
            {{5000, 50, 2000, 285}}, {u"录入"_s},
            [&](RunWatch& watch) {
                window_->steps.acquire();
                return RunReport{.items = {{0, u"1.jpg"_s, Fate::failed, u"坏了"_s}}, .stopped = !watch.progress({})};
            },
            [&](const RunReport& report) { window_->frame->runBar.tellReport(report, {u"录入"_s}, {}); });
        window_->answerBox = [](const BoxText&) { return 0; };
        window_->click(u"cmdGl"_s);
        window_->goOn(1);
        const auto report = [&] { return window_->form->findChild<QDialog*>(u"frmBg"_s); };
        QTRY_VERIFY(report() != nullptr && report()->isVisible());
        for (int i = 0; i < 10; ++i) QTest::qWait(1);
        QVERIFY(!window_->windows.ended);
        QCOMPARE(lastFailures()[0].what, u"1.jpg：坏了"_s);
        QTest::keyClick(report(), Qt::Key_Escape);
        QTRY_VERIFY(window_->windows.ended);
    }

    /// No handler runs inside another one.
    void theWindowIsLeftBehindAnErrorBox() {
        window_->frame->runBar.start(
            {{5000, 50, 2000, 285}}, {u"录入"_s},
            [&](RunWatch&) {
                window_->steps.acquire();
                return RunReport();
            },
            [](const RunReport&) { throw Error(u"坏了。"_s); });
        bool wasLeft = false;
        window_->answerBox = [&](const BoxText& box) {
            if (box.answers.size() > 1) return 0;
            for (int i = 0; i < 10; ++i) QTest::qWait(1);
            wasLeft = window_->windows.ended;
            return 0;
        };
        window_->click(u"cmdGl"_s);
        window_->goOn(1);
        QTRY_VERIFY(window_->windows.ended);
        QVERIFY(!wasLeft);
        QCOMPARE(window_->boxes.last().text, u"坏了。"_s);
    }

    void nothingIsAskedAfterTheStop() {
        std::optional<bool> passes;
        window_->frame->runBar.start(
            {{5000, 50, 2000, 285}}, {u"录入"_s},
            [&](RunWatch& watch) {
                window_->steps.acquire();
                passes = watch.passesOver({0, u"1"_s, Fate::failed, u"坏了。"_s});
                return RunReport();
            },
            [&](const RunReport& report) { window_->ended = report; });
        window_->click(u"cmdTz"_s);
        window_->goOn(1);
        QTRY_VERIFY(window_->ended);
        QCOMPARE(passes, std::optional(true));
        QVERIFY(window_->boxes.isEmpty());
    }

    void aRunThatCannotBegin() {
        window_->frame->runBar.start(
            {{5000, 50, 2000, 285}}, {u"录入"_s}, [](RunWatch&) -> RunReport { throw Error(u"坏了。"_s); },
            [&](const RunReport& report) { window_->ended = report; });
        QTRY_VERIFY(window_->ended);
        QCOMPARE(window_->ended->failure, u"坏了。"_s);
        QCOMPARE(lastFailures()[0].what, u"坏了。"_s);
        QCOMPARE(window_->line(), u"因失败而停止，已录入 0 张"_s);
    }
};

const Registered<TestRunBar> registered;

}  // namespace

#include "run_bar_test.moc"
