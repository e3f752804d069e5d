#include "drawing/canvas.h"
#include "drawing/scenes.h"

#include <cmath>

namespace {

/// Ranges of hills from far to near; each takes on less of the colour of the air.
void ranges(QPainter& painter, QSizeF size, int count, double top, double bottom, const QColor& far, const QColor& near,
            const QColor& mist, quint32 seed) {
    for (int i = 0; i < count; ++i) {
        const double depth = count > 1 ? double(i) / (count - 1) : 1;
        const Ridge ridge{std::lerp(top, bottom, depth), size.height() * std::lerp(0.10, 0.17, depth),
                          std::lerp(5.0, 2.6, depth), seed + quint32(i) * 7};
        const QColor colour = mixed(far, near, depth);
        QLinearGradient fill(0, ridge.base - ridge.height, 0, ridge.base + size.height() * 0.22);
        fill.setColorAt(0, colour);
        fill.setColorAt(1, mixed(colour, mist, 0.75 - 0.45 * depth));
        painter.setBrush(fill);
        painter.drawPath(ridgePath(size, ridge));
    }
}

/// A fir as one ragged silhouette.
void fir(QPainter& painter, QPointF foot, double height, const QColor& colour, Dice& dice) {
    QPainterPath path(foot + QPointF(-height * 0.02, 0));
    const int tiers = 9;
    for (int side : {-1, 1}) {
        for (int i = 0; i <= tiers; ++i) {
            const double up = side < 0 ? double(i) / tiers : 1 - double(i) / tiers;
            const double reach = height * 0.21 * (1 - up) * dice.between(0.75, 1.15);
            const double y = foot.y() - height * (0.08 + 0.92 * up);
            if (side < 0) {
                path.lineTo(foot.x() - reach, y);
                path.lineTo(foot.x() - reach * 0.45, y - height * 0.03);
            } else {
                path.lineTo(foot.x() + reach * 0.45, y - height * 0.03);
                path.lineTo(foot.x() + reach, y);
            }
        }
    }
    path.lineTo(foot + QPointF(height * 0.02, 0));
    painter.setBrush(colour);
    painter.drawPath(path);
}

void firs(QPainter& painter, QSizeF size, const Ridge& ground, int count, double height, const QColor& colour,
          Dice& dice) {
    for (int i = 0; i < count; ++i) {
        const double x = size.width() * (i + dice.between(0.1, 0.9)) / count;
        fir(painter, {x, ridgeLine(size, ground, x) + height * 0.08}, height * dice.between(0.6, 1.2), colour, dice);
    }
}

}  // namespace

QImage mistyMountains(QSize size) {
    QImage image = canvas(size);
    QPainter painter(&image);
    makeSmooth(painter);
    const QSizeF s = size;
    wash(painter, image.rect(),
         {{0, QColor(126, 164, 190)}, {0.35, QColor(214, 220, 216)}, {0.55, QColor(250, 226, 196)}});
    const QPointF sun(s.width() * 0.68, s.height() * 0.30);
    glow(painter, sun, s.width() * 0.45, QColor(255, 226, 170, 220));
    painter.setBrush(QColor(255, 248, 228));
    painter.drawEllipse(sun, s.height() * 0.045, s.height() * 0.045);
    ranges(painter, s, 7, s.height() * 0.44, s.height() * 0.93, QColor(186, 200, 206), QColor(24, 52, 66),
           QColor(244, 226, 204), 11);
    Dice dice(5);
    firs(painter, s, {s.height() * 0.93, s.height() * 0.17, 2.6, 11 + 42}, 44, s.height() * 0.10, QColor(14, 36, 48),
         dice);
    painter.end();
    grain(image, 3, 1);
    return image;
}

