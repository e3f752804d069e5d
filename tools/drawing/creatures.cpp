#include "drawing/canvas.h"
#include "drawing/scenes.h"

#include <cmath>

namespace {

/// A koi seen from above: a body along a bent back line, fins, and patches.
void koi(QPainter& painter, QPointF nose, double angle, double length, double bend, const QColor& body,
         const QColor& patch, Dice& dice) {
    const int parts = 24;
    std::vector<QPointF> left;
    std::vector<QPointF> right;
    std::vector<QPointF> back;
    QPointF at = nose;
    double heading = angle + 180;
    for (int i = 0; i <= parts; ++i) {
        const double t = double(i) / parts;
        const double half =
            length * 0.115 * std::pow(std::sin(std::min(1.0, t * 1.12 + 0.10) * 3.0), 0.8) * (1 - t * 0.45) +
            length * 0.006;
        left.push_back(polar(at, half, heading + 90));
        right.push_back(polar(at, half, heading - 90));
        back.push_back(at);
        heading += bend * std::sin(t * 3.4 + 0.4) / parts * 2;
        at = polar(at, length * 0.8 / parts, heading);
    }
    const auto fin = [&](QPointF root, double direction, double reach, double wide) {
        QLinearGradient fill(root, polar(root, reach, direction));
        fill.setColorAt(0, faded(mixed(body, patch, 0.3), 0.85));
        fill.setColorAt(1, faded(body, 0.25));
        painter.setBrush(fill);
        painter.drawPath(petal(root, direction, reach, wide, 0.85));
    };
    QPainterPath shape(left.front());
    for (const QPointF& point : left) shape.lineTo(point);
    for (auto point = right.rbegin(); point != right.rend(); ++point) shape.lineTo(*point);
    shape.closeSubpath();
    painter.save();
    painter.translate(length * 0.05, length * 0.09);
    painter.setBrush(QColor(0, 20, 24, 70));
    painter.drawPath(shape);
    painter.restore();
    fin(back[7], angle + 180 + 62, length * 0.22, length * 0.07);
    fin(back[7], angle + 180 - 62, length * 0.22, length * 0.07);
    fin(back[15], angle + 180 + 50, length * 0.12, length * 0.035);
    fin(back[15], angle + 180 - 50, length * 0.12, length * 0.035);
    for (int side : {-1, 0, 1}) fin(back[22], heading + side * 20, length * 0.30, length * 0.055);
    QLinearGradient skin(left[8], right[8]);
    skin.setColorAt(0, body.darker(112));
    skin.setColorAt(0.45, body.lighter(106));
    skin.setColorAt(1, body.darker(118));
    painter.setBrush(skin);
    painter.drawPath(shape);
    painter.save();
    painter.setClipPath(shape);
    for (int i = 0; i < 5; ++i) {
        const QPointF centre = back[std::size_t(2 + i * 4)] + QPointF(dice.bell(), dice.bell()) * length * 0.05;
        painter.setBrush(faded(patch, 0.92));
        for (int blob = 0; blob < 4; ++blob)
            painter.drawEllipse(centre + QPointF(dice.bell(), dice.bell()) * length * 0.05,
                                length * dice.between(0.03, 0.07), length * dice.between(0.025, 0.06));
    }
    painter.setPen(QPen(faded(body.darker(150), 0.35), 0.7));
    for (int i = 5; i < 22; ++i)
        for (double across : {0.25, 0.5, 0.75}) {
            const QPointF scale = left[std::size_t(i)] * across + right[std::size_t(i)] * (1 - across);
            painter.drawArc(
                QRectF(scale.x() - length * 0.018, scale.y() - length * 0.018, length * 0.036, length * 0.036),
                int(-angle * 16) - 1440, 2880);
        }
    painter.restore();
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(24, 20, 22));
    for (int side : {-1, 1})
        painter.drawEllipse(polar(back[2], length * 0.055, angle + side * 90), length * 0.012, length * 0.012);
}

/// A crane in flight, seen from the side; `beat` raises the wings.
void crane(QPainter& painter, QPointF at, double u, double beat, bool far) {
    const QColor white = far ? QColor(250, 236, 224) : QColor(255, 253, 248);
    const QColor black(34, 36, 46);
    painter.save();
    painter.translate(at);
    painter.scale(u, u);
    painter.setPen(QPen(black, 0.16, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(-1.7, 0.28), QPointF(-4.3, 0.75));
    painter.drawLine(QPointF(-1.7, 0.34), QPointF(-4.2, 0.95));
    painter.setPen(Qt::NoPen);
    const auto wing = [&](double root, double lift, double sweep) {
        QPainterPath feathers(QPointF(root + 0.9, 0.0));
        feathers.cubicTo(root + 0.9, -lift * 0.5, root + 0.2 + sweep, -lift * 0.9, root - 0.3 + sweep, -lift);
        feathers.cubicTo(root - 1.1 + sweep, -lift * 0.75, root - 1.6 + sweep * 0.5, -lift * 0.3, root - 1.2, 0.2);
        painter.setBrush(white);
        painter.drawPath(feathers);
        painter.setBrush(black);
        for (int i = 0; i < 6; ++i) {
            const double t = i / 5.0;
            const QPointF from(root - 0.3 + sweep - t * 0.9, -lift * (1 - t * 0.62));
            painter.drawPath(petal(from + QPointF(0.35, lift * 0.1), 205 - lift * 6 + t * 14, 1.25, 0.13));
        }
    };
    wing(-0.1, beat * 3.3, -1.0);
    painter.setBrush(white);
    QPainterPath body(QPointF(1.6, -0.25));
    body.cubicTo(0.8, -0.75, -0.8, -0.6, -2.1, 0.28);
    body.cubicTo(-0.9, 0.75, 0.9, 0.7, 1.6, -0.25);
    painter.drawPath(body);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(white, 0.36, Qt::SolidLine, Qt::RoundCap));
    QPainterPath neck(QPointF(1.3, -0.15));
    neck.cubicTo(2.1, -0.55, 2.8, -0.35, 3.9, -0.8);
    painter.drawPath(neck);
    painter.setPen(QPen(black, 0.24, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(2.5, -0.42), QPointF(3.6, -0.66));
    painter.setPen(Qt::NoPen);
    painter.setBrush(white);
    painter.drawEllipse(QPointF(3.95, -0.83), 0.26, 0.21);
    painter.setBrush(QColor(206, 50, 46));
    painter.drawEllipse(QPointF(3.98, -0.96), 0.17, 0.10);
    painter.setBrush(QColor(96, 90, 80));
    painter.drawPath(petal(QPointF(4.1, -0.82), -12, 0.95, 0.07));
    wing(0.2, beat * 3.9, 0.5);
    painter.restore();
}

}  // namespace

