#include "catalogue/remembered.h"
#include "platform/base/files.h"
#include "platform/desktop/theme.h"
#include "viewer/title_box.h"
#include "viewer_window.h"

using namespace Qt::Literals::StringLiterals;

class TestFrame : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void cleanup() { QDir::setCurrent(QDir::rootPath()); }

    void comesUpWithTheCover() {
        const ViewerWindow viewer([] {
            changeRow(u"SELECT * FROM tcys WHERE 序号 = '0'"_s, {{u"窗体"_s, u"&H00C0F0FF&"_s}});
        });
        QCOMPARE(viewer.window->windowTitle(), u" 览忆集苑"_s);
        QCOMPARE(viewer.text(u"txtWd"_s), u" 览忆集苑"_s);
        QCOMPARE(viewer.panel(1), u"览忆集苑"_s);
        QCOMPARE(viewer.panel(2), u"演示(tc00) 共 3 张"_s);
        QCOMPARE(viewer.panel(3), u"全部"_s);
        QVERIFY(viewer.panel(4).contains(u" 周"_s));
        QCOMPARE(viewer.text(u"txtYh"_s), u"0"_s);
        QVERIFY(viewer.shows(u"pic0"_s) && !viewer.shows(u"imgXs(0)"_s));
        QVERIFY(viewer.menu(u"mnuTg"_s)->isEnabled() && viewer.menu(u"mnuCd(0)"_s)->isChecked());
        QCOMPARE(viewer.menu(u"mnuCd(2)"_s)->text(), u"空册"_s);
        QCOMPARE(viewer.window->palette().color(QPalette::Window), QColor(0xff, 0xf0, 0xc0));
        QCOMPARE(viewer.find<ShapeBox>(u"shpAb"_s)->fillColor(), QColor(0xe0, 0xe0, 0xe0));
        QVERIFY(viewer.boxes.isEmpty());
    }

    void lastAlbumComesBack() {
        // An album, never any, closed at exit, dropped since.
        for (const auto& [stored, table] : {std::pair(FieldValue(u"01"_s), u"tc01"_s),
                                            {FieldValue(), u"tc00"_s},
                                            {FieldValue(u""_s), u"tc00"_s},
                                            {FieldValue(u"77"_s), u"tc00"_s}}) {
            const ViewerWindow viewer([&last = stored] { ViewerWindow::setSetting(u"当前像册"_s, last); });
            QCOMPARE(mekTp::currentTable, table);
        }
    }

    void missingCatalogueIsSilent() {
        const ViewerWindow viewer([] {
            mekTp::catalogue = {};
            Kill(mekTp::cataloguePath());
        });
        for (const QString& key : {u"xs"_s, u"hd"_s, u"rq"_s}) viewer.press(key);
        viewer.window->resize(1000, 760);
        QVERIFY(viewer.boxes.isEmpty());
        QCOMPARE(viewer.menu(u"mnuCd(0)"_s)->text(), u"演示"_s);
        QCOMPARE(viewer.window->windowTitle(), u" 览忆集苑（电子像册）"_s);
    }

    void emptyScreenPicturesAreFilled() {
        const ViewerWindow viewer([] {
            mekTp::catalogue.Execute(u"DELETE FROM [pmtp]"_s);
            for (int i = 17; i <= 19; ++i)
                addRow(u"tc00"_s,
                       {{u"序号"_s, i}, {u"规格"_s, u"8 * 6"_s}, {u"图片"_s, pictureBytes({8, 6}, Qt::red)}});
        });
        QCOMPARE(mekTp::catalogue.OpenRecordset(u"pmtp"_s).rowCount(), 3);
        const QString last = u"SELECT * FROM pmtp ORDER BY [序号] DESC"_s;
        QCOMPARE(fieldOf(last, u"序号"_s), FieldValue(3));
        QVERIFY(!fieldOf(last, u"图片"_s).toBytes().isEmpty());
    }

    void fullScreenIsStoredAndLeft() {
        const ViewerWindow viewer([] { ViewerWindow::setSetting(u"全屏显示"_s, true); });
        const QRect screen = viewer.window->screen()->geometry();
        QCOMPARE(viewer.window->geometry(), screen);
        auto* fullScreen = viewer.find<QCheckBox>(u"chkBq(1)"_s);
        QVERIFY(fullScreen->isChecked());
        viewer.click(u"chkBq(1)"_s);
        QCOMPARE(ViewerWindow::setting(u"全屏显示"_s), FieldValue(false));
        QVERIFY(!viewer.window->isFullScreen());
        const QSize free = viewer.window->screen()->availableSize();
        const int width = std::min(920, free.width());
        const QSize windowed(width, std::min(width / 4 * 3, free.height()));
        QCOMPARE(viewer.window->geometry(), QRect(screen.topLeft() + QPoint((screen.width() - windowed.width()) / 2,
                                                                            (screen.height() - windowed.height()) / 2),
                                                  windowed));
        viewer.click(u"chkBq(1)"_s);
        QCOMPARE(ViewerWindow::setting(u"全屏显示"_s), FieldValue(true));
        QCOMPARE(viewer.window->geometry(), screen);
    }

    void longTitlesShowTheirBeginning() {
        const QString title = u"一二三四五六七八九十一二三四五六七八九十一二三四五六七八九十"_s;
        const ViewerWindow viewer([&] { ViewerWindow::setSetting(u"像册标题"_s, title.left(20)); });
        viewer.window->resize(800, 600);
        const auto shown = [&] { return viewer.find(u"txtWd"_s)->grab().toImage(); };
        viewer.box(u"txtWd"_s)->setText(u' ' + title);
        QCOMPARE(viewer.box(u"txtWd"_s)->cursorPosition(), 0);
        const QImage beginning = shown();
        viewer.box(u"txtWd"_s)->setText(u' ' + title.left(20) + u"甲乙丙丁戊己庚辛壬癸"_s);
        QCOMPARE(shown(), beginning);
    }

    void theTitleIsReadableInEverySecond() {
        TitleBox title;
        title.resize(150, 20);
        title.setText(u" 览忆集苑"_s);
        for (int second = 0; second < 10; ++second) {
            const TitleColours colours = titleColours(QTime(0, 0, second));
            title.setColours(colours);
            const QImage shown = title.grab().toImage();
            int letters = 0, readable = 0;
            for (int y = 0; y < shown.height(); ++y)
                for (int x = 0; x < shown.width(); ++x) {
                    letters += shown.pixelColor(x, y) == colours.text;
                    readable += theme::contrast(shown.pixelColor(x, y), colours.ground) >= theme::textContrast;
                }
            QVERIFY2(letters > 10 && readable > 100, qPrintable(u"%1 %2"_s.arg(letters).arg(readable)));
        }
    }

    void theTitleCanBeKeptStill() {
        const auto isStill = [](const ViewerWindow& viewer) { return viewer.menu(u"mnuBs"_s)->isChecked(); };
        ViewerWindow viewer;
        QVERIFY(!isStill(viewer));
        QTest::keyClick(viewer.window.get(), Qt::Key_T, Qt::ControlModifier);
        QVERIFY(isStill(viewer) && remembered::flag(u"viewer.stillTitle"_s));
        QCOMPARE(viewer.find(u"txtWd"_s)->grab().toImage().pixelColor(6, 6), stillTitleColours().ground);
    }

    // The line of a long album takes the room that the page line leaves, and its title makes way for the count.
    void albumLineKeepsItsCount() {
        const ViewerWindow viewer([] {
            changeRow(u"SELECT * FROM tcbm WHERE 表名 = 'tc01'"_s, {{u"标题"_s, QString(16, u'长')}});
        });
        viewer.window->setMinimumSize(0, 0);
        viewer.openAlbum(1);
        const auto* line = viewer.find<QLabel>(u"sta1:2"_s);
        const auto* page = viewer.find<QLabel>(u"sta1:3"_s);
        QCOMPARE(line->text(), QString(16, u'长') + u"(tc01) 共 10 张"_s);
        const auto isWhole = [](const QLabel* label) {
            return label->fontMetrics().horizontalAdvance(label->text()) <= label->contentsRect().width();
        };
        QVERIFY(isWhole(line));
        QCOMPARE(line->toolTip(), QString());
        viewer.window->resize(800, 560);
        viewer.chooseButton(1);
        QVERIFY(isWhole(page));
        while (isWhole(line)) viewer.window->resize(viewer.window->width() - 10, 560);
        QCOMPARE(line->toolTip(), line->text());
    }

    void coloursAreChangedInTheStandingWindow() {
        const ViewerWindow viewer([] {
            changeRow(u"SELECT * FROM tcys WHERE 序号 = '4'"_s, {{u"窗体"_s, u"&H00302010&"_s}});
        });
        const auto ground = [&] { return viewer.find(u"pic1"_s)->palette().color(QPalette::Window); };
        const auto icon = [&] { return viewer.key(u"bj"_s)->icon().pixmap(24).toImage(); };
        const QImage light = icon();
        ViewerWindow::setSetting(u"颜色"_s, u"4"_s);
        viewer.window->applyColours();
        QCOMPARE(ground(), QColor(0x10, 0x20, 0x30));
        ViewerWindow::setSetting(u"颜色"_s, u"3"_s);
        viewer.window->applyColours();
        QCOMPARE(ground(), QColor(0xff, 0xf0, 0xc3));
        QCOMPARE(icon(), light);
    }

    /// Colours on trial end with the window, and those that the scheme does not name are the usual ones again.
    void coloursOnTrialEnd() {
        for (const bool leaves : {false, true}) {
            const ViewerWindow viewer([] {
                const FieldValue none;
                changeRow(u"SELECT * FROM tcys WHERE 序号 = '5'"_s,
                          {{u"窗体"_s, none}, {u"外框"_s, none}, {u"填充"_s, none}, {u"内框"_s, none}});
                ViewerWindow::setSetting(u"颜色"_s, u"5"_s);
            });
            viewer.window->windowsBeside(false, true);
            viewer.window->wear({QColor(20, 30, 40), Qt::red, Qt::green, Qt::blue});
            QVERIFY(theme::worn() != theme::light());
            if (leaves)
                viewer.press(u"bj"_s);
            else
                viewer.window->applyColours();
            QVERIFY(theme::worn() == theme::light());
            QCOMPARE(viewer.find(u"pic1"_s)->palette().color(QPalette::Window), theme::light().window);
            for (const QString& frame : {u"shpAb"_s, u"shpA1"_s})
                QCOMPARE(viewer.find<ShapeBox>(frame)->borderColor(), QColor(Qt::black));
            QVERIFY(!viewer.find<ShapeBox>(u"shpAb"_s)->fillColor().isValid());
        }
    }

    void resizeFollowsTheRules() {
        const ViewerWindow viewer;
        viewer.window->setMinimumSize(0, 0);
        viewer.window->resize(900, 700);
        QCOMPARE(viewer.find(u"pic1"_s)->geometry(), rectFromTwips(1950, 510, 13500 - 2160, 10500 - 1590));
        QCOMPARE(viewer.find(u"pic0"_s)->geometry(), viewer.find(u"pic1"_s)->geometry());
        QCOMPARE(viewer.image(u"img0"_s)->size(), viewer.find(u"pic0"_s)->size());
        QCOMPARE(topOf(viewer.find(u"shpA1"_s)), 570);
        QCOMPARE(viewer.find<LineBox>(u"lin4"_s)->x1(), 13500 - 190);
    }

    void otherWindows() {
        ViewerWindow viewer;
        viewer.press(u"bj"_s);
        viewer.menu(u"mnuSz"_s)->trigger();
        QCOMPARE(viewer.windows.handedTo, (QList{WindowKind::settings, WindowKind::settings}));
        viewer.menu(u"mnuGy"_s)->trigger();
        QCOMPARE(viewer.windows.shown, QList{WindowKind::about});
        viewer.press(u"gb"_s);
        QVERIFY(!viewer.window->isVisible());
    }

    void helpAndColoursToggle() {
        ViewerWindow viewer;
        viewer.press(u"bz"_s);
        viewer.window->windowsBeside(true, false);
        QCOMPARE(viewer.menu(u"mnuBz"_s)->text(), u"帮助关闭(B)"_s);
        QCOMPARE(viewer.keyImage(u"bz"_s), u"bg"_s);
        QTest::keyClick(viewer.window.get(), Qt::Key_B, Qt::AltModifier);
        viewer.window->windowsBeside(false, false);
        QCOMPARE(viewer.key(u"bz"_s)->toolTip(), u"帮助"_s);
        auto* colours = viewer.menu(u"mnuCs"_s);
        colours->trigger();
        viewer.window->windowsBeside(false, true);
        QCOMPARE(colours->text(), u"配色关闭(&C)"_s);
        colours->trigger();
        QCOMPARE(viewer.windows.shown, (QList{WindowKind::help, WindowKind::colours}));
        QCOMPARE(viewer.windows.unloaded, (QList{WindowKind::help, WindowKind::colours}));
    }
};

const Registered<TestFrame> registered;

#include "frame_test.moc"
