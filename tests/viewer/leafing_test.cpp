#include "viewer/zoomed_place.h"
#include "viewer_window.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QSize large(2000, 1500);
const QString pages = u"全部 共10张 共3页 第 %1 张"_s;

/// A page of 2 x 2 pictures; number 2 is larger than the window.
struct View : OpenPage {
    explicit View(int cell = 1) : OpenPage(2) {
        changeRow(u"SELECT * FROM tc01 WHERE 序号 = 2"_s,
                  {{u"图片"_s, pictureBytes(large, Qt::darkGreen)}, {u"规格"_s, u"2000 * 1500"_s}});
        press(u"ty"_s);
        openPicture(cell);
    }

    void key(Qt::Key key, Qt::KeyboardModifiers with = {}) const {
        QWidget* in = isBlack() ? black() : window.get();
        QTest::keyClick(in->focusWidget() != nullptr ? in->focusWidget() : in, key, with);
    }
    /// Turns and tilts the wheel over the picture.
    void wheel(QPoint angle, Qt::KeyboardModifiers with = {}, QPoint at = {10, 10}) const {
        QWheelEvent event(at, picture()->mapToGlobal(at), {}, angle, Qt::NoButton, with, Qt::NoScrollPhase, false);
        QApplication::sendEvent(picture(), &event);
    }
    /// With the left button, from a point of the panel.
    void drag(QPoint from, QPoint way) const {
        QWindow* handle = window->windowHandle();
        const QPoint start = find(u"pic0"_s)->mapTo(window.get(), from);
        QTest::mousePress(handle, Qt::LeftButton, {}, start);
        for (const QPoint& point : {start + way / 2, start + way}) QTest::mouseMove(handle, point);
        QTest::mouseRelease(handle, Qt::LeftButton, {}, start + way);
    }
    ImageBox* picture() const { return image(u"img0"_s); }
    QString data() const { return find<CaptionBox>(u"txtB0"_s)->text(); }
    int seen() const { return data().mid(3, data().indexOf(u' ') - 3).toInt(); }
    bool isViewing() const { return shows(u"pic0"_s) && !key_(u"ty"_s); }
    QWidget* black() const { return window->findChild<QWidget*>(u"frmQp"_s); }
    bool isBlack() const { return black() != nullptr && black()->isVisible(); }

  private:
    bool key_(const QString& name) const { return OpenPage::key(name)->isEnabled(); }
};

