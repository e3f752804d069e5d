#include "intake/browsing/code_buttons.h"

#include "catalogue/mektp.h"
#include "platform/base/error.h"
#include "platform/desktop/caption.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/text_box.h"

#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int rowPitch = 250, columnPitch = 280;
constexpr int buttonWidth = 270, buttonHeight = 240;
constexpr int textHeight = 300;
constexpr int gap = 15;
constexpr int buttonsAtStart = 45;
const QString noAlbum = u"请先选择图册"_s;
constexpr int rowsOnIntake = 4, rowsOnTransfer = 11;  ///< That the pages have room for.

}  // namespace

CodeButtons::CodeButtons(const SettingsFrame& frame)
    : frame_(frame), lbl1_(make<QLabel>(frame.sstFz->page(intakeTab), u"lbl1"_s, noAlbum)) {
    const int pages[] = {transferTab, intakeTab};
    for (int i = 0; i < 2; ++i) {
        auto& label = lblBx_[static_cast<std::size_t>(i)];
        label = make<QLabel>(frame_.sstFz->page(pages[i]), element(u"lblBx"_s, i));
        label->setTextFormat(Qt::PlainText);
        label->hide();
    }
    txtB0 = make<TextBox>(frame_.sstFz->page(intakeTab), u"txtB0"_s);
    txtB0->setAccessibleName(u"图片编号"_s);
    txtB0->setLocked(true);
    txtB0->setAlignment(Qt::AlignCenter);
    txtB0->setFocusPolicy(Qt::NoFocus);
    txtB0->hide();
    button(buttonsAtStart - 1);
}

QPushButton* CodeButtons::button(int index) {
    while (static_cast<int>(cmdBh_.size()) <= index) {
        const int place = static_cast<int>(cmdBh_.size());
        auto* made = make<QPushButton>(frame_.sstFz->page(intakeTab), element(u"cmdBh"_s, place));
        made->hide();
        made->setStyleSheet(u"padding: 0px;"_s);
        made->installEventFilter(this);
        connect(made, &QPushButton::clicked, this, guarded(frame_.form, [this, place] { buttonClicked(place); }));
        cmdBh_.push_back(made);
    }
    return cmdBh_[static_cast<std::size_t>(index)];
}

void CodeButtons::albumLost() {
    ycbh();
    lbl1_->setText(noAlbum);
}

void CodeButtons::setGrowth(const Growth& growth) {
    growth_ = growth;
    letGrow({lbl1_, txtB0, lblBx_[0], lblBx_[1]}, growth_);
}

void CodeButtons::moveHeading(int left, int top) {
    frame_.sstFz->putOn(frame_.sstFz->currentIndex(), lbl1_, left, top, 1350, 225);
}

void CodeButtons::moveTo(int left, int top, int buttonsPerRow) {
    first_ = {left, top};
    perRow_ = buttonsPerRow;
}

void CodeButtons::moveText(int left, int top, int width) {
    text_ = {left, top};
    textWidth_ = width;
    placeText();
}

int CodeButtons::columns() const {
    const int room = frame_.isInFront(transferTab) ? rowsOnTransfer : rowsOnIntake;
    const int count = static_cast<int>(codes_.size());
    return count <= room * perRow_ ? perRow_ : (count + room - 1) / room;
}

int CodeButtons::rows() const {
    return (static_cast<int>(codes_.size()) + columns() - 1) / columns();
}

int CodeButtons::pitch() const {
    return columnPitch * perRow_ / columns();
}

void CodeButtons::placeButton(int index) {
    QPushButton* made = button(index);
    letGrow(made, growth_);
    frame_.sstFz->putOn(frame_.sstFz->currentIndex(), made, first_.x() + index % columns() * pitch(),
                        first_.y() + 1 + index / columns() * rowPitch, std::min(buttonWidth, pitch()), buttonHeight);
}

void CodeButtons::placeText() {
    // Rows that come down to the line of the text push it below them.
    const int bottom = first_.y() + 1 + (rows() - 1) * rowPitch + buttonHeight;
    const bool pushed = bottom > text_.y();
    const int left = pushed ? first_.x() : text_.x();
    const int top = pushed ? bottom + gap : text_.y();
    TabControl* sstFz = frame_.sstFz;
    if (sstFz->currentIndex() == intakeTab) {
        const int height = pushed ? textHeight - 45 : textHeight;
        sstFz->putOn(intakeTab, txtB0, left, top, textWidth_, height);
        sstFz->putOn(intakeTab, lblBx_[1], left + textWidth_ + 60, top, 1860, height);
    } else if (sstFz->currentIndex() == transferTab) {
        sstFz->putOn(transferTab, txtB0, left, top, textWidth_, textHeight);
        sstFz->putOn(transferTab, lblBx_[0], left, top + textHeight + 40, textWidth_, 510);
    }
}

// Builds the filter buttons of the chosen album.
void CodeButtons::bhan() {
    for (QPushButton* made : cmdBh_) made->hide();
    codes_.clear();
    lbl1_->setText(u"按编号筛选"_s);
    lblBx_[0]->setText(u"选中编号：v\n＝全选"_s);
    lblBx_[1]->setText(u"选中编号：v＝全选"_s);
    for (QLabel* label : lblBx_) label->show();
    attempt([&] { codes_ = codesOfAlbum(mekTp::catalogue, frame_.albums.table()); });
    for (int i = 0; i < static_cast<int>(codes_.size()); ++i) {
        const SelectionCode& code = codes_[static_cast<std::size_t>(i)];
        placeButton(i);
        button(i)->setText(plainCaption(code.code));
        button(i)->setToolTip(code.name);
        button(i)->show();
        button(i)->raise();
    }
    placeText();
    txtB0->setText(codes_.empty() ? QString() : codes_.front().code + u"："_s + codes_.front().name);
    txtB0->show();
    txtB0->raise();
}

// Hides the filter buttons.
void CodeButtons::ycbh() {
    for (QPushButton* made : cmdBh_) made->hide();
    for (QLabel* label : lblBx_) label->hide();
    txtB0->hide();
}

QString CodeButtons::chosenCode() const {
    const QString text = lblBx_[0]->text();
    const qsizetype from = text.indexOf(u'：') + 1;
    const QString code = text.mid(from, text.indexOf(u'\n') - from);
    return code.isEmpty() ? allPicturesCode : code;
}

void CodeButtons::buttonClicked(int index) {
    const QString code = codes_.at(static_cast<std::size_t>(index)).code;
    const QString name = nameOfCode(mekTp::catalogue, code);
    if (frame_.isInFront(intakeTab))
        lblBx_[1]->setText(u"选中编号："_s + code + u"＝"_s + name);
    else
        lblBx_[0]->setText(u"选中编号："_s + code + u"\n＝"_s + name);
    QString source = u"SELECT * FROM "_s + frame_.albums.table();
    if (code != allPicturesCode) source += whereCode(code) + u" ORDER BY [序号]"_s;
    frame_.grid.list(source);
    frame_.grid.setEnabled(true);
    Q_EMIT filtered(code, name, frame_.grid.total());
}

bool CodeButtons::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Enter || event->type() == QEvent::MouseMove) {
        const auto found = std::find(cmdBh_.begin(), cmdBh_.end(), watched);
        const auto index = static_cast<std::size_t>(found - cmdBh_.begin());
        if (index < codes_.size()) txtB0->setText(codes_[index].code + u"："_s + codes_[index].name);
    }
    return QObject::eventFilter(watched, event);
}
