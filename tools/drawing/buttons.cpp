#include "drawing/album_art.h"
#include "drawing/canvas.h"

#include <cmath>

namespace {

// Drawn at four times the size and scaled down, in a square measure of 100 x 75.
constexpr int enlargement = 4;

using Drawing = void (*)(QPainter&);

void allPictures(QPainter& p) {
    wash(p, QRectF(0, 0, 100, 75), {{0, QColor(66, 100, 124)}, {1, QColor(38, 62, 82)}});
    const QColor skies[] = {QColor(250, 214, 150), QColor(160, 206, 230), QColor(248, 190, 190), QColor(178, 216, 180)};
    const QColor lands[] = {QColor(214, 118, 72), QColor(62, 112, 150), QColor(186, 74, 92), QColor(66, 126, 92)};
    for (int i = 0; i < 4; ++i) {
        const QRectF print(21 + (i % 2) * 31, 11 + (i / 2) * 28, 27, 24);
        p.setBrush(QColor(0, 0, 0, 50));
        p.drawRoundedRect(print.translated(1, 1.4), 2, 2);
        p.setBrush(QColor(255, 253, 247));
        p.drawRoundedRect(print, 2, 2);
        const QRectF picture = print.adjusted(2, 2, -2, -2);
        p.setBrush(skies[i]);
        p.drawRect(picture);
        p.setBrush(QColor(255, 250, 232));
        p.drawEllipse(QPointF(picture.right() - 6, picture.top() + 6), 2.6, 2.6);
        QPainterPath hill(picture.bottomLeft());
        hill.lineTo(picture.left(), picture.top() + 14);
        hill.lineTo(picture.left() + 7, picture.top() + 7);
        hill.lineTo(picture.left() + 13, picture.top() + 14);
        hill.lineTo(picture.left() + 17, picture.top() + 10.5);
        hill.lineTo(picture.right(), picture.top() + 16);
        hill.lineTo(picture.bottomRight());
        p.setBrush(lands[i]);
        p.drawPath(hill);
    }
}

void hills(QPainter& p) {
    wash(p, QRectF(0, 0, 100, 75), {{0, QColor(170, 208, 216)}, {0.7, QColor(244, 236, 214)}});
    p.setBrush(QColor(240, 150, 90));
    p.drawEllipse(QPointF(70, 21), 8, 8);
    const auto peak = [&](std::initializer_list<QPointF> line, const QColor& colour) {
        QPainterPath path(QPointF(0, 75));
        for (const QPointF& point : line) path.lineTo(point);
        path.lineTo(100, 75);
        p.setBrush(colour);
        p.drawPath(path);
    };
    peak({{0, 44}, {18, 30}, {30, 40}, {46, 22}, {62, 40}, {80, 30}, {100, 44}}, QColor(130, 168, 176));
    peak({{0, 50}, {20, 40}, {38, 52}, {58, 36}, {76, 50}, {100, 40}}, QColor(70, 118, 130));
    p.setBrush(QColor(36, 84, 100));
    p.drawRect(QRectF(0, 54, 100, 21));
    p.setPen(QPen(QColor(190, 220, 220), 1.4, Qt::SolidLine, Qt::RoundCap));
    for (const auto& [x, y, l] : {std::tuple{14.0, 60.0, 22.0}, std::tuple{52.0, 62.0, 30.0},
                                  std::tuple{26.0, 68.0, 26.0}, std::tuple{66.0, 69.0, 16.0}})
        p.drawLine(QPointF(x, y), QPointF(x + l, y));
    p.setPen(Qt::NoPen);
}

void sky(QPainter& p) {
    wash(p, QRectF(0, 0, 100, 75), {{0, QColor(50, 128, 204)}, {1, QColor(176, 220, 244)}});
    p.setBrush(QColor(255, 214, 100));
    p.drawEllipse(QPointF(64, 26), 12, 12);
    p.setPen(QPen(QColor(255, 214, 100), 2.2, Qt::SolidLine, Qt::RoundCap));
    for (int i = 0; i < 12; ++i) p.drawLine(polar({64, 26}, 15.5, i * 30), polar({64, 26}, 19, i * 30));
    p.setPen(Qt::NoPen);
    p.setBrush(Qt::white);
    const auto cloud = [&](QPointF at, double u) {
        QPainterPath path;
        path.setFillRule(Qt::WindingFill);
        path.addRoundedRect(QRectF(at.x() - 18 * u, at.y() - 3 * u, 36 * u, 11 * u), 5.5 * u, 5.5 * u);
        path.addEllipse(at + QPointF(-6, -3) * u, 9 * u, 9 * u);
        path.addEllipse(at + QPointF(7, -1) * u, 7 * u, 7 * u);
        p.drawPath(path);
    };
    cloud({42, 44}, 1.15);
    p.setBrush(QColor(255, 255, 255, 190));
    cloud({80, 58}, 0.6);
}

void flower(QPainter& p) {
    wash(p, QRectF(0, 0, 100, 75), {{0, QColor(248, 240, 224)}, {1, QColor(222, 232, 200)}});
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(QColor(84, 136, 84), 3, Qt::SolidLine, Qt::RoundCap));
    QPainterPath stem(QPointF(50, 36));
    stem.quadTo(53, 58, 49, 80);
    p.drawPath(stem);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(98, 156, 94));
    p.drawPath(petal({51, 66}, -28, 26, 6));
    p.drawPath(petal({50, 70}, -150, 26, 6));
    for (int i = 0; i < 8; ++i) {
        p.setBrush(i % 2 == 0 ? QColor(226, 84, 116) : QColor(242, 128, 148));
        p.drawPath(petal({50, 30}, i * 45 - 90, 22, 7.5, 0.75));
    }
    p.setBrush(QColor(250, 204, 90));
    p.drawEllipse(QPointF(50, 30), 6.5, 6.5);
}