QImage desertDunes(QSize size) {
    QImage image = canvas(size);
    QPainter painter(&image);
    makeSmooth(painter);
    const double w = size.width();
    const double h = size.height();
    wash(painter, image.rect(),
         {{0, QColor(70, 120, 168)}, {0.28, QColor(178, 190, 190)}, {0.42, QColor(252, 214, 160)}});
    glow(painter, {w * 0.24, h * 0.34}, w * 0.32, QColor(255, 232, 176, 230));
    const auto dune = [&](double y, double crest, double peak, const QColor& lit, const QColor& shadow) {
        QPainterPath body(QPointF(-10, h));
        body.lineTo(-10, y);
        body.cubicTo(w * crest * 0.5, y - peak * 0.1, w * crest * 0.8, y - peak, w * crest, y - peak);
        body.cubicTo(w * (crest + 0.14), y - peak, w * (crest + 0.3), y + peak * 0.2, w + 10, y - peak * 0.1);
        body.lineTo(w + 10, h);
        QLinearGradient fill(0, y - peak, 0, y + h * 0.35);
        fill.setColorAt(0, lit);
        fill.setColorAt(1, mixed(lit, shadow, 0.6));
        painter.setBrush(fill);
        painter.drawPath(body);
        // The far side of the crest is in the shade; its edge snakes down toward the viewer.
        QPainterPath shade(QPointF(w * crest, y - peak));
        shade.cubicTo(w * (crest + 0.02), y - peak * 0.3, w * (crest - 0.16), y + peak * 0.5, w * (crest - 0.04),
                      y + h * 0.4);
        shade.lineTo(w + 10, y + h * 0.5);
        shade.lineTo(w + 10, y - peak * 0.1);
        shade.cubicTo(w * (crest + 0.3), y + peak * 0.2, w * (crest + 0.14), y - peak, w * crest, y - peak);
        QLinearGradient dark(w * crest, 0, w * (crest + 0.5), 0);
        dark.setColorAt(0, shadow);
        dark.setColorAt(1, mixed(shadow, lit, 0.55));
        painter.setBrush(dark);
        painter.drawPath(shade);
    };
    dune(h * 0.48, 0.72, h * 0.06, QColor(246, 198, 138), QColor(206, 142, 98));
    dune(h * 0.56, 0.34, h * 0.11, QColor(240, 178, 108), QColor(176, 104, 72));
    dune(h * 0.72, 0.60, h * 0.18, QColor(232, 156, 82), QColor(136, 70, 52));
    dune(h * 0.98, 0.22, h * 0.20, QColor(214, 128, 62), QColor(92, 44, 40));
    // A caravan on the second crest.
    painter.setBrush(QColor(74, 38, 34));
    for (int i = 0; i < 5; ++i) {
        const double x = w * 0.53 + i * w * 0.026;
        const double y = h * 0.553 + std::abs(i - 1.6) * h * 0.0045;
        const double u = h * 0.012;
        QPainterPath camel(QPointF(x - u * 1.3, y));
        camel.lineTo(x - u * 1.2, y - u * 1.3);
        camel.cubicTo(x - u, y - u * 2, x - u * 0.7, y - u * 2.7, x - u * 0.4, y - u * 1.9);
        camel.cubicTo(x - u * 0.1, y - u * 2.7, x + u * 0.3, y - u * 2.5, x + u * 0.7, y - u * 1.7);
        camel.cubicTo(x + u * 1.1, y - u * 1.5, x + u * 1.2, y - u * 2.4, x + u * 1.5, y - u * 2.8);
        camel.lineTo(x + u * 2.1, y - u * 2.6);
        camel.lineTo(x + u * 1.7, y - u * 2.2);
        camel.cubicTo(x + u * 1.6, y - u * 1.2, x + u, y - u * 0.9, x + u * 0.8, y - u * 0.9);
        camel.lineTo(x + u * 0.9, y);
        camel.lineTo(x + u * 0.6, y);
        camel.lineTo(x + u * 0.4, y - u * 0.9);
        camel.lineTo(x - u * 0.8, y - u * 0.9);
        camel.lineTo(x - u, y);
        painter.drawPath(camel);
    }
    painter.end();
    grain(image, 6, 3);
    return image;
}

