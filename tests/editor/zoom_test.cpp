#include "editor/zoom.h"

#include "editor_window.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// The editor in a window of 800 by 700 with a picture open.
struct Zoomed : OpenEditor {
    explicit Zoomed(QSize pixels) : OpenEditor(pixels) { window->resize(800, 700); }

    double shownScale() const { return double(size().width()) / picYu().picture().width(); }
    QWidget* viewport() const { return find(u"picGd"_s); }
    QScrollBar* bar(const QString& name) const { return find<QScrollBar>(name); }
    /// The place in the picture that is at a place of the viewport.
    QPointF under(QPoint at) const { return QPointF(at - picYu().pos()) / shownScale(); }
    void wheel(QPoint at, int angle, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) const {
        QWheelEvent event(at, viewport()->mapToGlobal(QPointF(at)), {}, {0, angle}, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(viewport(), &event);
    }
    /// The mouse held down from one place of the viewport to another, by way of a third.
    void hold(Qt::MouseButton button, QPoint from, QPoint to) const {
        const auto send = [&](QEvent::Type type, QPoint at, Qt::MouseButton changed, Qt::MouseButtons held) {
            QMouseEvent event(type, at - picYu().pos(), viewport()->mapToGlobal(at), changed, held, {});
            QApplication::sendEvent(&picYu(), &event);
        };
        send(QEvent::MouseButtonPress, from, button, button);
        send(QEvent::MouseMove, (from + to) / 2, Qt::NoButton, button);
        send(QEvent::MouseMove, to, Qt::NoButton, button);
        send(QEvent::MouseButtonRelease, to, button, {});
    }
};

bool near(QPointF one, QPointF other, double distance) {
    return std::abs(one.x() - other.x()) <= distance && std::abs(one.y() - other.y()) <= distance;
}

class TestZoom : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void scales() {
        const auto openAt = [](QSize picture, QSize room) {
            Zoom zoom;
            zoom.open(picture);
            zoom.setRoom(room);
            return zoom;
        };
        const QSize room(15000, 9000);
        QCOMPARE(openAt({32767, 32767}, room).text(), QString());
        QCOMPARE(openAt({32768, 300}, {40000, 9000}).text(), QString());
        Zoom zoom = openAt({60000, 45000}, room);
        QCOMPARE(zoom.text(), u" 20%"_s);
        QCOMPARE(zoom.shown(), QSize(12000, 9000));
        zoom.setRoom({6000, 9000});
        QCOMPARE(zoom.text(), u" 10%"_s);
        zoom.scaleBy(0.5);
        QCOMPARE(zoom.scale(), 0.1);
        zoom.scaleBy(1.7);
        QCOMPARE(zoom.text(), u" 17%"_s);
        zoom.setRoom(room);
        QCOMPARE(zoom.text(), u" 17%"_s);
        zoom.scaleBy(7);
        QVERIFY(zoom.isOneToOne());
        QCOMPARE(zoom.shown(), QSize(60000, 45000));
        zoom.scaleBy(100);
        QCOMPARE(zoom.text(), u" 1600%"_s);
        zoom.scaleBy(0.01);
        QVERIFY(zoom.isOneToOne());
        zoom.scaleBy(0.001);
        QCOMPARE(zoom.text(), u" 20%"_s);
        zoom.setRoom({6000, 9000});
        QCOMPARE(zoom.text(), u" 10%"_s);  // whole again, it follows the room

        Zoom small = openAt({1507, 1200}, room);
        small.scaleBy(0.8);
        small.showWhole();
        QVERIFY(small.isOneToOne());
        QCOMPARE(small.shown(), QSize(1507, 1200));
        small.scaleBy(2);
        QCOMPARE(small.shown(), QSize(3000, 2400));  // whole pixels: 100.47 are 100

        // What was reduced is opened anew when an operation has changed its size; the rest stays.
        const std::tuple<double, QSize, QString> rows[] = {
            {0, {45000, 60000}, u" 15%"_s},   {0, {3000, 3000}, {}},   {0.5, {45000, 60000}, u" 15%"_s},
            {0.5, {60000, 45000}, u" 50%"_s}, {1, {45000, 60000}, {}}, {3, {3000, 3000}, u" 300%"_s},
        };
        for (const auto& [scale, size, text] : rows) {
            Zoom worked = openAt({60000, 45000}, room);
            if (scale > 0) worked.setScale(scale);
            worked.follow(size);
            QCOMPARE(worked.text(), text);
        }
    }

