#include "drawing/canvas.h"
#include "drawing/scenes.h"

#include <array>
#include <cmath>

namespace {

/// A maple leaf of seven pointed lobes around the end of its stalk.
QPainterPath mapleLeaf(double size) {
    const std::array<std::pair<double, double>, 7> lobes{
        {{-90, 1.0}, {-45, 0.92}, {0, 0.70}, {38, 0.36}, {142, 0.36}, {180, 0.70}, {225, 0.92}}};
    std::vector<QPointF> points;
    const std::array<int, 7> order{4, 5, 6, 0, 1, 2, 3};
    for (std::size_t i = 0; i < order.size(); ++i) {
        const auto [angle, reach] = lobes[std::size_t(order[i])];
        const auto at = [&, angle = angle, reach = reach](double r, double a) {
            points.push_back(polar({}, size * r * reach, angle + a));
        };
        at(0.56, -15);
        at(0.66, -17);
        at(0.70, -9);
        at(1.0, 0);
        at(0.70, 9);
        at(0.66, 17);
        at(0.56, 15);
        if (i + 1 < order.size()) {
            const double next = lobes[std::size_t(order[i + 1])].first;
            double middle = (angle + next) / 2;
            if (std::abs(angle - next) > 180) middle += 180;
            points.push_back(polar({}, size * 0.24, middle));
        }
    }
    QPainterPath path(points.front());
    for (const QPointF& point : points) path.lineTo(point);
    path.lineTo(0, size * 0.10);
    path.closeSubpath();
    return path;
}

void paintMaple(QPainter& painter, QPointF centre, double size, double turn, double tilt, const QColor& colour) {
    painter.save();
    painter.translate(centre);
    painter.rotate(turn);
    painter.scale(1, tilt);
    QRadialGradient fill(QPointF(0, 0), size);
    fill.setColorAt(0, mixed(colour, QColor(255, 200, 90), 0.5));
    fill.setColorAt(1, colour);
    painter.setPen(QPen(colour.darker(130), 0.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(fill);
    painter.drawPath(mapleLeaf(size));
    painter.setPen(QPen(faded(QColor(255, 226, 160), 0.6), std::max(0.8, size * 0.014)));
    for (double angle : {-90.0, -45.0, 0.0, 180.0, 225.0}) painter.drawLine(QPointF(), polar({}, size * 0.62, angle));
    painter.setPen(QPen(colour.darker(150), std::max(1.0, size * 0.028), Qt::SolidLine, Qt::RoundCap));
    QPainterPath stalk(QPointF(0, 0));
    stalk.quadTo(size * 0.04, size * 0.3, size * 0.16, size * 0.58);
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(stalk);
    painter.restore();
    painter.setPen(Qt::NoPen);
}

}  // namespace

QImage mapleLeaves(QSize size) {
    QImage image = canvas(size);
    const double w = size.width();
    const double h = size.height();
    const Noise light(71);
    shade(image, [&](double x, double y) {
        const double tone = light.fractal(x * 2.5, y * 2.5, 4);
        return mixed(mixed(QColor(66, 30, 26), QColor(214, 116, 40), tone), QColor(255, 224, 150),
                     eased(1 - std::hypot(x - 0.30, y - 0.18) * 1.3) * 0.75);
    });
    QPainter painter(&image);
    makeSmooth(painter);
    Dice dice(29);
    const std::vector<QColor> reds{QColor(196, 34, 30), QColor(226, 66, 34), QColor(238, 108, 36), QColor(166, 24, 32),
                                   QColor(242, 150, 46)};
    const auto leaf = [&](double low, double high) {
        paintMaple(painter, {w * dice.between(-0.05, 1.05), h * dice.between(-0.05, 1.05)}, w * dice.between(low, high),
                   dice.unit() * 360, dice.between(0.55, 1), reds[std::size_t(dice.below(5))]);
    };
    for (int i = 0; i < 26; ++i) leaf(0.05, 0.10);
    painter.end();
    blur(image, 9);
    painter.begin(&image);
    makeSmooth(painter);
    for (int i = 0; i < 16; ++i)
        glow(painter, {w * dice.unit(), h * dice.unit()}, w * dice.between(0.02, 0.06), QColor(255, 220, 140, 70));
    painter.setPen(QPen(QColor(58, 36, 30), w * 0.010, Qt::SolidLine, Qt::RoundCap));
    QPainterPath twig(QPointF(w * 1.02, h * 0.10));
    twig.cubicTo(w * 0.80, h * 0.12, w * 0.62, h * 0.24, w * 0.40, h * 0.26);
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(twig);
    painter.setPen(Qt::NoPen);
    paintMaple(painter, {w * 0.84, h * 0.34}, w * 0.15, 172, 0.9, reds[3]);
    paintMaple(painter, {w * 0.64, h * 0.42}, w * 0.17, 190, 0.95, reds[0]);
    paintMaple(painter, {w * 0.44, h * 0.44}, w * 0.20, 158, 1, reds[1]);
    paintMaple(painter, {w * 0.24, h * 0.78}, w * 0.13, 38, 0.8, reds[2]);
    paintMaple(painter, {w * 0.78, h * 0.82}, w * 0.11, -60, 0.7, reds[4]);
    painter.end();
    vignette(image, 0.35);
    grain(image, 3, 24);
    return image;
}

QImage dandelion(QSize size) {
    QImage image = canvas(size);
    const double w = size.width();
    const double h = size.height();
    QPainter painter(&image);
    makeSmooth(painter);
    wash(painter, image.rect(), {{0, QColor(54, 110, 128)}, {0.6, QColor(126, 168, 140)}, {1, QColor(204, 206, 140)}});
    Dice dice(31);
    for (int i = 0; i < 40; ++i)
        glow(painter, {w * dice.unit(), h * dice.unit()}, w * dice.between(0.03, 0.11), QColor(255, 250, 210, 46));
    const QPointF head(w * 0.36, h * 0.42);
    painter.setPen(QPen(QColor(92, 128, 74), w * 0.009, Qt::SolidLine, Qt::RoundCap));
    painter.setBrush(Qt::NoBrush);
    QPainterPath stalk(head);
    stalk.quadTo(w * 0.39, h * 0.75, w * 0.33, h * 1.03);
    painter.drawPath(stalk);
    painter.setPen(Qt::NoPen);
    const auto seed = [&](QPointF root, double angle, double length, double opacity) {
        const QPointF crown = polar(root, length, angle);
        painter.setPen(QPen(faded(Qt::white, opacity * 0.75), 0.9));
        painter.drawLine(root, crown);
        for (int hair = -6; hair <= 6; ++hair) painter.drawLine(crown, polar(crown, length * 0.42, angle + hair * 11));
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(120, 92, 60));
        painter.drawPath(petal(root, angle, length * 0.20, length * 0.022));
    };
    glow(painter, head, h * 0.38, QColor(255, 255, 255, 90));
    for (int i = 0; i < 170; ++i) {
        const double depth = std::sqrt(dice.unit());
        const double angle = i * 137.508;
        // The side that faces the wind has lost its seeds.
        if (std::cos((angle - 20) * 0.01745) > 0.55 && dice.unit() < 0.75) continue;
        seed(polar(head, h * 0.03, angle), angle, h * 0.25 * (0.45 + 0.55 * depth), 0.35 + 0.55 * depth);
    }
    painter.setBrush(QColor(132, 124, 84));
    painter.drawEllipse(head, h * 0.035, h * 0.035);
    for (int i = 0; i < 16; ++i) {
        const double far = dice.unit();
        const QPointF place(w * (0.50 + far * 0.47), h * (0.42 - far * 0.28 + dice.bell() * 0.16));
        seed(place, -60 + dice.bell() * 40, h * dice.between(0.06, 0.11), 0.85 - far * 0.3);
    }
    for (int i = 0; i < 60; ++i) {
        painter.setBrush(faded(mixed(QColor(62, 104, 62), QColor(140, 164, 84), dice.unit()), 0.85));
        painter.drawPath(
            petal({w * dice.unit(), h * 1.02}, -90 + dice.bell() * 24, h * dice.between(0.06, 0.20), w * 0.004, 0.5));
    }
    painter.end();
    vignette(image, 0.3);
    grain(image, 3, 25);
    return image;
}

QImage dahlia(QSize size) {
    QImage image = canvas(size);
    const double w = size.width();
    const double h = size.height();
    QPainter painter(&image);
    makeSmooth(painter);
    wash(painter, image.rect(), {{0, QColor(34, 30, 50)}, {1, QColor(62, 34, 60)}});
    Dice dice(33);
    for (int i = 0; i < 26; ++i) {
        painter.setBrush(faded(mixed(QColor(34, 70, 58), QColor(58, 92, 66), dice.unit()), 0.5));
        painter.drawPath(
            petal(QPointF(w * 0.5, h * 0.5), i * 13.8 + dice.bell() * 10, h * dice.between(0.6, 0.85), h * 0.07));
    }
    const QPointF heart(w * 0.5, h * 0.5);
    const int rings = 13;
    for (int ring = rings; ring >= 1; --ring) {
        const double reach = h * 0.46 * std::pow(double(ring) / rings, 0.86);
        const int petals = 8 + ring * 2;
        const double share = double(ring) / rings;
        const QColor tip = mixed(QColor(255, 214, 120), QColor(244, 128, 140), eased(share * 1.4));
        const QColor root = mixed(QColor(222, 96, 60), QColor(150, 30, 84), share);
        for (int i = 0; i < petals; ++i) {
            const double angle = (i + (ring % 2) * 0.5) * 360.0 / petals;
            QLinearGradient fill(heart, polar(heart, reach, angle));
            fill.setColorAt(0.35, root.darker(140));
            fill.setColorAt(0.72, root);
            fill.setColorAt(1, tip);
            painter.setPen(QPen(faded(root.darker(190), 0.5), 0.9));
            painter.setBrush(fill);
            painter.drawPath(petal(heart, angle, reach, reach * 2.1 / petals + h * 0.006, 0.78));
        }
    }
    painter.setPen(Qt::NoPen);
    glow(painter, heart, h * 0.07, QColor(255, 232, 150, 230));
    painter.end();
    vignette(image, 0.4);
    grain(image, 3, 26);
    return image;
}
