#include "viewer/stage.h"

#include <QApplication>
#include <QGestureEvent>
#include <QMouseEvent>
#include <cmath>

namespace {
constexpr int notch = 120;          // of a wheel, in eighths of a degree
constexpr double notchTimes = 1.2;  // larger
}  // namespace

Stage::Stage(QWidget* ground, ZoomBox* picture, QLabel* words, bool isCentred)
    : ground_(ground), picture_(picture), words_(words), isCentred_(isCentred) {
    ground->grabGesture(Qt::PinchGesture);
    for (QWidget* control : std::initializer_list<QWidget*>{ground, picture}) {
        control->setAttribute(Qt::WA_AcceptTouchEvents);
        include(control);
    }
    words->setAlignment(Qt::AlignCenter);
    words->setWordWrap(true);
    words->setTextFormat(Qt::PlainText);
    words->setAttribute(Qt::WA_TransparentForMouseEvents);
    words->hide();
}

void Stage::begin(QSize whole, QSize pixels) {
    isOn_ = true;
    pixels_ = pixels.isEmpty() ? whole : pixels;
    zoom_ = ZoomedPlace(ground_->size(), whole, pixels_, isCentred_);
    show({});
    place();
}

void Stage::end() {
    isOn_ = false;
    words_->hide();
    picture_->setZoomed(false);
    picture_->unsetCursor();
}

void Stage::show(const Picture& picture) {
    words_->hide();
    picture_->setPicture(picture);
}

void Stage::say(const QString& words) {
    show({});
    words_->setText(words);
    words_->setGeometry(seen());
    words_->show();
}

void Stage::place() {
    picture_->setZoomed(!zoom_.isWhole());
    picture_->setGeometry(zoom_.place());
    if (zoom_.canMove())
        picture_->setCursor(isHeld_ && isDrag_ ? Qt::ClosedHandCursor : Qt::OpenHandCursor);
    else
        picture_->unsetCursor();
    picture_->update();
}

QSize Stage::target() const {
    const QSize size = picture_->targetSize();
    return isWhole() ? size : size.boundedTo(pixels_);
}

void Stage::showWhole() {
    zoom_.showWhole();
    place();
    Q_EMIT placed();
}

void Stage::showOneToOne() {
    zoom_.showOneToOne();
    place();
    Q_EMIT placed();
}

void Stage::zoomBy(double factor) {
    zoomBy(factor, zoom_.middleOfRoom());
}

void Stage::zoomBy(double factor, QPointF fixedPoint) {
    zoom_.zoomBy(factor, fixedPoint);
    place();
    Q_EMIT placed();
}

bool Stage::eventFilter(QObject* watched, QEvent* event) {
    if (!isOn_ || !take(static_cast<QWidget*>(watched), event)) return false;
    event->accept();  // else the ground gets it, too
    return true;
}

bool Stage::take(const QWidget* control, QEvent* event) {
    switch (event->type()) {
        case QEvent::Wheel:
            return turnWheel(control, *static_cast<QWheelEvent*>(event));
        case QEvent::NativeGesture:
            return pinchPad(control, *static_cast<QNativeGestureEvent*>(event));
        case QEvent::Gesture:
            return pinch(*static_cast<QGestureEvent*>(event));
        case QEvent::MouseButtonPress:
        case QEvent::MouseMove:
        case QEvent::MouseButtonRelease:
            if (control == picture_ || control == ground_) followMouse(control, *static_cast<QMouseEvent*>(event));
            return false;
        default:
            return false;
    }
}

bool Stage::pinchPad(const QWidget* control, const QNativeGestureEvent& gesture) {
    if (gesture.gestureType() != Qt::ZoomNativeGesture) return false;
    zoomBy(1 + gesture.value(), control->mapTo(ground_, gesture.position()));
    return true;
}

bool Stage::turnWheel(const QWidget* control, const QWheelEvent& wheel) {
    const QPoint angle = wheel.angleDelta();
    if (wheel.modifiers().testFlag(Qt::ControlModifier)) {
        if (angle.y() != 0)
            zoomBy(std::pow(notchTimes, double(angle.y()) / notch), control->mapTo(ground_, wheel.position()));
        return true;
    }
    if (std::abs(angle.x()) <= std::abs(angle.y())) return false;
    tilt_ += angle.x();
    const int leaves = tilt_ / notch;
    tilt_ -= leaves * notch;
    // A tilt to the right counts down.
    if (leaves != 0) Q_EMIT leafWanted(-leaves);
    return true;
}

bool Stage::pinch(const QGestureEvent& gestures) {
    const auto* pinch = static_cast<QPinchGesture*>(gestures.gesture(Qt::PinchGesture));
    if (pinch == nullptr) return false;
    isHeld_ = false;  // the first finger moves the pointer, too
    isDrag_ = true;
    const QPointF centre = ground_->mapFromGlobal(pinch->centerPoint());
    zoom_.moveBy(centre - ground_->mapFromGlobal(pinch->lastCenterPoint()));
    zoomBy(pinch->scaleFactor(), centre);
    return true;
}

void Stage::followMouse(const QWidget* control, const QMouseEvent& mouse) {
    const QPointF point = control->mapTo(ground_, mouse.position());
    if (mouse.type() == QEvent::MouseMove) {
        if (isHeld_ && mouse.buttons().testFlag(Qt::LeftButton)) drag(point);
    } else if (mouse.button() == Qt::LeftButton) {
        isHeld_ = mouse.type() == QEvent::MouseButtonPress;
        if (isHeld_) isDrag_ = false;
        pressed_ = last_ = point;
        place();
    }
}

void Stage::drag(QPointF point) {
    if (!isDrag_ && (point - pressed_).manhattanLength() < QApplication::startDragDistance()) return;
    isDrag_ = true;
    zoom_.moveBy(point - last_);
    last_ = point;
    place();
    Q_EMIT placed();
}
