#include "viewer/cell_box.h"

#include "platform/desktop/theme.h"

#include <QPainter>

using namespace Qt::Literals::StringLiterals;

namespace {
const QString words = u"图片打不开"_s;
constexpr QSize signSize(40, 30);
constexpr int gap = 6;
constexpr double pen = 2;
const QColor ink(0xa8, 0x53, 0x1f);

/// A picture that is crossed out.
void drawSign(QPainter& painter, const QRectF& place, const QColor& colour) {
    painter.setPen(QPen(colour, pen, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawRoundedRect(place, 3, 3);
    const auto at = [&](double x, double y) {
        return QPointF(place.left() + x * place.width(), place.top() + y * place.height());
    };
    painter.drawPolyline(QPolygonF{at(0.1, 0.85), at(0.38, 0.4), at(0.58, 0.7), at(0.7, 0.55), at(0.9, 0.85)});
    painter.drawLine(at(-0.15, 1.2), at(1.15, -0.2));
}
}  // namespace

void CellBox::showPicture(const Picture& picture) {
    dropSign();
    setPicture(picture);
}

void CellBox::showSign() {
    setPicture({});
    hasSign_ = true;
    setAccessibleDescription(words);
}

void CellBox::dropSign() {
    hasSign_ = false;
    setAccessibleDescription({});
    update();
}

void CellBox::paintEvent(QPaintEvent* event) {
    ImageBox::paintEvent(event);
    if (!hasSign_) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const int lineHeight = fontMetrics().height();
    const bool hasRoom =
        width() > fontMetrics().horizontalAdvance(words) && height() > 2 * signSize.height() + gap + lineHeight;
    const QSizeF size = QSizeF(signSize).boundedTo(QSizeF(this->size()) * 0.6);
    QRectF place(QPointF(), size);
    place.moveCenter(QRectF(rect()).center() - QPointF(0, hasRoom ? (gap + lineHeight) / 2.0 : 0));
    drawSign(painter, place, theme::readable(ink, palette().color(QPalette::Window), theme::signContrast));
    if (!hasRoom) return;
    const QRectF line(0, place.bottom() + pen + gap, width(), lineHeight);
    painter.drawText(line, Qt::AlignCenter, words);
}
