#include "settings/setup/button_row.h"

#include "settings/frame/form_parts.h"
#include "settings/frame/preview.h"

#include <QEvent>
#include <QPushButton>

using namespace Qt::Literals::StringLiterals;

namespace {
// Twips from the corner of the group.
const QRect row(200, 5430, 4330, rowHeight);
constexpr int pitch = 1110, width = 1000;
constexpr int columnPitch = 390, columnWidth = 540, gap = 15;
constexpr int groupWidth = 4770;
constexpr int widestGroup = 4875;  ///< As far as the groups beside it let it reach.

/// What the group has gained, in twips.
QSize gained(const QWidget* group) {
    const QSize pixels = group->size() - smallestPlace(group).size();
    return {twipsFromPixels(pixels.width()), twipsFromPixels(pixels.height())};
}
}  // namespace

ButtonRow::ButtonRow(QGroupBox* group, const QList<QPushButton*>& buttons, const Preview& preview)
    : QObject(group), group_(group), buttons_(buttons), panel_(preview.panel()) {
    panel_->installEventFilter(this);
    for (QPushButton* button : buttons_) letGrow(button, movesDown);
    arrange();
}

bool ButtonRow::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::Move:
        case QEvent::Resize:
        case QEvent::ShowToParent:
        case QEvent::HideToParent:
            arrange();
            break;
        default:
            break;
    }
    return QObject::eventFilter(watched, event);
}

QRect ButtonRow::panelInGroup() const {
    const bool isHere = panel_->parentWidget() == group_->parentWidget() && !panel_->isHidden();
    if (!isHere) return {};
    return {leftOf(panel_) - leftOf(group_), topOf(panel_) - topOf(group_), widthOf(panel_), heightOf(panel_)};
}

void ButtonRow::arrange() {
    const QRect panel = panelInGroup();
    const int left = panel.right() + 1 + gap;
    const QSize more = gained(group_);
    const bool isInColumn =
        panel.intersects(row.translated(0, more.height())) && left + columnWidth <= widestGroup + more.width();
    QRect smallest = smallestPlace(group_);
    smallest.setWidth(pixelsFromTwips(isInColumn ? widestGroup : groupWidth));
    setSmallestPlace(group_, smallest);
    if (isInColumn)
        placeInColumn(left);
    else
        placeInRow();
}

void ButtonRow::placeInRow() {
    for (int i = 0; i < buttons_.size(); ++i) {
        buttons_[i]->setStyleSheet({});
        place(buttons_[i], row.left() + i * pitch, row.top(), width, rowHeight);
    }
}

/// So narrow a column has room for the captions alone.
void ButtonRow::placeInColumn(int left) {
    for (int i = 0; i < buttons_.size(); ++i) {
        buttons_[i]->setStyleSheet(u"QPushButton { padding: 0px; }"_s);
        const int fromFoot = static_cast<int>(buttons_.size()) - 1 - i;
        place(buttons_[i], left, row.top() - fromFoot * columnPitch, columnWidth, rowHeight);
    }
}
