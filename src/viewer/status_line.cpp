#include "viewer/status_line.h"

#include "platform/desktop/placing.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int barHeight = 450;
// What the page line leaves to the three others and the gaps between all of them.
constexpr int room = 6950;
constexpr int gaps = 450;
constexpr int clockWidth = 2700;
constexpr int widestTitle = 1800;
}  // namespace

StatusLine::StatusLine(QStatusBar* sta1) {
    sta1->setSizeGripEnabled(false);
    sta1->setFixedHeight(pixelsFromTwips(barHeight));
    for (size_t i = 0; i < panels_.size(); ++i) {
        panels_[i] = make<QLabel>(sta1, u"sta1:%1"_s.arg(i + 1));
        panels_[i]->setTextFormat(Qt::PlainText);
        panels_[i]->setStyleSheet(i == 0 ? u"padding-left: 6px;"_s
                                         : u"border-left: 1px solid #d8d0c2; padding-left: 6px;"_s);
        sta1->addWidget(panels_[i]);
    }
    label(4)->setFixedWidth(pixelsFromTwips(clockWidth));
    shareRoom();
}

// The collection's title takes what it needs, the album line the rest.
void StatusLine::shareRoom() {
    const int title = std::min(twipsFromPixels(label(1)->sizeHint().width()), widestTitle);
    label(1)->setFixedWidth(pixelsFromTwips(title));
    label(2)->setFixedWidth(pixelsFromTwips(room - gaps - clockWidth - title));
}

void StatusLine::setPanel(int panel, const QString& text) {
    if (label(panel)->text() == text) return;
    label(panel)->setText(text);
    if (panel == 1) shareRoom();
    const bool isCut = label(panel)->sizeHint().width() > label(panel)->width();
    label(panel)->setToolTip(isCut ? text : QString());
}

QString StatusLine::panel(int panel) const {
    return label(panel)->text();
}

void StatusLine::setMessageWidth(int twips) {
    label(3)->setFixedWidth(std::max(0, pixelsFromTwips(twips)));
}
