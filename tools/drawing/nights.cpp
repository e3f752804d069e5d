#include "drawing/canvas.h"
#include "drawing/scenes.h"

#include <cmath>
#include <numbers>

namespace {

const std::vector<QColor>& lampColours() {
    static const std::vector<QColor> colours{QColor(255, 196, 110), QColor(255, 150, 80),  QColor(255, 232, 180),
                                             QColor(120, 190, 255), QColor(255, 100, 110), QColor(150, 240, 220)};
    return colours;
}

/// A lamp out of focus: an even disc with a brighter rim.
void bokeh(QPainter& painter, QPointF centre, double radius, const QColor& colour, double strength) {
    QRadialGradient fill(centre, radius);
    fill.setColorAt(0, faded(colour, strength * 0.55));
    fill.setColorAt(0.85, faded(colour, strength * 0.7));
    fill.setColorAt(0.95, faded(colour.lighter(125), strength));
    fill.setColorAt(1, faded(colour, 0));
    painter.setBrush(fill);
    painter.drawEllipse(centre, radius, radius);
}

}  // namespace

QImage cityNight(QSize size) {
    QImage image = canvas(size);
    const double w = size.width();
    const double h = size.height();
    const double shore = h * 0.66;
    QPainter painter(&image);
    makeSmooth(painter);
    wash(painter, QRectF(0, 0, w, shore),
         {{0, QColor(10, 18, 48)}, {0.6, QColor(44, 50, 104)}, {1, QColor(196, 110, 106)}});
    Dice dice(41);
    for (int layer = 0; layer < 3; ++layer) {
        const double near = layer / 2.0;
        const QColor wall = mixed(QColor(84, 70, 112), QColor(14, 18, 38), near);
        double x = -20;
        while (x < w) {
            const double wide = w * dice.between(0.022, 0.055);
            const double middle = 1 - std::abs(x / w - 0.56) * 1.2;
            const double tall =
                h * (0.10 + 0.34 * std::pow(dice.unit(), 1.7) * std::max(0.25, middle)) * (1.1 - near * 0.3);
            const QRectF tower(x, shore - tall, wide, tall + 2);
            painter.setBrush(wall);
            painter.drawRect(tower);
            if (dice.unit() < 0.3)
                painter.drawRect(QRectF(x + wide * 0.47, shore - tall - h * 0.05, wide * 0.06, h * 0.05));
            const double pane = w * 0.0042;
            for (double py = tower.top() + pane * 2; py < shore - pane * 2; py += pane * 2.4)
                for (double px = x + pane; px < x + wide - pane * 1.5; px += pane * 2)
                    if (dice.unit() < 0.20 + near * 0.20) {
                        painter.setBrush(faded(lampColours()[std::size_t(dice.unit() < 0.8 ? dice.below(3) : 3)],
                                               dice.between(0.25, 0.95)));
                        painter.drawRect(QRectF(px, py, pane, pane * 1.3));
                    }
            x += wide * dice.between(0.9, 1.3);
        }
    }
    // The bridge: two pylons, their cables, and a string of lamps.
    const double deck = shore - h * 0.035;
    painter.setBrush(QColor(10, 12, 26));
    painter.drawRect(QRectF(0, deck, w, h * 0.010));
    for (double pylon : {0.20, 0.62}) {
        const double top = deck - h * 0.20;
        painter.setBrush(QColor(26, 26, 48));
        painter.drawRect(QRectF(w * pylon - w * 0.004, top, w * 0.008, shore - top));
        for (int i = 1; i <= 12; ++i) {
            painter.setPen(QPen(QColor(255, 200, 130, 110), 1));
            for (int side : {-1, 1})
                painter.drawLine(QPointF(w * pylon, top + i * h * 0.006),
                                 QPointF(w * (pylon + side * i * 0.0165), deck));
        }
        painter.setPen(Qt::NoPen);
        glow(painter, {w * pylon, top}, h * 0.03, QColor(255, 90, 80, 230));
    }
    for (int i = 0; i < 46; ++i) {
        glow(painter, {w * i / 45.0, deck - h * 0.006}, h * 0.018, QColor(255, 206, 130, 200));
        star(painter, {w * i / 45.0, deck - h * 0.006}, 1.2, QColor(255, 240, 200));
    }
    painter.end();
    reflect(image, int(shore), QColor(10, 12, 36), 0.34, 20, 31);
    vignette(image, 0.3);
    grain(image, 4, 31);
    return image;
}

