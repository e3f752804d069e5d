#include "viewer/alone.h"

#include "platform/desktop/placing.h"

#include <QCloseEvent>
#include <QScreen>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int pointerMs = 1500;
}

Alone::Alone(QWidget* window) : QWidget(window, Qt::Window | Qt::FramelessWindowHint) {
    setObjectName(u"frmQp"_s);
    setWindowTitle(u"全屏看图"_s);
    setWindowModality(Qt::WindowModal);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    QPalette colours = palette();
    colours.setColor(QPalette::Window, Qt::black);
    colours.setColor(QPalette::WindowText, Qt::white);
    setPalette(colours);
    setAutoFillBackground(true);
    imgQp = make<ZoomBox>(this, u"imgQp"_s);
    lblQp = make<QLabel>(this, u"lblQp"_s);
    stage_ = std::make_unique<Stage>(this, imgQp, lblQp, true);
    connect(imgQp, &ImageBox::clicked, this, &Alone::click);
    connect(imgQp, &ImageBox::mouseMoved, this, &Alone::showPointer);
    pointerRests_.setSingleShot(true);
    pointerRests_.setInterval(pointerMs);
    connect(&pointerRests_, &QTimer::timeout, this, [this] { setCursor(Qt::BlankCursor); });
}

void Alone::open() {
    setGeometry(parentWidget()->screen()->geometry());
    setCursor(Qt::BlankCursor);
    showFullScreen();
    activateWindow();
    setFocus();
}

void Alone::leave() {
    if (isHidden()) return;
    hide();
    stage_->end();
    Q_EMIT left();
}

void Alone::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape && event->key() != Qt::Key_F11)
        Q_EMIT keyPressed(event);
    else if (!event->isAutoRepeat())
        leave();
}

void Alone::click() {
    if (!stage_->wasDragged()) leave();
}

void Alone::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) click();
}

void Alone::mouseMoveEvent(QMouseEvent*) {
    showPointer();
}

void Alone::showPointer() {
    unsetCursor();
    pointerRests_.start();
}

void Alone::resizeEvent(QResizeEvent*) {
    if (isVisible()) Q_EMIT resized();
}

void Alone::closeEvent(QCloseEvent* event) {
    event->accept();
    leave();
}
