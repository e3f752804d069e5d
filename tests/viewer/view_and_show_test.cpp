#include "viewer_window.h"

using namespace Qt::Literals::StringLiterals;

namespace {

void tick(const ViewerWindow& viewer) {
    QMetaObject::invokeMethod(viewer.find<QTimer>(u"tmr2"_s), "timeout");
}

bool isShowing(const ViewerWindow& viewer) {
    return viewer.keyImage(u"hd"_s) == u"hb";
}

bool ticks(const ViewerWindow& viewer) {
    return viewer.find<QTimer>(u"tmr2"_s)->isActive();
}

/// One picture, with the interval of the show in milliseconds.
struct Show : OpenPage {
    explicit Show(int interval, bool repeats = false) : OpenPage(1) {
        setSetting(u"幻灯延时"_s, interval);
        setSetting(u"幻灯循环"_s, repeats);
    }
};

class TestViewAndShow : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void doubleClickShowsThePictureAlone() {
        const OpenPage viewer(2);
        viewer.openPicture(3);  // 100 x 50
        QVERIFY(viewer.shows(u"pic0"_s));
        QCOMPARE(viewer.image(u"img0"_s)->geometry(), rectFromTwips(0, 0, 9870, 4935));
        QCOMPARE(viewer.image(u"img0"_s)->picture().pixels(), QSize(100, 50));
        const auto pagingIs = [&](bool enabled) {
            for (const QString& key : {u"ty"_s, u"sy"_s, u"xy"_s, u"hy"_s})
                QCOMPARE(viewer.key(key)->isEnabled(), enabled);
        };
        pagingIs(false);
        QVERIFY(viewer.key(u"yd"_s)->isEnabled());
        auto* strip = viewer.find<CaptionBox>(u"txtB0"_s);
        QVERIFY(strip->isVisible() && strip->text().startsWith(u"序号：4 "_s));
        QTest::mouseClick(strip->viewport(), Qt::LeftButton);
        QVERIFY(!strip->isVisible());
        QTest::mousePress(viewer.find(u"img0"_s), Qt::LeftButton);
        QVERIFY(strip->isVisible());
        QTest::mouseRelease(viewer.find(u"img0"_s), Qt::LeftButton);
        QVERIFY(!viewer.shows(u"pic0"_s));
        pagingIs(true);
        QCOMPARE(viewer.pictureIn(3), 4);
    }

    void originalSizeInView() {
        const OpenPage viewer(2);
        viewer.openPicture(3);
        viewer.press(u"yd"_s);
        QCOMPARE(viewer.keyImage(u"yd"_s), u"cm"_s);
        QCOMPARE(viewer.key(u"yd"_s)->toolTip(), u"充满窗口"_s);
        QCOMPARE(viewer.image(u"img0"_s)->size(), QSize(100, 50));
        viewer.press(u"yd"_s);
        QCOMPARE(viewer.key(u"yd"_s)->toolTip(), u"原始大小"_s);
        QVERIFY(viewer.image(u"img0"_s)->width() > 500);
        QTest::keyClick(viewer.window->centralWidget(), Qt::Key_Escape);
        QVERIFY(!viewer.shows(u"pic0"_s));
    }

    // What counts is the page as it stands, not the columns chosen for the next one.
    void viewBelongsToTheDrawnPage() {
        const OpenPage four(2);
        four.chooseColumns(1);
        four.openPicture(3);
        QVERIFY(four.shows(u"pic0"_s));
        QCOMPARE(four.image(u"img0"_s)->picture().pixels(), QSize(100, 50));
        four.press(u"yd"_s);
        QCOMPARE(four.image(u"img0"_s)->size(), QSize(100, 50));
        const OpenPage other(2);
        other.openAlbum(0);  // the page still shows the album that it was drawn from
        other.openPicture(3);
        QCOMPARE(other.image(u"img0"_s)->picture().pixels(), QSize(100, 50));
        const OpenPage single(1);
        for (const int columns : {1, 2}) {
            single.chooseColumns(columns);
            single.openPicture(0);
            QVERIFY(!single.shows(u"pic0"_s));
        }
        const OpenPage sixteen(4);
        sixteen.openPicture(12);  // past the end of the album
        QVERIFY(!sixteen.shows(u"pic0"_s) && sixteen.boxes.isEmpty());
    }

    void viewOfALostRecordTells() {
        const OpenPage viewer(2);
        mekTp::catalogue.Execute(u"DELETE FROM [tc01]"_s);
        viewer.openPicture(1);
        QCOMPARE(viewer.boxes.size(), 1);
        QVERIFY(!viewer.shows(u"pic0"_s) && viewer.key(u"ty"_s)->isEnabled());
    }

    void viewFollowsTheWindowAndEndsWithThePage() {
        const OpenPage viewer(2);
        viewer.openPicture(3);
        viewer.window->resize(1100, 800);
        QVERIFY(viewer.shows(u"pic0"_s) && !viewer.key(u"ty"_s)->isEnabled());
        QCOMPARE(widthOf(viewer.image(u"img0"_s)), 14370);
        viewer.press(u"xs"_s);
        QVERIFY(!viewer.shows(u"pic0"_s) && !viewer.shows(u"txtB0"_s));
        QVERIFY(viewer.key(u"xy"_s)->isEnabled());
    }

