#include "drawing/prints.h"

void woven(QImage& image, const QColor& dark, const QColor& light, quint32 seed) {
    const Noise thread(seed);
    const double w = image.width();
    const double h = image.height();
    shade(image, [&](double x, double y) {
        const double warp = thread.at(x * w * 0.5, y * h * 0.06);
        const double weft = thread.at(x * w * 0.06 + 500, y * h * 0.5);
        const double broad = thread.fractal(x * 2, y * 2, 3);
        return mixed(dark, light, 0.30 * warp + 0.30 * weft + 0.35 * broad);
    });
}

void photograph(QPainter& painter, QPointF centre, double width, double turn, const QImage& scene) {
    const double height = width * scene.height() / scene.width();
    const double border = width * 0.045;
    painter.save();
    painter.translate(centre);
    painter.rotate(turn);
    const QRectF picture(-width / 2, -height / 2, width, height);
    const QRectF paper = picture.adjusted(-border, -border, border, border);
    painter.setPen(Qt::NoPen);
    for (int i = 10; i > 0; --i) {
        painter.setBrush(QColor(0, 0, 0, 9));
        painter.drawRoundedRect(paper.translated(4, 7).adjusted(-i * 1.6, -i * 1.6, i * 1.6, i * 1.6), 8, 8);
    }
    painter.setBrush(QColor(255, 253, 247));
    painter.drawRect(paper);
    painter.drawImage(picture, scene);
    painter.restore();
}