class TestLeafing : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void whatThePhotographTells() {
        const View view;
        const auto panel = [&] { return view.window->findChild<QLabel*>(u"lblZl"_s); };
        const auto said = [&] { return panel()->isVisible() ? panel()->accessibleName() : QString(); };
        view.key(Qt::Key_I);
        QCOMPARE(said().section(u'；', 0, 0), u"尺寸：2000 × 1500"_s);
        QVERIFY(said().endsWith(u"照片：没有拍摄资料"_s));
        view.key(Qt::Key_Right);
        QVERIFY(said().startsWith(u"尺寸：30 × 40"_s));
        view.key(Qt::Key_F11);
        QVERIFY(panel()->window() == view.black() && !said().isEmpty());
        view.key(Qt::Key_I);
        QVERIFY(said().isEmpty());
        view.key(Qt::Key_I);
        view.key(Qt::Key_Escape);
        QVERIFY(panel()->window() == view.window.get() && !said().isEmpty());
        view.drag({20, 20}, {5, 5});  // the mouse works through it
        QVERIFY(view.isViewing());
        view.key(Qt::Key_Escape);
        QVERIFY(said().isEmpty());
        view.openPicture(0);
        QVERIFY(said().startsWith(u"尺寸：40 × 30"_s));
    }

    void leafsThroughTheSelection() {
        const View view;
        struct Step {
            std::function<void()> leaf;
            int number, page, last;
        };
        const auto key = [&](Qt::Key which) { return [&view, which] { view.key(which); }; };
        const auto tilt = [&](int angle) { return [&view, angle] { view.wheel({angle, 0}); }; };
        const std::vector<Step> steps{{key(Qt::Key_Right), 3, 1, 4}, {key(Qt::Key_PageDown), 4, 1, 4},
                                      {tilt(-120), 5, 2, 8},         {tilt(-60), 5, 2, 8},
                                      {tilt(-60), 6, 2, 8},          {key(Qt::Key_PageUp), 5, 2, 8},
                                      {tilt(120), 4, 1, 4},          {key(Qt::Key_Left), 3, 1, 4}};
        for (const Step& step : steps) {
            step.leaf();
            QCOMPARE(view.seen(), step.number);
            QCOMPARE(view.text(u"txtYh"_s), QString::number(step.page));
            QCOMPARE(view.panel(3), pages.arg(step.last));
            const QSize pixels = step.number == 3 ? QSize(30, 40) : step.number == 4 ? QSize(100, 50) : QSize(40, 30);
            QCOMPARE(view.picture()->picture().pixels(), pixels);
            QVERIFY(view.isViewing());
        }
        QVERIFY(view.boxes.isEmpty());
    }

    void endsWithThePageOfThePictureSeenLast() {
        for (const bool byClick : {false, true}) {
            const View view(3);
            for (int i = 0; i < 2; ++i) view.key(Qt::Key_Right);
            if (byClick)
                view.click(u"img0"_s);
            else
                view.key(Qt::Key_Escape);
            QVERIFY(!view.isViewing());
            QCOMPARE(view.pictureIn(0), 5);
            QCOMPARE(view.window->focusWidget()->objectName(), u"imgXs(1)"_s);
            QCOMPARE(view.panel(3), pages.arg(8));
            view.press(u"xy"_s);
            QCOMPARE(view.pictureIn(0), 9);
        }
    }

    void stopsAtTheEnds() {
        const View view(0);
        view.key(Qt::Key_Left);
        QCOMPARE(view.panel(3), u"翻页已到文件头！"_s);
        for (int i = 0; i < 12; ++i) view.key(Qt::Key_Right);
        QCOMPARE(view.panel(3), u"翻页已到文件尾！"_s);
        QCOMPARE(view.seen(), 10);
        view.key(Qt::Key_Escape);
        QCOMPARE(view.pictureIn(1), 10);
    }

    // The last page begins within another one: leafing back goes to whole pages.
    void leafsAmongChosenPicturesAndFromTheLastPage() {
        const View view;
        view.key(Qt::Key_Escape);
        view.press(u"hy"_s);
        view.openPicture(0);
        view.key(Qt::Key_Left);
        QCOMPARE(view.seen(), 6);
        QCOMPARE(view.text(u"txtYh"_s), u"2"_s);
        view.key(Qt::Key_Escape);
        QCOMPARE(view.pictureIn(0), 5);

        view.chooseButton(1);  // odd numbers
        view.openPicture(3);
        for (const int number : {9, 9}) {
            view.key(Qt::Key_Right);
            QCOMPARE(view.seen(), number);
        }
        view.key(Qt::Key_Left);
        QCOMPARE(view.seen(), 7);
    }

    void thePictureStaysWhileSizeAndWindowChange() {
        const View view(3);
        view.key(Qt::Key_Space);
        view.key(Qt::Key_Right);
        QVERIFY(!view.shows(u"txtB0"_s));
        view.press(u"yd"_s);
        QCOMPARE(view.seen(), 5);
        QCOMPARE(view.picture()->size(), QSize(40, 30));
        view.window->resize(view.window->width() + 60, 700);
        QCOMPARE(view.seen(), 5);
        view.key(Qt::Key_Left);
        QCOMPARE(view.seen(), 4);
        view.key(Qt::Key_Escape);
        QCOMPARE(view.pictureIn(3), 4);
    }

    void unreadablePicturesAreLeafedOver() {
        const View view(0);
        changeRow(u"SELECT * FROM tc01 WHERE 序号 = 3"_s, {{u"图片"_s, QByteArray("no picture")}});
        changeRow(u"SELECT * FROM tc01 WHERE 序号 = 4"_s, {{u"规格"_s, u""_s}});
        changeRow(u"SELECT * FROM tc01 WHERE 序号 = 5"_s, {{u"图片"_s, {}}});
        view.key(Qt::Key_Right);
        for (const QString& words : {u"不能打开图片“序号 3”：不是 BMP 或 JPEG 图片。"_s,
                                     u"序号 4 的图片没有可用的规格。"_s, u"序号 5 没有图片。"_s}) {
            view.key(Qt::Key_Right);
            QCOMPARE(view.find<QLabel>(u"lblWz"_s)->text(), words);
            QVERIFY(view.shows(u"lblWz"_s) && view.picture()->picture().isNull());
        }
        view.key(Qt::Key_Right);
        QVERIFY(!view.shows(u"lblWz"_s) && !view.picture()->picture().isNull());
        QVERIFY(view.boxes.isEmpty());
    }

    void zoomsTowardsThePointerAndMoves() {
        const View view;
        const QRect whole = view.picture()->geometry();
        QCOMPARE(whole.topLeft(), QPoint());
        view.wheel({0, 120}, Qt::ControlModifier, {300, 200});
        QVERIFY(view.picture()->width() > whole.width());
        // The point under the pointer stays there.
        const QRect zoomed = view.picture()->geometry();
        QVERIFY(std::abs((300.0 - zoomed.x()) / zoomed.width() - 300.0 / whole.width()) < 0.002);
        view.wheel({0, -120}, Qt::ControlModifier, {5, 5});
        QCOMPARE(view.picture()->geometry(), whole);

        view.key(Qt::Key_1, Qt::ControlModifier);
        QCOMPARE(view.picture()->size(), large);
        QTRY_COMPARE(view.picture()->picture().image().size(), large);  // sharp
        QVERIFY(view.find(u"txtB0"_s)->geometry().bottom() < view.find(u"pic0"_s)->height());
        const QPoint before = view.picture()->pos();
        view.drag({400, 300}, {-60, -40});
        QCOMPARE(view.picture()->pos(), before + QPoint(-60, -40));
        QVERIFY(view.isViewing());
        for (int i = 0; i < 3; ++i) view.drag({10, 10}, {600, 400});
        QCOMPARE(view.picture()->pos(), QPoint());

        view.key(Qt::Key_0, Qt::ControlModifier);
        QCOMPARE(view.picture()->geometry(), whole);
        view.click(u"img0"_s);
        QVERIFY(!view.isViewing());
    }

    void pinchesZoom() {
        const View view;
        const int width = view.picture()->width();
        static QPointingDevice* pad = QTest::createTouchDevice(QInputDevice::DeviceType::TouchPad);
        QNativeGestureEvent gesture(Qt::ZoomNativeGesture, pad, 2, {50, 50}, {50, 50}, {50, 50}, 0.5, {});
        QApplication::sendEvent(view.picture(), &gesture);
        QVERIFY(std::abs(view.picture()->width() - width * 1.5) <= 1);

        view.key(Qt::Key_0, Qt::ControlModifier);
        static QPointingDevice* screen = QTest::createTouchDevice();
        QWidget* picture = view.picture();
        QTest::touchEvent(picture, screen).press(0, {300, 200}).press(1, {340, 200});
        for (const int way : {20, 40, 60})
            QTest::touchEvent(picture, screen).move(0, {300 - way, 200}).move(1, {340 + way, 200});
        QTest::touchEvent(picture, screen).release(0, {240, 200}).release(1, {400, 200});
        QVERIFY(view.picture()->width() > width * 2);
        QVERIFY(view.isViewing());
    }

    void onBlackOverTheScreen() {
        const View view;
        view.key(Qt::Key_1, Qt::ControlModifier);
        const QRect zoomed = view.picture()->geometry();
        view.key(Qt::Key_F11);
        QVERIFY(view.isBlack());
        QCOMPARE(view.black()->geometry(), view.window->screen()->geometry());
        const auto* alone = view.image(u"imgQp"_s);
        const auto isInMiddle = [&] {
            return (alone->geometry().center() - view.black()->rect().center()).manhattanLength() <= 2;
        };
        QVERIFY(isInMiddle() && alone->picture().pixels() == large);
        view.key(Qt::Key_Escape);
        QVERIFY(!view.isBlack() && view.isViewing());
        QCOMPARE(view.picture()->geometry(), zoomed);

        view.key(Qt::Key_F11);
        for (int i = 0; i < 3; ++i) view.key(Qt::Key_Right);
        QVERIFY(isInMiddle() && alone->picture().pixels() == QSize(40, 30));
        QTest::mouseClick(view.black(), Qt::LeftButton, {}, {2, 2});
        QVERIFY(!view.isBlack() && view.isViewing());
        QCOMPARE(view.seen(), 5);
        view.key(Qt::Key_Escape);
        QVERIFY(!view.isViewing());
        QCOMPARE(view.pictureIn(0), 5);
        view.key(Qt::Key_F11);
        QVERIFY(!view.isBlack());
    }

    void theShowOnBlack() {
        const View view;
        view.key(Qt::Key_Escape);
        view.key(Qt::Key_1);
        ViewerWindow::setSetting(u"幻灯延时"_s, 5000);
        view.press(u"ty"_s);
        view.press(u"hd"_s);
        view.key(Qt::Key_F11);
        QVERIFY(view.isBlack());
        const auto* alone = view.image(u"imgQp"_s);
        QMetaObject::invokeMethod(view.find<QTimer>(u"tmr2"_s), "timeout");
        QCOMPARE(alone->picture().pixels(), large);
        view.key(Qt::Key_Space);
        QCOMPARE(view.keyImage(u"hd"_s), u"hd"_s);
        view.key(Qt::Key_Right);
        QCOMPARE(alone->picture().pixels(), QSize(30, 40));
        view.key(Qt::Key_F11);
        QVERIFY(!view.isBlack());
        QCOMPARE(view.pictureIn(0), 3);
    }

    void zoomLeavesNoPartOfTheRoomEmpty() {
        for (const QSize pixels : {QSize(4000, 3000), QSize(100, 50), QSize(32767, 20)}) {
            const QSize room(900, 600);
            const QSize whole = QSizeF(pixels).scaled(room, Qt::KeepAspectRatio).toSize().expandedTo({1, 1});
            ZoomedPlace zoom(room, whole, pixels, true);
            const QRect start = zoom.place();
            for (const double factor : {3.0, 1.4, 1000.0, 0.2, 0.5}) {
                zoom.zoomBy(factor, {700, 20});
                zoom.moveBy({-333, 4444});
                const QRect place = zoom.place();
                for (const auto& [from, length, limit] :
                     {std::tuple(place.x(), place.width(), room.width()), {place.y(), place.height(), room.height()}}) {
                    if (length > limit) QVERIFY(from <= 0 && from + length >= limit);
                    if (length <= limit) QVERIFY(std::abs(from - (limit - length) / 2) <= 1);
                }
                QVERIFY(place.width() <= 32767 && place.height() <= 32767);
            }
            zoom.showOneToOne();
            QCOMPARE(zoom.place().size(), pixels);
            zoom.showWhole();
            QCOMPARE(zoom.place(), start);
        }
    }
};

const Registered<TestLeafing> registered;

}  // namespace

#include "leafing_test.moc"
