#include "drawing/canvas.h"
#include "drawing/scenes.h"

#include <cmath>

namespace {

/// Fills a petal from its root to its tip and draws a few fine veins along it.
void paintPetal(QPainter& painter, QPointF root, double angle, double length, double width, const QColor& inner,
                const QColor& outer, double veins = 0.25) {
    QLinearGradient fill(root, polar(root, length, angle));
    fill.setColorAt(0, inner);
    fill.setColorAt(1, outer);
    painter.setPen(QPen(faded(inner.darker(125), 0.45), 0.8));
    painter.setBrush(fill);
    const QPainterPath shape = petal(root, angle, length, width, 0.72);
    painter.drawPath(shape);
    painter.save();
    painter.setClipPath(shape);
    painter.setPen(QPen(faded(outer.darker(118), veins), 0.8));
    for (int i = -3; i <= 3; ++i) {
        QPainterPath vein(root);
        vein.quadTo(polar(root, length * 0.55, angle + i * 9), polar(root, length, angle + i * 5));
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(vein);
    }
    painter.restore();
    painter.setPen(Qt::NoPen);
}

void lotusLeaf(QPainter& painter, QPointF centre, double radius, double flat, const QColor& colour, Dice& dice) {
    painter.save();
    painter.translate(centre);
    painter.scale(1, flat);
    QRadialGradient fill(QPointF(-radius * 0.2, -radius * 0.25), radius * 1.3);
    fill.setColorAt(0, colour.lighter(128));
    fill.setColorAt(1, colour.darker(135));
    QPainterPath edge;
    for (int i = 0; i <= 72; ++i) {
        const QPointF place = polar({}, radius * (1 + 0.035 * std::sin(i * 0.9) + dice.bell() * 0.012), i * 5);
        i == 0 ? edge.moveTo(place) : edge.lineTo(place);
    }
    painter.setBrush(fill);
    painter.drawPath(edge);
    painter.setPen(QPen(faded(colour.lighter(165), 0.55), 1.3));
    for (int i = 0; i < 17; ++i) {
        const double angle = i * 360.0 / 17 + dice.bell() * 4;
        const QPointF fork = polar({}, radius * 0.62, angle);
        painter.drawLine(QPointF(), fork);
        painter.drawLine(fork, polar({}, radius * 0.93, angle - 6));
        painter.drawLine(fork, polar({}, radius * 0.93, angle + 6));
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour.lighter(170));
    painter.drawEllipse(QPointF(), radius * 0.05, radius * 0.05);
    painter.restore();
}

void lotusFlower(QPainter& painter, QPointF heart, double size) {
    const QColor pale(255, 240, 240);
    const QColor pink(232, 96, 138);
    for (double angle : {-172.0, -8.0, -158.0, -22.0, -140.0, -40.0})
        paintPetal(painter, heart, angle, size * 0.92, size * 0.23, pale, pink);
    for (double angle : {-118.0, -62.0, -90.0}) paintPetal(painter, heart, angle, size * 1.05, size * 0.27, pale, pink);
    painter.setBrush(QColor(236, 190, 70));
    painter.drawEllipse(heart + QPointF(0, -size * 0.16), size * 0.16, size * 0.10);
    painter.setBrush(QColor(176, 184, 76));
    painter.drawEllipse(heart + QPointF(0, -size * 0.19), size * 0.11, size * 0.065);
    for (double angle : {-150.0, -30.0})
        paintPetal(painter, heart + QPointF(0, size * 0.05), angle, size * 0.80, size * 0.24, pale, pink.lighter(112));
    for (double angle : {-128.0, -52.0, -90.0})
        paintPetal(painter, heart + QPointF(0, size * 0.10), angle, size * (angle == -90 ? 0.62 : 0.72), size * 0.25,
                   pale, pink.lighter(120));
}

void blossom(QPainter& painter, QPointF centre, double radius, double turn, Dice& dice) {
    const QColor rose = mixed(QColor(222, 70, 92), QColor(246, 140, 150), dice.unit());
    for (int i = 0; i < 5; ++i) {
        const QPointF middle = polar(centre, radius * 0.55, turn + i * 72);
        QRadialGradient fill(centre, radius * 1.15);
        fill.setColorAt(0, rose.darker(118));
        fill.setColorAt(0.45, rose);
        fill.setColorAt(1, rose.lighter(138));
        painter.setBrush(fill);
        painter.drawEllipse(middle, radius * 0.47, radius * 0.47);
    }
    painter.setPen(QPen(QColor(255, 232, 200), std::max(0.8, radius * 0.05)));
    for (int i = 0; i < 9; ++i) painter.drawLine(centre, polar(centre, radius * 0.5, turn + i * 40));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(248, 206, 90));
    for (int i = 0; i < 9; ++i)
        painter.drawEllipse(polar(centre, radius * 0.52, turn + i * 40), radius * 0.07, radius * 0.07);
}

}  // namespace

