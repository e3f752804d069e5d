#include "viewer/caption.h"

#include <QPainter>
#include <QTextLayout>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int sideMargin = 4;  // pixels
// A quarter of a line's height is blank: lines may be that much closer than the font asks for.
constexpr double blankShare = 0.25;

/// As few lines as possible: Chinese text breaks behind any character.
QStringList closestLines(const QString& text, const QFont& font, int width) {
    QTextLayout layout(text, font);
    QTextOption wrapping;
    wrapping.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(wrapping);
    layout.beginLayout();
    QStringList lines;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        lines << text.mid(line.textStart(), line.textLength());
    }
    layout.endLayout();
    return lines;
}

/// Lines that break behind blanks alone; nothing if a word is longer than a line.
QStringList linesOfWholeWords(const QString& text, const QFontMetrics& metrics, int width) {
    QStringList lines;
    for (const QString& word : text.split(u' ')) {
        if (metrics.horizontalAdvance(word) > width) return {};
        const QString longer = lines.isEmpty() ? word : lines.last() + u' ' + word;
        if (!lines.isEmpty() && metrics.horizontalAdvance(longer) <= width) {
            lines.last() = longer;
            continue;
        }
        if (!lines.isEmpty()) lines.last() += u' ';
        lines << word;
    }
    return lines;
}
}  // namespace

Caption::Caption(QWidget* parent) : CaptionBox(parent) {
    connect(this, &QPlainTextEdit::textChanged, this, [this] {
        updateToolTip();
        viewport()->update();
    });
}

QStringList Caption::linesFor(int width) const {
    const int room = std::max(1, width - 2 * sideMargin);
    const QStringList closest = closestLines(text(), font(), room);
    const QStringList whole = linesOfWholeWords(text(), fontMetrics(), room);
    return whole.isEmpty() || whole.size() > closest.size() ? closest : whole;
}

int Caption::lineCountFor(int width) const {
    return int(linesFor(width).size());
}

int Caption::heightOfLines(int count) const {
    return count * lineHeight() + 2 * margin();
}

int Caption::linesThatFit() const {
    return std::max(1, int(double(height() - 2 * margin()) / lineHeight() + blankShare));
}

void Caption::updateToolTip() {
    const bool isCut = linesFor(width()).size() > linesThatFit();
    setToolTip(isCut ? plainToolTip(text()) : QString());
}

void Caption::resizeEvent(QResizeEvent* event) {
    CaptionBox::resizeEvent(event);
    updateToolTip();
}

void Caption::changeEvent(QEvent* event) {
    CaptionBox::changeEvent(event);
    if (event->type() == QEvent::FontChange) updateToolTip();
}

// The text control would scroll to the line of its cursor, so the text is painted here.
void Caption::paintEvent(QPaintEvent*) {
    QStringList lines = linesFor(width());
    const int room = linesThatFit();
    if (lines.size() > room) {
        const QString rest = lines.mid(room - 1).join(QString());
        lines = lines.first(room - 1);
        lines << fontMetrics().elidedText(rest, Qt::ElideRight, width() - 2 * sideMargin);
    }
    QPainter painter(viewport());
    painter.setFont(font());  // the viewport's own may be another one
    painter.setPen(palette().color(QPalette::Text));
    const int block = int(lines.size()) * lineHeight();
    int top = std::min(margin(), (height() - block) / 2);
    for (const QString& line : std::as_const(lines)) {
        painter.drawText(QRect(sideMargin, top, width() - 2 * sideMargin, lineHeight()),
                         Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, line);
        top += lineHeight();
    }
}

QString plainToolTip(const QString& text) {
    return Qt::mightBeRichText(text) ? u"<span>%1</span>"_s.arg(text.toHtmlEscaped()) : text;
}
