#include "platform/picture/on_white.h"

#include <QPainter>

QImage onWhite(const QImage& image) {
    if (!image.hasAlphaChannel()) return image.convertToFormat(QImage::Format_RGB32);
    QImage opaque(image.size(), QImage::Format_RGB32);
    opaque.fill(Qt::white);
    QPainter(&opaque).drawImage(QRect(QPoint(), image.size()), image);
    return opaque;
}
