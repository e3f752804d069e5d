#include "drawing/canvas.h"
#include "drawing/scenes.h"

#include <cmath>

QImage milkyWay(QSize size) {
    QImage image = canvas(size);
    const QSizeF s = size;
    const Noise dust(51);
    const Noise gas(52);
    const double aspect = s.width() / s.height();
    shade(image, [&](double x, double y) {
        const QColor sky = colourAt({{0, QColor(6, 9, 30)},
                                     {0.6, QColor(18, 34, 78)},
                                     {0.82, QColor(70, 84, 120)},
                                     {0.9, QColor(176, 140, 130)}},
                                    y);
        // The band leans across the sky; dark lanes run along its middle.
        const double off = ((x - 0.56) * aspect * 0.86 + (y - 0.42) * 0.52);
        const double along = (x - 0.56) * 0.52 - (y - 0.42) * 0.86;
        const double width = 0.13 + 0.05 * gas.fractal(along * 3, 4, 3);
        const double band = std::exp(-off * off / (2 * width * width));
        const double cloud = gas.fractal(off * 5 + 2, along * 4, 6);
        const double lane =
            eased((dust.fractal(off * 7 + 9, along * 3.2, 6) - 0.46) * 5) * std::exp(-off * off / 0.009);
        const double light = band * (0.25 + cloud * 0.9) * (1 - lane * 0.75);
        const QColor warm =
            mixed(QColor(150, 150, 220), QColor(255, 206, 170), eased((0.10 - std::abs(off)) * 8) * cloud * 1.4);
        return mixed(sky, warm, light * 0.72);
    });
    QPainter painter(&image);
    makeSmooth(painter);
    Dice dice(16);
    starField(painter, QRectF(0, 0, s.width(), s.height() * 0.9), 1500, dice);
    for (int i = 0; i < 1600; ++i) {
        const double along = dice.between(-0.7, 0.7);
        const double off = dice.bell() * 0.22;
        const QPointF place((0.56 + (along * 0.52 + off * 0.86) / aspect * 1.2) * s.width(),
                            (0.42 - along * 0.86 + off * 0.52) * s.height());
        painter.setBrush(QColor(255, 246, 232, 60 + dice.below(140)));
        painter.drawEllipse(place, 0.5, 0.5);
    }
    painter.setBrush(QColor(30, 40, 66));
    painter.drawPath(ridgePath(s, {s.height() * 0.88, s.height() * 0.10, 3.4, 301}));
    painter.setBrush(QColor(8, 12, 22));
    const Ridge ground{s.height() * 0.96, s.height() * 0.06, 2, 305};
    painter.drawPath(ridgePath(s, ground));
    // Someone with a lamp looks up.
    const double x = s.width() * 0.27;
    const QPointF foot(x, ridgeLine(s, ground, x) + 2);
    const double u = s.height() * 0.011;
    glow(painter, foot + QPointF(u * 1.4, -u * 2.4), u * 9, QColor(255, 200, 120, 170));
    painter.setBrush(QColor(8, 12, 22));
    painter.drawPath(petal(foot, -90, u * 4.6, u * 1.1));
    painter.drawEllipse(foot + QPointF(-u * 0.1, -u * 4.7), u * 0.72, u * 0.72);
    painter.setBrush(QColor(255, 226, 160));
    painter.drawEllipse(foot + QPointF(u * 1.4, -u * 2.4), u * 0.4, u * 0.5);
    painter.end();
    grain(image, 4, 16);
    return image;
}

