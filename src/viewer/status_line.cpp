#include "viewer/status_line.h"

#include "platform/desktop/placing.h"

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int barHeight = 450;
// Together with the gaps between the panels these fill what the page line leaves.
constexpr std::array<int, 4> panelWidths{1650, 2400, 0, 2600};
}  // namespace

StatusLine::StatusLine(QStatusBar* sta1) {
    sta1->setSizeGripEnabled(false);
    sta1->setFixedHeight(pixelsFromTwips(barHeight));
    sta1->setContentsMargins(6, 0, 0, 0);
    for (size_t i = 0; i < panels_.size(); ++i) {
        panels_[i] = make<QLabel>(sta1, u"sta1:%1"_s.arg(i + 1));
        panels_[i]->setTextFormat(Qt::PlainText);
        panels_[i]->setFixedWidth(pixelsFromTwips(panelWidths[i]));
        sta1->addWidget(panels_[i]);
    }
}

void StatusLine::setPanel(int panel, const QString& text) {
    if (label(panel)->text() != text) label(panel)->setText(text);
}

QString StatusLine::panel(int panel) const {
    return label(panel)->text();
}

void StatusLine::setMessageWidth(int twips) {
    label(3)->setFixedWidth(std::max(0, pixelsFromTwips(twips)));
}
