#include "platform/desktop/look_style.h"

#include "platform/desktop/theme.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>
#include <functional>

using namespace Qt::Literals::StringLiterals;

namespace {

const QColor amber(0xd9, 0x8a, 0x1c);
const QColor brick(0xb8, 0x3a, 0x2f);
const QColor folder(0xe3, 0xb9, 0x66);
const QColor folderEdge(0xa8, 0x7d, 0x2c);

/// Signs are drawn in a square of 32 units.
using Sign = std::function<void(QPainter&)>;

Sign letterOnDisc(const QColor& colour, const QString& letter) {
    return [colour, letter](QPainter& painter) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        painter.drawEllipse(QRectF(2, 2, 28, 28));
        QFont font = painter.font();
        font.setPixelSize(21);
        font.setBold(true);
        painter.setFont(font);
        painter.setPen(theme::readable(Qt::white, colour));
        painter.drawText(QRectF(2, 2, 28, 28), Qt::AlignCenter, letter);
    };
}

void warningTriangle(QPainter& painter) {
    painter.setBrush(amber);
    painter.setPen(QPen(amber, 4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolygon(QPolygonF{{16, 5}, {28.5, 27}, {3.5, 27}});
    painter.setPen(QPen(Qt::white, 3.2, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(16, 11.5), QPointF(16, 18.5));
    painter.drawPoint(QPointF(16, 24));
}

void closedFolder(QPainter& painter) {
    painter.setPen(QPen(folderEdge, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(folder);
    painter.drawPolygon(QPolygonF{{3, 26}, {3, 7}, {12, 7}, {15, 10}, {29, 10}, {29, 26}});
    painter.drawLine(QPointF(3, 13), QPointF(29, 13));
}

void openFolder(QPainter& painter) {
    painter.setPen(QPen(folderEdge, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(folder.darker(112));
    painter.drawPolygon(QPolygonF{{3, 26}, {3, 7}, {11, 7}, {14, 10}, {26, 10}, {26, 26}});
    painter.setBrush(folder.lighter(112));
    painter.drawPolygon(QPolygonF{{3, 26}, {8, 15}, {31, 15}, {26, 26}});
}

void drive(QPainter& painter) {
    painter.setPen(QPen(theme::worn().shade, 1.6));
    painter.setBrush(theme::worn().groove);
    painter.drawRoundedRect(QRectF(3, 9, 26, 14), 3, 3);
    painter.setPen(QPen(theme::worn().accent, 3, Qt::SolidLine, Qt::RoundCap));
    painter.drawPoint(QPointF(24, 18));
}

QIcon drawn(const Sign& sign) {
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 96, 128}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(size / 32.0, size / 32.0);
        sign(painter);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

/// Null for a sign that Fusion draws well enough.
QIcon ownSign(QStyle::StandardPixmap sign) {
    switch (sign) {
        case QStyle::SP_MessageBoxQuestion:
            return drawn(letterOnDisc(theme::worn().accent, u"?"_s));
        case QStyle::SP_MessageBoxInformation:
            return drawn(letterOnDisc(theme::worn().accent, u"i"_s));
        case QStyle::SP_MessageBoxCritical:
            return drawn(letterOnDisc(brick, u"×"_s));
        case QStyle::SP_MessageBoxWarning:
            return drawn(warningTriangle);
        case QStyle::SP_DirIcon:
        case QStyle::SP_DirClosedIcon:
            return drawn(closedFolder);
        case QStyle::SP_DirOpenIcon:
            return drawn(openFolder);
        case QStyle::SP_DriveHDIcon:
            return drawn(drive);
        default:
            return {};
    }
}

// Fusion draws borders in the colour of the window, darkened by this much.
constexpr int darkenedBy = 180;

void lightenBorders(QPalette& palette, const QColor& border) {
    palette.setColor(QPalette::Window, border.lighter(darkenedBy));
}

}  // namespace

LookStyle::LookStyle() : QProxyStyle(u"Fusion"_s) {}

QIcon LookStyle::standardIcon(StandardPixmap sign, const QStyleOption* option, const QWidget* widget) const {
    const QIcon own = ownSign(sign);
    return own.isNull() ? QProxyStyle::standardIcon(sign, option, widget) : own;
}

QPixmap LookStyle::standardPixmap(StandardPixmap sign, const QStyleOption* option, const QWidget* widget) const {
    const QIcon own = ownSign(sign);
    return own.isNull() ? QProxyStyle::standardPixmap(sign, option, widget) : own.pixmap(32);
}

void LookStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                              const QWidget* widget) const {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    const bool isMark = element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton;
    if (button == nullptr || !isMark || !theme::isDark(theme::worn().window)) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    QStyleOptionButton seen = *button;
    lightenBorders(seen.palette, (option->state & State_Enabled) ? theme::worn().shade : theme::worn().edge);
    QProxyStyle::drawPrimitive(element, &seen, painter, widget);
}

void LookStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                   const QWidget* widget) const {
    const auto* box = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    if (box == nullptr || control != CC_ComboBox || !theme::isDark(theme::worn().window)) {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        return;
    }
    QStyleOptionComboBox seen = *box;
    lightenBorders(seen.palette, theme::worn().edge);
    QProxyStyle::drawComplexControl(control, &seen, painter, widget);
}
