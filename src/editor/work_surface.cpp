#include "editor/work_surface.h"

#include "editor/operations/operation.h"
#include "platform/base/twips.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

namespace {

QPoint twipsOf(const QMouseEvent* event) {
    const QPoint pixel = event->position().toPoint();
    return {twipsFromPixels(pixel.x()), twipsFromPixels(pixel.y())};
}

}  // namespace

WorkSurface::WorkSurface(QWidget* parent) : QWidget(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void WorkSurface::setPicture(const QImage& picture) {
    picture_ = picture.isNull() ? QImage() : picture.convertToFormat(QImage::Format_RGB32);
    update();
}

QRgb WorkSurface::Point(int x, int y) const {
    return picture_.valid(x, y) ? picture_.pixel(x, y) : pictureBackground;
}

void WorkSurface::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    const QRect covered = event->rect() & picture_.rect();
    if (covered != event->rect()) painter.fillRect(event->rect(), QColor(pictureBackground));
    if (!covered.isEmpty()) painter.drawImage(covered.topLeft(), picture_, covered);
}

void WorkSurface::mousePressEvent(QMouseEvent* event) {
    event->accept();
    const QPoint at = twipsOf(event);
    if (event->button() == Qt::LeftButton) Q_EMIT pressed(at.x(), at.y());
}

void WorkSurface::mouseMoveEvent(QMouseEvent* event) {
    event->accept();
    const QPoint at = twipsOf(event);
    Q_EMIT moved(at.x(), at.y());
}

void WorkSurface::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    const QPoint at = twipsOf(event);
    if (event->button() == Qt::LeftButton) Q_EMIT released(at.x(), at.y());
}

void WorkSurface::mouseDoubleClickEvent(QMouseEvent* event) {
    event->accept();
    if (event->button() == Qt::LeftButton) Q_EMIT doubleClicked();
}
