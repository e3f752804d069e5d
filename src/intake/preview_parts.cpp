#include "intake/preview_parts.h"

#include <QPainter>
#include <QStyleOptionButton>

void PathLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(rect(), static_cast<int>(alignment()) | Qt::TextWrapAnywhere, text());
}

void NarrowCheckBox::paintEvent(QPaintEvent*) {
    constexpr int gap = 4;
    QPainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    QStyleOptionButton mark = option;
    mark.text.clear();
    style()->drawControl(QStyle::CE_CheckBox, &mark, &painter, this);
    const int left = style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, this).right() + gap;
    painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText));
    QFont narrow = font();
    const int lines = fontMetrics().horizontalAdvance(text()) > width() - left ? 2 : 1;
    if (lines * fontMetrics().height() > height() + 6) narrow.setPixelSize(height() / lines);
    painter.setFont(narrow);
    painter.drawText(QRect(left, 0, width() - left, height()),
                     Qt::AlignVCenter | Qt::TextWrapAnywhere | Qt::TextDontClip, text());
}