QImage koiPond(QSize size) {
    QImage image = canvas(size);
    const double w = size.width();
    const double h = size.height();
    const Noise water(97);
    shade(image, [&](double x, double y) {
        const double tone = water.fractal(x * 4, y * 4, 5);
        const double web = 1 - std::abs(water.fractal(x * 7 + 3, y * 7, 3) - 0.5) * 9;
        return mixed(mixed(QColor(10, 58, 66), QColor(40, 112, 108), tone), QColor(178, 224, 206),
                     std::max(0.0, web) * 0.20);
    });
    QPainter painter(&image);
    makeSmooth(painter);
    Dice dice(59);
    koi(painter, {w * 0.78, h * 0.20}, 24, w * 0.26, 60, QColor(246, 240, 228), QColor(224, 72, 40), dice);
    koi(painter, {w * 0.26, h * 0.72}, 152, w * 0.30, -64, QColor(244, 150, 48), QColor(250, 214, 130), dice);
    koi(painter, {w * 0.64, h * 0.55}, -38, w * 0.36, 70, QColor(250, 246, 238), QColor(214, 44, 34), dice);
    koi(painter, {w * 0.22, h * 0.24}, -140, w * 0.24, 58, QColor(70, 74, 84), QColor(238, 226, 200), dice);
    koi(painter, {w * 0.90, h * 0.84}, 60, w * 0.22, -60, QColor(250, 198, 70), QColor(246, 150, 40), dice);
    painter.setBrush(Qt::NoBrush);
    for (const auto& [x, y] : {std::pair{0.44, 0.30}, std::pair{0.70, 0.80}})
        for (int ring = 1; ring < 5; ++ring) {
            painter.setPen(QPen(QColor(220, 245, 236, 120 - ring * 22), 1.6));
            painter.drawEllipse(QPointF(w * x, h * y), ring * w * 0.020, ring * w * 0.016);
        }
    painter.setPen(Qt::NoPen);
    for (int i = 0; i < 18; ++i) {
        painter.setBrush(QColor(250, 196, 206, 235));
        painter.drawPath(petal({w * dice.unit(), h * dice.unit()}, dice.unit() * 360, w * 0.020, w * 0.008));
    }
    painter.end();
    vignette(image, 0.35);
    grain(image, 3, 35);
    return image;
}

QImage cranes(QSize size) {
    QImage image = canvas(size);
    const QSizeF s = size;
    const double w = s.width();
    const double h = s.height();
    const Noise cloud(67);
    shade(image, [&](double x, double y) {
        const QColor sky =
            colourAt({{0, QColor(86, 112, 138)}, {0.35, QColor(196, 172, 160)}, {0.7, QColor(248, 204, 158)}}, y);
        const double band = eased((cloud.fractal(x * 2.2, y * 11, 6) - 0.48) * 4);
        return mixed(sky, mixed(QColor(255, 232, 206), QColor(232, 186, 166), y), band * 0.7);
    });
    QPainter painter(&image);
    makeSmooth(painter);
    const QPointF sun(w * 0.60, h * 0.40);
    glow(painter, sun, h * 0.62, QColor(255, 226, 180, 150));
    QRadialGradient disc(sun, h * 0.235);
    disc.setColorAt(0, QColor(244, 112, 72));
    disc.setColorAt(1, QColor(222, 70, 56));
    painter.setBrush(disc);
    painter.drawEllipse(sun, h * 0.235, h * 0.235);
    for (int i = 0; i < 4; ++i) {
        painter.setBrush(mixed(QColor(214, 176, 160), QColor(62, 70, 92), i / 3.0));
        painter.drawPath(
            ridgePath(s, {h * (0.72 + i * 0.075), h * (0.12 - i * 0.012), 3.4 - i * 0.4, 701 + quint32(i) * 3}));
        wash(painter, QRectF(0, h * (0.72 + i * 0.075), w, h * 0.09),
             {{0, QColor(255, 226, 196, 0)}, {1, QColor(255, 226, 196, 90)}});
    }
    crane(painter, {w * 0.80, h * 0.24}, w * 0.012, 0.75, true);
    crane(painter, {w * 0.71, h * 0.14}, w * 0.010, -0.45, true);
    crane(painter, {w * 0.60, h * 0.33}, w * 0.024, 1.0, false);
    crane(painter, {w * 0.36, h * 0.48}, w * 0.031, 0.85, false);
    crane(painter, {w * 0.21, h * 0.28}, w * 0.020, -0.5, false);
    painter.end();
    vignette(image, 0.2);
    grain(image, 4, 36);
    return image;
}
