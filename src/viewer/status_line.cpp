#include "viewer/status_line.h"

#include "platform/desktop/accessibility.h"
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
constexpr int buttonWidth = 825, gapOfButton = 90;
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
    updateToolTip();
}

// The size hint of a label with a fixed width is that width.
int PanelLabel::widthOfWholeLine() const {
    return fontMetrics().horizontalAdvance(text()) + width() - contentsRect().width();
}

QString PanelLabel::shown() const {
    return cutLine(text(), soft_, contentsRect().width(), fontMetrics());
}

void PanelLabel::updateToolTip() {
    setToolTip(shown() == text() ? QString() : plainToolTip(text()));
}

void PanelLabel::resizeEvent(QResizeEvent* event) {
    QLabel::resizeEvent(event);
    updateToolTip();
}

void PanelLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    drawFrame(&painter);
    style()->drawItemText(&painter, contentsRect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, palette(),
                          isEnabled(), shown(), foregroundRole());
}

// --------------------------------------------------------------------------------------------------------------- line

StatusLine::StatusLine(QStatusBar* sta1) : sta1_(sta1) {
    sta1->setSizeGripEnabled(false);
    sta1->setFixedHeight(pixelsFromTwips(barHeight));
    const auto panel = [sta1](int number) {
        auto* label = make<PanelLabel>(sta1, u"sta1:%1"_s.arg(number));
        label->setTextFormat(Qt::PlainText);
        label->setStyleSheet(u"padding-left: 6px;"_s);
        sta1->addWidget(label);
        return label;
    };
    collection_ = panel(1);
    album_ = panel(2);
    page_ = panel(3);
    clock_ = panel(4);
    clock_->setFixedWidth(pixelsFromTwips(clockWidth));
    shareRoom();
}

void StatusLine::offer(QPushButton* button) {
    constexpr int panelsBefore = 3;
    offered_ = button;
    button->setFixedSize(pixelsFromTwips(buttonWidth), pixelsFromTwips(barHeight) - 6);
    sta1_->insertWidget(panelsBefore, button);
    button->hide();
}

void StatusLine::shareRoom() {
    const auto asked = [](const PanelLabel* panel) { return twipsFromPixels(panel->widthOfWholeLine()); };
    const int forButton = offered_ == nullptr || offered_->isHidden() ? 0 : buttonWidth + gapOfButton;
    const PanelWidths widths =
        sharedWidths({asked(collection_), asked(album_), asked(page_)}, std::max(0, messageWidth_ - forButton));
    collection_->setFixedWidth(pixelsFromTwips(widths.title));
    album_->setFixedWidth(pixelsFromTwips(widths.album));
    page_->setFixedWidth(pixelsFromTwips(widths.message));
}

void StatusLine::setLine(PanelLabel* panel, const QString& text, qsizetype soft) {
    if (panel->text() == text) return;
    panel->setLine(text, soft);
    shareRoom();
}

void StatusLine::showCollection(const QString& title) {
    setLine(collection_, title, title.size());
}

void StatusLine::showAlbum(const QString& title, const QString& rest) {
    setLine(album_, title + rest, title.size());
}

void StatusLine::showPage(const QString& text) {
    const qsizetype counts = text.indexOf(u" 共");
    if (page_->text() == text) return;
    setLine(page_, text, counts < 0 ? text.size() : counts);
    announce(page_);
}

bool StatusLine::showClock(const QString& text) {
    if (clock_->text() == text) return false;
    clock_->setLine(text, text.size());
    return true;
}

void StatusLine::setMessageWidth(int twips) {
    messageWidth_ = std::max(0, twips);
    shareRoom();
}
