#include "viewer/wheel_scroll.h"

#include <QWheelEvent>
#include <QWidget>
#include <algorithm>

namespace {
constexpr int marginBelow = 4;
}

WheelScroll::WheelScroll(QWidget* surface) : surface_(surface) {
    surface->installEventFilter(this);
}

void WheelScroll::scrollBy(int pixels) {
    const int below = surface_->childrenRect().bottom() + 1 + marginBelow - surface_->height();
    const int step = std::clamp(pixels, -offset_, std::max(0, below));
    if (step == 0) return;
    offset_ += step;
    surface_->scroll(0, -step);
}

bool WheelScroll::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Wheel) scrollBy(-static_cast<QWheelEvent*>(event)->angleDelta().y());
    return QObject::eventFilter(watched, event);
}
