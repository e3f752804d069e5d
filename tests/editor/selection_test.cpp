#include "editor/selection.h"

#include "../support/run_all.h"

#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

Q_DECLARE_METATYPE(SelectionShape)

namespace {

using enum SelectionShape;

class TestSelection : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void sizeFollowsThePointer_data() {
        QTest::addColumn<SelectionShape>("shape");
        QTest::addColumn<QPoint>("pointer");
        QTest::addColumn<QSize>("expected");
        QTest::newRow("free") << free << QPoint(1500, 900) << QSize(1200, 300);
        QTest::newRow("free, backwards") << free << QPoint(0, 0) << QSize(-300, -600);
        QTest::newRow("a click") << free << QPoint(300, 600) << QSize(0, 0);
        QTest::newRow("ratio takes no notice of the height") << ratio << QPoint(1500, 9000) << QSize(1200, 900);
        QTest::newRow("ratio, 11.25 twips") << ratio << QPoint(315, 0) << QSize(15, 11);
        QTest::newRow("ratio, 22.5 twips to the even") << ratio << QPoint(330, 0) << QSize(30, 22);
        QTest::newRow("ratio, backwards") << ratio << QPoint(0, 900) << QSize(-300, -225);
        QTest::newRow("fixed wherever the pointer goes") << fixed << QPoint(-9, 7) << QSize(1500, 1125);
    }
    void sizeFollowsThePointer() {
        QFETCH(SelectionShape, shape);
        QFETCH(QPoint, pointer);
        QTEST(selectionSize(shape, {300, 600}, pointer), "expected");
    }

    void readout_data() {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QString>("expected");
        QTest::newRow("four to three") << QSize(1800, 1350) << u"L：10 T：20 W：120 H：90 W/H：1.333"_s;
        QTest::newRow("square") << QSize(300, 300) << u"L：10 T：20 W：20 H：20 W/H：1.000"_s;
        QTest::newRow("rounded up") << QSize(600, 360) << u"L：10 T：20 W：40 H：24 W/H：1.667"_s;
        QTest::newRow("without commas") << QSize(150000, 75) << u"L：10 T：20 W：10000 H：5 W/H：2000.000"_s;
        QTest::newRow("no height") << QSize(150, 0) << u"L：10 T：20 W：10 H：0 W/H："_s;
    }
    void readout() {
        QFETCH(QSize, size);
        QTEST(selectionReadout({150, 300}, size), "expected");
    }

    void readoutStaysInView() {
        const QSize view(6000, 4500);
        QCOMPARE(readoutPlace({100, 200}, 2000, view), QPoint(100, 200));
        QCOMPARE(readoutPlace({4000, 4229}, 2000, view), QPoint(4000, 4229));
        QCOMPARE(readoutPlace({4001, 4230}, 2000, view), QPoint(2001, 4230));
        QCOMPARE(readoutPlace({5900, 9000}, 2000, view), QPoint(3900, 4230));
    }

    void readoutShowsAboveTwentyTwips() {
        QVERIFY(readoutShows({21, 21}));
        QVERIFY(!readoutShows({20, 300}));
        QVERIFY(!readoutShows({300, 20}));
        QVERIFY(!readoutShows({-300, -300}));
    }

    void labels_data() {
        QTest::addColumn<SelectionShape>("shape");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QString>("selected");
        QTest::addColumn<QString>("zoom");
        QTest::newRow("100 pixels wide") << ratio << QSize(1500, 1125) << u"选中尺寸：100 * 75"_s
                                         << u"缩放比例：1：1"_s;
        QTest::newRow("120 wide") << ratio << QSize(1800, 1350) << u"选中尺寸：120 * 90"_s << u"缩放比例：1.2：1"_s;
        QTest::newRow("part of a row cut off")
            << ratio << QSize(75, 56) << u"选中尺寸：5 * 3"_s << u"缩放比例：0.05：1"_s;
        QTest::newRow("fixed") << fixed << QSize(1, 1) << u"选中尺寸：100 * 75"_s << u"缩放比例：1：1"_s;
    }
    void labels() {
        QFETCH(SelectionShape, shape);
        QFETCH(QSize, size);
        QTEST(selectedSizeText(shape, size), "selected");
        QTEST(zoomRatioText(shape, size), "zoom");
    }

    void whiteOnDarkRedOnLight() {
        QCOMPARE(selectionColor(qRgb(43, 43, 42)), QColor(Qt::white));
        QCOMPARE(selectionColor(qRgb(43, 43, 43)), QColor(Qt::red));
        QCOMPARE(selectionColor(qRgb(0, 0, 128)), QColor(Qt::white));
        QCOMPARE(selectionColor(qRgb(0, 129, 0)), QColor(Qt::red));
    }
};

const Registered<TestSelection> registered;

}  // namespace

#include "selection_test.moc"
