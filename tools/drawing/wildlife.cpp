#include "drawing/canvas.h"
#include "drawing/scenes.h"

#include <cmath>

QImage butterfly(QSize size) {
    QImage image = canvas(size);
    const double w = size.width();
    const double h = size.height();
    QPainter painter(&image);
    makeSmooth(painter);
    wash(painter, image.rect(), {{0, QColor(206, 226, 208)}, {0.6, QColor(150, 190, 160)}, {1, QColor(92, 140, 116)}});
    Dice dice(61);
    for (int i = 0; i < 30; ++i)
        glow(painter, {w * dice.unit(), h * dice.unit()}, w * dice.between(0.04, 0.12),
             faded(mixed(QColor(255, 250, 220), QColor(246, 170, 190), dice.unit()), 0.35));
    // Meadow flowers.
    for (int i = 0; i < 34; ++i) {
        const QPointF head(w * dice.unit(), h * dice.between(0.66, 0.95));
        painter.setPen(QPen(QColor(66, 112, 78), 2));
        painter.drawLine(head, QPointF(head.x() + dice.bell() * 20, h));
        painter.setPen(Qt::NoPen);
        const double radius = w * dice.between(0.012, 0.028);
        const QColor bloom = mixed(QColor(240, 120, 150), QColor(255, 244, 236), dice.unit());
        for (int leaf = 0; leaf < 10; ++leaf) {
            painter.setBrush(mixed(bloom, Qt::white, (leaf % 2) * 0.15));
            painter.drawPath(petal(head, leaf * 36, radius, radius * 0.22, 0.75));
        }
        painter.setBrush(QColor(244, 190, 70));
        painter.drawEllipse(head, radius * 0.28, radius * 0.28);
    }
    painter.translate(w * 0.5, h * 0.44);
    painter.rotate(-14);
    const double u = h * 0.30;
    for (int side : {-1, 1}) {
        painter.save();
        painter.scale(side, 1);
        QPainterPath lower(QPointF(0, u * 0.05));
        lower.cubicTo(u * 0.5, u * 0.02, u * 0.95, u * 0.32, u * 0.82, u * 0.66);
        lower.cubicTo(u * 0.76, u * 0.80, u * 0.66, u * 0.76, u * 0.62, u * 1.06);
        lower.cubicTo(u * 0.56, u * 0.80, u * 0.46, u * 0.92, u * 0.36, u * 0.80);
        lower.cubicTo(u * 0.16, u * 0.62, u * 0.04, u * 0.3, 0, u * 0.05);
        QPainterPath upper(QPointF(0, -u * 0.02));
        upper.cubicTo(u * 0.25, -u * 0.55, u * 0.75, -u * 0.95, u * 1.28, -u * 0.86);
        upper.cubicTo(u * 1.36, -u * 0.55, u * 1.12, -u * 0.02, u * 0.84, u * 0.10);
        upper.cubicTo(u * 0.5, u * 0.2, u * 0.2, u * 0.14, 0, -u * 0.02);
        for (const QPainterPath& wing : {lower, upper}) {
            QRadialGradient fill(QPointF(0, 0), u * 1.35);
            fill.setColorAt(0, QColor(255, 226, 130));
            fill.setColorAt(0.45, QColor(246, 150, 50));
            fill.setColorAt(0.82, QColor(212, 76, 36));
            fill.setColorAt(1, QColor(150, 40, 36));
            painter.setBrush(fill);
            painter.setPen(QPen(QColor(36, 26, 32), u * 0.075, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            painter.drawPath(wing);
            painter.save();
            painter.setClipPath(wing);
            painter.setPen(QPen(QColor(36, 26, 32), u * 0.020));
            painter.setBrush(Qt::NoBrush);
            const double from = &wing == &lower ? 0 : -66;
            for (int i = 0; i < 8; ++i) {
                QPainterPath vein(QPointF(0, 0));
                const double angle = (wing.boundingRect().top() < -u * 0.3 ? -62 + i * 10 : 12 + i * 10) + from * 0;
                vein.quadTo(polar({}, u * 0.6, angle + 6), polar({}, u * 1.5, angle));
                painter.drawPath(vein);
            }
            painter.restore();
        }
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(255, 246, 226));
        for (int i = 0; i < 7; ++i)
            painter.drawEllipse(QPointF(u * (1.245 - i * 0.055), u * (-0.74 + i * 0.125)), u * 0.022, u * 0.022);
        for (int i = 0; i < 5; ++i)
            painter.drawEllipse(
                QPointF(u * (0.80 - i * 0.085), u * (0.55 + (i < 2 ? i * 0.13 : 0.26 + (i - 2) * 0.03))), u * 0.020,
                u * 0.020);
        painter.setPen(QPen(QColor(36, 26, 32), u * 0.016, Qt::SolidLine, Qt::RoundCap));
        painter.setBrush(Qt::NoBrush);
        QPainterPath feeler(QPointF(0, -u * 0.26));
        feeler.cubicTo(u * 0.08, -u * 0.5, u * 0.2, -u * 0.62, u * 0.32, -u * 0.66);
        painter.drawPath(feeler);
        painter.restore();
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(40, 30, 34));
    painter.drawEllipse(QPointF(0, u * 0.10), u * 0.052, u * 0.36);
    painter.drawEllipse(QPointF(0, -u * 0.26), u * 0.062, u * 0.062);
    painter.end();
    vignette(image, 0.25);
    grain(image, 3, 37);
    return image;
}

QImage jellyfish(QSize size) {
    QImage image = canvas(size);
    const double w = size.width();
    const double h = size.height();
    QPainter painter(&image);
    makeSmooth(painter);
    wash(painter, image.rect(), {{0, QColor(20, 84, 140)}, {0.5, QColor(10, 36, 92)}, {1, QColor(6, 10, 40)}});
    Dice dice(67);
    painter.setCompositionMode(QPainter::CompositionMode_Screen);
    for (int i = 0; i < 9; ++i) {
        QPainterPath ray(QPointF(w * (0.1 + i * 0.1), -10));
        ray.lineTo(w * (0.13 + i * 0.1), -10);
        ray.lineTo(w * (-0.1 + i * 0.15), h * 0.8);
        ray.lineTo(w * (-0.2 + i * 0.15), h * 0.8);
        QLinearGradient fade(0, 0, 0, h * 0.8);
        fade.setColorAt(0, QColor(120, 200, 240, 40));
        fade.setColorAt(1, QColor(120, 200, 240, 0));
        painter.setBrush(fade);
        painter.drawPath(ray);
    }
    const auto jelly = [&](QPointF top, double u, const QColor& colour) {
        glow(painter, top + QPointF(0, u * 0.5), u * 2.4, faded(colour, 0.35));
        painter.setBrush(Qt::NoBrush);
        for (int i = 0; i < 26; ++i) {
            const double x = (i / 25.0 - 0.5) * 1.8;
            QPainterPath thread(top + QPointF(x * u, u * 0.72));
            const double length = u * dice.between(1.6, 4.2);
            const double sway = u * 0.35;
            for (int step = 1; step <= 24; ++step) {
                const double t = step / 24.0;
                thread.lineTo(
                    top + QPointF(x * u * (1 - t * 0.35) + std::sin(t * 7 + x * 3) * sway * t, u * 0.72 + length * t));
            }
            QLinearGradient fade(top, top + QPointF(0, u * 0.7 + length));
            fade.setColorAt(0.1, faded(colour.lighter(125), 0.7));
            fade.setColorAt(1, faded(colour, 0));
            painter.setPen(QPen(fade, i % 5 == 0 ? u * 0.05 : u * 0.015, Qt::SolidLine, Qt::RoundCap));
            painter.drawPath(thread);
        }
        painter.setPen(Qt::NoPen);
        QPainterPath bell(top + QPointF(-u, u * 0.72));
        bell.cubicTo(top + QPointF(-u * 1.05, -u * 0.45), top + QPointF(u * 1.05, -u * 0.45),
                     top + QPointF(u, u * 0.72));
        for (int i = 0; i < 8; ++i)
            bell.quadTo(top + QPointF(u * (0.875 - i * 0.25), u * 0.90),
                        top + QPointF(u * (0.75 - i * 0.25), u * 0.72));
        QRadialGradient fill(top + QPointF(-u * 0.25, u * 0.1), u * 1.3);
        fill.setColorAt(0, faded(mixed(colour, Qt::white, 0.75), 0.95));
        fill.setColorAt(0.6, faded(colour, 0.55));
        fill.setColorAt(1, faded(colour.lighter(120), 0.9));
        painter.setBrush(fill);
        painter.drawPath(bell);
        painter.setPen(QPen(faded(Qt::white, 0.28), u * 0.02));
        for (int i = -3; i <= 3; ++i) {
            QPainterPath rib(top + QPointF(i * u * 0.05, -u * 0.12));
            rib.quadTo(top + QPointF(i * u * 0.26, u * 0.1), top + QPointF(i * u * 0.29, u * 0.72));
            painter.setBrush(Qt::NoBrush);
            painter.drawPath(rib);
        }
        painter.setPen(Qt::NoPen);
    };
    jelly({w * 0.80, h * 0.62}, w * 0.07, QColor(120, 130, 255));
    jelly({w * 0.18, h * 0.55}, w * 0.09, QColor(255, 130, 190));
    jelly({w * 0.72, h * 0.14}, w * 0.12, QColor(110, 190, 255));
    jelly({w * 0.44, h * 0.30}, w * 0.20, QColor(255, 150, 170));
    for (int i = 0; i < 150; ++i) {
        painter.setBrush(QColor(200, 230, 255, 30 + dice.below(120)));
        const double radius = dice.between(0.5, 2.2);
        painter.drawEllipse(QPointF(w * dice.unit(), h * dice.unit()), radius, radius);
    }
    painter.end();
    grain(image, 3, 38);
    return image;
}

QImage wildGeese(QSize size) {
    QImage image = canvas(size);
    const QSizeF s = size;
    const double w = s.width();
    const double h = s.height();
    QPainter painter(&image);
    makeSmooth(painter);
    wash(painter, image.rect(),
         {{0, QColor(72, 106, 150)}, {0.42, QColor(214, 170, 150)}, {0.62, QColor(252, 206, 136)}});
    glow(painter, {w * 0.28, h * 0.56}, h * 0.5, QColor(255, 232, 170, 200));
    painter.setBrush(QColor(255, 246, 214));
    painter.drawEllipse(QPointF(w * 0.28, h * 0.56), h * 0.055, h * 0.055);
    for (int i = 0; i < 2; ++i) {
        painter.setBrush(mixed(QColor(196, 142, 128), QColor(118, 88, 104), i));
        painter.drawPath(ridgePath(s, {h * (0.60 + i * 0.03), h * 0.07, 4, 801 + quint32(i)}));
    }
    painter.end();
    reflect(image, int(h * 0.64), QColor(60, 60, 88), 0.25, 14, 39);
    painter.begin(&image);
    makeSmooth(painter);
    Dice dice(71);
    for (int i = 0; i < 15; ++i) {
        const int arm = (i + 1) / 2;
        const double side = i % 2 == 0 ? 1 : -0.55;
        const QPointF at(w * (0.80 - arm * 0.055), h * (0.22 + side * arm * 0.032) + dice.bell() * 3);
        const double u = h * 0.021 * (1 - arm * 0.03);
        const double beat = dice.between(-0.6, 1);
        painter.setBrush(QColor(48, 40, 58));
        painter.drawPath(petal(at + QPointF(-u * 1.1, 0), -2, u * 2.5, u * 0.20));
        painter.drawPath(petal(at + QPointF(u * 0.1, 0), -112 + beat * 14, u * 1.7 * std::max(0.45, beat), u * 0.26));
        painter.drawPath(petal(at + QPointF(u * 0.1, 0), beat > 0 ? -142 : 128, u * 1.5, u * 0.24));
    }
    // Reeds close to the viewer.
    for (int i = 0; i < 90; ++i) {
        const double x = w * (dice.unit() < 0.5 ? dice.between(-0.02, 0.24) : dice.between(0.66, 1.02));
        const double tall = h * dice.between(0.16, 0.42);
        const double lean = w * dice.between(0.004, 0.05);
        painter.setPen(QPen(QColor(44, 34, 40), dice.between(1, 2.6), Qt::SolidLine, Qt::RoundCap));
        painter.setBrush(Qt::NoBrush);
        QPainterPath stem(QPointF(x, h + 4));
        stem.quadTo(x + lean * 0.2, h - tall * 0.6, x + lean, h - tall);
        painter.drawPath(stem);
        painter.setPen(Qt::NoPen);
        if (i % 3 == 0) {
            painter.setBrush(mixed(QColor(92, 66, 58), QColor(220, 176, 130), dice.unit()));
            for (int tuft = 0; tuft < 7; ++tuft)
                painter.drawPath(petal({x + lean, h - tall}, -40 - tuft * 14, h * dice.between(0.03, 0.06), h * 0.004));
        } else {
            painter.setBrush(QColor(52, 42, 44));
            painter.drawPath(petal({x + lean * 0.4, h - tall * 0.5}, -40 + dice.bell() * 50, h * 0.12, h * 0.006, 0.4));
        }
    }
    painter.end();
    vignette(image, 0.25);
    grain(image, 4, 39);
    return image;
}
