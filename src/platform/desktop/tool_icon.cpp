#include "platform/desktop/tool_icon.h"

#include "platform/desktop/theme.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QSvgRenderer>
#include <array>

using namespace Qt::Literals::StringLiterals;

namespace {

// The two colours of every drawing.
constexpr QColor ink(0x33, 0x47, 0x5B), highlight(0xE0, 0x7A, 0x3F);
constexpr QColor lightInk(0xDC, 0xE4, 0xEC);

QByteArray inColours(QByteArray drawing, const QColor& lines, const QColor& details) {
    drawing.replace(ink.name().toUpper().toLatin1(), lines.name().toLatin1());
    return drawing.replace(highlight.name().toUpper().toLatin1(), details.name().toLatin1());
}

class DrawnIcon : public QIconEngine {
  public:
    DrawnIcon(const QByteArray& drawing, const QColor& ground) {
        const QColor lines = theme::readable(theme::isDark(ground) ? lightInk : ink, ground, theme::signContrast);
        const QColor off = theme::faded(lines, ground);
        on_ = inColours(drawing, lines, theme::readable(highlight, ground, theme::signContrast));
        off_ = inColours(drawing, off, off);
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        QSvgRenderer(mode == QIcon::Disabled ? off_ : on_).render(painter, rect);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, pixmap.rect(), mode, state);
        return pixmap;
    }
    QIconEngine* clone() const override { return new DrawnIcon(*this); }

  private:
    QByteArray on_, off_;  ///< The drawing, in the colours of an icon that is switched on or off.
};

}  // namespace

QIcon toolIcon(const QString& imageKey, const QColor& ground) {
    QFile file(u":/icons/"_s + imageKey + u".svg"_s);
    if (!file.open(QIODevice::ReadOnly)) return {};
    return QIcon(new DrawnIcon(file.readAll(), ground));
}
