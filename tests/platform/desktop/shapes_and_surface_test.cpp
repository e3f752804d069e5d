#include "desktop.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/shapes.h"
#include "platform/desktop/surface.h"

using namespace Qt::Literals::StringLiterals;

class TestShapesAndSurface : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void lineCoversItsEnds() {
        const std::pair<QList<int>, QRect> cases[] = {
            {{150, 300, 450, 300}, {10, 20, 21, 1}},  {{150, 450, 150, 300}, {10, 20, 1, 11}},
            {{450, 300, 150, 450}, {10, 20, 21, 11}},  // slanting
            {{150, 300, 150, 300}, {10, 20, 1, 1}},   {{157, 300, 458, 300}, {10, 20, 22, 1}},
        };
        for (const auto& [ends, geometry] : cases) {
            LineBox line;
            line.setEnds(ends[0], ends[1], ends[2], ends[3]);
            QCOMPARE(line.geometry(), geometry);
            QCOMPARE((QList<int>{line.x1(), line.y1(), line.x2(), line.y2()}), ends);
        }
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
        QCOMPARE(colourAt(shape, 0, 0), Qt::red);
        QCOMPARE(colourAt(shape, 29, 19), Qt::red);
        QVERIFY(colourAt(shape, 1, 1) != Qt::red);
        shape.setFillColor(Qt::yellow);
        QCOMPARE(colourAt(shape, 1, 1), Qt::yellow);
        shape.setBorderWidth(3);
        QCOMPARE(colourAt(shape, 2, 2), Qt::red);
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
        QVERIFY(isShown(form));
        QSignalSpy clicked(button, &QPushButton::clicked);
        QTest::mouseClick(form.windowHandle(), Qt::LeftButton, {}, {50, 50});
        QCOMPARE(clicked.size(), 1);
    }

    void draggingMovesASurfaceWithinItsParent() {
        const std::tuple<bool, QPoint, QPoint> cases[] = {
            {true, QPoint(15, -20), QPoint(65, 30)},     // a little
            {false, QPoint(15, 20), QPoint(50, 50)},     // not draggable
            {true, QPoint(-900, 0), QPoint(-76, 50)},    // never beyond the left
            {true, QPoint(900, 900), QPoint(376, 276)},  // never beyond the lower right
            {true, QPoint(0, -900), QPoint(50, 0)},      // never above
        };
        for (const auto& [draggable, by, place] : cases) {
            QWidget form;
            form.resize(400, 300);
            auto* surface = new Surface(&form);
            surface->setGeometry(50, 50, 100, 80);
            surface->setDraggable(draggable);
            QVERIFY(isShown(form));
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
    }
};

const Registered<TestShapesAndSurface> registered;

#include "shapes_and_surface_test.moc"
