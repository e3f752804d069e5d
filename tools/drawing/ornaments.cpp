#include "drawing/canvas.h"
#include "drawing/scenes.h"

#include <cmath>
#include <numbers>

QImage ceilingRosette(QSize size) {
    QImage image = canvas(size, QColor(20, 40, 60));
    const double w = size.width();
    const double h = size.height();
    QPainter painter(&image);
    makeSmooth(painter);
    painter.translate(w / 2, h / 2);
    const double r = w * 0.64;
    const std::vector<QColor> grounds{QColor(30, 74, 96), QColor(150, 44, 44), QColor(38, 96, 82), QColor(178, 112, 48),
                                      QColor(34, 58, 102)};
    const QColor gold(232, 190, 104);
    // Squares turned by 45 degrees, each inside the last, as in the coffered ceilings of old halls.
    double side = r;
    for (int level = 0; level < 7; ++level) {
        painter.save();
        painter.rotate(level * 45);
        const QColor ground = grounds[std::size_t(level) % grounds.size()];
        painter.setPen(QPen(gold, h * 0.008));
        painter.setBrush(ground);
        painter.drawRect(QRectF(-side / 2, -side / 2, side, side));
        painter.setPen(QPen(mixed(gold, ground, 0.45), h * 0.0028));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(
            QRectF(-side / 2, -side / 2, side, side).adjusted(side * 0.03, side * 0.03, -side * 0.03, -side * 0.03));
        const double next = side / std::numbers::sqrt2;
        for (int corner = 0; corner < 4; ++corner) {
            painter.save();
            painter.rotate(corner * 90);
            const QPointF at(side * 0.375, side * 0.375);
            for (int i = 0; i < 8; ++i) {
                painter.setPen(QPen(gold, 1));
                painter.setBrush(mixed(ground, i % 2 == 0 ? QColor(255, 236, 206) : QColor(240, 140, 110), 0.75));
                painter.drawPath(petal(at, i * 45, side * (i % 2 == 0 ? 0.075 : 0.055), side * 0.018, 0.7));
            }
            painter.setBrush(gold);
            painter.drawEllipse(at, side * 0.012, side * 0.012);
            painter.restore();
        }
        painter.restore();
        side = next;
    }
    // The flower in the middle.
    for (int ring = 4; ring >= 1; --ring) {
        for (int i = 0; i < 12; ++i) {
            painter.setPen(QPen(gold, 1.2));
            painter.setBrush(mixed(QColor(196, 56, 60), QColor(255, 232, 196), (ring % 2) * 0.8));
            painter.drawPath(petal({}, i * 30 + ring * 15, side * 0.155 * ring, side * 0.05 * std::sqrt(ring), 0.72));
        }
    }
    painter.setBrush(gold);
    painter.drawEllipse(QPointF(), side * 0.08, side * 0.08);
    // Outside the square: rays of cloud pattern.
    painter.resetTransform();
    painter.setBrush(Qt::NoBrush);
    for (int sign : {-1, 1}) {
        for (int row = 0; row < 7; ++row) {
            const QPointF at(w / 2 + sign * w * 0.42, h * (row + 0.5) / 7);
            for (int ring = 0; ring < 4; ++ring) {
                painter.setPen(QPen(mixed(QColor(20, 40, 60), gold, 0.75 - ring * 0.12), h * 0.004));
                painter.drawEllipse(at, h * (0.062 - ring * 0.014), h * (0.062 - ring * 0.014));
            }
        }
    }
    painter.end();
    vignette(image, 0.35);
    grain(image, 3, 29);
    return image;
}

QImage flowingLines(QSize size) {
    QImage image = canvas(size);
    const double w = size.width();
    const double h = size.height();
    QPainter painter(&image);
    makeSmooth(painter);
    wash(painter, image.rect(), {{0, QColor(14, 20, 46)}, {1, QColor(38, 22, 60)}});
    const Noise noise(87);
    painter.setCompositionMode(QPainter::CompositionMode_Screen);
    const Stops hues{{0, QColor(64, 190, 206)},
                     {0.45, QColor(110, 100, 220)},
                     {0.75, QColor(230, 96, 150)},
                     {1, QColor(255, 190, 110)}};
    const int lines = 150;
    for (int i = 0; i < lines; ++i) {
        const double share = double(i) / lines;
        QPainterPath line;
        for (int step = 0; step <= 80; ++step) {
            const double t = step / 80.0;
            const double squeeze = 0.25 + 0.75 * std::pow(std::abs(t - 0.62) * 1.6, 1.4);
            const double y = h * (0.52 + (share - 0.5) * squeeze * 0.95 + 0.16 * std::sin(t * 5.2 + share * 1.8) +
                                  0.16 * (noise.at(t * 3 + share * 0.8, share * 2.4) - 0.5));
            step == 0 ? line.moveTo(-4, y) : line.lineTo(w * t + 4, y);
        }
        QLinearGradient along(0, 0, w, 0);
        const QColor hue = colourAt(hues, share);
        along.setColorAt(0, faded(hue, 0.12));
        along.setColorAt(0.6, faded(mixed(hue, Qt::white, 0.35), 0.6));
        along.setColorAt(1, faded(hue, 0.15));
        painter.setPen(QPen(along, 1.2));
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(line);
    }
    Dice dice(39);
    painter.setPen(Qt::NoPen);
    for (int i = 0; i < 50; ++i)
        star(painter, {w * (0.62 + dice.bell() * 0.3), h * (0.5 + dice.bell() * 0.3)}, dice.between(0.5, 1.8),
             QColor(255, 240, 230, 170));
    painter.end();
    QImage halo = image;
    blur(halo, 14);
    QPainter top(&image);
    top.setCompositionMode(QPainter::CompositionMode_Screen);
    top.setOpacity(0.7);
    top.drawImage(0, 0, halo);
    top.end();
    grain(image, 3, 30);
    return image;
}
