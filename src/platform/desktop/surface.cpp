#include "platform/desktop/surface.h"

#include <QMouseEvent>
#include <algorithm>

namespace {
/// As much of a dragged panel stays within reach of the mouse, in pixels.
constexpr int handle = 24;
}  // namespace

Surface::Surface(QWidget* parent) : QFrame(parent) {
    setMouseTracking(true);
}

void Surface::mousePressEvent(QMouseEvent* event) {
    event->accept();
    grip_ = event->globalPosition().toPoint() - pos();
    Q_EMIT mousePressed();
}

void Surface::mouseMoveEvent(QMouseEvent* event) {
    event->accept();
    if (draggable_ && (event->buttons() & Qt::LeftButton) && parentWidget() != nullptr) {
        const QPoint wanted = event->globalPosition().toPoint() - grip_;
        const QSize room = parentWidget()->size();
        move(std::clamp(wanted.x(), std::min(0, handle - width()), std::max(0, room.width() - handle)),
             std::clamp(wanted.y(), 0, std::max(0, room.height() - handle)));
    }
    Q_EMIT mouseMoved();
}
