#include "platform/desktop/image_box.h"

#include "../../support/run_all.h"

#include <QApplication>
#include <QHelpEvent>
#include <QToolTip>
#include <QtTest/QtTest>

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

    void pictureFillsTheControl_data() {
        QTest::addColumn<QSize>("picture");
        QTest::newRow("same size") << QSize(40, 30);
        QTest::newRow("much larger") << QSize(400, 300);
        QTest::newRow("a little larger") << QSize(50, 36);
        QTest::newRow("smaller") << QSize(8, 6);
        QTest::newRow("narrower and higher") << QSize(10, 90);
    }

    void pictureFillsTheControl() {
        QFETCH(const QSize, picture);
        ImageBox box;
        box.resize(40, 30);
        box.setPicture(Picture(halves(picture)));
        QCOMPARE(box.pixmap().size(), picture);
        const QImage shown = box.grab().toImage();
        const qreal ratio = shown.devicePixelRatio();
        const auto at = [&](int x, int y) { return shown.pixelColor(qRound(x * ratio), qRound(y * ratio)); };
        QCOMPARE(at(0, 0), QColor(Qt::red));
        QCOMPARE(at(10, 29), QColor(Qt::red));
        QCOMPARE(at(30, 0), QColor(Qt::blue));
        QCOMPARE(at(39, 29), QColor(Qt::blue));
    }

    void anotherPictureOrSizeIsShownAtOnce() {
        ImageBox box;
        box.resize(20, 20);
        QImage image(100, 100, QImage::Format_RGB32);
        image.fill(Qt::green);
        box.setPicture(Picture(image));
        QCOMPARE(box.grab().toImage().pixelColor(10, 10), QColor(Qt::green));
        image.fill(Qt::red);
        box.setPicture(Picture(image));
        QCOMPARE(box.grab().toImage().pixelColor(10, 10), QColor(Qt::red));
        box.resize(60, 10);
        QCOMPARE(box.grab().toImage().pixelColor(58, 8), QColor(Qt::red));
    }

    void nullPictureLetsTheBackgroundThrough() {
        QWidget parent;
        QPalette palette = parent.palette();
        palette.setColor(QPalette::Window, Qt::yellow);
        parent.setPalette(palette);
        ImageBox box(&parent);
        box.resize(20, 20);
        box.setPicture(Picture(halves({20, 20})));
        box.setPicture({});
        QVERIFY(box.pixmap().isNull());
        QVERIFY(box.picture().isNull());
        QCOMPARE(parent.grab().toImage().pixelColor(5, 5), QColor(Qt::yellow));
    }

    void targetSizeIsInDevicePixels() {
        ImageBox box;
        box.resize(33, 21);
        const qreal ratio = box.devicePixelRatioF();
        QCOMPARE(box.targetSize(), (QSizeF(33, 21) * ratio).toSize());
    }

    void mouseIsTold_data() {
        QTest::addColumn<QString>("gesture");
        QTest::addColumn<QStringList>("told");
        QTest::newRow("click") << u"click"_s << QStringList{u"pressed"_s, u"released"_s, u"clicked"_s};
        QTest::newRow("right") << u"right"_s << QStringList{u"pressed"_s, u"released"_s};
        QTest::newRow("left outside") << u"outside"_s << QStringList{u"pressed"_s, u"released"_s};
        QTest::newRow("double") << u"double"_s
                                << QStringList{u"pressed"_s, u"released"_s, u"clicked"_s, u"double"_s, u"released"_s};
        QTest::newRow("hover") << u"hover"_s << QStringList{u"moved"_s};
    }

    void mouseIsTold() {
        QFETCH(const QString, gesture);
        QFETCH(const QStringList, told);
        ImageBox box;
        box.resize(40, 40);
        box.show();
        QVERIFY(QTest::qWaitForWindowExposed(&box));
        QStringList log;
        connect(&box, &ImageBox::mousePressed, this, [&] { log += u"pressed"_s; });
        connect(&box, &ImageBox::mouseReleased, this, [&] { log += u"released"_s; });
        connect(&box, &ImageBox::clicked, this, [&] { log += u"clicked"_s; });
        connect(&box, &ImageBox::doubleClicked, this, [&] { log += u"double"_s; });
        connect(&box, &ImageBox::mouseMoved, this, [&] { log += u"moved"_s; });

        if (gesture == u"click"_s) QTest::mouseClick(&box, Qt::LeftButton, {}, {5, 5});
        if (gesture == u"right"_s) QTest::mouseClick(&box, Qt::RightButton, {}, {5, 5});
        if (gesture == u"double"_s) QTest::mouseDClick(box.windowHandle(), Qt::LeftButton, {}, {5, 5});
        if (gesture == u"outside"_s) {
            QTest::mousePress(&box, Qt::LeftButton, {}, {5, 5});
            QTest::mouseRelease(&box, Qt::LeftButton, {}, {50, 50});
        }
        if (gesture == u"hover"_s) {
            QMouseEvent move(QEvent::MouseMove, QPointF(7, 7), box.mapToGlobal(QPointF(7, 7)), Qt::NoButton, {}, {});
            QApplication::sendEvent(&box, &move);
        }
        if (gesture != u"hover"_s) log.removeAll(u"moved"_s);
        QCOMPARE(log, told);
    }
};

const Registered<TestImageBox> registered;

}  // namespace

#include "image_box_test.moc"