QImage skyLanterns(QSize size) {
    QImage image = canvas(size);
    const QSizeF s = size;
    QPainter painter(&image);
    makeSmooth(painter);
    wash(painter, image.rect(), {{0, QColor(8, 12, 38)}, {0.55, QColor(30, 34, 82)}, {0.8, QColor(120, 66, 88)}});
    Dice dice(43);
    starField(painter, QRectF(0, 0, s.width(), s.height() * 0.5), 260, dice);
    painter.setBrush(QColor(30, 24, 56));
    painter.drawPath(ridgePath(s, {s.height() * 0.72, s.height() * 0.16, 3, 501}));
    painter.setBrush(QColor(16, 12, 34));
    painter.drawPath(ridgePath(s, {s.height() * 0.80, s.height() * 0.07, 4, 503}));
    for (int i = 0; i < 90; ++i) {
        const double near = std::pow((i + 1) / 90.0, 3);
        const double u = s.height() * (0.006 + 0.036 * near);
        const QPointF at(s.width() * dice.unit(), s.height() * (0.04 + 0.66 * dice.unit()));
        glow(painter, at, u * 5, QColor(255, 150, 60, 120));
        QPainterPath paper(at + QPointF(-u * 0.62, u));
        paper.cubicTo(at + QPointF(-u * 0.95, -u * 0.5), at + QPointF(-u * 0.9, -u * 1.15), at + QPointF(0, -u * 1.2));
        paper.cubicTo(at + QPointF(u * 0.9, -u * 1.15), at + QPointF(u * 0.95, -u * 0.5), at + QPointF(u * 0.62, u));
        paper.quadTo(at + QPointF(0, u * 1.22), at + QPointF(-u * 0.62, u));
        QLinearGradient fill(at + QPointF(0, -u * 1.2), at + QPointF(0, u));
        fill.setColorAt(0, QColor(214, 84, 40));
        fill.setColorAt(0.6, QColor(255, 158, 66));
        fill.setColorAt(1, QColor(255, 236, 170));
        painter.setBrush(fill);
        painter.drawPath(paper);
        painter.setPen(QPen(QColor(150, 60, 30, 110), std::max(0.5, u * 0.04)));
        painter.drawLine(at + QPointF(-u * 0.3, u * 1.05), at + QPointF(-u * 0.38, -u));
        painter.drawLine(at + QPointF(u * 0.3, u * 1.05), at + QPointF(u * 0.38, -u));
        painter.setPen(Qt::NoPen);
        glow(painter, at + QPointF(0, u * 0.9), u * 0.8, QColor(255, 250, 210, 240));
    }
    painter.end();
    reflect(image, size.height() * 80 / 100, QColor(14, 12, 40), 0.4, 26, 32);
    grain(image, 4, 32);
    return image;
}

