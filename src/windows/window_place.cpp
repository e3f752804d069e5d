#include "windows/window_place.h"

#include "catalogue/remembered.h"

#include <QApplication>
#include <QEvent>
#include <QScreen>
#include <QStyle>
#include <QWidget>
#include <QWindow>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString maximised = u"maximised"_s;
constexpr Qt::WindowStates wholeScreen = Qt::WindowMaximized | Qt::WindowFullScreen;

/// What the desktop adds to a window on all sides. It is known of windows on the screen alone.
QSize frameAround(const QWidget* shown) {
    const QSize known = shown != nullptr ? shown->frameGeometry().size() - shown->size() : QSize();
    return known.height() > 0 ? known : QSize(0, QApplication::style()->pixelMetric(QStyle::PM_TitleBarHeight));
}

/// For the room on the screen, and not to be remembered.
void resizeForRoom(QWidget& window, QSize size) {
    window.resize(size);
    for (QObject* part : window.children())
        if (auto* remembered = dynamic_cast<RememberedSize*>(part)) remembered->takePresent();
}

void bringOntoScreen(QWidget& window) {
    if (window.windowState() & (wholeScreen | Qt::WindowMinimized)) return;
    const QRect frame = window.frameGeometry();
    const QRect whole = wholeInRoom(frame, window.screen()->availableGeometry());
    if (whole == frame) return;
    resizeForRoom(window, window.size() - (frame.size() - whole.size()));
    window.move(whole.topLeft());
}

/// Waits until a window is on the screen: its frame is known then.
class Arrival : public QObject {
  public:
    explicit Arrival(QWidget& window) : QObject(&window), window_(window) {
        window.windowHandle()->installEventFilter(this);
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Expose && window_.windowHandle()->isExposed()) {
            watched->removeEventFilter(this);
            QMetaObject::invokeMethod(
                this, [this] { arrived(); }, Qt::QueuedConnection);
        }
        return QObject::eventFilter(watched, event);
    }

  private:
    void arrived() {
        bringOntoScreen(window_);
        deleteLater();
    }

    QWidget& window_;
};

}  // namespace

QRect wholeInRoom(const QRect& frame, const QRect& room) {
    QRect whole(frame.topLeft(), frame.size().boundedTo(room.size()));
    whole.moveRight(std::min(whole.right(), room.right()));
    whole.moveBottom(std::min(whole.bottom(), room.bottom()));
    whole.moveLeft(std::max(whole.left(), room.left()));
    whole.moveTop(std::max(whole.top(), room.top()));
    return whole;
}

QRect inMiddleOf(const QRect& other, QSize frame, const QRect& room) {
    QRect middle({}, frame);
    middle.moveCenter(other.center());
    return wholeInRoom(middle, room);
}

void stayOnScreen(QWidget& window) {
    if (window.windowHandle() != nullptr) new Arrival(window);
}

void standInPlaceOf(QWidget& window, const QWidget* other) {
    if (other != nullptr) window.setScreen(other->screen());
    const QRect room = window.screen()->availableGeometry();
    if (window.windowState() & Qt::WindowFullScreen) {
        window.setGeometry(window.screen()->geometry());
    } else if (other != nullptr) {
        const QSize around = frameAround(other);
        const QRect frame = inMiddleOf(other->frameGeometry(), window.size() + around, room);
        resizeForRoom(window, frame.size() - around);
        // A maximised window has no frame yet; it gets one above this place when it becomes smaller.
        const int above = window.isMaximized() ? around.height() : 0;
        window.move(frame.topLeft() + QPoint(0, above));
    }
    window.winId();  // its handle is there from now on
    new Arrival(window);
}

RememberedSize::RememberedSize(QWidget* window)
    : QObject(window), window_(window), name_(u"window."_s + window->objectName()) {
    takeRemembered();
    takePresent();
    window->installEventFilter(this);
    connect(qApp, &QCoreApplication::aboutToQuit, this, &RememberedSize::remember);
}

void RememberedSize::takePresent() {
    opened_ = sizeNow();
}

/// The screen may have become smaller since.
void RememberedSize::takeRemembered() {
    const QStringList parts = remembered::text(name_).split(u' ');
    const QStringList sides = parts.front().split(u'x');
    if (sides.size() != 2) return;
    const QSize room = window_->screen()->availableSize() - frameAround(nullptr);
    const QSize size = QSize(sides[0].toInt(), sides[1].toInt()).boundedTo(room);
    window_->resize(size.expandedTo(window_->minimumSize()));
    if (parts.contains(maximised)) window_->setWindowState(window_->windowState() | Qt::WindowMaximized);
}

QString RememberedSize::sizeNow() const {
    const QRect normal = window_->normalGeometry();
    const QSize size = (window_->windowState() & wholeScreen) && normal.isValid() ? normal.size() : window_->size();
    const QString text = u"%1x%2"_s.arg(size.width()).arg(size.height());
    return window_->isMaximized() ? text + u' ' + maximised : text;
}

void RememberedSize::remember() {
    const QString now = sizeNow();
    if (now == opened_) return;
    opened_ = now;
    remembered::setText(name_, now);
}

bool RememberedSize::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Hide && !event->spontaneous()) remember();
    return QObject::eventFilter(watched, event);
}