    void originalSizeStepsBackOnAOnePicturePage() {
        const OpenPage viewer(1);
        viewer.press(u"xy"_s);
        QCOMPARE(viewer.pictureIn(0), 2);
        viewer.press(u"yd"_s);
        QCOMPARE(viewer.pictureIn(0), 1);
        QCOMPARE(viewer.image(u"imgXs(0)"_s)->size(), QSize(40, 30));
        viewer.press(u"yd"_s);
        QCOMPARE(viewer.pictureIn(0), 1);  // before the first there is none
        QCOMPARE(viewer.panel(3), u"全部 共10张 共10页 第 0 张"_s);
    }

    void originalSizeNeedsAPage() {
        const ViewerWindow viewer;
        viewer.press(u"yd"_s);
        QCOMPARE(viewer.keyImage(u"yd"_s), u"yd"_s);
    }

    void showEndsAfterTheLastPicture() {
        const Show viewer(1);
        viewer.press(u"hd"_s);
        QVERIFY(isShowing(viewer));
        QCOMPARE(viewer.key(u"hd"_s)->toolTip(), u"关闭幻灯"_s);
        QTRY_COMPARE(viewer.keyImage(u"hd"_s), u"hd"_s);
        QCOMPARE(viewer.key(u"hd"_s)->toolTip(), u"幻灯"_s);
        QCOMPARE(viewer.pictureIn(0), 10);
        QVERIFY(!ticks(viewer));

        // From the end it begins anew.
        ViewerWindow::setSetting(u"幻灯延时"_s, 5000);
        viewer.press(u"hd"_s);
        QCOMPARE(viewer.text(u"txtYh"_s), u"0"_s);
        tick(viewer);
        QCOMPARE(viewer.pictureIn(0), 1);
    }

    void showStartsOver() {
        const Show viewer(5000, true);
        viewer.press(u"xy"_s);
        viewer.press(u"hd"_s);
        for (const int picture : {3, 4, 5, 6, 7, 8, 9, 10, 1, 2}) {
            tick(viewer);
            QCOMPARE(viewer.pictureIn(0), picture);
        }
        QVERIFY(isShowing(viewer));
        viewer.press(u"hd"_s);
        QVERIFY(!isShowing(viewer) && !ticks(viewer));
    }

    void showOfNothingEnds() {
        const Show viewer(1, true);
        viewer.openAlbum(2);
        viewer.press(u"hd"_s);
        QTRY_VERIFY(!isShowing(viewer));
        QVERIFY(viewer.boxes.isEmpty());
    }

    void whatStopsTheShow() {
        const Show closed(5000);
        closed.press(u"hd"_s);
        QVERIFY(ticks(closed));
        closed.window->close();
        QVERIFY(!closed.find<QTimer>(u"tmr1"_s)->isActive() && !ticks(closed));

        const Show endless(0);
        endless.press(u"hd"_s);
        QVERIFY(isShowing(endless) && !ticks(endless));

        const Show columns(5000);
        columns.press(u"hd"_s);
        columns.chooseColumns(2);
        QVERIFY(!isShowing(columns) && !columns.key(u"hd"_s)->isEnabled());
    }

    void showDialog() {
        const Show viewer(1234);
        viewer.press(u"sj"_s);
        QVERIFY(viewer.shows(u"picYc"_s));
        auto* slider = viewer.find<QSlider>(u"sliSj"_s);
        auto* repeat = viewer.find<QCheckBox>(u"chkYc"_s);
        QCOMPARE(slider->value(), 1234);
        QCOMPARE(viewer.find<QLabel>(u"lblCc"_s)->text(), u"幻灯延迟时间：1234 毫秒"_s);
        for (const QString& cancel : {u"cmdX1"_s, u"cmdX0"_s}) {
            slider->setValue(4000);
            viewer.click(cancel);
            QVERIFY(!viewer.shows(u"picYc"_s));
            QCOMPARE(ViewerWindow::setting(u"幻灯延时"_s), Variant(1234));
            viewer.press(u"sj"_s);
            QCOMPARE(slider->value(), 1234);
        }
        slider->setValue(4000);
        repeat->setChecked(true);
        QCOMPARE(viewer.find<QLabel>(u"lblCc"_s)->text(), u"幻灯延迟时间：1234 毫秒"_s);
        viewer.click(u"cmdQ1"_s);
        QVERIFY(!viewer.shows(u"picYc"_s));
        QCOMPARE(ViewerWindow::setting(u"幻灯延时"_s), Variant(4000));
        QCOMPARE(ViewerWindow::setting(u"幻灯循环"_s), Variant(true));
    }
};

const Registered<TestViewAndShow> registered;

}  // namespace

#include "view_and_show_test.moc"
