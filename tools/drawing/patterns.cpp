#include "drawing/canvas.h"
#include "drawing/scenes.h"

#include <cmath>
#include <numbers>

QImage seedSpiral(QSize size) {
    QImage image = canvas(size);
    const double w = size.width();
    const double h = size.height();
    QPainter painter(&image);
    makeSmooth(painter);
    wash(painter, image.rect(), {{0, QColor(16, 44, 60)}, {1, QColor(10, 24, 44)}});
    const QPointF heart(w * 0.5, h * 0.5);
    const Stops hues{{0, QColor(255, 238, 190)},
                     {0.25, QColor(246, 178, 84)},
                     {0.5, QColor(224, 96, 76)},
                     {0.75, QColor(86, 130, 150)},
                     {1, QColor(40, 84, 112)}};
    const int seeds = 1300;
    for (int i = seeds; i > 0; --i) {
        const double share = double(i) / seeds;
        const double angle = i * 137.50776;
        const QPointF place = polar(heart, h * 0.62 * std::sqrt(share), angle);
        const double radius = h * (0.003 + 0.0115 * std::sqrt(share));
        const QColor colour = colourAt(hues, share + 0.05 * std::sin(angle * 0.05));
        painter.setBrush(faded(Qt::black, 0.22));
        painter.drawEllipse(place + QPointF(radius * 0.22, radius * 0.3), radius, radius);
        QRadialGradient fill(place - QPointF(radius, radius) * 0.35, radius * 1.6);
        fill.setColorAt(0, colour.lighter(135));
        fill.setColorAt(1, colour.darker(118));
        painter.setBrush(fill);
        painter.drawPath(petal(polar(place, radius * 1.25, angle + 180), angle, radius * 2.5, radius * 1.12, 0.62));
    }
    painter.end();
    vignette(image, 0.25);
    return image;
}

QImage latticeWindow(QSize size) {
    QImage image = canvas(size);
    const double w = size.width();
    const double h = size.height();
    // A garden in soft focus behind the carved window.
    const Noise garden(15);
    shade(image, [&](double x, double y) {
        const double tone = garden.fractal(x * 4, y * 4, 4);
        const QColor leaf = mixed(QColor(66, 116, 84), QColor(206, 220, 150), tone);
        return mixed(mixed(QColor(236, 240, 226), leaf, eased(y * 1.6 - 0.1)), QColor(244, 150, 160),
                     eased((garden.fractal(x * 7 + 9, y * 7, 3) - 0.62) * 6) * 0.8);
    });
    blur(image, 4);
    QPainter painter(&image);
    makeSmooth(painter);
    QPainterPath wall;
    wall.addRect(image.rect());
    const QPointF centre(w / 2, h / 2);
    const double radius = h * 0.43;
    QPainterPath opening;
    opening.addEllipse(centre, radius, radius);
    // The ice-ray lattice is a square net turned by 45 degrees, with octagons at its crossings.
    painter.save();
    painter.setClipPath(opening);
    const auto bars = [&](const QColor& colour, double width, QPointF shift) {
        painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        painter.setBrush(Qt::NoBrush);
        const double cell = radius / 3.0;
        for (int row = -4; row <= 4; ++row) {
            for (int column = -4; column <= 4; ++column) {
                const QPointF knot = centre + shift + QPointF(column * cell, row * cell);
                if ((row + column) % 2 == 0) {
                    QPolygonF octagon;
                    for (int i = 0; i < 8; ++i) octagon << polar(knot, cell * 0.54, 22.5 + i * 45);
                    painter.drawPolygon(octagon);
                    painter.drawRect(QRectF(knot.x() - cell * 0.2, knot.y() - cell * 0.2, cell * 0.4, cell * 0.4));
                } else {
                    painter.drawLine(knot - QPointF(cell * 0.5, 0), knot + QPointF(cell * 0.5, 0));
                    painter.drawLine(knot - QPointF(0, cell * 0.5), knot + QPointF(0, cell * 0.5));
                }
            }
        }
    };
    bars(QColor(0, 0, 0, 70), h * 0.016, {3, 4});
    bars(QColor(92, 50, 36), h * 0.014, {});
    bars(QColor(140, 84, 58), h * 0.005, {-1, -1});
    painter.restore();
    QLinearGradient plaster(0, 0, w, h);
    plaster.setColorAt(0, QColor(250, 247, 240));
    plaster.setColorAt(1, QColor(224, 216, 202));
    painter.setBrush(plaster);
    painter.setPen(Qt::NoPen);
    painter.drawPath(wall.subtracted(opening));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(70, 64, 62), h * 0.030));
    painter.drawEllipse(centre, radius, radius);
    painter.setPen(QPen(QColor(120, 112, 106), h * 0.006));
    painter.drawEllipse(centre, radius + h * 0.012, radius + h * 0.012);
    painter.setPen(Qt::NoPen);
    Dice dice(37);
    for (int i = 0; i < 46; ++i) {  // the shadow of leaves falls on the wall
        painter.setBrush(QColor(70, 76, 84, 40));
        const QPointF place(w * dice.between(0.84, 1.02), h * dice.between(-0.02, 0.55));
        painter.drawPath(petal(place, 120 + dice.bell() * 60, h * dice.between(0.08, 0.15), h * 0.008, 0.4));
    }
    painter.end();
    grain(image, 3, 27);
    return image;
}

