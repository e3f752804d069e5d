#include "help/rich_text_box.h"
#include "platform/desktop/tool_bar.h"
#include "program_tour.h"

using namespace Qt::Literals::StringLiterals;

/// How windows open, which of them can be open together, and how the last one closes.
class TestWindows : public QObject {
    Q_OBJECT

    std::unique_ptr<ProgramTour> tour_;

    static constexpr auto window = &ProgramTour::window;
    static constexpr auto click = &ProgramTour::click;

    static QString helpKey() {
        auto* bar = ProgramTour::find<ToolBar>(u"frmTp"_s, u"tlb1"_s);
        const auto* item = ProgramTour::find<QAction>(u"frmTp"_s, u"mnuBz"_s);
        return bar->image(u"bz"_s) + u'|' + bar->button(u"bz"_s)->toolTip() + u'|' + item->text();
    }

  private Q_SLOTS:
    void init() {
        tour_ = std::make_unique<ProgramTour>();
        tour_->start();
    }
    void cleanup() { tour_.reset(); }

    void theMainWindowOffersWhatIsLeftToDo() {
        const QString offersHelp = u"bz|帮助|帮助(B)"_s;
        const QString offersClosing = u"bg|帮助关闭|帮助关闭(B)"_s;
        for (int way = 0; way < 3; ++way) {
            click(u"frmTp"_s, u"tlb1:bz"_s);
            QVERIFY(window(u"frmBz"_s));
            QCOMPARE(helpKey(), offersClosing);
            if (way == 0) click(u"frmTp"_s, u"tlb1:bz"_s);
            if (way == 1) window(u"frmBz"_s)->close();
            if (way == 2) click(u"frmBz"_s, u"imgFh"_s);
            QVERIFY(!window(u"frmBz"_s) && window(u"frmTp"_s));
            QCOMPARE(helpKey(), offersHelp);
        }
    }

    /// In its middle, as far as it is whole on the screen there.
    void aWindowComesWhereTheOneBeforeWas() {
        const auto middle = [](const QString& name) { return window(name)->frameGeometry().center(); };
        const QRect screen = window(u"frmTp"_s)->screen()->availableGeometry();
        const QPoint before = middle(u"frmTp"_s);
        tour_->leave(u"frmTp"_s, u"tlb1:bj"_s, u"frmSz"_s);
        QVERIFY((middle(u"frmSz"_s) - before).manhattanLength() <= 2);
        window(u"frmSz"_s)->move(screen.topLeft() + QPoint(40, 30));
        const QPoint moved = middle(u"frmSz"_s);
        tour_->leave(u"frmSz"_s, u"cmdFh"_s, u"frmTp"_s);
        const QRect back = window(u"frmTp"_s)->frameGeometry();
        // Its smallest width may be that of the screen.
        QVERIFY(screen.contains(back.topLeft()) && back.bottom() <= screen.bottom());
        QVERIFY(qAbs(back.center().x() - moved.x()) <= 2 || back.left() == screen.left());
        QVERIFY(qAbs(back.center().y() - moved.y()) <= 2 || back.top() == screen.top());
    }

    void helpOutlivesTheWindowThatAskedForIt() {
        tour_->leave(u"frmTp"_s, u"tlb1:bj"_s, u"frmSz"_s);
        click(u"frmSz"_s, u"cmdBz"_s);
        QTRY_VERIFY(window(u"frmBz"_s));
        const auto* text = found<RichTextBox>(window(u"frmBz"_s), u"rtfBz"_s);
        QVERIFY(text->textCursor().block().text().contains(u"3 软件的使用"));

        tour_->leave(u"frmSz"_s, u"cmdFh"_s, u"frmTp"_s);
        QVERIFY(window(u"frmBz"_s));
        QVERIFY(helpKey().startsWith(u"bg|"));
        click(u"frmTp"_s, u"tlb1:bz"_s);
        QVERIFY(!window(u"frmBz"_s));
    }

