#include "drawing/album_art.h"
#include "drawing/prints.h"
#include "drawing/scenes.h"

#include <QFont>
#include <QFontMetricsF>

namespace {

const QColor gold(214, 178, 112);
const QColor paleGold(244, 222, 170);

QFont titleFont(double pixels, bool bold) {
    QFont font(QStringList{QStringLiteral("Noto Serif CJK SC"), QStringLiteral("Source Han Serif SC"),
                           QStringLiteral("SimSun"), QStringLiteral("serif")});
    font.setPixelSize(int(pixels));
    font.setWeight(bold ? QFont::Bold : QFont::Normal);
    return font;
}

/// Corner ornament: a cloud scroll between two lines.
void cornerOrnament(QPainter& painter, double reach) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(gold, reach * 0.022, Qt::SolidLine, Qt::RoundCap));
    QPainterPath scroll(QPointF(0, reach));
    scroll.lineTo(0, reach * 0.30);
    scroll.cubicTo(0, reach * 0.08, reach * 0.08, 0, reach * 0.30, 0);
    scroll.lineTo(reach, 0);
    for (const QPointF& heart : {QPointF(0.26, 0.26), QPointF(0.54, 0.17), QPointF(0.17, 0.54)}) {
        const QPointF at = heart * reach;
        for (int ring = 1; ring <= 3; ++ring) {
            const double radius = reach * 0.032 * ring * (heart.x() == heart.y() ? 1.35 : 1);
            scroll.moveTo(at + QPointF(radius, 0));
            scroll.arcTo(QRectF(at.x() - radius, at.y() - radius, radius * 2, radius * 2), 0, 290 - ring * 15);
        }
    }
    painter.drawPath(scroll);
}

void ornaments(QPainter& painter, const QRectF& frame, double reach) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(gold, 2.5));
    painter.drawRect(frame);
    painter.setPen(QPen(faded(gold, 0.6), 1.2));
    painter.drawRect(frame.adjusted(10, 10, -10, -10));
    const QPointF corners[] = {frame.topLeft(), frame.topRight(), frame.bottomRight(), frame.bottomLeft()};
    for (int i = 0; i < 4; ++i) {
        painter.save();
        painter.translate(corners[i]);
        painter.rotate(i * 90);
        painter.translate(26, 26);
        cornerOrnament(painter, reach);
        painter.restore();
    }
    painter.setPen(Qt::NoPen);
}

void spacedText(QPainter& painter, const QRectF& area, const QString& text, const QFont& font, double spacing,
                const QColor& colour) {
    QFont wide = font;
    wide.setLetterSpacing(QFont::AbsoluteSpacing, spacing);
    painter.setFont(wide);
    painter.setPen(colour);
    painter.drawText(area.translated(spacing / 2, 0), Qt::AlignCenter, text);
    painter.setPen(Qt::NoPen);
}

}  // namespace

QImage albumCover(QSize size) {
    QImage image = canvas(size);
    woven(image, QColor(20, 44, 58), QColor(52, 92, 108), 111);
    const double w = size.width();
    const double h = size.height();
    QPainter painter(&image);
    makeSmooth(painter);
    QLinearGradient spine(0, 0, w * 0.11, 0);
    spine.setColorAt(0, QColor(0, 0, 0, 150));
    spine.setColorAt(0.72, QColor(0, 0, 0, 40));
    spine.setColorAt(0.80, QColor(0, 0, 0, 130));
    spine.setColorAt(0.86, QColor(255, 255, 255, 34));
    spine.setColorAt(1, QColor(0, 0, 0, 0));
    painter.fillRect(QRectF(0, 0, w * 0.11, h), spine);
    ornaments(painter, QRectF(w * 0.125, h * 0.06, w * 0.825, h * 0.88), h * 0.16);

    const QSize print(640, 480);
    photograph(painter, {w * 0.33, h * 0.40}, w * 0.24, -7, cranes(print));
    photograph(painter, {w * 0.74, h * 0.41}, w * 0.24, 6, lotus(print));
    photograph(painter, {w * 0.535, h * 0.37}, w * 0.28, -1, mistyMountains(print));

    const QRectF title(w * 0.125, h * 0.62, w * 0.825, h * 0.17);
    spacedText(painter, title.translated(2, 4), QStringLiteral("览忆集苑"), titleFont(h * 0.115, true), w * 0.022,
               QColor(0, 0, 0, 110));
    spacedText(painter, title, QStringLiteral("览忆集苑"), titleFont(h * 0.115, true), w * 0.022, paleGold);
    painter.fillRect(QRectF(w * 0.4375, h * 0.802, w * 0.2, 2), gold);
    spacedText(painter, QRectF(w * 0.125, h * 0.81, w * 0.825, h * 0.07), QStringLiteral("电子像册"),
               titleFont(h * 0.034, false), w * 0.014, gold);
    painter.end();
    vignette(image, 0.45);
    return image;
}

