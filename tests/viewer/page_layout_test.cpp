#include "viewer/page_layout.h"

#include "../support/run_all.h"
#include "viewer/window_layout.h"

#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

class TestPageLayout : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void cells_data() {
        QTest::addColumn<int>("area");
        QTest::addColumn<int>("pictures");
        QTest::addColumn<int>("columns");
        QTest::addColumn<QSize>("cell");
        QTest::newRow("one column, half to even") << 12240 << 1 << 1 << QSize(12110, 9082);
        QTest::newRow("two columns") << 12240 << 4 << 2 << QSize(6015, 4511);
        QTest::newRow("three columns, rounded down") << 12240 << 9 << 3 << QSize(3983, 2987);
        QTest::newRow("five columns") << 12240 << 25 << 5 << QSize(2358, 1768);
        QTest::newRow("six columns, rounded up") << 12240 << 36 << 6 << QSize(1952, 1464);
        QTest::newRow("wider than 16 bits") << 52840 << 1 << 1 << QSize(52710, 39532);
    }
    void cells() {
        QFETCH(int, area);
        QFETCH(int, pictures);
        const CellGrid grid = cellGrid(area, pictures);
        QTEST(grid.columns, "columns");
        QTEST(QSize(grid.cellWidth, grid.cellHeight), "cell");
    }

    void fit_data() {
        QTest::addColumn<QSize>("pixels");
        QTest::addColumn<QSize>("room");
        QTest::addColumn<bool>("original");
        QTest::addColumn<QSize>("expected");
        const QSize room(9870, 7400);
        QTest::newRow("wide fills the width") << QSize(300, 200) << room << false << QSize(9870, 6580);
        QTest::newRow("wide in original size") << QSize(300, 200) << room << true << QSize(4500, 3000);
        QTest::newRow("wide larger than the room") << QSize(3000, 2000) << room << true << QSize(9870, 6580);
        QTest::newRow("exactly 1.33 is wide") << QSize(133, 100) << room << false << QSize(9870, 7421);
        QTest::newRow("below 1.33 is tall") << QSize(132, 100) << room << false << QSize(9768, 7400);
        QTest::newRow("square") << QSize(100, 100) << room << false << QSize(7400, 7400);
        QTest::newRow("square in original size") << QSize(100, 100) << room << true << QSize(1500, 1500);
        QTest::newRow("longest side") << QSize(32767, 100) << room << false << QSize(9870, 30);
    }
    void fit() {
        QFETCH(QSize, pixels);
        QFETCH(QSize, room);
        QFETCH(bool, original);
        QTEST(fittedSize(pixels, room.width(), room.height(), original), "expected");
    }

    void boxesOfACell() {
        const CellGrid grid{2, 6015, 4511};
        const QSize fitted(6015, 4010);
        QCOMPARE(pictureBox(grid, 3, fitted), (Box{6155, 4651, 6015, 4010}));
        QCOMPARE(frameBox(grid, 3, fitted), (Box{6135, 4621, 6075, 4070}));
        // The right column's caption stands 20 twips further right than its picture does.
        QCOMPARE(captionBox(grid, 3), (Box{6185, 8882, 6005, 270}));
        QCOMPARE(captionBox({2, 5999, 4499}, 0), (Box{70, 4119, 5989, 450}));
    }

    void pages_data() {
        QTest::addColumn<int>("pictures");
        QTest::addColumn<int>("perPage");
        QTest::addColumn<int>("pages");
        QTest::newRow("a rest") << 10 << 4 << 3;
        QTest::newRow("no rest") << 8 << 4 << 2;
        QTest::newRow("none") << 0 << 4 << 0;
        QTest::newRow("fewer than cells") << 1 << 36 << 1;
    }
    void pages() {
        QFETCH(int, pictures);
        QFETCH(int, perPage);
        QTEST(pagesFor(pictures, perPage), "pages");
    }

    void typedNumbers() {
        QCOMPARE(columnsFromText(u"1列"_s), 1);
        QCOMPARE(columnsFromText(u"6列"_s), 6);
        QCOMPARE(columnsFromText(u"7列"_s), 6);
        for (const QString& text : {u""_s, u"列"_s, u"0列"_s, u"-2"_s}) QCOMPARE(columnsFromText(text), 0);
        QCOMPARE(firstIndexOfPage(3, 4), 8);
        QCOMPARE(firstIndexOfPage(2.5, 4), 6);
        QCOMPARE(firstIndexOfPage(1e15, 36), 1'000'000'000);
    }

    void windowAt960By720() {
        const WindowLayout layout = windowLayout(14400, 10800, 0);
        QCOMPARE(layout.page, (Box{1950, 510, 12240, 9210}));
        QCOMPARE(layout.buttonStripHeight, 8415);
        QCOMPARE(layout.outerFrame.height, 9210);
        QCOMPARE(layout.innerFrame.top, 570);
        QCOMPARE(layout.innerFrame.height, 9095);
        QCOMPARE(layout.top.x2, 14210);
        QCOMPARE(layout.top.y1, 480);
        QCOMPARE(layout.left.y1, 490);
        QCOMPARE(layout.bottom.x2, 14200);
        QCOMPARE(layout.bottom.y1, 9730);
        QCOMPARE(layout.right, (LineEnds{14210, 510, 14210, 9730}));
        QCOMPARE(layout.messagePanelWidth, 7450);
    }

    void highTitleBarRaisesEverything() {
        const WindowLayout usual = windowLayout(14400, 10800, 0);
        const WindowLayout raised = windowLayout(14400, 10800, 60);
        QCOMPARE(raised.page.top, usual.page.top - 60);
        QCOMPARE(raised.outerFrame.top, usual.outerFrame.top - 60);
        QCOMPARE(raised.innerFrame.top, usual.innerFrame.top - 60);
        QCOMPARE(raised.top.y1, usual.top.y1 - 60);
        QCOMPARE(raised.left.y2, usual.left.y2 - 60);
        QCOMPARE(raised.bottom.y1, usual.bottom.y1 - 60);
        QCOMPARE(raised.right.y1, usual.right.y1 - 60);
        QCOMPARE(raised.page.height, usual.page.height);
    }

    void stripDoesNotOverlap_data() {
        QTest::addColumn<int>("width");
        for (const int pixels : {800, 960, 1366, 1920}) QTest::addRow("%d pixels", pixels) << pixels * 15;
    }
    void stripDoesNotOverlap() {
        QFETCH(int, width);
        const StripLayout strip = stripLayout(width);
        constexpr int button = 390;
        constexpr int endOfDateButton = 4780 + button;
        QVERIFY(strip.titleLeft >= endOfDateButton);
        QVERIFY(strip.titleWidth > 0);
        QVERIFY(strip.titleLeft + strip.titleWidth <= strip.draw);
        QVERIFY(strip.draw + button <= strip.columns);
        QVERIFY(strip.columns + 405 <= strip.show);
        QVERIFY(strip.show + button <= strip.interval);
        QVERIFY(strip.interval + button <= strip.captions);
        QVERIFY(strip.original + button <= strip.help);
        QVERIFY(strip.help + button <= strip.leave);
        QVERIFY(strip.leave + button <= width - 200);
        QVERIFY(strip.columns + 70 > 4200);  // the drop-down there must not be taken for another one
    }

    void narrowStripKeepsItsOrder() {
        const StripLayout strip = stripLayout(480 * 15);
        QVERIFY(strip.draw >= 5170);
        QVERIFY(strip.draw + 390 <= strip.columns);
        QCOMPARE(strip.titleWidth, 0);
    }

    void buttonSlots_data() {
        QTest::addColumn<int>("height");
        QTest::addColumn<int>("slotCount");
        QTest::addColumn<int>("gap");
        QTest::newRow("four") << 5000 << 4 << 20;
        QTest::newRow("one short of four") << 4990 << 3 << 22;
        QTest::newRow("usual window") << 8415 << 6 << 152;
        QTest::newRow("high screen, more than eleven") << 15015 << 12 << 24;
        QTest::newRow("none") << 940 << 0 << 940;
    }
    void buttonSlots() {
        QFETCH(int, height);
        const ButtonColumn column = buttonColumn(height);
        QTEST(column.slots, "slotCount");
        QTEST(column.gap, "gap");
        QCOMPARE(column.topOf(2), 405 + column.gap + 2 * (column.gap + 1225));
    }
};

const Registered<TestPageLayout> registered;

}  // namespace

#include "page_layout_test.moc"