QImage seaWaves(QSize size) {
    QImage image = canvas(size, QColor(18, 52, 92));
    const double w = size.width();
    const double h = size.height();
    QPainter painter(&image);
    makeSmooth(painter);
    const double radius = w / 12.0;
    const Stops blues{{0, QColor(206, 226, 226)}, {0.4, QColor(86, 146, 176)}, {1, QColor(16, 56, 104)}};
    const int rows = int(h / (radius * 0.5)) + 3;
    for (int row = 0; row < rows; ++row) {
        const double y = row * radius * 0.5;
        const double share = double(row) / rows;
        for (int column = -1; column < 14; ++column) {
            const QPointF centre(column * radius * 2 * 0.5 * 2 + (row % 2) * radius, y);
            const double crest = 0.5 + 0.5 * std::sin(column * 0.9 + row * 0.55);
            const QColor base = colourAt(blues, share * 0.75 + 0.25 * crest);
            for (int ring = 0; ring < 5; ++ring) {
                const double size_ = radius * (1 - ring * 0.2);
                painter.setBrush(ring % 2 == 0 ? base : mixed(base, QColor(252, 248, 236), 0.82));
                painter.drawEllipse(centre, size_, size_);
            }
        }
    }
    // A gold sun rises out of the waves.
    QPainterPath sky;
    sky.addRect(QRectF(0, 0, w, h * 0.36));
    painter.setClipPath(sky);
    QRadialGradient gold(QPointF(w * 0.5, h * 0.36), h * 0.36);
    gold.setColorAt(0, QColor(252, 226, 150));
    gold.setColorAt(1, QColor(214, 150, 66));
    wash(painter, QRectF(0, 0, w, h * 0.36), {{0, QColor(244, 232, 206)}, {1, QColor(250, 216, 164)}});
    painter.setBrush(gold);
    painter.drawEllipse(QPointF(w * 0.5, h * 0.37), h * 0.24, h * 0.24);
    painter.setClipping(false);
    for (int column = -1; column < 8; ++column) {
        for (int ring = 0; ring < 5; ++ring) {
            const double size_ = radius * (1 - ring * 0.2);
            painter.setBrush(ring % 2 == 0 ? QColor(70, 132, 168) : QColor(240, 242, 232));
            painter.drawPie(QRectF(column * radius * 2 - size_ + radius, h * 0.36 - size_ + 2, size_ * 2, size_ * 2), 0,
                            180 * 16);
        }
    }
    painter.end();
    return image;
}

QImage paperCut(QSize size) {
    QImage image = canvas(size, QColor(250, 240, 222));
    const double w = size.width();
    const double h = size.height();
    const QPointF heart;
    const double r = h * 0.44;
    QPainterPath paper;
    for (int i = 0; i < 12; ++i) {
        QPainterPath scallop;
        scallop.addEllipse(polar(heart, r * 0.80, i * 30 + 15), r * 0.24, r * 0.24);
        paper = paper.united(scallop);
    }
    QPainterPath disc;
    disc.addEllipse(heart, r * 0.84, r * 0.84);
    paper = paper.united(disc);
    const auto hole = [&](const QPainterPath& shape) { paper = paper.subtracted(shape); };
    for (int i = 0; i < 12; ++i) {
        const double a = i * 30;
        hole(petal(polar(heart, r * 0.60, a), a, r * 0.20, r * 0.055));
        QPainterPath dot;
        dot.addEllipse(polar(heart, r * 0.88, a + 15), r * 0.07, r * 0.07);
        dot.addEllipse(polar(heart, r * 0.80, a + 7), r * 0.022, r * 0.022);
        dot.addEllipse(polar(heart, r * 0.80, a - 7), r * 0.022, r * 0.022);
        hole(dot);
        hole(petal(polar(heart, r * 0.62, a + 15), a + 15 + 40, r * 0.13, r * 0.022));
        hole(petal(polar(heart, r * 0.62, a + 15), a + 15 - 40, r * 0.13, r * 0.022));
    }
    QPainterPath ring;
    ring.addEllipse(heart, r * 0.555, r * 0.555);
    QPainterPath inner;
    inner.addEllipse(heart, r * 0.525, r * 0.525);
    ring = ring.subtracted(inner);
    for (int i = 0; i < 6; ++i) {  // bridges keep the paper in one piece
        QPainterPath bridge;
        bridge.addEllipse(polar(heart, r * 0.54, i * 60 + 30), r * 0.035, r * 0.035);
        ring = ring.subtracted(bridge);
    }
    hole(ring);
    for (int i = 0; i < 6; ++i) {
        const double a = i * 60;
        QPainterPath leaf = petal(polar(heart, r * 0.16, a), a, r * 0.34, r * 0.13);
        hole(leaf.subtracted(petal(polar(heart, r * 0.19, a), a, r * 0.27, r * 0.085)));
        hole(petal(polar(heart, r * 0.24, a), a, r * 0.17, r * 0.035));
        hole(petal(polar(heart, r * 0.22, a + 30), a + 30, r * 0.24, r * 0.045));
        QPainterPath dot;
        dot.addEllipse(polar(heart, r * 0.09, a + 30), r * 0.022, r * 0.022);
        hole(dot);
    }
    QPainter painter(&image);
    makeSmooth(painter);
    for (int i = -1; i < 17; ++i) painter.fillRect(QRectF(i * w / 16, 0, w / 32, h), QColor(246, 232, 208));
    painter.translate(w / 2 + 5, h / 2 + 7);
    painter.setBrush(QColor(90, 30, 10, 70));
    painter.drawPath(paper);
    painter.translate(-5, -7);
    QLinearGradient red(-r, -r, r, r);
    red.setColorAt(0, QColor(222, 44, 44));
    red.setColorAt(1, QColor(176, 20, 32));
    painter.setBrush(red);
    painter.drawPath(paper);
    painter.end();
    grain(image, 3, 28);
    return image;
}
