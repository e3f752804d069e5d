#include "colours/scheme_tile.h"

#include "platform/desktop/theme.h"

#include <QPainter>

namespace {
constexpr double rim = 3;  // pixels: room for the mark around the drawing
constexpr double cornerRadius = 3;
constexpr int columns = 3, rows = 2;

void paintPart(QPainter& painter, const QRectF& place, const QColor& colour) {
    if (colour.isValid()) painter.fillRect(place, colour);
}
}  // namespace

SchemeTile::SchemeTile(QWidget* parent) : QAbstractButton(parent) {
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
}

void SchemeTile::setScheme(const ColourScheme& scheme) {
    scheme_ = scheme;
    update();
}

void SchemeTile::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    paintWindow(painter, QRectF(rect()).adjusted(rim, rim, -rim, -rim));

    painter.setBrush(Qt::NoBrush);
    const theme::Colours& worn = theme::worn();
    const bool isMarked = isChecked() || hasFocus() || underMouse();
    const double width = isChecked() || hasFocus() ? 2 : 1;
    painter.setPen(QPen(isMarked ? worn.accent : worn.firmEdge, width, hasFocus() ? Qt::DotLine : Qt::SolidLine));
    const double inset = isMarked ? width / 2 : rim - width / 2;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), cornerRadius, cornerRadius);
}

/// Bars above and below, the column of buttons at the left, and a page of pictures.
void SchemeTile::paintWindow(QPainter& painter, const QRectF& window) const {
    paintPart(painter, window, scheme_.ground);
    const QColor ink = theme::mixed(scheme_.ground, theme::isDark(scheme_.ground) ? Qt::white : Qt::black, 0.3);
    const double line = window.height() / 12;
    painter.fillRect(QRectF(window.left() + 3, window.top() + line, window.width() * 0.6, 1), ink);
    painter.fillRect(QRectF(window.left() + 3, window.bottom() - line - 1, window.width() * 0.4, 1), ink);

    const QRectF column(window.left() + 3, window.top() + 2 * line + 2, window.width() / 4,
                        window.height() - 4 * line - 4);
    paintPart(painter, column, scheme_.outerFrame);
    paintPart(painter, column.adjusted(1, 1, -1, -1), scheme_.fill);
    paintPart(painter, column.adjusted(3, 3, -3, -3), scheme_.innerFrame);
    paintPart(painter, column.adjusted(4, 4, -4, -4), scheme_.fill);

    const QRectF page(column.right() + 3, column.top(), window.right() - column.right() - 6, column.height());
    const QSizeF cell((page.width() + 2) / columns, (page.height() + 2) / rows);
    for (int row = 0; row < rows; ++row)
        for (int place = 0; place < columns; ++place)
            painter.fillRect(QRectF(page.left() + place * cell.width(), page.top() + row * cell.height(),
                                    cell.width() - 2, cell.height() - 2),
                             ink);
}
