#include "drawing/canvas.h"
#include "drawing/scenes.h"

#include <cmath>

QImage sunsetSea(QSize size) {
    QImage image = canvas(size);
    const double w = size.width();
    const double h = size.height();
    const double horizon = 0.58;
    const Noise clouds(41);
    shade(image, [&](double x, double y) {
        const QColor sky = colourAt({{0, QColor(44, 48, 104)},
                                     {0.26, QColor(150, 74, 122)},
                                     {0.44, QColor(238, 118, 88)},
                                     {0.56, QColor(255, 196, 108)}},
                                    y);
        const double bank = clouds.fractal(x * 3.2, y * 17, 5);
        const double cover = eased((bank - 0.50) * 5) * eased((horizon - y) * 9);
        const double lit = eased(1 - std::hypot((x - 0.5) * 1.2, y - horizon) * 1.5);
        return mixed(sky, mixed(QColor(66, 44, 92), QColor(255, 150, 96), lit), cover * 0.8);
    });
    QPainter painter(&image);
    makeSmooth(painter);
    const QPointF sun(w * 0.5, h * (horizon - 0.035));
    glow(painter, sun, w * 0.36, QColor(255, 206, 120, 210));
    painter.setBrush(QColor(255, 244, 206));
    painter.drawEllipse(sun, h * 0.062, h * 0.062);
    painter.setBrush(QColor(92, 52, 92));
    painter.drawPath([&] {
        QPainterPath isle(QPointF(w * 0.70, h * horizon));
        isle.cubicTo(w * 0.76, h * (horizon - 0.02), w * 0.80, h * (horizon - 0.075), w * 0.86, h * (horizon - 0.07));
        isle.cubicTo(w * 0.91, h * (horizon - 0.06), w * 0.95, h * (horizon - 0.015), w, h * (horizon - 0.01));
        isle.lineTo(w, h * horizon);
        return isle;
    }());
    painter.end();
    reflect(image, int(h * horizon), QColor(40, 30, 74), 0.38, 34, 6);

    QPainter top(&image);
    makeSmooth(top);
    Dice dice(12);
    for (int i = 0; i < 900; ++i) {
        const double near = std::pow(dice.unit(), 1.6);
        const double y = h * (horizon + 0.004 + (1 - horizon) * near);
        const double spread = 0.03 + near * 0.16;
        const double x = w * (0.5 + dice.bell() * spread);
        top.setBrush(faded(mixed(QColor(255, 240, 196), QColor(255, 160, 90), near), dice.between(0.15, 0.75)));
        top.drawEllipse(QPointF(x, y), 3 + near * 26 * dice.unit(), 0.7 + near * 2.2);
    }
    // One boat that comes home.
    const QPointF boat(w * 0.30, h * 0.70);
    const double u = h * 0.018;
    top.setBrush(QColor(38, 24, 50));
    QPainterPath hull(boat + QPointF(-u * 3, -u * 0.4));
    hull.cubicTo(boat + QPointF(-u * 2, u * 0.8), boat + QPointF(u * 2, u * 0.8), boat + QPointF(u * 3.2, -u * 0.6));
    hull.closeSubpath();
    top.drawPath(hull);
    QPainterPath sail(boat + QPointF(-u * 0.2, -u * 0.6));
    sail.cubicTo(boat + QPointF(-u * 2.6, -u * 2.4), boat + QPointF(-u * 2.2, -u * 6),
                 boat + QPointF(u * 0.1, -u * 7.4));
    sail.closeSubpath();
    QPainterPath jib(boat + QPointF(u * 0.3, -u * 0.8));
    jib.lineTo(boat + QPointF(u * 0.4, -u * 6.4));
    jib.cubicTo(boat + QPointF(u * 1.6, -u * 4), boat + QPointF(u * 2.2, -u * 2), boat + QPointF(u * 2.4, -u * 0.9));
    top.drawPath(sail);
    top.drawPath(jib);
    top.end();
    vignette(image, 0.3);
    grain(image, 4, 7);
    return image;
}