    /// Work in the settings window is not left behind by the way back from the manual.
    void theWayBackLeadsToTheWindowAtWork() {
        tour_->leave(u"frmTp"_s, u"tlb1:bj"_s, u"frmSz"_s);
        click(u"frmSz"_s, u"cmdBz"_s);
        click(u"frmBz"_s, u"imgFh"_s);
        QVERIFY(window(u"frmSz"_s) && !window(u"frmBz"_s) && !window(u"frmTp"_s));
    }

    void theMainWindowWearsNewColoursAtOnce() {
        const auto ground = [] { return window(u"frmTp"_s)->palette().color(QPalette::Window); };
        const QColor before = ground();
        tour_->trigger(u"frmTp"_s, u"mnuCs"_s);
        const auto choose = [] { QTest::keyClick(ProgramTour::find<QComboBox>(u"frmPs"_s, u"cboFa"_s), Qt::Key_End); };
        QCOMPARE(ground(), before);
        choose();
        QVERIFY(ground() != before);
        tour_->trigger(u"frmTp"_s, u"mnuCs"_s);  // takes the colour window away
        QVERIFY(!window(u"frmPs"_s));
        QCOMPARE(ground(), before);
        tour_->trigger(u"frmTp"_s, u"mnuCs"_s);
        choose();
        click(u"frmPs"_s, u"cmdQd"_s);
        QVERIFY(ground() != before);
        QVERIFY(window(u"frmTp"_s) && !window(u"frmPs"_s));
    }

    void aMinimisedWindowComesBack() {
        tour_->trigger(u"frmTp"_s, u"mnuGy"_s);
        QWidget* about = window(u"frmGy"_s);
        about->showMinimized();
        tour_->trigger(u"frmTp"_s, u"mnuGy"_s);
        QCOMPARE(window(u"frmGy"_s), about);
        QVERIFY(!about->isMinimized());
    }

    void theLastWindowEndsTheProgram_data() {
        QTest::addColumn<QString>("way");
        for (const char* way : {"cmdQd", "cmdQx", "Escape", "frame"}) QTest::newRow(way) << QString::fromLatin1(way);
    }

    /// The main window was closed while the colour window was open.
    void theLastWindowEndsTheProgram() {
        QFETCH(QString, way);
        constexpr int stillRunning = 7;
        tour_->trigger(u"frmTp"_s, u"mnuCs"_s);
        QTimer::singleShot(0, [&] {
            window(u"frmTp"_s)->close();
            QWidget* colours = window(u"frmPs"_s);
            if (way == u"Escape")
                QTest::keyClick(colours, Qt::Key_Escape);
            else if (way == u"frame")
                colours->close();
            else
                click(u"frmPs"_s, way);
        });
        QTimer patience;
        connect(&patience, &QTimer::timeout, [] { QCoreApplication::exit(stillRunning); });
        patience.start(5000);
        QCOMPARE(QApplication::exec(), 0);
    }

    /// Only with the last one: whoever hands over is not left without a program.
    void otherWindowsKeepTheProgram() {
        constexpr int stillRunning = 7;
        QTimer::singleShot(0, [&] {
            tour_->trigger(u"frmTp"_s, u"mnuCs"_s);
            click(u"frmPs"_s, u"cmdQx"_s);
            click(u"frmTp"_s, u"tlb1:bj"_s);
            click(u"frmSz"_s, u"cmdFh"_s);
            click(u"frmTp"_s, u"tlb1:bz"_s);
            window(u"frmTp"_s)->close();
            click(u"frmBz"_s, u"imgFh"_s);
            QTimer::singleShot(0, [] { QCoreApplication::exit(stillRunning); });
        });
        QCOMPARE(QApplication::exec(), stillRunning);
        QVERIFY(window(u"frmTp"_s));
    }
};

const Registered<TestWindows> registered;

#include "windows_test.moc"