    void opensWholeOnlyBeyondTheLimit() {
        const OpenEditor limit({2184, 400});
        QVERIFY(limit.caption().endsWith(u"2184 * 400"));
        QCOMPARE(limit.size(), QSize(2184, 400));
        QVERIFY(limit.shows(u"hsc1"_s));
        const OpenEditor large({2400, 1200});
        QVERIFY(QRegularExpression(u"2400 \\* 1200 3\\d%$"_s).match(large.caption()).hasMatch());
        QVERIFY(!large.shows(u"hsc1"_s) && !large.shows(u"vsc1"_s));
        const auto* picGd = large.find(u"picGd"_s);
        QVERIFY(picGd->rect().contains(large.picYu().geometry()));
        QVERIFY(near(large.picYu().geometry().center(), picGd->rect().center(), 1));
        QCOMPARE(large.size().width(), picGd->width());
        large.window->resize(500, 600);
        QCOMPARE(large.size().width(), large.window->centralWidget()->width() - 4);
        QCOMPARE(large.size().height(), large.size().width() / 2);
    }

    void keys() {
        Zoomed editor({400, 300});
        const std::pair<Qt::Key, QString> rows[] = {
            {Qt::Key_Plus, u" 125%"_s},
            {Qt::Key_Equal, u" 156%"_s},
            {Qt::Key_Minus, u" 125%"_s},
            {Qt::Key_Minus, {}},
            {Qt::Key_Minus, {}},
            {Qt::Key_Plus, u" 125%"_s},
            {Qt::Key_1, {}},
            {Qt::Key_Plus, u" 125%"_s},
            {Qt::Key_2, {}},
            {Qt::Key_Plus, u" 125%"_s},
            {Qt::Key_0, {}},
        };
        const QString caption = editor.caption();
        for (const auto& [key, text] : rows) {
            editor.zoom(key);
            QCOMPARE(editor.caption(), caption + text);
        }
        QTest::keyClick(editor.window.get(), Qt::Key_Plus, Qt::ControlModifier | Qt::KeypadModifier);
        QCOMPARE(editor.caption(), caption + u" 125%"_s);
        QCOMPARE(editor.size(), QSize(500, 375));
        // Also while a number is typed.
        editor.press(u"sf"_s);
        QTest::keyClick(&editor.box(u"txtCq"_s), Qt::Key_Plus, Qt::ControlModifier);
        QCOMPARE(editor.caption(), caption + u" 156%"_s);
        QCOMPARE(editor.box(u"txtCq"_s).text(), QString());
        editor.press(u"sk"_s);
        editor.zoom(Qt::Key_Plus);
        editor.click(u"cmdQx"_s);
        editor.zoom(Qt::Key_Plus);
        QCOMPARE(editor.caption(), u"览忆集苑（图片处理）"_s);
    }

    void theWheelZoomsTowardsThePointer() {
        const Zoomed editor({2400, 1800});
        const QPoint pointer(500, 300);
        editor.zoom(Qt::Key_1);
        for (const int angle : {120, 240, -120, -600, -300, 60}) {
            const QPointF before = editor.under(pointer);
            const double scale = editor.shownScale();
            editor.wheel(pointer, angle);
            QVERIFY(angle > 0 ? editor.shownScale() > scale : editor.shownScale() < scale);
            QVERIFY2(near(editor.under(pointer), before, 1 + 1 / scale), qPrintable(editor.caption()));
        }
        QVERIFY(editor.shownScale() < 1);
        const QPoint scrolled = editor.picYu().pos();
        editor.wheel(pointer, -120, {});
        QCOMPARE(editor.picYu().pos(), scrolled - QPoint(0, 40));
        editor.wheel(pointer, -120, Qt::ShiftModifier);
        QCOMPARE(editor.picYu().pos(), scrolled - QPoint(40, 40));
        editor.wheel(pointer, -12000);
        QVERIFY(!editor.shows(u"hsc1"_s) && !editor.shows(u"vsc1"_s));
        editor.wheel(pointer, 12000);
        QVERIFY(editor.shownScale() == 1);
    }

