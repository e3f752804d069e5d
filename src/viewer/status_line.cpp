#include "viewer/status_line.h"

#include "platform/desktop/placing.h"
#include "viewer/caption.h"

#include <QPainter>
#include <QStyle>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int barHeight = 450;
// What the page line leaves to the three others and the gaps between all of them.
constexpr int room = 6950;
constexpr int gaps = 450;
constexpr int clockWidth = 2700;
constexpr int widestTitle = 1800;  // unless there is room to spare
}  // namespace

QString cutLine(const QString& text, qsizetype soft, int width, const QFontMetrics& metrics) {
    if (metrics.horizontalAdvance(text) <= width) return text;
    const QString rest = text.mid(soft);
    const int forSoft = width - metrics.horizontalAdvance(rest);
    if (forSoft < metrics.horizontalAdvance(u'…')) return metrics.elidedText(text, Qt::ElideLeft, width);
    return metrics.elidedText(text.left(soft), Qt::ElideRight, forSoft) + rest;
}

PanelWidths sharedWidths(const PanelWidths& asked, int messageWidth) {
    const int title = std::min(asked.title, widestTitle);
    const int album = room - gaps - clockWidth - title;
    const int spare = std::max(0, messageWidth - asked.message);
    const int toAlbum = std::clamp(asked.album - album, 0, spare);
    const int toTitle = std::clamp(asked.title - title, 0, spare - toAlbum);
    return {title + toTitle, album + toAlbum, messageWidth - toTitle - toAlbum};
}

// ------------------------------------------------------------------------------------------------------------- panels

void PanelLabel::setLine(const QString& text, qsizetype soft) {
    soft_ = soft;
    setText(text);
    tellWhatIsCut();
}

// A label of a fixed width asks for no less than that.
int PanelLabel::widthOfWholeLine() const {
    return fontMetrics().horizontalAdvance(text()) + width() - contentsRect().width();
}

QString PanelLabel::shown() const {
    return cutLine(text(), soft_, contentsRect().width(), fontMetrics());
}

void PanelLabel::tellWhatIsCut() {
    setToolTip(shown() == text() ? QString() : plainToolTip(text()));
}

void PanelLabel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    tellWhatIsCut();
}

void PanelLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    drawFrame(&painter);
    style()->drawItemText(&painter, contentsRect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, palette(),
                          isEnabled(), shown(), foregroundRole());
}

// --------------------------------------------------------------------------------------------------------------- line

StatusLine::StatusLine(QStatusBar* sta1) {
    sta1->setSizeGripEnabled(false);
    sta1->setFixedHeight(pixelsFromTwips(barHeight));
    for (size_t i = 0; i < panels_.size(); ++i) {
        panels_[i] = make<PanelLabel>(sta1, u"sta1:%1"_s.arg(i + 1));
        panels_[i]->setTextFormat(Qt::PlainText);
        panels_[i]->setStyleSheet(i == 0 ? u"padding-left: 6px;"_s
                                         : u"border-left: 1px solid #d8d0c2; padding-left: 6px;"_s);
        sta1->addWidget(panels_[i]);
    }
    label(4)->setFixedWidth(pixelsFromTwips(clockWidth));
    shareRoom();
}

void StatusLine::shareRoom() {
    const auto asked = [this](int panel) { return twipsFromPixels(label(panel)->widthOfWholeLine()); };
    const PanelWidths widths = sharedWidths({asked(1), asked(2), asked(3)}, messageWidth_);
    label(1)->setFixedWidth(pixelsFromTwips(widths.title));
    label(2)->setFixedWidth(pixelsFromTwips(widths.album));
    label(3)->setFixedWidth(pixelsFromTwips(widths.message));
}

void StatusLine::setLine(int panel, const QString& text, qsizetype soft) {
    if (label(panel)->text() == text) return;
    label(panel)->setLine(text, soft);
    if (label(panel) != label(4)) shareRoom();
}

void StatusLine::setPanel(int panel, const QString& text) {
    const qsizetype counts = text.indexOf(u" 共");
    setLine(panel, text, counts < 0 ? text.size() : counts);
}

void StatusLine::setAlbumLine(const QString& title, const QString& rest) {
    setLine(2, title + rest, title.size());
}

QString StatusLine::panel(int panel) const {
    return label(panel)->text();
}

void StatusLine::setMessageWidth(int twips) {
    messageWidth_ = std::max(0, twips);
    shareRoom();
}