QImage autumnLake(QSize size) {
    QImage image = canvas(size);
    const QSizeF s = size;
    const int shore = size.height() * 58 / 100;
    QPainter painter(&image);
    makeSmooth(painter);
    wash(painter, QRectF(0, 0, s.width(), shore), {{0, QColor(92, 142, 184)}, {1, QColor(236, 230, 214)}});
    painter.setBrush(QColor(128, 150, 172));
    painter.drawPath(ridgePath(s, {s.height() * 0.40, s.height() * 0.22, 3.2, 71}));
    painter.setBrush(QColor(96, 116, 132));
    painter.drawPath(ridgePath(s, {s.height() * 0.50, s.height() * 0.16, 4.1, 77}));
    Dice dice(8);
    const std::vector<QColor> crowns{QColor(214, 92, 40),  QColor(236, 150, 48), QColor(184, 54, 40),
                                     QColor(246, 190, 70), QColor(120, 118, 52), QColor(52, 84, 66)};
    for (int row = 0; row < 5; ++row) {
        for (int i = 0; i < 70; ++i) {
            const double x = dice.between(-20, s.width() + 20);
            const double radius = s.height() * dice.between(0.016, 0.034) * (0.7 + row * 0.12);
            const double y = shore - s.height() * (0.115 - row * 0.024) + dice.bell() * s.height() * 0.02;
            const QColor crown = crowns[std::size_t(dice.below(6))];
            for (int leaf = 0; leaf < 16; ++leaf) {
                const QPointF place(x + dice.bell() * radius, std::min(y + dice.bell() * radius, shore - 3.0));
                const double light = 0.5 - (place.y() - y) / radius * 0.35;
                painter.setBrush(
                    mixed(mixed(crown, QColor(40, 34, 40), 0.5), mixed(crown, QColor(255, 236, 180), 0.2), light));
                painter.drawEllipse(place, radius * 0.38, radius * 0.32);
            }
        }
    }
    painter.end();
    reflect(image, shore, QColor(34, 62, 84), 0.34, 22, 5);
    QPainter top(&image);
    makeSmooth(top);
    for (int i = 0; i < 3; ++i)
        top.fillRect(QRectF(0, shore - 2 + i * 3, s.width(), 2), QColor(255, 244, 220, 70 - i * 20));
    top.end();
    vignette(image, 0.28);
    grain(image, 4, 2);
    return image;
}

QImage snowPeak(QSize size) {
    QImage image = canvas(size);
    const QSizeF s = size;
    const int shore = size.height() * 66 / 100;
    const Noise rock(31);
    const Noise snow(57);
    const auto crest = [&](double x) {
        const double across = x - 0.56;
        const double cone = std::max(0.0, 1 - std::abs(across) * (across < 0 ? 2.1 : 2.5));
        return 0.55 - 0.44 * std::pow(cone, 1.25) - 0.07 * (rock.fractal(x * 9, 1, 6) - 0.5) * (0.6 + cone);
    };
    shade(image, [&](double x, double y) {
        const double line = crest(x);
        if (y < line)
            return colourAt({{0, QColor(38, 84, 142)}, {0.35, QColor(126, 170, 208)}, {0.6, QColor(240, 222, 206)}}, y);
        const double depth = (y - line) / 0.5;
        // Light comes from the left: the slope of the rock's own relief decides between lit snow and blue shade.
        const double here = rock.fractal(x * 14 + (y - line) * 5, y * 11, 6);
        const double left = rock.fractal((x - 0.012) * 14 + (y - line) * 5, (y - 0.006) * 11, 6);
        const double lit = eased(0.5 + (here - left) * 7 + (0.56 - x) * 0.9);
        const QColor white = mixed(QColor(118, 148, 196), QColor(255, 246, 236), lit);
        const QColor stone = mixed(QColor(44, 56, 78), QColor(132, 122, 120), lit);
        const double bare = eased((depth * 1.5 + (snow.fractal(x * 18, y * 13, 5) - 0.5) * 2.4 - 0.35) * 2.2);
        return mixed(mixed(white, stone, bare), QColor(176, 194, 212), eased((y - 0.50) * 7) * 0.8);
    });
    QPainter painter(&image);
    makeSmooth(painter);
    Dice dice(21);
    for (int row = 0; row < 3; ++row) {
        const Ridge ground{s.height() * (0.60 + row * 0.028), s.height() * 0.05, 3.0 + row, 91 + quint32(row)};
        const QColor wood = mixed(QColor(92, 122, 138), QColor(18, 42, 52), row / 2.0);
        painter.setBrush(wood);
        painter.drawPath(ridgePath(s, ground));
        firs(painter, s, ground, 90 - row * 16, s.height() * (0.045 + row * 0.018), wood, dice);
    }
    painter.end();
    reflect(image, shore, QColor(24, 58, 92), 0.30, 14, 9);
    vignette(image, 0.22);
    grain(image, 3, 4);
    return image;
}