QImage inkRiver(QSize size) {
    QImage image = canvas(size);
    const QSizeF s = size;
    const Noise paper(3);
    shade(image, [&](double x, double y) {
        return mixed(QColor(244, 238, 224), QColor(232, 222, 202), paper.fractal(x * 6, y * 6, 6));
    });
    // Each range is dark along its crest and runs out into mist, as a wet brush leaves it.
    const Noise brush(19);
    const auto range = [&](double base, double height, double stretch, quint32 seed, double ink, double bleed) {
        const Ridge ridge{s.height() * base, s.height() * height, stretch, seed, 6};
        for (int x = 0; x < size.width(); ++x) {
            const double crest = ridgeLine(s, ridge, x);
            for (int y = std::max(0, int(crest)); y < size.height(); ++y) {
                const double depth = (y - crest) / (s.height() * bleed);
                if (depth > 1) break;
                const double edge = eased((y - crest) / 2.5);
                const double streak = brush.fractal(x * 0.03 + y * 0.012, y * 0.02, 5);
                const double tone = ink * edge * std::pow(1 - depth, 1.7) * (0.55 + 0.9 * streak);
                QRgb& pixel = reinterpret_cast<QRgb*>(image.scanLine(y))[x];
                pixel = mixed(QColor(pixel), QColor(34, 38, 44), tone).rgb();
            }
        }
    };
    range(0.34, 0.16, 3.4, 101, 0.30, 0.20);
    range(0.42, 0.20, 2.6, 117, 0.46, 0.24);
    range(0.55, 0.26, 1.7, 141, 0.82, 0.30);
    QPainter painter(&image);
    makeSmooth(painter);
    const double w = s.width();
    const double h = s.height();
    painter.setBrush(QColor(176, 52, 40, 215));
    painter.drawEllipse(QPointF(w * 0.77, h * 0.17), h * 0.048, h * 0.048);
    // A fisher's boat on empty water.
    painter.setBrush(QColor(40, 42, 46));
    const QPointF boat(w * 0.60, h * 0.80);
    const double u = w * 0.012;
    QPainterPath hull(boat + QPointF(-u * 5, -u * 0.5));
    hull.cubicTo(boat + QPointF(-u * 2, u * 0.9), boat + QPointF(u * 2, u * 0.9), boat + QPointF(u * 5, -u * 0.7));
    hull.cubicTo(boat + QPointF(u * 2, u * 0.2), boat + QPointF(-u * 2, u * 0.2), boat + QPointF(-u * 5, -u * 0.5));
    painter.drawPath(hull);
    QPainterPath awning(boat + QPointF(-u * 1.8, u * 0.1));
    awning.cubicTo(boat + QPointF(-u * 1.6, -u * 2), boat + QPointF(u * 1.2, -u * 2), boat + QPointF(u * 1.4, u * 0.1));
    painter.drawPath(awning);
    painter.drawEllipse(boat + QPointF(u * 2.6, -u * 1.9), u * 0.35, u * 0.35);
    painter.drawPath(petal(boat + QPointF(u * 2.5, u * 0.1), -88, u * 1.7, u * 0.6));
    painter.setPen(QPen(QColor(40, 42, 46), 1.4, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(boat + QPointF(u * 2.8, -u * 1.1), boat + QPointF(u * 6.5, -u * 3.4));
    painter.setPen(QPen(QColor(60, 62, 66, 90), 1.1, Qt::SolidLine, Qt::RoundCap));
    Dice dice(33);
    for (int i = 0; i < 26; ++i) {
        const QPointF place(w * dice.between(0.08, 0.94), h * dice.between(0.80, 0.95));
        painter.drawLine(place, place + QPointF(w * dice.between(0.01, 0.05), 0));
    }
    for (int i = 0; i < 7; ++i) {
        const QPointF bird(w * (0.50 + i * 0.026), h * (0.20 + std::abs(i - 3) * 0.011));
        painter.setPen(QPen(QColor(50, 52, 56), 1.6, Qt::SolidLine, Qt::RoundCap));
        QPainterPath wings(bird + QPointF(-7, -3));
        wings.quadTo(bird + QPointF(-3, -4), bird);
        wings.quadTo(bird + QPointF(3, -4), bird + QPointF(7, -2));
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(wings);
    }
    // The painter's seal, without words.
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(176, 52, 40));
    const QRectF seal(w * 0.88, h * 0.84, w * 0.034, w * 0.034);
    painter.drawRoundedRect(seal, 3, 3);
    painter.setPen(QPen(QColor(244, 238, 224), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(seal.adjusted(5, 5, -5, -5));
    painter.drawLine(QPointF(seal.center().x(), seal.top() + 5), QPointF(seal.center().x(), seal.bottom() - 5));
    painter.drawLine(QPointF(seal.left() + 5, seal.center().y()), QPointF(seal.center().x(), seal.center().y()));
    painter.end();
    grain(image, 5, 8);
    return image;
}

QImage riceTerraces(QSize size) {
    QImage image = canvas(size);
    const Noise land(83);
    const Noise detail(29);
    const double levels = 26;
    shade(image, [&](double x, double y) {
        if (y < 0.24 + 0.05 * (land.fractal(x * 3, 9, 4) - 0.5)) {
            const double mist = detail.fractal(x * 4, y * 9, 5);
            return mixed(colourAt({{0, QColor(92, 142, 178)}, {0.24, QColor(250, 222, 190)}}, y), QColor(255, 246, 232),
                         mist * 0.5);
        }
        // Fields are the steps of a hill's height; nearer ones are larger.
        const double far = (y - 0.22) / 0.78;
        const double scale = 1.4 + 2.6 * (1 - far);
        const double height = land.fractal(x * scale, y * 2.2 * scale * 0.6, 3) * 0.62 + (1 - far) * 0.9;
        const double step = height * levels;
        const double inside = step - std::floor(step);
        const double field = detail.at(std::floor(step) * 3.7, 0.5);
        const QColor mirrored =
            colourAt({{0, QColor(70, 110, 150)}, {0.45, QColor(232, 176, 140)}, {1, QColor(255, 226, 178)}},
                     eased(1.15 - far + (field - 0.5) * 0.7));
        const QColor crop = mixed(QColor(74, 122, 58), QColor(170, 178, 74), detail.fractal(x * 9, y * 9, 4));
        const double planted = eased((field - 0.52) * 9);
        QColor colour = mixed(mirrored, crop, planted * 0.9);
        const double bank = eased(1 - inside / 0.20);
        colour = mixed(colour, mixed(QColor(34, 44, 30), QColor(96, 100, 52), detail.fractal(x * 60, y * 60, 3)), bank);
        colour = mixed(colour, QColor(255, 246, 214), eased((inside - 0.92) * 12) * 0.35 * (1 - planted));
        return mixed(colour, QColor(248, 226, 202), eased(1 - far * 3.2) * 0.85);
    });
    vignette(image, 0.3);
    grain(image, 4, 9);
    return image;
}