    void fingersZoom() {
        const Zoomed editor({400, 300});
        QNativeGestureEvent event(Qt::ZoomNativeGesture, QPointingDevice::primaryPointingDevice(), 2, {10, 10},
                                  {10, 10}, {10, 10}, 0.5, {});
        QApplication::sendEvent(editor.viewport(), &event);
        QVERIFY(editor.caption().endsWith(u" 150%"));
        static QPointingDevice* device = QTest::createTouchDevice();
        QWidget* on = editor.viewport();
        QTest::touchEvent(on, device).press(0, {100, 100}, on).press(1, {200, 100}, on);
        for (const int apart : {20, 50, 100})
            QTest::touchEvent(on, device).move(0, {100 - apart / 2, 100}, on).move(1, {200 + apart / 2, 100}, on);
        QTest::touchEvent(on, device).release(0, {50, 100}, on).release(1, {250, 100}, on);
        QVERIFY2(editor.shownScale() > 2, qPrintable(editor.caption()));
    }

    void theHandMovesThePicture() {
        const Zoomed editor({2400, 900});
        editor.press(u"cj"_s);
        editor.zoom(Qt::Key_1);
        const auto movesFrom = [&](Qt::MouseButton button, QPoint from, QPoint to) {
            const QPoint before = editor.picYu().pos();
            editor.hold(button, from, to);
            return editor.picYu().pos() - before == to - from;
        };
        QVERIFY(movesFrom(Qt::MiddleButton, {400, 300}, {380, 310}));
        QVERIFY(!editor.shows(u"shpYu"_s));
        QWidget* form = editor.window->centralWidget();
        QTest::keyPress(form, Qt::Key_Space);
        QCOMPARE(editor.viewport()->cursor().shape(), Qt::OpenHandCursor);
        QVERIFY(movesFrom(Qt::LeftButton, {400, 300}, {500, 200}));
        QVERIFY(movesFrom(Qt::LeftButton, {400, 300}, {310, 390}));
        QVERIFY(!editor.shows(u"shpYu"_s));
        QTest::keyRelease(form, Qt::Key_Space);
        QCOMPARE(editor.viewport()->cursor().shape(), Qt::ArrowCursor);
        QVERIFY(!movesFrom(Qt::LeftButton, {400, 300}, {500, 400}));
        QVERIFY(editor.shows(u"shpYu"_s));
    }

    // After a dialog the space bar presses no button.
    void aClosedDialogGivesTheKeysBack() {
        Zoomed editor({400, 300});
        QWidget* form = editor.window->centralWidget();
        const auto hasKeys = [&] { return QApplication::focusWidget() == form; };
        editor.scale(u"2"_s);
        QVERIFY(hasKeys());
        editor.crop({10, 10, 300, 200});
        QVERIFY(hasKeys());
        editor.press(u"sk"_s);
        editor.find(u"cboBm"_s)->setFocus();
        editor.click(u"cmdQx"_s);
        QVERIFY(hasKeys());
    }

