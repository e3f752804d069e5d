#include "intake/preview_parts.h"

#include <QPainter>
#include <QStyleOptionButton>
#include <algorithm>

void PathLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(rect(), static_cast<int>(alignment()) | Qt::TextWrapAnywhere, text());
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideMiddle, width());
    painter.drawText(rect(), static_cast<int>(alignment()) | Qt::TextSingleLine, shown);
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
    // Lines may stand closer than usual: Chinese characters fill only the middle of a line.
    const int room = std::max(width() - left, 1);
    const int inLine =
        std::max(1, room * static_cast<int>(text().size()) / std::max(1, fontMetrics().horizontalAdvance(text())));
    const int lines = (static_cast<int>(text().size()) + inLine - 1) / inLine;
    const int pitch = std::min(fontMetrics().height(), height() / std::max(lines, 1));
    const int top = (height() - lines * pitch) / 2;
    for (int i = 0; i < lines; ++i)
        painter.drawText(QRect(left, top + i * pitch, room, pitch), Qt::AlignVCenter | Qt::TextDontClip,
                         text().mid(i * inLine, inLine));
}
