#include "viewer/facts_panel.h"

#include "platform/desktop/accessibility.h"

#include <QLocale>
#include <QPainter>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int fromCorner = 12;
constexpr int edge = 12;
constexpr qreal corner = 6;
// Nearly black on any picture, so that white words can be read.
const QColor panelColour(0, 0, 0, 200);
}  // namespace

QList<std::pair<QString, QString>> factLines(const PictureFacts& facts, QSize pixels, qint64 bytes) {
    QList<std::pair<QString, QString>> lines = facts.lines();
    if (!pixels.isEmpty()) lines.append({u"尺寸"_s, u"%1 × %2"_s.arg(pixels.width()).arg(pixels.height())});
    lines.append({u"大小"_s, QLocale::c().formattedDataSize(bytes, 2, QLocale::DataSizeSIFormat).toUpper()});
    if (facts.lines().isEmpty()) lines.append({u"照片"_s, u"没有拍摄资料"_s});
    return lines;
}

FactsPanel::FactsPanel(QWidget* window) : QLabel(window) {
    setObjectName(u"lblZl"_s);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setTextFormat(Qt::RichText);
    setMargin(edge);
    setWordWrap(true);
    QPalette colours = palette();
    colours.setColor(QPalette::WindowText, Qt::white);
    setPalette(colours);
    hide();
}

void FactsPanel::showOn(QWidget* ground, const QList<std::pair<QString, QString>>& lines) {
    QString table = u"<table cellspacing=0>"_s;
    QStringList spoken;
    for (const auto& [heading, sentence] : lines) {
        table += u"<tr><td>%1</td><td width=12></td><td>%2</td></tr>"_s.arg(heading, sentence.toHtmlEscaped());
        spoken << heading + u'：' + sentence;
    }
    setText(table + u"</table>"_s);
    setAccessibleName(spoken.join(u"；"_s));
    if (parentWidget() != ground) setParent(ground);
    setMaximumWidth(std::max(0, ground->width() - 2 * fromCorner));
    resize(std::min(sizeHint().width(), maximumWidth()), heightForWidth(std::min(sizeHint().width(), maximumWidth())));
    move(fromCorner, fromCorner);
    show();
    raise();
    announce(this);
}

void FactsPanel::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(panelColour);
    painter.drawRoundedRect(rect(), corner, corner);
    painter.end();
    QLabel::paintEvent(event);
}
