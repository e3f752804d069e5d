#include "help/entry_label.h"

#include "platform/desktop/accessibility.h"
#include "platform/desktop/theme.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace {
constexpr int markWidth = 3;  // pixels
}  // namespace

EntryLabel::EntryLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setMouseTracking(true);
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::PointingHandCursor);
    beOperable(this, QAccessible::Link, [this] { Q_EMIT clicked(); });
}

void EntryLabel::setLook(const QColor& colour, bool underlined) {
    QPalette colours = palette();
    colours.setColor(QPalette::WindowText, colour);
    setPalette(colours);
    QFont look = font();
    look.setUnderline(underlined);
    setFont(look);
}

void EntryLabel::setMarked(bool on) {
    isMarked_ = on;
    update();
}

bool EntryLabel::isCut() const {
    return fontMetrics().horizontalAdvance(text()) > contentsRect().width();
}

void EntryLabel::mousePressEvent(QMouseEvent* event) {
    event->accept();
}

void EntryLabel::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) Q_EMIT clicked();
}

void EntryLabel::mouseMoveEvent(QMouseEvent* event) {
    event->accept();
    Q_EMIT mouseMoved();
}

void EntryLabel::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space)
        Q_EMIT clicked();
    else
        QLabel::keyPressEvent(event);
}

void EntryLabel::focusInEvent(QFocusEvent* event) {
    QLabel::focusInEvent(event);
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason) Q_EMIT gotFocus();
}

void EntryLabel::focusOutEvent(QFocusEvent* event) {
    QLabel::focusOutEvent(event);
    if (event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason) Q_EMIT lostFocus();
}

void EntryLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (isMarked_) {
        painter.fillRect(rect(), theme::worn().hover);
        painter.fillRect(0, 0, markWidth, height(), theme::worn().accent);
    }
    painter.setPen(palette().color(QPalette::WindowText));
    const QRect place = contentsRect();
    painter.drawText(place, int(alignment()), fontMetrics().elidedText(text(), Qt::ElideRight, place.width()));
}