QImage startPicture(QSize size) {
    QImage image = canvas(size);
    woven(image, QColor(214, 200, 176), QColor(246, 238, 222), 113);
    const double w = size.width();
    const double h = size.height();
    QPainter painter(&image);
    makeSmooth(painter);
    // The opened album: two pages with the fold between them.
    const QRectF book(w * 0.07, h * 0.08, w * 0.86, h * 0.84);
    for (int i = 14; i > 0; --i) {
        painter.setBrush(QColor(60, 40, 20, 8));
        painter.drawRoundedRect(book.translated(5, 10).adjusted(-i * 2, -i * 2, i * 2, i * 2), 16, 16);
    }
    painter.setBrush(QColor(30, 58, 72));
    painter.drawRoundedRect(book, 12, 12);
    const QRectF pages = book.adjusted(w * 0.010, h * 0.013, -w * 0.010, -h * 0.013);
    QLinearGradient paper(pages.topLeft(), pages.topRight());
    paper.setColorAt(0, QColor(252, 249, 241));
    paper.setColorAt(0.44, QColor(250, 246, 236));
    paper.setColorAt(0.497, QColor(206, 196, 178));
    paper.setColorAt(0.503, QColor(190, 180, 162));
    paper.setColorAt(0.56, QColor(248, 243, 232));
    paper.setColorAt(1, QColor(252, 249, 241));
    painter.setBrush(paper);
    painter.drawRect(pages);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(QColor(214, 178, 112, 120), 1.4));
    painter.drawRect(QRectF(pages.left() + 24, pages.top() + 24, pages.width() / 2 - 60, pages.height() - 48));
    painter.drawRect(QRectF(pages.center().x() + 36, pages.top() + 24, pages.width() / 2 - 60, pages.height() - 48));
    painter.setPen(Qt::NoPen);

    const QSize print(640, 480);
    const QRectF left(book.left(), book.top(), book.width() / 2, book.height());
    const QRectF title(left.left(), left.top() + h * 0.10, left.width(), h * 0.13);
    spacedText(painter, title, QStringLiteral("览忆集苑"), titleFont(h * 0.078, true), w * 0.012, QColor(38, 62, 76));
    painter.fillRect(QRectF(left.center().x() - w * 0.04, left.top() + h * 0.245, w * 0.08, 2), QColor(214, 178, 112));
    photograph(painter, {left.center().x(), left.top() + h * 0.53}, w * 0.31, -2, mistyMountains(print));
    photograph(painter, {w * 0.635, h * 0.30}, w * 0.20, 3, summerClouds(print));
    photograph(painter, {w * 0.805, h * 0.40}, w * 0.19, -4, koiPond(print));
    photograph(painter, {w * 0.665, h * 0.68}, w * 0.22, -3, mapleLeaves(print));
    photograph(painter, {w * 0.835, h * 0.735}, w * 0.15, 5, moonOverSea(print));
    painter.end();
    vignette(image, 0.22);
    return image;
}