void pattern(QPainter& p) {
    wash(p, QRectF(0, 0, 100, 75), {{0, QColor(248, 236, 214)}, {1, QColor(248, 236, 214)}});
    for (int row = 0; row < 6; ++row) {
        for (int column = -1; column < 6; ++column) {
            const QPointF centre(column * 25 + (row % 2) * 12.5, 16 + row * 12.5);
            for (int ring = 0; ring < 4; ++ring) {
                const double radius = 12.5 - ring * 3.4;
                p.setBrush(ring % 2 == 0 ? (row % 2 == 0 ? QColor(196, 66, 54) : QColor(40, 84, 112))
                                         : QColor(252, 244, 228));
                p.drawEllipse(centre, radius, radius);
            }
        }
    }
}

void night(QPainter& p) {
    wash(p, QRectF(0, 0, 100, 75), {{0, QColor(16, 22, 60)}, {1, QColor(88, 70, 130)}});
    QPainterPath moon;
    moon.addEllipse(QPointF(70, 22), 11, 11);
    QPainterPath bite;
    bite.addEllipse(QPointF(65, 18.5), 10, 10);
    p.setBrush(QColor(255, 232, 160));
    p.drawPath(moon.subtracted(bite));
    for (const auto& [x, y, r] : {std::tuple{18.0, 14.0, 1.3}, std::tuple{36.0, 24.0, 1.0}, std::tuple{48.0, 11.0, 1.2},
                                  std::tuple{88.0, 38.0, 1.0}, std::tuple{26.0, 34.0, 0.8}}) {
        p.setBrush(QColor(255, 255, 240));
        p.drawEllipse(QPointF(x, y), r, r);
    }
    const double towers[][3] = {{0, 52, 13},  {13, 42, 11}, {24, 56, 12}, {36, 38, 14},
                                {50, 50, 10}, {60, 45, 14}, {74, 58, 10}, {84, 47, 16}};
    for (const auto& [x, top, width] : towers) {
        p.setBrush(QColor(14, 16, 38));
        p.drawRect(QRectF(x, top, width + 0.4, 75 - top));
        p.setBrush(QColor(255, 206, 110));
        for (int row = 0; row < 6; ++row)
            for (int column = 0; column < 2; ++column)
                if (int(x + row * 3 + column * 5) % 3 != 0 && top + 4 + row * 6 < 73)
                    p.drawRect(QRectF(x + 2.5 + column * (width - 7), top + 4 + row * 6, 2.4, 3));
    }
}

void fish(QPainter& p) {
    wash(p, QRectF(0, 0, 100, 75), {{0, QColor(120, 204, 204)}, {1, QColor(24, 104, 128)}});
    p.setBrush(QColor(240, 120, 60));
    QPainterPath tail(QPointF(30, 38));
    tail.cubicTo(20, 26, 14, 24, 8, 22);
    tail.cubicTo(14, 34, 14, 42, 8, 54);
    tail.cubicTo(14, 52, 20, 50, 30, 38);
    p.drawPath(tail);
    p.drawPath(petal({58, 24}, 196, 26, 7));
    p.drawPath(petal({56, 50}, 150, 20, 5));
    QPainterPath body(QPointF(26, 38));
    body.cubicTo(40, 12, 74, 16, 86, 36);
    body.cubicTo(74, 58, 40, 62, 26, 38);
    p.setBrush(QColor(250, 150, 76));
    p.drawPath(body);
    p.save();
    p.setClipPath(body);
    p.setBrush(QColor(255, 246, 232));
    p.drawEllipse(QPointF(44, 30), 8, 12);
    p.drawEllipse(QPointF(64, 50), 9, 11);
    p.restore();
    p.setBrush(Qt::white);
    p.drawEllipse(QPointF(75, 33), 4, 4);
    p.setBrush(QColor(30, 34, 44));
    p.drawEllipse(QPointF(76, 33), 2.2, 2.2);
    p.setPen(QPen(QColor(255, 255, 255, 190), 1.3));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(QPointF(91, 22), 2.4, 2.4);
    p.drawEllipse(QPointF(94, 13), 1.6, 1.6);
    p.setPen(Qt::NoPen);
}

Drawing drawingOf(QChar code) {
    switch (code.unicode()) {
        case u'1':
            return hills;
        case u'2':
            return sky;
        case u'3':
            return flower;
        case u'4':
            return pattern;
        case u'5':
            return night;
        case u'6':
            return fish;
        default:
            return allPictures;
    }
}

}  // namespace

QImage selectionButton(QChar code) {
    QImage image = canvas(QSize(100, 75) * enlargement);
    QPainter painter(&image);
    makeSmooth(painter);
    painter.scale(enlargement, enlargement);
    drawingOf(code)(painter);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(255, 255, 255, 215), 2));
    painter.drawRect(QRectF(1, 1, 98, 73));
    painter.setPen(QPen(QColor(30, 46, 60, 150), 0.8));
    painter.drawRect(QRectF(0.4, 0.4, 99.2, 74.2));
    painter.end();
    return image.scaled(100, 75, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).convertToFormat(QImage::Format_RGB32);
}
