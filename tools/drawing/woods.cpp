#include "drawing/canvas.h"
#include "drawing/scenes.h"

#include <cmath>

namespace {

void stag(QPainter& painter, QPointF foot, double u, const QColor& colour) {
    painter.save();
    painter.translate(foot);
    painter.scale(u, u);
    painter.setBrush(colour);
    QPainterPath body(QPointF(-2.2, -3.5));
    body.cubicTo(-1.6, -4.1, 0.2, -3.9, 1.2, -4.1);
    body.cubicTo(1.7, -4.6, 1.9, -5.3, 2.2, -5.9);
    body.cubicTo(2.4, -6.2, 2.7, -6.3, 3.0, -6.1);
    body.lineTo(3.7, -5.7);
    body.cubicTo(3.8, -5.5, 3.6, -5.3, 3.3, -5.35);
    body.cubicTo(2.9, -5.3, 2.8, -5.1, 2.7, -4.7);
    body.cubicTo(2.5, -3.8, 2.3, -3.1, 1.7, -2.6);
    body.cubicTo(0.8, -2.3, -0.8, -2.5, -1.6, -2.2);
    body.cubicTo(-2.3, -2.2, -2.5, -3.0, -2.2, -3.5);
    painter.drawPath(body);
    for (const auto& [x, bend] :
         {std::pair{-2.0, -0.25}, std::pair{-1.4, 0.1}, std::pair{1.2, 0.05}, std::pair{1.8, 0.2}}) {
        QPainterPath leg(QPointF(x - 0.28, -3.0));
        leg.lineTo(x + bend - 0.12, -1.3);
        leg.lineTo(x + bend * 0.4 - 0.12, 0);
        leg.lineTo(x + bend * 0.4 + 0.14, 0);
        leg.lineTo(x + bend + 0.12, -1.3);
        leg.lineTo(x + 0.38, -2.8);
        painter.drawPath(leg);
    }
    painter.drawPath(petal(QPointF(2.4, -6.0), -165, 0.7, 0.16));
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(colour, 0.16, Qt::SolidLine, Qt::RoundCap));
    for (double side : {-1.0, 1.0}) {
        QPainterPath antler(QPointF(2.65, -6.15));
        antler.cubicTo(2.4 + side * 0.2, -7.0, 2.5 + side * 0.9, -7.3, 2.5 + side * 0.8, -8.3);
        antler.moveTo(2.55 + side * 0.28, -6.95);
        antler.lineTo(2.9 + side * 0.4, -7.5);
        antler.moveTo(2.5 + side * 0.6, -7.5);
        antler.lineTo(2.2 + side * 0.5, -8.1);
        antler.moveTo(2.52 + side * 0.74, -7.8);
        antler.lineTo(2.8 + side * 0.95, -8.2);
        painter.drawPath(antler);
    }
    painter.restore();
}

}  // namespace

QImage forestDeer(QSize size) {
    QImage image = canvas(size);
    const double w = size.width();
    const double h = size.height();
    QPainter painter(&image);
    makeSmooth(painter);
    wash(painter, image.rect(),
         {{0, QColor(120, 152, 120)},
          {0.5, QColor(226, 224, 170)},
          {0.78, QColor(170, 178, 122)},
          {1, QColor(60, 76, 52)}});
    const QPointF light(w * 0.62, h * 0.36);
    glow(painter, light, w * 0.5, QColor(255, 248, 210, 230));
    Dice dice(73);
    for (int layer = 0; layer < 5; ++layer) {
        const double near = layer / 4.0;
        const QColor bark = mixed(QColor(186, 196, 150), QColor(26, 34, 30), eased(near));
        const double ground = h * (0.66 + near * 0.22);
        painter.setBrush(mixed(QColor(190, 196, 130), QColor(34, 46, 34), eased(near)));
        painter.drawPath(ridgePath(QSizeF(size), {ground, h * 0.03, 3.0 + layer, 900 + quint32(layer)}));
        const int trunks = 17 - layer * 3;
        for (int i = 0; i < trunks; ++i) {
            double x = w * (i + dice.between(0.15, 0.85)) / trunks;
            if (layer > 2 && x > w * 0.36 && x < w * 0.74) x = x < w * 0.55 ? w * 0.06 : w * 0.96;
            const double thick = w * (0.007 + near * near * 0.036) * dice.between(0.7, 1.3);
            const double lean = dice.bell() * w * 0.02;
            QPainterPath trunk(QPointF(x - thick * 0.7, ground + h * 0.04));
            trunk.cubicTo(x - thick * 0.4, ground - h * 0.1, x + lean - thick * 0.4, h * 0.3, x + lean - thick * 0.35,
                          -5);
            trunk.lineTo(x + lean + thick * 0.35, -5);
            trunk.cubicTo(x + lean + thick * 0.4, h * 0.3, x + thick * 0.4, ground - h * 0.1, x + thick * 0.8,
                          ground + h * 0.04);
            painter.setBrush(bark);
            painter.drawPath(trunk);
            for (int twig = 0; twig < 3; ++twig) {
                painter.setPen(QPen(bark, thick * 0.18, Qt::SolidLine, Qt::RoundCap));
                const QPointF from(x + lean * 0.6, h * dice.between(0.05, 0.4));
                painter.drawLine(from, from + QPointF((dice.unit() < 0.5 ? -1 : 1) * w * dice.between(0.02, 0.07),
                                                      -h * dice.between(0.03, 0.09)));
                painter.setPen(Qt::NoPen);
            }
        }
        for (int i = 0; i < 240; ++i) {
            const QPointF leaf(w * dice.unit(), h * 0.27 * std::pow(dice.unit(), 1.4));
            painter.setBrush(faded(
                mixed(mixed(QColor(206, 212, 120), QColor(46, 80, 50), near), QColor(255, 240, 160), dice.unit() * 0.4),
                0.5));
            painter.drawEllipse(leaf, w * dice.between(0.003, 0.010), w * dice.between(0.003, 0.007));
        }
        if (layer == 2) stag(painter, {w * 0.54, h * 0.81}, h * 0.036, QColor(58, 46, 36));
        if (layer == 1) stag(painter, {w * 0.38, h * 0.735}, h * 0.021, QColor(128, 118, 84));
    }
    painter.setCompositionMode(QPainter::CompositionMode_Screen);
    for (int i = 0; i < 9; ++i) {
        const double angle = 70 + i * 9.5 + dice.bell() * 3;
        QPainterPath beam(light);
        beam.lineTo(polar(light, w * 0.85, angle));
        beam.lineTo(polar(light, w * 0.85, angle + dice.between(2, 5)));
        QRadialGradient fade(light, w * 0.8);
        fade.setColorAt(0, QColor(255, 240, 190, 70));
        fade.setColorAt(1, QColor(255, 240, 190, 0));
        painter.setBrush(fade);
        painter.drawPath(beam);
    }
    painter.end();
    vignette(image, 0.3);
    grain(image, 4, 40);
    return image;
}
