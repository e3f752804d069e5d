#include "../../support/run_all.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/shapes.h"
#include "platform/desktop/surface.h"

#include <QPushButton>
#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

QColor colourAt(QWidget& widget, int x, int y) {
    const QImage image = widget.grab().toImage();
    return image.pixelColor(qRound(x * image.devicePixelRatio()), qRound(y * image.devicePixelRatio()));
}

class TestShapesAndSurface : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void lineCoversItsEnds_data() {
        QTest::addColumn<QList<int>>("ends");
        QTest::addColumn<QRect>("geometry");
        QTest::newRow("horizontal") << QList<int>{150, 300, 450, 300} << QRect(10, 20, 21, 1);
        QTest::newRow("vertical, upwards") << QList<int>{150, 450, 150, 300} << QRect(10, 20, 1, 11);
        QTest::newRow("slanting") << QList<int>{450, 300, 150, 450} << QRect(10, 20, 21, 11);
        QTest::newRow("point") << QList<int>{150, 300, 150, 300} << QRect(10, 20, 1, 1);
        QTest::newRow("off the pixels") << QList<int>{157, 300, 458, 300} << QRect(10, 20, 22, 1);
    }

    void lineCoversItsEnds() {
        QFETCH(const QList<int>, ends);
        QFETCH(const QRect, geometry);
        LineBox line;
        line.setEnds(ends[0], ends[1], ends[2], ends[3]);
        QCOMPARE(line.geometry(), geometry);
        QCOMPARE((QList<int>{line.x1(), line.y1(), line.x2(), line.y2()}), ends);
    }

    void linesArePaintedFromEndToEnd() {
        QWidget form;
        form.resize(60, 60);
        auto* level = new LineBox(&form);
        level->setColor(Qt::red);
        level->setEnds(150, 150, 600, 150);
        auto* rising = new LineBox(&form);
        rising->setColor(Qt::blue);
        rising->setEnds(150, 750, 750, 300);  // from the lower left to the upper right
        QCOMPARE(colourAt(form, 10, 10), QColor(Qt::red));
        QCOMPARE(colourAt(form, 40, 10), QColor(Qt::red));
        QVERIFY(colourAt(form, 30, 35).blue() > colourAt(form, 30, 35).red());
        QCOMPARE(colourAt(form, 15, 25), colourAt(form, 0, 0));
    }

    void shapeShowsBorderAndFill() {
        ShapeBox shape;
        shape.resize(30, 20);
        shape.setBorderColor(Qt::red);
        const QColor ground = colourAt(shape, 15, 10);
        QCOMPARE(colourAt(shape, 0, 0), QColor(Qt::red));
        QCOMPARE(colourAt(shape, 29, 19), QColor(Qt::red));
        QVERIFY(colourAt(shape, 1, 1) != QColor(Qt::red));
        shape.setFillColor(Qt::yellow);
        QCOMPARE(colourAt(shape, 1, 1), QColor(Qt::yellow));
        shape.setBorderWidth(3);
        QCOMPARE(colourAt(shape, 2, 2), QColor(Qt::red));
        shape.setFillColor({});
        QCOMPARE(colourAt(shape, 15, 10), ground);
    }

    void decorationsLetTheMouseThrough() {
        QWidget form;
        form.resize(100, 100);
        auto* button = new QPushButton(&form);
        button->setGeometry(0, 0, 100, 100);
        auto* shape = new ShapeBox(&form);
        shape->setGeometry(0, 0, 100, 100);
        auto* line = new LineBox(&form);
        line->setEnds(0, 0, 1500, 1500);
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        QSignalSpy clicked(button, &QPushButton::clicked);
        QTest::mouseClick(form.windowHandle(), Qt::LeftButton, {}, {50, 50});
        QCOMPARE(clicked.size(), 1);
    }

    void draggingMovesASurfaceWithinItsParent_data() {
        QTest::addColumn<bool>("draggable");
        QTest::addColumn<QPoint>("by");
        QTest::addColumn<QPoint>("place");
        QTest::newRow("a little") << true << QPoint(15, -20) << QPoint(65, 30);
        QTest::newRow("not draggable") << false << QPoint(15, 20) << QPoint(50, 50);
        QTest::newRow("never beyond the left") << true << QPoint(-900, 0) << QPoint(-76, 50);
        QTest::newRow("never beyond the lower right") << true << QPoint(900, 900) << QPoint(376, 276);
        QTest::newRow("never above") << true << QPoint(0, -900) << QPoint(50, 0);
    }

    void draggingMovesASurfaceWithinItsParent() {
        QFETCH(const bool, draggable);
        QFETCH(const QPoint, by);
        QFETCH(const QPoint, place);
        QWidget form;
        form.resize(400, 300);
        auto* surface = new Surface(&form);
        surface->setGeometry(50, 50, 100, 80);
        surface->setDraggable(draggable);
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        QSignalSpy pressed(surface, &Surface::mousePressed);
        QSignalSpy moved(surface, &Surface::mouseMoved);
        const QPoint start(55, 60);
        QTest::mousePress(form.windowHandle(), Qt::LeftButton, {}, start);
        QTest::mouseMove(form.windowHandle(), start + by / 2);
        QTest::mouseMove(form.windowHandle(), start + by);
        QTest::mouseRelease(form.windowHandle(), Qt::LeftButton, {}, start + by);
        QCOMPARE(surface->pos(), place);
        QCOMPARE(pressed.size(), 1);
        QVERIFY(moved.size() >= 2);
        QTest::mouseMove(form.windowHandle(), QPoint(200, 150));
        QCOMPARE(surface->pos(), place);
    }
};

const Registered<TestShapesAndSurface> registered;

}  // namespace

#include "shapes_and_surface_test.moc"