QImage moonOverSea(QSize size) {
    QImage image = canvas(size);
    const double w = size.width();
    const double h = size.height();
    const double horizon = 0.60;
    const QPointF moon(w * 0.62, h * 0.30);
    const Noise cloud(35);
    shade(image, [&](double x, double y) {
        const QColor sky =
            colourAt({{0, QColor(10, 22, 52)}, {0.35, QColor(30, 62, 104)}, {0.6, QColor(118, 146, 168)}}, y);
        const double near = eased(1 - std::hypot((x - 0.62) * 1.33, y - 0.30) * 1.6);
        const double thin = eased((cloud.fractal(x * 3, y * 12, 6) - 0.50) * 4) * eased(y * 4);
        return mixed(sky, mixed(QColor(40, 66, 104), QColor(236, 234, 220), near), thin * 0.55);
    });
    QPainter painter(&image);
    makeSmooth(painter);
    Dice dice(17);
    starField(painter, QRectF(0, 0, w, h * 0.4), 220, dice);
    glow(painter, moon, h * 0.55, QColor(220, 230, 240, 150));
    const double radius = h * 0.105;
    painter.setBrush(QColor(252, 248, 232));
    painter.drawEllipse(moon, radius, radius);
    painter.save();
    QPainterPath disc;
    disc.addEllipse(moon, radius, radius);
    painter.setClipPath(disc);
    for (int i = 0; i < 26; ++i) {
        const QPointF sea =
            moon + QPointF(dice.bell() * radius - radius * 0.1, dice.bell() * radius * 0.9 - radius * 0.1);
        glow(painter, sea, radius * dice.between(0.15, 0.5), QColor(190, 186, 170, 90));
    }
    painter.restore();
    painter.end();
    reflect(image, int(h * horizon), QColor(10, 28, 54), 0.5, 18, 18);

    QPainter top(&image);
    makeSmooth(top);
    for (int i = 0; i < 1100; ++i) {
        const double far = std::pow(dice.unit(), 1.7);
        const QPointF place(moon.x() + dice.bell() * w * (0.035 + far * 0.13),
                            h * (horizon + 0.003 + (1 - horizon) * far));
        top.setBrush(QColor(246, 246, 230, 40 + dice.below(150)));
        top.drawEllipse(place, 2 + far * 20 * dice.unit(), 0.6 + far * 1.7);
    }
    // Rocks with a pavilion, dark against the shine.
    top.setBrush(QColor(8, 16, 34));
    QPainterPath cliff(QPointF(-5, h));
    cliff.lineTo(-5, h * 0.52);
    cliff.cubicTo(w * 0.08, h * 0.50, w * 0.15, h * 0.53, w * 0.20, h * 0.55);
    cliff.cubicTo(w * 0.25, h * 0.58, w * 0.27, h * 0.66, w * 0.34, h * 0.69);
    cliff.cubicTo(w * 0.38, h * 0.73, w * 0.30, h * 0.86, w * 0.36, h * 1.01);
    top.drawPath(cliff);
    const QPointF hall(w * 0.145, h * 0.53);
    const double u = h * 0.022;
    for (int storey = 0; storey < 2; ++storey) {
        const double y = hall.y() - storey * u * 2.5;
        const double wide = u * (3.4 - storey * 1.0);
        for (double post : {-0.62, -0.2, 0.2, 0.62})
            top.drawRect(QRectF(hall.x() + wide * post - u * 0.09, y - u * 1.7, u * 0.18, u * 2.2));
        QPainterPath roof(QPointF(hall.x() - wide * 1.25, y - u * 1.75));
        roof.quadTo(hall.x() - wide * 0.6, y - u * 1.7, hall.x() - wide * 0.25, y - u * 2.9);
        roof.lineTo(hall.x() + wide * 0.25, y - u * 2.9);
        roof.quadTo(hall.x() + wide * 0.6, y - u * 1.7, hall.x() + wide * 1.25, y - u * 1.75);
        roof.quadTo(hall.x(), y - u * 1.2, hall.x() - wide * 1.25, y - u * 1.75);
        top.drawPath(roof);
    }
    glow(top, hall + QPointF(0, -u * 0.7), u * 2.6, QColor(255, 190, 100, 190));
    top.end();
    vignette(image, 0.3);
    grain(image, 3, 18);
    return image;
}

QImage starTrails(QSize size) {
    QImage image = canvas(size);
    const QSizeF s = size;
    QPainter painter(&image);
    makeSmooth(painter);
    wash(painter, image.rect(),
         {{0, QColor(8, 14, 44)},
          {0.55, QColor(28, 52, 98)},
          {0.8, QColor(112, 104, 130)},
          {0.92, QColor(220, 160, 120)}});
    const QPointF pole(s.width() * 0.46, s.height() * 0.50);
    Dice dice(19);
    for (int i = 0; i < 520; ++i) {
        const double radius = 6 + std::sqrt(dice.unit()) * s.width() * 0.78;
        const QColor tint = mixed(mixed(QColor(150, 190, 255), QColor(255, 255, 255), dice.unit()),
                                  QColor(255, 196, 140), std::pow(dice.unit(), 3));
        painter.setPen(
            QPen(faded(tint, dice.between(0.15, 0.85)), dice.between(0.6, 1.9), Qt::SolidLine, Qt::RoundCap));
        const int from = dice.below(5760);
        painter.drawArc(QRectF(pole.x() - radius, pole.y() - radius, radius * 2, radius * 2), from,
                        int(dice.between(380, 620)));
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(10, 14, 26));
    const Ridge ground{s.height() * 0.93, s.height() * 0.07, 2.2, 401};
    painter.drawPath(ridgePath(s, ground));
    // An old tree and a hut with one lit window.
    const QPointF root(s.width() * 0.77, ridgeLine(s, ground, s.width() * 0.77) + 6);
    const std::function<void(QPointF, double, double, int)> branch = [&](QPointF from, double angle, double length,
                                                                         int depth) {
        const QPointF to = polar(from, length, angle);
        painter.setPen(QPen(QColor(10, 14, 26), 0.9 + depth * depth * 0.42, Qt::SolidLine, Qt::RoundCap));
        painter.drawLine(from, to);
        if (depth == 0) return;
        branch(to, angle - dice.between(12, 34), length * dice.between(0.68, 0.84), depth - 1);
        branch(to, angle + dice.between(12, 34), length * dice.between(0.68, 0.84), depth - 1);
        if (dice.unit() < 0.4) branch(to, angle + dice.bell() * 12, length * 0.6, depth - 1);
    };
    branch(root, -92, s.height() * 0.105, 6);
    painter.setPen(Qt::NoPen);
    const double x = s.width() * 0.22;
    const QPointF hut(x, ridgeLine(s, ground, x) + 3);
    const double u = s.height() * 0.016;
    painter.setBrush(QColor(12, 16, 28));
    painter.drawRect(QRectF(hut.x() - u * 2, hut.y() - u * 2.4, u * 4, u * 3));
    QPainterPath roof(hut + QPointF(-u * 2.6, -u * 2.3));
    roof.lineTo(hut + QPointF(0, -u * 4.4));
    roof.lineTo(hut + QPointF(u * 2.6, -u * 2.3));
    painter.drawPath(roof);
    glow(painter, hut + QPointF(u * 0.4, -u * 1.2), u * 5, QColor(255, 190, 96, 150));
    painter.setBrush(QColor(255, 214, 132));
    painter.drawRect(QRectF(hut.x() - u * 0.2, hut.y() - u * 1.8, u * 1.2, u * 1.2));
    painter.end();
    grain(image, 3, 19);
    return image;
}
