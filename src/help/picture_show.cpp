#include "help/picture_show.h"

#include "platform/desktop/placing.h"

#include <QKeyEvent>
#include <QPainter>
#include <QWheelEvent>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int margin = 16;        // pixels
constexpr int veilOpacity = 190;  // of the window behind the picture
}  // namespace

PictureShow::PictureShow(QWidget* window) : QWidget(window) {
    setObjectName(u"picFd"_s);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    imgFd = make<ImageBox>(this, u"imgFd"_s);
    imgFd->setToolTip(u"单击或按 Esc 返回"_s);
    connect(imgFd, &ImageBox::clicked, this, &PictureShow::leave);
    window->installEventFilter(this);
    hide();
}

void PictureShow::open(const Picture& picture, const QString& name) {
    imgFd->setPicture(picture);
    setAccessibleName(name);
    opener_ = window()->focusWidget();
    layOut();
    show();
    raise();
    setFocus(Qt::PopupFocusReason);
}

void PictureShow::layOut() {
    setGeometry(parentWidget()->rect());
    const QSize room = size() - QSize(2 * margin, 2 * margin);
    const QSize own = imgFd->picture().pixels();
    const QSize shown = own.scaled(room, Qt::KeepAspectRatio).boundedTo(own);
    imgFd->setGeometry(QRect(QPoint((width() - shown.width()) / 2, (height() - shown.height()) / 2), shown));
}

void PictureShow::leave() {
    hide();
    if (opener_) opener_->setFocus(Qt::PopupFocusReason);
}

bool PictureShow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && !isHidden()) layOut();
    return QWidget::eventFilter(watched, event);
}

void PictureShow::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), QColor(0, 0, 0, veilOpacity));
}

void PictureShow::mousePressEvent(QMouseEvent*) {
    leave();
}

void PictureShow::keyPressEvent(QKeyEvent* event) {
    const QList<int> closing{Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space};
    if (closing.contains(event->key()))
        leave();
    else
        event->accept();  // the window behind gets no keys
}

/// The text behind does not scroll.
void PictureShow::wheelEvent(QWheelEvent* event) {
    event->accept();
}