QImage fireworks(QSize size) {
    QImage image = canvas(size);
    const double w = size.width();
    const double h = size.height();
    QPainter painter(&image);
    makeSmooth(painter);
    wash(painter, image.rect(), {{0, QColor(6, 8, 26)}, {0.7, QColor(26, 24, 62)}, {1, QColor(52, 34, 70)}});
    Dice dice(47);
    struct Burst {
        double x, y, radius;
        QColor colour, tip;
        int rays;
    };
    const std::vector<Burst> bursts{{0.30, 0.30, 0.26, QColor(255, 196, 96), QColor(255, 90, 60), 90},
                                    {0.68, 0.24, 0.22, QColor(255, 140, 190), QColor(170, 90, 255), 76},
                                    {0.52, 0.48, 0.15, QColor(170, 240, 255), QColor(70, 130, 255), 60},
                                    {0.86, 0.46, 0.12, QColor(190, 255, 170), QColor(60, 180, 110), 50},
                                    {0.11, 0.52, 0.11, QColor(255, 240, 220), QColor(255, 170, 90), 50}};
    painter.setCompositionMode(QPainter::CompositionMode_Screen);
    for (const Burst& burst : bursts) {
        const QPointF heart(w * burst.x, h * burst.y);
        glow(painter, heart, h * burst.radius * 1.5, faded(burst.colour, 0.35));
        for (int i = 0; i < burst.rays; ++i) {
            const double angle = i * 360.0 / burst.rays + dice.bell() * 4;
            const double reach = h * burst.radius * dice.between(0.62, 1.05);
            QPointF last = polar(heart, reach * 0.15, angle);
            for (int step = 1; step <= 16; ++step) {
                const double t = step / 16.0;
                const QPointF next =
                    polar(heart, reach * (0.15 + 0.85 * std::pow(t, 0.75)), angle) + QPointF(0, h * 0.045 * t * t);
                painter.setPen(QPen(faded(mixed(burst.colour, burst.tip, t), 0.25 + 0.7 * t), 0.8 + 1.2 * t,
                                    Qt::SolidLine, Qt::RoundCap));
                painter.drawLine(last, next);
                last = next;
            }
            painter.setPen(Qt::NoPen);
            star(painter, last, dice.between(0.8, 1.8), mixed(burst.tip, Qt::white, 0.5));
        }
    }
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(8, 8, 22));
    painter.drawPath(ridgePath(QSizeF(size), {h * 0.74, h * 0.09, 4, 601}));
    for (int i = 0; i < 120; ++i)
        star(painter, {w * dice.unit(), h * (0.725 + 0.02 * dice.unit())}, dice.between(0.5, 1.3),
             lampColours()[std::size_t(dice.below(3))]);
    painter.end();
    reflect(image, int(h * 0.75), QColor(8, 8, 26), 0.35, 30, 33);
    grain(image, 3, 33);
    return image;
}

QImage rainyWindow(QSize size) {
    QImage image = canvas(size);
    const double w = size.width();
    const double h = size.height();
    QPainter painter(&image);
    makeSmooth(painter);
    wash(painter, image.rect(), {{0, QColor(16, 22, 46)}, {0.55, QColor(40, 36, 70)}, {1, QColor(18, 16, 34)}});
    Dice dice(53);
    painter.setCompositionMode(QPainter::CompositionMode_Screen);
    for (int i = 0; i < 105; ++i) {
        const double y = 0.48 + dice.bell() * 0.52;
        bokeh(painter, {w * dice.unit(), h * y}, w * dice.between(0.016, 0.066),
              lampColours()[std::size_t(dice.below(6))], dice.between(0.14, 0.55));
    }
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.end();
    const QImage street = image.mirrored(true, true);
    painter.begin(&image);
    makeSmooth(painter);
    // Every drop shows the street upside down.
    for (int i = 0; i < 420; ++i) {
        const double radius = w * (0.0015 + 0.0125 * std::pow(dice.unit(), 7));
        const QPointF at(w * dice.unit(), h * dice.unit());
        QPainterPath drop;
        drop.addEllipse(at, radius, radius * dice.between(1.0, 1.35));
        if (radius > w * 0.009) {
            const double trail = h * dice.between(0.1, 0.4);
            painter.setBrush(QColor(190, 205, 235, 24));
            painter.drawRoundedRect(QRectF(at.x() - radius * 0.5, at.y() - trail, radius, trail), radius, radius);
        }
        painter.save();
        painter.setClipPath(drop);
        painter.drawImage(QRectF(at.x() - radius * 1.2, at.y() - radius * 1.6, radius * 2.4, radius * 3.2), street,
                          QRectF(w * 0.1 + dice.unit() * w * 0.4, h * 0.2, w * 0.4, h * 0.6));
        painter.restore();
        QLinearGradient rim(at - QPointF(0, radius), at + QPointF(0, radius * 1.3));
        rim.setColorAt(0, QColor(0, 0, 10, 120));
        rim.setColorAt(0.5, QColor(255, 255, 255, 10));
        rim.setColorAt(1, QColor(255, 255, 255, 130));
        painter.setBrush(rim);
        painter.drawPath(drop);
        painter.setBrush(QColor(255, 255, 255, 200));
        painter.drawEllipse(at - QPointF(radius * 0.3, radius * 0.4), radius * 0.16, radius * 0.16);
    }
    painter.end();
    vignette(image, 0.4);
    grain(image, 4, 34);
    return image;
}
