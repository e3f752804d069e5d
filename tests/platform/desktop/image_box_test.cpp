#include "platform/desktop/image_box.h"

#include "desktop.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// Left half red, right half blue.
QImage halves(QSize size) {
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y)
        for (int x = 0; x < size.width(); ++x) image.setPixelColor(x, y, x < size.width() / 2 ? Qt::red : Qt::blue);
    return image;
}

class TestImageBox : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void toolTipIsPlainText() {
        ImageBox box;
        box.resize(40, 30);
        box.setToolTip(u"<b>a & b</b>"_s);
        QHelpEvent hover(QEvent::ToolTip, QPoint(5, 5), QPoint(5, 5));
        QApplication::sendEvent(&box, &hover);
        QCOMPARE(QToolTip::text(), u"<span>&lt;b&gt;a &amp; b&lt;/b&gt;</span>"_s);
        QCOMPARE(box.toolTip(), u"<b>a & b</b>"_s);
        QToolTip::hideText();
    }

    void pictureFillsTheControl() {
        for (const QSize picture : {QSize(40, 30), QSize(400, 300), QSize(50, 36), QSize(8, 6), QSize(10, 90)}) {
            ImageBox box;
            box.resize(40, 30);
            box.setPicture(Picture(halves(picture)));
            QCOMPARE(box.pixmap().size(), picture);
            for (const QPoint at : {QPoint(0, 0), QPoint(10, 29)}) QCOMPARE(colourAt(box, at.x(), at.y()), Qt::red);
            for (const QPoint at : {QPoint(30, 0), QPoint(39, 29)}) QCOMPARE(colourAt(box, at.x(), at.y()), Qt::blue);
        }
    }

    void anotherPictureOrSizeIsShownAtOnce() {
        ImageBox box;
        box.resize(20, 20);
        QImage image(100, 100, QImage::Format_RGB32);
        for (const Qt::GlobalColor colour : {Qt::green, Qt::red}) {
            image.fill(colour);
            box.setPicture(Picture(image));
            QCOMPARE(colourAt(box, 10, 10), colour);
        }
        box.resize(60, 10);
        QCOMPARE(colourAt(box, 58, 8), Qt::red);
    }

    void nullPictureLetsTheBackgroundThrough() {
        QWidget parent;
        parent.setPalette(QPalette(Qt::yellow));
        ImageBox box(&parent);
        box.resize(20, 20);
        box.setPicture(Picture(halves({20, 20})));
        box.setPicture({});
        QVERIFY(box.pixmap().isNull() && box.picture().isNull());
        QCOMPARE(colourAt(parent, 5, 5), Qt::yellow);
    }

    void targetSizeIsInDevicePixels() {
        ImageBox box;
        box.resize(33, 21);
        const qreal ratio = box.devicePixelRatioF();
        QCOMPARE(box.targetSize(), (QSizeF(33, 21) * ratio).toSize());
    }

    void mouseIsTold() {
        ImageBox box;
        box.resize(40, 40);
        QVERIFY(isShown(box));
        QStringList log;
        connect(&box, &ImageBox::mousePressed, this, [&] { log += u"pressed"_s; });
        connect(&box, &ImageBox::mouseReleased, this, [&] { log += u"released"_s; });
        connect(&box, &ImageBox::clicked, this, [&] { log += u"clicked"_s; });
        connect(&box, &ImageBox::doubleClicked, this, [&] { log += u"double"_s; });
        connect(&box, &ImageBox::mouseMoved, this, [&] { log += u"moved"_s; });
        const auto events = [&] {
            QStringList all = std::exchange(log, {});
            if (all.size() > 1) all.removeAll(u"moved"_s);
            return all.join(u' ');
        };
        const QPoint inside(5, 5);
        QTest::mouseClick(&box, Qt::LeftButton, {}, inside);
        QCOMPARE(events(), u"pressed released clicked"_s);
        QTest::mouseClick(&box, Qt::RightButton, {}, inside);
        QCOMPARE(events(), u"pressed released"_s);
        QTest::mousePress(&box, Qt::LeftButton, {}, inside);
        QTest::mouseRelease(&box, Qt::LeftButton, {}, {50, 50});
        QCOMPARE(events(), u"pressed released"_s);
        QMouseEvent move(QEvent::MouseMove, QPointF(7, 7), box.mapToGlobal(QPointF(7, 7)), Qt::NoButton, {}, {});
        QApplication::sendEvent(&box, &move);
        QCOMPARE(events(), u"moved"_s);
        QTest::mouseDClick(box.windowHandle(), Qt::LeftButton, {}, inside);
        QCOMPARE(events(), u"pressed released clicked double released"_s);
    }
};

const Registered<TestImageBox> registered;

}  // namespace

#include "image_box_test.moc"
