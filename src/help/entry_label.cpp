#include "help/entry_label.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

EntryLabel::EntryLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setMouseTracking(true);
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::PointingHandCursor);
}

void EntryLabel::setLook(const QColor& colour, bool underlined) {
    QPalette colours = palette();
    colours.setColor(QPalette::WindowText, colour);
    setPalette(colours);
    QFont look = font();
    look.setUnderline(underlined);
    setFont(look);
}

bool EntryLabel::isCut() const {
    return fontMetrics().horizontalAdvance(text()) > width();
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
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(rect(), int(alignment()), fontMetrics().elidedText(text(), Qt::ElideRight, width()));
}
