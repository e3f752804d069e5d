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

    // What counts is the page as it was drawn, not the columns chosen for the next one.
    void viewBelongsToTheDrawnPage() {
        const OpenPage four(2);
        four.chooseColumns(1);
        four.openPicture(3);
        QVERIFY(four.shows(u"pic0"_s));
        QCOMPARE(four.image(u"img0"_s)->picture().pixels(), QSize(100, 50));
        four.press(u"yd"_s);
        QCOMPARE(four.image(u"img0"_s)->size(), QSize(100, 50));
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

    // What is viewed alone is never the picture of the view before.
    void viewOfNoPictureSaysSo() {
        const OpenPage viewer(2);
        const auto* words = viewer.find<QLabel>(u"lblWz"_s);
        changeRow(u"SELECT * FROM tc01 WHERE 序号 = 2"_s, {{u"图片"_s, QByteArray("no picture")}});
        changeRow(u"SELECT * FROM tc01 WHERE 序号 = 3"_s, {{u"图片"_s, {}}, {u"规格"_s, u""_s}});
        viewer.press(u"ty"_s);
        for (const auto& [cell, said] :
             {std::pair(1, u"不能打开图片“序号 2”：不是 BMP 或 JPEG 图片。"_s), {2, u"序号 3 没有图片。"_s}}) {
            viewer.openPicture(0);
            QVERIFY(!viewer.image(u"img0"_s)->picture().isNull() && !words->isVisible());
            viewer.click(u"img0"_s);
            viewer.openPicture(cell);
            QVERIFY(viewer.image(u"img0"_s)->picture().isNull() && words->isVisible());
            QCOMPARE(words->text(), said);
            viewer.window->resize(viewer.window->width() + 40, 700);
            QVERIFY(words->isVisible());
            viewer.click(u"img0"_s);
            QVERIFY(!words->isVisible() && !viewer.shows(u"pic0"_s));
        }
        QVERIFY(viewer.boxes.isEmpty());
    }

    void theStripGrowsUpwards() {
        const OpenPage viewer(2);
        changeRow(u"SELECT * FROM tc01 WHERE 序号 = 3"_s, {{u"备注"_s, QString(50, u'长')}});
        viewer.press(u"ty"_s);
        const auto* strip = viewer.find<CaptionBox>(u"txtB0"_s);
        const ImageBox* picture = viewer.image(u"img0"_s);
        viewer.openPicture(0);
        const int oneLine = pixelsFromTwips(270);
        QCOMPARE(strip->height(), oneLine);
        QCOMPARE(strip->geometry().bottom(), picture->geometry().bottom());
        viewer.click(u"img0"_s);
        viewer.openPicture(2);  // 30 x 40: half as wide
        QVERIFY(strip->height() > oneLine && strip->width() == picture->width());
        QCOMPARE(strip->geometry().bottom(), picture->geometry().bottom());
        QCOMPARE(strip->toolTip(), QString());
        viewer.press(u"yd"_s);  // no room above in a picture of this size
        QCOMPARE(strip->y(), 0);
        QVERIFY(strip->geometry().bottom() <= viewer.find(u"pic0"_s)->height());
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
        viewer.window->resize(1100, 825);
        QVERIFY(viewer.shows(u"pic0"_s) && !viewer.key(u"ty"_s)->isEnabled());
        QCOMPARE(widthOf(viewer.image(u"img0"_s)), 14370);
        viewer.press(u"xs"_s);
        QVERIFY(!viewer.shows(u"pic0"_s) && !viewer.shows(u"txtB0"_s));
        QVERIFY(viewer.key(u"xy"_s)->isEnabled());
    }

    void viewKeepsItsPictureWhenThePageBehindItChanges() {
        const OpenPage viewer(2);
        viewer.press(u"xy"_s);
        viewer.openPicture(1);
        const auto* strip = viewer.find<CaptionBox>(u"txtB0"_s);
        const QString data = strip->text();
        viewer.chooseColumns(3);
        viewer.window->resize(1100, 800);
        QVERIFY(viewer.pictureIn(1) == 2 && data.startsWith(u"序号：6 "));
        QVERIFY(strip->isVisible());
        QCOMPARE(strip->text(), data);
    }

    void originalSizeStepsBackOnAOnePicturePage() {
        const OpenPage viewer(1);
        viewer.press(u"xy"_s);
        QCOMPARE(viewer.pictureIn(0), 2);
        viewer.press(u"yd"_s);
        QCOMPARE(viewer.pictureIn(0), 1);
        QCOMPARE(viewer.image(u"imgXs(0)"_s)->size(), QSize(40, 30));
        for (int i = 0; i < 3; ++i) viewer.press(u"yd"_s);
        QCOMPARE(viewer.pictureIn(0), 1);  // before the first there is none
        QCOMPARE(viewer.panel(3), u"全部 共10张 共10页 第 0 张"_s);
        viewer.press(u"xy"_s);
        viewer.press(u"xy"_s);
        QCOMPARE(viewer.pictureIn(0), 2);
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

    void showFromTheCoverBeginsWithTheFirstPicture() {
        for (const bool isRunning : {false, true}) {
            ViewerWindow viewer([] { ViewerWindow::setSetting(u"幻灯延时"_s, 5000); });
            if (isRunning) viewer.press(u"hd"_s);
            viewer.openAlbum(1);
            if (!isRunning) viewer.press(u"hd"_s);
            for (const int picture : {1, 2, 3}) {
                tick(viewer);
                QCOMPARE(viewer.pictureIn(0), picture);
            }
            viewer.press(u"hd"_s);
        }
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
            QTest::keyClick(slider, Qt::Key_End);
            viewer.click(cancel);
            QVERIFY(!viewer.shows(u"picYc"_s));
            QCOMPARE(ViewerWindow::setting(u"幻灯延时"_s), FieldValue(1234));
            viewer.press(u"sj"_s);
            QCOMPARE(slider->value(), 1234);
        }
        for (const auto& [key, tip] : {std::pair(Qt::Key_Right, u"1235 毫秒"_s), {Qt::Key_End, u"5000 毫秒"_s}}) {
            QTest::keyClick(slider, key);
            QCOMPARE(slider->toolTip(), tip);
            QCOMPARE(QToolTip::text(), tip);
        }
        QTest::keyClick(repeat, Qt::Key_Space);
        QCOMPARE(viewer.find<QLabel>(u"lblCc"_s)->text(), u"幻灯延迟时间：1234 毫秒"_s);
        viewer.click(u"cmdQ1"_s);
        QVERIFY(!viewer.shows(u"picYc"_s));
        QCOMPARE(ViewerWindow::setting(u"幻灯延时"_s), FieldValue(5000));
        QCOMPARE(ViewerWindow::setting(u"幻灯循环"_s), FieldValue(true));
    }
};

const Registered<TestViewAndShow> registered;

}  // namespace

#include "view_and_show_test.moc"