QImage lotus(QSize size) {
    QImage image = canvas(size);
    const double w = size.width();
    const double h = size.height();
    const Noise water(61);
    shade(image, [&](double x, double y) {
        const double tone = water.fractal(x * 3, y * 8, 5);
        return mixed(mixed(QColor(20, 66, 72), QColor(88, 138, 120), y * 0.4 + tone * 0.6), QColor(206, 220, 190),
                     eased((tone - 0.62) * 5) * 0.35);
    });
    QPainter painter(&image);
    makeSmooth(painter);
    Dice dice(23);
    for (int i = 0; i < 13; ++i)
        lotusLeaf(painter, {w * dice.unit(), h * (0.04 + 0.28 * dice.unit())}, w * dice.between(0.06, 0.12), 0.42,
                  mixed(QColor(30, 92, 78), QColor(66, 130, 92), dice.unit()), dice);
    painter.end();
    blur(image, 5);  // the background is out of focus
    painter.begin(&image);
    makeSmooth(painter);
    lotusLeaf(painter, {w * 0.20, h * 0.62}, w * 0.26, 0.50, QColor(52, 126, 82), dice);
    lotusLeaf(painter, {w * 0.86, h * 0.56}, w * 0.22, 0.46, QColor(40, 110, 78), dice);
    lotusLeaf(painter, {w * 0.60, h * 0.93}, w * 0.30, 0.48, QColor(64, 142, 84), dice);
    painter.setPen(QPen(QColor(74, 122, 74), w * 0.011, Qt::SolidLine, Qt::RoundCap));
    painter.setBrush(Qt::NoBrush);
    QPainterPath stalks(QPointF(w * 0.50, h * 0.60));
    stalks.quadTo(w * 0.53, h * 0.75, w * 0.51, h * 0.92);
    stalks.moveTo(w * 0.765, h * 0.30);
    stalks.quadTo(w * 0.74, h * 0.50, w * 0.76, h * 0.78);
    painter.drawPath(stalks);
    painter.setPen(Qt::NoPen);
    lotusFlower(painter, {w * 0.495, h * 0.57}, w * 0.23);
    for (double angle : {-112.0, -68.0, -90.0})
        paintPetal(painter, {w * 0.765, h * 0.315}, angle, h * 0.20, w * 0.034, QColor(255, 226, 226),
                   QColor(222, 74, 120));
    for (int i = 0; i < 7; ++i) {
        const QPointF drop(w * (0.10 + dice.unit() * 0.2), h * (0.56 + dice.unit() * 0.13));
        glow(painter, drop, w * 0.012, QColor(255, 255, 255, 230));
    }
    painter.end();
    vignette(image, 0.35);
    grain(image, 3, 20);
    return image;
}

