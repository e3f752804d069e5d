#include "platform/desktop/image_box.h"

#include "platform/desktop/accessibility.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QToolTip>

using namespace Qt::Literals::StringLiterals;

ImageBox::ImageBox(QWidget* parent) : QLabel(parent) {
    setMouseTracking(true);
}

void ImageBox::setPicture(const Picture& picture) {
    picture_ = picture;
    fitted_ = {};
    if (picture.isNull())
        clear();
    else
        setPixmap(QPixmap::fromImage(picture.image()));
    update();
}

void ImageBox::beButton() {
    isButton_ = true;
    setFocusPolicy(Qt::TabFocus);
    beOperable(this, QAccessible::Button, [this] { Q_EMIT clicked(); });
}

bool ImageBox::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || !Qt::mightBeRichText(toolTip())) return QLabel::event(event);
    QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                       u"<span>%1</span>"_s.arg(toolTip().toHtmlEscaped()), this);
    return true;
}

QSize ImageBox::targetSize() const {
    return targetSize(this, size());
}

QSize ImageBox::targetSize(const QWidget* control, QSize pixels) {
    return (QSizeF(pixels) * control->devicePixelRatioF()).toSize();
}

QPixmap ImageBox::fitted(QSize pixels) {
    const QPixmap whole = pixmap();
    if (fitted_.size() != pixels || fittedKey_ != whole.cacheKey()) {
        fitted_ = whole.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        fittedKey_ = whole.cacheKey();
    }
    return fitted_;
}

void ImageBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    drawFrame(&painter);
    const QPixmap whole = pixmap();
    const QRect place = contentsRect();
    if (whole.isNull() || place.isEmpty()) {
        paintFocus(painter);
        return;
    }

    const QSize device = targetSize(this, place.size());
    const bool shrinks = device.width() < whole.width() || device.height() < whole.height();
    const bool grows = device.width() > whole.width() || device.height() > whole.height();
    if (!isEnabled()) painter.setOpacity(0.4);
    // Enlarging is left to the painter, which works on the visible part alone; shrinking well is costly and kept.
    painter.setRenderHint(QPainter::SmoothPixmapTransform, grows);
    const QPixmap& shown = shrinks && !grows ? fitted(device) : whole;
    painter.drawPixmap(place, shown, shown.rect());
    paintFocus(painter);
}

// Two lines, of which one is seen on any picture.
void ImageBox::paintFocus(QPainter& painter) const {
    if (!hasFocus()) return;
    const QRectF outer = QRectF(rect()).adjusted(1, 1, -1, -1);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(outer);
    painter.setPen(QPen(Qt::white, 1));
    painter.drawRect(outer.adjusted(1.5, 1.5, -1.5, -1.5));
}

void ImageBox::mousePressEvent(QMouseEvent* event) {
    event->accept();
    if (event->button() == Qt::LeftButton) pressedHere_ = true;
    Q_EMIT mousePressed();
}

void ImageBox::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    const bool click =
        event->button() == Qt::LeftButton && pressedHere_ && rect().contains(event->position().toPoint());
    if (event->button() == Qt::LeftButton) pressedHere_ = false;
    const QPointer<ImageBox> self = this;
    Q_EMIT mouseReleased();
    if (self && click) Q_EMIT clicked();
}

void ImageBox::mouseDoubleClickEvent(QMouseEvent* event) {
    event->accept();
    if (event->button() == Qt::LeftButton) Q_EMIT doubleClicked();
}

void ImageBox::mouseMoveEvent(QMouseEvent* event) {
    event->accept();
    Q_EMIT mouseMoved();
}

void ImageBox::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isButton_ && isEnter)
        Q_EMIT clicked();
    else
        QLabel::keyPressEvent(event);
}