    void theMenuAtTheRightButton() {
        const Zoomed editor({400, 300});
        QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, editor.picYu().mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&editor.picYu(), &event);
        auto* menu = editor.find<QMenu>(u"mnuDx"_s);
        QVERIFY(menu->isVisible());
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(editor.menu(u"mnuFd"_s)).center());
        QVERIFY(editor.caption().endsWith(u" 125%"));
    }

    // What is selected and cut are whole pixels of the picture, as the readout says.
    void aSelectionIsInThePicture() {
        for (const Qt::Key key : {Qt::Key_0, Qt::Key_1, Qt::Key_Plus, Qt::Key_Minus}) {
            const Zoomed editor({2400, 900});
            editor.zoom(Qt::Key_1);
            editor.zoom(key);
            editor.press(u"cj"_s);
            const double scale = editor.shownScale();
            const QPoint from = -editor.picYu().pos() + QPoint(60, 90), to = from + QPoint(200, 120);
            editor.select(from, to);
            const QPoint start = (QPointF(from) / scale).toPoint();
            const QSize part(qRound(to.x() / scale) - start.x(), qRound(to.y() / scale) - start.y());
            QVERIFY2(editor.box(u"txtCc"_s)
                         .text()
                         .startsWith(u"L：%1 T：%2 W：%3 H：%4 W"_s.arg(start.x())
                                         .arg(start.y())
                                         .arg(part.width())
                                         .arg(part.height())),
                     qPrintable(editor.box(u"txtCc"_s).text()));
            const auto bandIsAt = [&] {
                const QRect shown = editor.find(u"shpYu"_s)->geometry();
                return near(QPointF(shown.topLeft()) / editor.shownScale(), start, 1 / editor.shownScale()) &&
                       near(QPointF(shown.width(), shown.height()) / editor.shownScale(),
                            {double(part.width()), double(part.height())}, 1 / editor.shownScale());
            };
            QVERIFY(bandIsAt());
            editor.zoom(Qt::Key_Plus);
            QVERIFY(bandIsAt() && editor.shows(u"shpYu"_s));
            editor.click(u"cmdCq(0)"_s);
            QCOMPARE(editor.picYu().picture().size(), part);
        }
    }

    // Operations, steps back and files are the same at any scale.
    void whatComesOutKnowsNoScale() {
        QList<QImage> results;
        for (const double factor : {1.0, 0.5, 3.1}) {
            Zoomed editor({2400, 600});
            const auto zoomAgain = [&] {
                editor.zoom(Qt::Key_1);
                editor.wheel({50, 50}, qRound(std::log(factor) * 500));
                QCOMPARE(editor.caption().endsWith(u'%'), factor != 1);
            };
            zoomAgain();
            editor.press(u"fs"_s);
            zoomAgain();
            editor.rotate(u"90"_s);
            zoomAgain();
            editor.press(u"fc"_s);
            editor.undo();
            zoomAgain();
            editor.scale(u"0.5"_s);
            editor.file = editor.catalogue.file(u"存.bmp"_s);
            editor.press(u"lc"_s);
            results << LoadPicture(editor.file).image();
        }
        QVERIFY(!results[0].isNull());
        for (const QImage& result : results) QCOMPARE(result, results[0]);
    }

    void aThumbnailIsOneToOne() {
        Zoomed editor({2400, 1800});
        const QString caption = editor.caption();
        editor.press(u"at"_s);
        QTest::mouseClick(editor.find<QRadioButton>(u"optAn(0)"_s), Qt::LeftButton, {}, QPoint(8, 9));
        QCOMPARE(editor.size(), QSize(100, 75));
        QVERIFY(!editor.caption().endsWith(u'%'));
        editor.select({10, 10}, {60, 60});
        editor.zoom(Qt::Key_Plus);
        QCOMPARE(editor.picYu().geometry(), QRect(0, 0, 100, 75));
        editor.press(u"fs"_s);
        editor.undo();
        QVERIFY(editor.window != nullptr);
    }

    // No pixel is left out: stripes of one pixel become grey, and what scrolls into view fits to what was there.
    void theDisplayIsSharp() {
        EditorWindow editor;
        QImage stripes(2400, 600, QImage::Format_RGB32);
        for (int y = 0; y < stripes.height(); ++y)
            for (int x = 0; x < stripes.width(); ++x) stripes.setPixel(x, y, (x + y) % 2 ? 0xFFFFFFFF : 0xFF000000);
        editor.file = editor.catalogue.file(u"纹.bmp"_s);
        SavePicture(stripes, editor.file);
        editor.press(u"wk"_s);
        const QImage shown = editor.picYu().grab().toImage();
        for (int x = 10; x < shown.width() - 10; x += 7) {
            const int grey = qGray(shown.pixel(x, shown.height() / 2));
            QVERIFY2(grey > 110 && grey < 145, qPrintable(QString::number(grey)));
        }
    }
};

const Registered<TestZoom> registered;

}  // namespace

#include "zoom_test.moc"
