#include "platform/desktop/shapes.h"

#include "platform/base/twips.h"

#include <QPainter>
#include <algorithm>

namespace {
void letMouseThrough(QWidget* widget) {
    widget->setAttribute(Qt::WA_TransparentForMouseEvents);
    widget->setFocusPolicy(Qt::NoFocus);
}
}  // namespace

ShapeBox::ShapeBox(QWidget* parent) : QWidget(parent) {
    letMouseThrough(this);
}

void ShapeBox::setBorderColor(const QColor& colour) {
    borderColor_ = colour;
    update();
}

void ShapeBox::setFillColor(const QColor& colour) {
    fillColor_ = colour;
    update();
}

void ShapeBox::setBorderWidth(int pixels) {
    borderWidth_ = pixels;
    update();
}

void ShapeBox::setCornerRadius(int pixels) {
    cornerRadius_ = pixels;
    update();
}

void ShapeBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QBrush fill = fillColor_.isValid() ? QBrush(fillColor_) : QBrush(Qt::NoBrush);
    const int border = borderColor_.isValid() ? borderWidth_ : 0;
    if (cornerRadius_ > 0) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setBrush(fill);
        painter.setPen(border > 0 ? QPen(borderColor_, border) : QPen(Qt::NoPen));
        const qreal half = border / 2.0;
        painter.drawRoundedRect(QRectF(rect()).adjusted(half, half, -half, -half), cornerRadius_, cornerRadius_);
        return;
    }
    // Bars instead of a pen: their edges fall on whole device pixels at every ratio.
    const QRect inner = rect().adjusted(border, border, -border, -border);
    if (fillColor_.isValid()) painter.fillRect(inner, fill);
    if (border == 0) return;
    if (!inner.isValid()) {
        painter.fillRect(rect(), borderColor_);
        return;
    }
    painter.fillRect(0, 0, width(), border, borderColor_);
    painter.fillRect(0, height() - border, width(), border, borderColor_);
    painter.fillRect(0, border, border, inner.height(), borderColor_);
    painter.fillRect(width() - border, border, border, inner.height(), borderColor_);
}

LineBox::LineBox(QWidget* parent) : QWidget(parent) {
    letMouseThrough(this);
}

void LineBox::setEnds(int x1, int y1, int x2, int y2) {
    x1_ = x1, y1_ = y1, x2_ = x2, y2_ = y2;
    const QPoint from(pixelsFromTwips(x1), pixelsFromTwips(y1));
    const QPoint to(pixelsFromTwips(x2), pixelsFromTwips(y2));
    setGeometry(QRect(QPoint(std::min(from.x(), to.x()), std::min(from.y(), to.y())),
                      QPoint(std::max(from.x(), to.x()), std::max(from.y(), to.y()))));
    update();
}

void LineBox::setColor(const QColor& colour) {
    color_ = colour;
    update();
}

void LineBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (width() == 1 || height() == 1) {
        painter.fillRect(rect(), color_);
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color_, 1));
    const QRectF area = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const bool falls = (x1_ < x2_) == (y1_ < y2_);
    painter.drawLine(falls ? area.topLeft() : area.bottomLeft(), falls ? area.bottomRight() : area.topRight());
}
