#include "editor/chooser_buttons.h"

#include "catalogue/mektp.h"
#include "editor/chooser_places.h"
#include "platform/base/error.h"
#include "platform/desktop/caption.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"

#include <QEvent>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using namespace chooserPlaces;

namespace {

constexpr int buttonsPerRow = 14, buttonRows = 4;
constexpr int firstButtonTop = 495;
constexpr int columnPitch = 280, rowPitch = 250;
constexpr int buttonWidth = 270, buttonHeight = 240;

constexpr int nameLeft = rightColumn + 1560, nameTop = 225, nameWidth = 2350, nameHeight = 270;
constexpr int besideName = 180;  ///< Frame and margins of its box.

}  // namespace

ChooserButtons::ChooserButtons(Surface* picCs) : QObject(picCs), picCs_(picCs) {
    lbl1_ = makeLabel(picCs, u"lbl1"_s, u"请先选择图册"_s, rightColumn, 210, 1500);
    txtB0_ = make<TextBox>(picCs, u"txtB0"_s);
    txtB0_->setLocked(true);
    txtB0_->setFocusPolicy(Qt::NoFocus);
    txtB0_->setStyleSheet(u"padding: 0px 2px;"_s);
    showName(u"编号  名称"_s);
    img0_ = make<ImageBox>(picCs, u"img0"_s);
    img0_->setPicture(Picture(QImage(u":/pictures/nobuttons.png"_s)));
    img0_->setToolTip(u"这个图册没有筛选按钮"_s);
    place(img0_, rightColumn, firstButtonTop, buttonsPerRow * columnPitch, 3 * rowPitch);
    img0_->hide();
    button(0)->setText(u"全"_s);
    button(0)->show();
}

QPushButton* ChooserButtons::button(int index) {
    while (int(cmdBh_.size()) <= index) {
        const int next = int(cmdBh_.size());
        auto* made = make<QPushButton>(picCs_, element(u"cmdBh"_s, next));
        made->setStyleSheet(u"padding: 0px;"_s);
        made->installEventFilter(this);
        made->hide();
        connect(made, &QPushButton::clicked, this, guarded(picCs_, [this, next] { choose(next); }));
        cmdBh_.push_back(made);
        if (next == 0) place(made, rightColumn, firstButtonTop, buttonWidth, buttonHeight);
    }
    return cmdBh_[size_t(index)];
}

void ChooserButtons::bhan(const QString& album) {
    codes_.clear();
    codes_ = codesOfAlbum(mekTp::catalogue, album);
    for (size_t i = 1; i < cmdBh_.size(); ++i) cmdBh_[i]->hide();
    txtB0_->setVisible(!codes_.empty());
    img0_->setVisible(codes_.empty());
    img0_->raise();
    if (codes_.empty()) return;
    lbl1_->setText(u"按编号筛选"_s);
    showButtons();
    showCode(0);
}

/// More buttons than the rows hold are placed closer together.
void ChooserButtons::showButtons() {
    const int count = int(codes_.size());
    const int columns = std::max(buttonsPerRow, (count + buttonRows - 1) / buttonRows);
    const int pitch = std::min(columnPitch, rightWidth / columns);
    for (int i = 0; i < count; ++i) {
        QPushButton* made = button(i);
        place(made, rightColumn + i % columns * pitch, firstButtonTop + i / columns * rowPitch + 1,
              std::min(buttonWidth, pitch), buttonHeight);
        made->setText(plainCaption(codes_[size_t(i)].code));
        made->setToolTip(codes_[size_t(i)].name);
        made->show();
    }
}

void ChooserButtons::showCode(int index) {
    if (index < int(codes_.size())) showName(codes_[size_t(index)].code + u"："_s + codes_[size_t(index)].name);
}

/// For a long name the box takes the room on its right, and then that on its left.
void ChooserButtons::showName(const QString& text) {
    txtB0_->setText(text);
    txtB0_->setCursorPosition(0);
    const int wanted = twipsFromPixels(txtB0_->fontMetrics().horizontalAdvance(text)) + besideName;
    const int width = std::max(nameWidth, wanted);
    place(txtB0_, std::min(nameLeft, rightColumn + rightWidth - width), nameTop, width, nameHeight);
}

bool ChooserButtons::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Enter || event->type() == QEvent::MouseMove) {
        const auto found = std::find(cmdBh_.begin(), cmdBh_.end(), watched);
        if (found != cmdBh_.end()) showCode(int(found - cmdBh_.begin()));
    }
    return QObject::eventFilter(watched, event);
}

/// The name is that of the first button of the code, whatever albums that is for.
void ChooserButtons::choose(int index) {
    if (index >= int(codes_.size())) return;
    const QString code = codes_[size_t(index)].code;
    QString name;
    attempt([&] { name = nameOfCode(mekTp::catalogue, code); });
    Q_EMIT chosen(code, name);
}
