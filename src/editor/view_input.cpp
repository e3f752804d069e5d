#include "editor/view_input.h"

#include "platform/base/twips.h"
#include "platform/desktop/message_box.h"

#include <QGestureEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <cmath>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int wheelNotch = 120;
constexpr int wheelStep = 600;  ///< Twips.
constexpr double zoomStep = 1.25;

}  // namespace

ViewInput::ViewInput(EditorView& view, QWidget* form)
    : QObject(form), view_(view), form_(form), viewport_(view.viewport()), menu_(new QMenu(form)) {
    makeCommands();
    viewport_->grabGesture(Qt::PinchGesture);
    for (QObject* watched : std::initializer_list<QObject*>{form, viewport_, view.surface()})
        watched->installEventFilter(this);
}

void ViewInput::makeCommands() {
    menu_->setObjectName(u"mnuDx"_s);
    const auto zoomBy = [this](double factor) { view_.zoomBy(factor, viewport_->rect().center()); };
    addCommand(u"mnuFd"_s, u"放大"_s, {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal},
               [zoomBy] { zoomBy(zoomStep); });
    addCommand(u"mnuSx"_s, u"缩小"_s, {Qt::CTRL | Qt::Key_Minus}, [zoomBy] { zoomBy(1 / zoomStep); });
    addCommand(u"mnuQt"_s, u"全图"_s, {Qt::CTRL | Qt::Key_0}, [this] { view_.showWhole(); });
    addCommand(u"mnuYd"_s, u"原大"_s, {Qt::CTRL | Qt::Key_1}, [this] { view_.zoomTo(1); });
    addCommand(u"mnuDd"_s, u"屏幕像素"_s, {Qt::CTRL | Qt::Key_2},
               [this] { view_.zoomTo(1 / viewport_->devicePixelRatioF()); });
}

void ViewInput::addCommand(const QString& name, const QString& caption, const QList<QKeySequence>& keys,
                           const std::function<void()>& command) {
    QAction* action = menu_->addAction(caption);
    action->setObjectName(name);
    action->setShortcuts(keys);
    connect(action, &QAction::triggered, this, guarded(form_, command));
    form_->addAction(action);  // for its keys
}

bool ViewInput::eventFilter(QObject* watched, QEvent* event) {
    const bool isTaken = watched == form_ ? onForm(*event) : onPicture(*event, watched == viewport_);
    return isTaken || QObject::eventFilter(watched, event);
}

/// Keys that no control has taken.
bool ViewInput::onForm(QEvent& event) {
    if (event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease)
        return useSpaceBar(static_cast<QKeyEvent&>(event));
    if (event.type() == QEvent::WindowDeactivate) setSpaceDown(false);
    return false;
}

/// What the picture does not take goes on to its viewport; mouse moves do not.
bool ViewInput::onPicture(QEvent& event, bool isViewport) {
    switch (event.type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            return press(static_cast<QMouseEvent&>(event));
        case QEvent::MouseMove:
            return move(static_cast<QMouseEvent&>(event));
        case QEvent::MouseButtonRelease:
            return release(static_cast<QMouseEvent&>(event));
        case QEvent::Wheel:
            return isViewport && turnWheel(static_cast<QWheelEvent&>(event));
        case QEvent::Gesture:
            return isViewport && pinch(static_cast<QGestureEvent&>(event));
        case QEvent::NativeGesture:
            return isViewport && pinch(static_cast<QNativeGestureEvent&>(event));
        case QEvent::ContextMenu:
            return isViewport && showMenu(static_cast<QContextMenuEvent&>(event));
        default:
            return false;
    }
}

// ------------------------------------------------------------------------------------------------- wheel and fingers

bool ViewInput::turnWheel(const QWheelEvent& wheel) {
    const double notches = double(wheel.angleDelta().y() + wheel.angleDelta().x()) / wheelNotch;
    const int scroll = -roundHalfEven(notches * wheelStep);
    if (wheel.modifiers() & Qt::ControlModifier)
        view_.zoomBy(std::pow(zoomStep, notches), wheel.position().toPoint());
    else if ((wheel.modifiers() & Qt::ShiftModifier) || !view_.scrollsDown())
        view_.scrollBy(scroll, 0);
    else
        view_.scrollBy(0, scroll);
    return true;
}

/// Two fingers on the screen.
bool ViewInput::pinch(QGestureEvent& event) {
    const auto* pinch = static_cast<QPinchGesture*>(event.gesture(Qt::PinchGesture));
    if (pinch == nullptr) return false;
    view_.zoomBy(pinch->scaleFactor(), viewport_->mapFromGlobal(pinch->centerPoint().toPoint()));
    event.accept();
    return true;
}

/// Two fingers on a touchpad.
bool ViewInput::pinch(const QNativeGestureEvent& event) {
    if (event.gestureType() != Qt::ZoomNativeGesture) return false;
    view_.zoomBy(1 + event.value(), event.position().toPoint());
    return true;
}

bool ViewInput::showMenu(const QContextMenuEvent& event) {
    if (view_.canZoom()) menu_->popup(event.globalPos());
    return true;
}

// ------------------------------------------------------------------------------------------------ moving the picture

bool ViewInput::useSpaceBar(const QKeyEvent& event) {
    if (event.key() != Qt::Key_Space || !view_.canZoom()) return false;
    if (!event.isAutoRepeat()) setSpaceDown(event.type() == QEvent::KeyPress);
    return true;
}

void ViewInput::setSpaceDown(bool on) {
    isSpaceDown_ = on;
    showHand();
}

void ViewInput::showHand() {
    if (moving_ != Qt::NoButton)
        viewport_->setCursor(Qt::ClosedHandCursor);
    else if (isSpaceDown_)
        viewport_->setCursor(Qt::OpenHandCursor);
    else
        viewport_->unsetCursor();
}

bool ViewInput::press(const QMouseEvent& event) {
    if (moving_ != Qt::NoButton) return true;
    const bool moves = event.button() == Qt::MiddleButton || (event.button() == Qt::LeftButton && isSpaceDown_);
    if (!moves || !view_.canZoom()) return false;
    moving_ = event.button();
    grip_ = event.globalPosition().toPoint();
    showHand();
    return true;
}

bool ViewInput::move(const QMouseEvent& event) {
    if (moving_ == Qt::NoButton) return false;
    const QPoint at = event.globalPosition().toPoint(), moved = at - std::exchange(grip_, at);
    view_.scrollBy(-twipsFromPixels(moved.x()), -twipsFromPixels(moved.y()));
    return true;
}

bool ViewInput::release(const QMouseEvent& event) {
    if (moving_ != event.button()) return false;
    moving_ = Qt::NoButton;
    showHand();
    return true;
}
