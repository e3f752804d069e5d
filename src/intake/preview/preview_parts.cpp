#include "intake/preview/preview_parts.h"

#include "platform/desktop/growing.h"

#include <QChildEvent>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionButton>
#include <QToolTip>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int titleHeight = 17;  // pixels
}  // namespace

MovableGroup::MovableGroup(QWidget* parent) : QGroupBox(parent) {
    setMouseTracking(true);
}

bool MovableGroup::event(QEvent* event) {
    if (event->type() == QEvent::Move || event->type() == QEvent::Resize) moveTo(pos());
    if (event->type() != QEvent::ToolTip) return QGroupBox::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    if (help->y() < titleHeight)
        QToolTip::showText(help->globalPos(), u"按住标题，可以把它拖开"_s, this);
    else
        QToolTip::hideText();
    return true;
}

void MovableGroup::initStyleOption(QStyleOptionGroupBox* option) const {
    QGroupBox::initStyleOption(option);
    option->text.remove(u'\n');
}

void MovableGroup::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && event->position().y() < titleHeight) grip_ = event->position().toPoint();
}

void MovableGroup::mouseMoveEvent(QMouseEvent* event) {
    const QPoint at = event->position().toPoint();
    setCursor(grip_ || at.y() < titleHeight ? Qt::SizeAllCursor : Qt::ArrowCursor);
    if (!grip_) return;
    moveTo(pos() + at - *grip_);
}

void MovableGroup::moveTo(QPoint place) {
    const QSize room = parentWidget()->size() - size();
    const QPoint to(std::clamp(place.x(), 0, std::max(room.width(), 0)),
                    std::clamp(place.y(), 0, std::max(room.height(), 0)));
    if (to != pos()) setSmallestPlace(this, smallestPlace(this).translated(to - pos()));
}

void MovableGroup::mouseReleaseEvent(QMouseEvent*) {
    grip_.reset();
}

/// The title's pointer is not that of the controls inside.
void MovableGroup::childEvent(QChildEvent* event) {
    QGroupBox::childEvent(event);
    auto* child = event->added() ? qobject_cast<QWidget*>(event->child()) : nullptr;
    if (child != nullptr) child->setCursor(Qt::ArrowCursor);
}

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
