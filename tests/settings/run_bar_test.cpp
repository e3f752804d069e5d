#include "../support/run_all.h"
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

  private Q_SLOTS:
    void aliveAndLocked() {
        RunForm window;
        for (int number = 11; number <= 60; ++number) {
            Recordset rows = mekTp::catalogue.OpenRecordset(u"tc01"_s);
            rows.AddNew();
            rows.Fields(u"序号"_s).SetValue(number);
            rows.Update();
        }
        window.frame->grid.listAlbum(u"tc01"_s, u"序号"_s);
        const auto* grid = window.find<Grid>(u"msgBm"_s);
        QCOMPARE(grid->cellText(0, 0), u"1"_s);
        QVERIFY(!window.find(u"cmdTz"_s)->isVisible());
        window.start();
        QVERIFY(window.find(u"prg2"_s)->isVisible() && window.find(u"cmdTz"_s)->isVisible());
        // What was read is shown, and nothing else is read.
        QCOMPARE(grid->cellText(0, 0), u"1"_s);
        QCOMPARE(grid->cellText(59, 0), QString());
        window.goOn(1);
        QTRY_COMPARE(window.line(), u"1 / 3 张"_s);
        QCOMPARE(window.find<QProgressBar>(u"prg2"_s)->value(), 33);
        window.click(u"cmdBz"_s);
        QTest::mouseClick(window.frame->sstFz->tabBar(), Qt::LeftButton, {}, QPoint(100, 10));
        QTest::keyClick(window.form.get(), Qt::Key_Tab, Qt::ControlModifier);
        QVERIFY(window.windows.topics.isEmpty() && window.frame->sstFz->currentIndex() == 0);
        window.goOn(2);
        QTRY_VERIFY(window.ended);
        QCOMPARE(grid->cellText(59, 0), u"60"_s);
        QVERIFY(!window.find(u"prg2"_s)->isVisible() && !window.find(u"cmdTz"_s)->isVisible());
        // The outcome stays until the next action.
        QCOMPARE(window.line(), u"已录入 3 张"_s);
        window.click(u"cmdBz"_s);
        QCOMPARE(window.windows.topics.size(), 1);
        QCOMPARE(window.line(), QString());
    }

    /// Only a step that takes long is seen, and its outcome is told by others.
    void aStep() {
        for (const bool isLong : {false, true}) {
            RunForm window;
            window.startStep();
            QVERIFY(!window.find(u"cmdTz"_s)->isVisible());
            if (isLong) QTRY_VERIFY(window.find(u"cmdTz"_s)->isVisible() && !window.find(u"prg2"_s)->isVisible());
            window.goOn(RunForm::things);
            QTRY_VERIFY(window.ended);
            QVERIFY(!window.find(u"cmdTz"_s)->isVisible());
            QCOMPARE(window.line(), QString());
        }
    }

    void stops_data() {
        QTest::addColumn<bool>("byKey");
        QTest::addColumn<int>("before");
        QTest::newRow("click, first one") << false << 0;
        QTest::newRow("Esc, first one") << true << 0;
        QTest::newRow("click, last one") << false << RunForm::things - 1;
        QTest::newRow("Esc, last one") << true << RunForm::things - 1;
    }
    void stops() {
        QFETCH(bool, byKey);
        QFETCH(int, before);
        RunForm window;
        window.start();
        window.goOn(before);
        QTRY_COMPARE(window.line(), before == 0 ? QString() : u"%1 / 3 张"_s.arg(before));
        if (byKey)
            QTest::keyClick(window.form.get(), Qt::Key_Escape);
        else
            window.click(u"cmdTz"_s);
        QCOMPARE(window.line(), u"正在停止…"_s);
        QVERIFY(!window.find(u"cmdTz"_s)->isEnabled());
        window.goOn(1);
        QTRY_VERIFY(window.ended);
        QCOMPARE(int(window.ended->items.size()), before + 1);
        QCOMPARE(window.line(), u"已停止，已录入 %1 张"_s.arg(before + 1));
        // The next run is not stopped.
        window.ended.reset();
        window.start();
        QVERIFY(window.find(u"cmdTz"_s)->isEnabled());
        window.goOn(RunForm::things);
        QTRY_VERIFY(window.ended && !window.ended->stopped);
    }

    void closingAsks_data() {
        QTest::addColumn<QString>("way");
        for (const char* way : {"cmdFh", "cmdGl", "X"}) QTest::newRow(way) << QString::fromLatin1(way);
    }
    void closingAsks() {
        QFETCH(QString, way);
        RunForm window;
        window.start();
        const auto close = [&] {
            if (way == u"X"_s)
                window.form->close();
            else
                window.click(way);
        };
        const auto isLeft = [&] {
            return window.windows.ended || window.windows.handedTo || !window.form->isVisible();
        };
        close();
        QCOMPARE(window.boxes.size(), 1);
        QCOMPARE(window.boxes[0].answers, (QStringList{u"停止并关闭"_s, u"继续"_s}));
        QVERIFY(window.boxes[0].onEnter == 1 && window.boxes[0].onEscape == 1);
        QVERIFY(window.frame->runBar.isAtWork() && window.line() != u"正在停止…"_s);
        window.answerBox = [](const BoxText&) { return 0; };
        close();
        QCOMPARE(window.line(), u"正在停止…"_s);
        QVERIFY(!isLeft());
        window.goOn(1);
        QTRY_VERIFY(isLeft());
        QVERIFY(window.ended && window.ended->stopped);
    }

    /// What follows a run is never done inside the handler that asks about it.
    void theRunEndsBehindTheQuestion() {
        RunForm window;
        window.start();
        window.answerBox = [&](const BoxText&) {
            window.goOn(RunForm::things);
            while (!window.hasEnded) std::this_thread::yield();
            for (int i = 0; i < 10; ++i) QTest::qWait(1);
            return window.ended ? -1 : 0;
        };
        window.click(u"cmdGl"_s);
        QTRY_VERIFY(window.windows.ended);
        QCOMPARE(window.ended->items.size(), std::size_t(RunForm::things));
    }

    void theWindowIsLeftBehindTheReport() {
        RunForm window;
        window.frame->runBar.start(
            {{5000, 50, 2000, 285}}, {u"录入"_s},
            [&](RunWatch& watch) {
                window.steps.acquire();
                return RunReport{.items = {{0, u"1.jpg"_s, Fate::failed, u"坏了"_s}}, .stopped = !watch.progress({})};
            },
            [&](const RunReport& report) { window.frame->runBar.tellReport(report, {u"录入"_s}, {}); });
        window.answerBox = [](const BoxText&) { return 0; };
        window.click(u"cmdGl"_s);
        window.goOn(1);
        const auto report = [&] { return window.form->findChild<QDialog*>(u"frmBg"_s); };
        QTRY_VERIFY(report() != nullptr && report()->isVisible());
        for (int i = 0; i < 10; ++i) QTest::qWait(1);
        QVERIFY(!window.windows.ended);
        QCOMPARE(lastFailures()[0].what, u"1.jpg：坏了"_s);
        QTest::keyClick(report(), Qt::Key_Escape);
        QTRY_VERIFY(window.windows.ended);
    }

    /// No handler runs inside another one.
    void theWindowIsLeftBehindAnErrorBox() {
        RunForm window;
        window.frame->runBar.start(
            {{5000, 50, 2000, 285}}, {u"录入"_s},
            [&](RunWatch&) {
                window.steps.acquire();
                return RunReport();
            },
            [](const RunReport&) { throw Error(u"坏了。"_s); });
        bool wasLeft = false;
        window.answerBox = [&](const BoxText& box) {
            if (box.answers.size() > 1) return 0;
            for (int i = 0; i < 10; ++i) QTest::qWait(1);
            wasLeft = window.windows.ended;
            return 0;
        };
        window.click(u"cmdGl"_s);
        window.goOn(1);
        QTRY_VERIFY(window.windows.ended);
        QVERIFY(!wasLeft);
        QCOMPARE(window.boxes.last().text, u"坏了。"_s);
    }

    void nothingIsAskedAfterTheStop() {
        RunForm window;
        std::optional<bool> passes;
        window.frame->runBar.start(
            {{5000, 50, 2000, 285}}, {u"录入"_s},
            [&](RunWatch& watch) {
                window.steps.acquire();
                passes = watch.passesOver({0, u"1"_s, Fate::failed, u"坏了。"_s});
                return RunReport();
            },
            [&](const RunReport& report) { window.ended = report; });
        window.click(u"cmdTz"_s);
        window.goOn(1);
        QTRY_VERIFY(window.ended);
        QCOMPARE(passes, std::optional(true));
        QVERIFY(window.boxes.isEmpty());
    }

    void aRunThatCannotBegin() {
        RunForm window;
        window.frame->runBar.start(
            {{5000, 50, 2000, 285}}, {u"录入"_s}, [](RunWatch&) -> RunReport { throw Error(u"坏了。"_s); },
            [&](const RunReport& report) { window.ended = report; });
        QTRY_VERIFY(window.ended);
        QCOMPARE(window.ended->failure, u"坏了。"_s);
        QCOMPARE(lastFailures()[0].what, u"坏了。"_s);
        QCOMPARE(window.line(), u"因失败而停止，已录入 0 张"_s);
    }
};

const Registered<TestRunBar> registered;

}  // namespace

#include "run_bar_test.moc"
