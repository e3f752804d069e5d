#include "drawing/album_art.h"
#include "drawing/prints.h"
#include "drawing/scenes.h"
#include "platform/desktop/theme.h"

#include <cmath>

namespace {

/// The part to be kept is bright, in a frame with handles, with lines at its thirds.
void cropFrame(QPainter& painter, const QRectF& whole, const QRectF& kept) {
    QPainterPath rest;
    rest.addRect(whole);
    rest.addRect(kept);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(20, 26, 32, 120));
    painter.drawPath(rest);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(255, 255, 255, 110), 1.5));
    for (int i = 1; i < 3; ++i) {
        const double x = kept.left() + kept.width() * i / 3;
        const double y = kept.top() + kept.height() * i / 3;
        painter.drawLine(QPointF(x, kept.top()), QPointF(x, kept.bottom()));
        painter.drawLine(QPointF(kept.left(), y), QPointF(kept.right(), y));
    }
    painter.setPen(QPen(Qt::white, 3));
    painter.drawRect(kept);
    painter.setPen(QPen(theme::worn().alert, 2));
    painter.setBrush(Qt::white);
    for (const double across : {0.0, 0.5, 1.0})
        for (const double down : {0.0, 0.5, 1.0}) {
            if (across == 0.5 && down == 0.5) continue;
            const QPointF at(kept.left() + kept.width() * across, kept.top() + kept.height() * down);
            painter.drawRect(QRectF(at.x() - 8, at.y() - 8, 16, 16));
        }
}

void arrow(QPainter& painter, QPointF tip, double direction, double length) {
    QPolygonF head{tip, polar(tip, length, direction + 152), polar(tip, length, direction - 152)};
    painter.setPen(Qt::NoPen);
    painter.setBrush(theme::worn().accent);
    painter.drawPolygon(head);
}

/// Counter-clockwise, as the editor turns.
void turningArrow(QPainter& painter, QPointF centre, double radius) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(theme::worn().accent, 9, Qt::SolidLine, Qt::RoundCap));
    painter.drawArc(QRectF(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius), 15 * 16, 118 * 16);
    arrow(painter, polar(centre, radius, -141), 128, 38);
}

/// A print and its mirror image on either side of an axis.
void mirrorPair(QPainter& painter, QPointF centre, double width, const QImage& scene) {
    const double gap = width * 0.60;
    photograph(painter, centre - QPointF(gap, 0), width, 0, scene);
    photograph(painter, centre + QPointF(gap, 0), width, 0, scene.mirrored(true, false));
    const double reach = width * 0.46;
    painter.setPen(QPen(theme::worn().accent, 4, Qt::DashLine, Qt::FlatCap));
    painter.drawLine(centre - QPointF(0, reach), centre + QPointF(0, reach));
}

}  // namespace

QImage editorPicture(QSize size) {
    QImage image = canvas(size);
    woven(image, QColor(206, 198, 182), QColor(242, 236, 224), 117);
    const double w = size.width();
    const double h = size.height();
    QPainter painter(&image);
    makeSmooth(painter);

    const QPointF centre(w * 0.325, h * 0.50);
    const double width = w * 0.50;
    const QSizeF print(width, width * 0.75);
    photograph(painter, centre, width, 0, autumnLake({960, 720}));
    const QRectF whole(centre.x() - print.width() / 2, centre.y() - print.height() / 2, print.width(), print.height());
    cropFrame(painter, whole,
              {whole.left() + print.width() * 0.22, whole.top() + print.height() * 0.20, print.width() * 0.60,
               print.height() * 0.60});

    const QPointF turned(w * 0.79, h * 0.29);
    photograph(painter, turned, w * 0.22, -9, mapleLeaves({640, 480}));
    turningArrow(painter, turned, w * 0.158);
    mirrorPair(painter, {w * 0.79, h * 0.75}, w * 0.145, butterfly({640, 480}));
    painter.end();
    vignette(image, 0.20);
    return image;
}