QImage plumBranch(QSize size) {
    QImage image = canvas(size);
    const double w = size.width();
    const double h = size.height();
    const Noise paper(9);
    shade(image, [&](double x, double y) {
        return mixed(QColor(246, 236, 218), QColor(226, 212, 188),
                     paper.fractal(x * 5, y * 6, 5) * 0.8 + (y - 0.5) * 0.2);
    });
    QPainter painter(&image);
    makeSmooth(painter);
    glow(painter, {w * 0.66, h * 0.20}, w * 0.30, QColor(255, 252, 240, 210));
    painter.setBrush(QColor(255, 250, 236));
    painter.drawEllipse(QPointF(w * 0.66, h * 0.20), w * 0.15, w * 0.15);
    Dice dice(25);
    std::vector<QPointF> twigs;
    const std::function<void(QPointF, double, double, double)> grow = [&](QPointF from, double angle, double length,
                                                                          double thick) {
        QPointF at = from;
        const int steps = 9;
        for (int i = 0; i < steps; ++i) {
            angle += dice.bell() * 13;
            const QPointF to = polar(at, length / steps, angle);
            painter.setPen(QPen(mixed(QColor(46, 34, 32), QColor(96, 72, 62), dice.unit() * 0.6),
                                thick * (1 - 0.5 * i / steps), Qt::SolidLine, Qt::RoundCap));
            painter.drawLine(at, to);
            at = to;
            if (thick < w * 0.014) twigs.push_back(to);
            if (i > 1 && thick > 2.4 && dice.unit() < 0.34)
                grow(at, angle + (dice.unit() < 0.5 ? -1 : 1) * dice.between(28, 62), length * dice.between(0.38, 0.62),
                     thick * 0.52);
        }
    };
    grow({-w * 0.04, h * 0.98}, -62, h * 0.62, w * 0.042);
    grow({-w * 0.02, h * 0.66}, -28, h * 0.50, w * 0.024);
    painter.setPen(Qt::NoPen);
    for (const QPointF& twig : twigs) {
        if (dice.unit() < 0.42) {
            blossom(painter, twig + QPointF(dice.bell(), dice.bell()) * w * 0.012, w * dice.between(0.020, 0.036),
                    dice.unit() * 72, dice);
        } else if (dice.unit() < 0.4) {
            painter.setBrush(QColor(206, 62, 84));
            painter.drawEllipse(twig, w * 0.008, w * 0.009);
        }
    }
    for (int i = 0; i < 12; ++i) {
        painter.setBrush(QColor(236, 120, 136, 190));
        painter.drawPath(petal({w * dice.between(0.3, 0.98), h * dice.between(0.55, 0.97)}, dice.unit() * 360,
                               w * 0.022, w * 0.009));
    }
    painter.end();
    grain(image, 5, 21);
    return image;
}

QImage bamboo(QSize size) {
    QImage image = canvas(size);
    const double w = size.width();
    const double h = size.height();
    QPainter painter(&image);
    makeSmooth(painter);
    wash(painter, image.rect(), {{0, QColor(236, 244, 222)}, {0.5, QColor(200, 222, 190)}, {1, QColor(128, 166, 136)}});
    Dice dice(27);
    for (int layer = 0; layer < 4; ++layer) {
        const double near = layer / 3.0;
        const QColor green = mixed(QColor(184, 210, 176), QColor(38, 92, 58), near);
        for (int stalk = 0; stalk < 9 - layer * 2; ++stalk) {
            const double thick = w * (0.012 + 0.034 * near * near) * dice.between(0.8, 1.2);
            const double x = w * dice.between(-0.02, 1.02);
            const double lean = dice.bell() * w * 0.07;
            const double joint = h * dice.between(0.10, 0.15);
            double y = h + joint * dice.unit();
            while (y > -joint) {
                const double shift = lean * (1 - y / h);
                QLinearGradient fill(x + shift - thick / 2, 0, x + shift + thick / 2, 0);
                fill.setColorAt(0, green.darker(135));
                fill.setColorAt(0.35, green.lighter(140));
                fill.setColorAt(1, green.darker(125));
                painter.setBrush(fill);
                painter.drawRoundedRect(QRectF(x + shift - thick / 2, y - joint + 2, thick, joint - 2), thick * 0.25,
                                        thick * 0.25);
                painter.setBrush(faded(QColor(240, 248, 220), 0.5));
                painter.drawRect(QRectF(x + shift - thick * 0.52, y - joint + 1, thick * 1.04, 1.6));
                if (dice.unit() < 0.45) {
                    const double side = dice.unit() < 0.5 ? 180 : 0;
                    const QPointF knot(x + shift, y - joint);
                    const QPointF tip = polar(knot, joint * 0.8, side + (side > 0 ? 1 : -1) * dice.between(10, 40));
                    painter.setPen(QPen(green, std::max(1.0, thick * 0.08)));
                    painter.drawLine(knot, tip);
                    painter.setPen(Qt::NoPen);
                    for (int leaf = 0; leaf < 6; ++leaf) {
                        painter.setBrush(mixed(green.darker(112), QColor(150, 190, 96), dice.unit() * 0.6));
                        painter.drawPath(petal(knot + (tip - knot) * dice.between(0.5, 1),
                                               (side > 0 ? 180 : 0) + (side > 0 ? -1 : 1) * dice.between(-8, 62),
                                               joint * dice.between(0.5, 0.85), joint * 0.055, 0.4));
                    }
                }
                y -= joint;
            }
        }
        painter.fillRect(image.rect(), QColor(232, 240, 216, 46 - layer * 14));
    }
    glow(painter, {w * 0.78, h * 0.10}, w * 0.9, QColor(255, 252, 220, 150));
    painter.end();
    grain(image, 3, 22);
    return image;
}
