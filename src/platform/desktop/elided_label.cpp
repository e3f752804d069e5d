#include "platform/desktop/elided_label.h"

#include <QPainter>

QString ElidedLabel::shownText() const {
    return fontMetrics().elidedText(text(), mode_, width());
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(rect(), static_cast<int>(alignment()) | Qt::TextSingleLine, shownText());
}
