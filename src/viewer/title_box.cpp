#include "viewer/title_box.h"

#include "platform/desktop/theme.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace {
constexpr int textHeight = 17;  // pixels: the colour of a letter has to show inside its outline
constexpr double cornerRadius = 3;
constexpr double outlineWidth = 0.9;
constexpr double outlineContrast = 8;  // to the ground
constexpr int margin = 4;
}  // namespace

TitleBox::TitleBox(QWidget* parent) : TextBox(parent) {
    QFont large = font();
    large.setPixelSize(textHeight);
    setFont(large);
    setLocked(true);
    setFocusPolicy(Qt::NoFocus);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAlignment(Qt::AlignCenter);
    // A title that is longer than the box shows its beginning.
    connect(this, &QLineEdit::textChanged, this, [this] { setCursorPosition(0); });
}

void TitleBox::setColours(const TitleColours& colours) {
    if (colours == colours_) return;
    colours_ = colours;
    update();
}

void TitleBox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours_.ground);
    painter.drawRoundedRect(QRectF(rect()), cornerRadius, cornerRadius);

    const QFontMetricsF metrics(font());
    const QString title = text().trimmed();
    const double left = std::max(double(margin), (width() - metrics.horizontalAdvance(title)) / 2);
    const double line = (height() + metrics.capHeight()) / 2;
    QPainterPath letters;
    letters.addText(left, line, font(), title);
    if (theme::contrast(colours_.text, colours_.ground) < theme::textContrast) {
        const QColor outline = theme::readable(colours_.text, colours_.ground, outlineContrast);
        painter.strokePath(letters, QPen(outline, 2 * outlineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    }
    painter.fillPath(letters, colours_.text);
}
