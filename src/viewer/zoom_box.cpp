#include "viewer/zoom_box.h"

#include <QPainter>

void ZoomBox::paintEvent(QPaintEvent* event) {
    if (!isZoomed_) {
        ImageBox::paintEvent(event);
        return;
    }
    const QPixmap picture = pixmap();
    if (picture.isNull()) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, picture.size() != targetSize());
    painter.drawPixmap(rect(), picture, picture.rect());
}
