#include "drawing/album_art.h"
#include "drawing/canvas.h"
#include "drawing/scenes.h"

namespace {

constexpr int cornerSide = 68;  // shown at 17 logical pixels, so that it stays sharp on fine screens
const QColor coverCloth(42, 74, 92);
const QColor gold(222, 186, 116);

}  // namespace

QImage bookCorner() {
    QImage image = canvas({cornerSide, cornerSide}, coverCloth);
    QPainter painter(&image);
    makeSmooth(painter);
    wash(painter, image.rect(), {{0, coverCloth.lighter(125)}, {1, coverCloth.darker(115)}});
    painter.setPen(QPen(gold, 3));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(5, 5, 58, 58));
    painter.setPen(Qt::NoPen);
    painter.setBrush(gold);
    for (int i = 0; i < 4; ++i) painter.drawPath(petal({34, 34}, i * 90 + 45, 22, 6, 0.7));
    painter.setBrush(gold.lighter(125));
    for (int i = 0; i < 4; ++i) painter.drawPath(petal({34, 34}, i * 90, 17, 4.5, 0.7));
    painter.setBrush(coverCloth);
    painter.drawEllipse(QPointF(34, 34), 4.5, 4.5);
    painter.end();
    return image.convertToFormat(QImage::Format_RGB32);
}

QImage turnedPageCorner() {
    QImage image = canvas({cornerSide, cornerSide});
    QPainter painter(&image);
    makeSmooth(painter);
    wash(painter, image.rect(), {{0, QColor(252, 249, 240)}, {1, QColor(232, 224, 206)}});
    painter.setPen(QPen(QColor(196, 186, 164), 2));
    for (int i = 0; i < 4; ++i) painter.drawLine(QPointF(30 + (3 - i) * 7, 26 + i * 10), QPointF(62, 26 + i * 10));
    painter.setPen(Qt::NoPen);
    // The page behind shows where the upper left corner is lifted.
    QPainterPath behind(QPointF(0, 0));
    behind.lineTo(46, 0);
    behind.lineTo(0, 46);
    painter.setBrush(coverCloth);
    painter.drawPath(behind);
    painter.setBrush(QColor(0, 0, 0, 60));
    QPainterPath shadow(QPointF(50, 0));
    shadow.quadTo(40, 34, 0, 52);
    shadow.lineTo(0, 46);
    shadow.lineTo(46, 0);
    painter.drawPath(shadow);
    QPainterPath curl(QPointF(46, 0));
    curl.cubicTo(38, 12, 40, 24, 36, 36);
    curl.cubicTo(24, 40, 12, 38, 0, 46);
    curl.closeSubpath();
    QLinearGradient roll(18, 18, 38, 38);
    roll.setColorAt(0, QColor(214, 202, 176));
    roll.setColorAt(0.5, QColor(255, 252, 244));
    roll.setColorAt(1, QColor(226, 214, 190));
    painter.setBrush(roll);
    painter.drawPath(curl);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(224, 122, 63), 5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF{QPointF(8, 19), QPointF(15, 10), QPointF(22, 19)});
    painter.end();
    return image.convertToFormat(QImage::Format_RGB32);
}
