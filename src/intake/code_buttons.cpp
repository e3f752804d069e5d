#include "intake/code_buttons.h"

#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "platform/base/error.h"
#include "platform/desktop/data_control.h"
#include "platform/desktop/grid.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/tab_control.h"
#include "platform/desktop/text_box.h"

#include <QComboBox>
#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int intakeTab = 1, transferTab = 3;
constexpr int rowPitch = 250, columnPitch = 280;
constexpr int buttonWidth = 270, buttonHeight = 240;
constexpr int textHeight = 300;
constexpr int rowsOnPage[] = {4, 8};  ///< Of the pages 图片录入 and 图片转存.

/// A caption in which "&" marks no key.
QString plainCaption(QString code) {
    return code.replace(u'&', u"&&"_s);
}

}  // namespace

CodeButtons::CodeButtons(SharedControls& controls, FormState& state) : controls_(controls), state_(state) {
    const int pages[] = {transferTab, intakeTab};
    for (int i = 0; i < 2; ++i) {
        auto& label = lblBx_[static_cast<std::size_t>(i)];
        label = make<QLabel>(controls_.sstFz->page(pages[i]), element(u"lblBx"_s, i));
        label->setTextFormat(Qt::PlainText);
        label->hide();
    }
    controls_.sstFz->putOn(transferTab, lblBx_[0], 7770, 3810, 1185, 510);
    txtB0 = make<TextBox>(controls_.sstFz->page(intakeTab), u"txtB0"_s);
    txtB0->setLocked(true);
    txtB0->setAlignment(Qt::AlignCenter);
    txtB0->setFocusPolicy(Qt::NoFocus);
    txtB0->hide();
    button(0);
}

QPushButton* CodeButtons::button(int index) {
    while (static_cast<int>(cmdBh_.size()) <= index) {
        const int place = static_cast<int>(cmdBh_.size());
        auto* made = make<QPushButton>(controls_.sstFz->page(intakeTab), element(u"cmdBh"_s, place));
        made->hide();
        made->setStyleSheet(u"padding: 0px;"_s);
        made->installEventFilter(this);
        connect(made, &QPushButton::clicked, this, guarded(controls_.form, [this, place] { buttonClicked(place); }));
        cmdBh_.push_back(made);
    }
    return cmdBh_[static_cast<std::size_t>(index)];
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
    const int rows = rowsOnPage[controls_.sstFz->currentIndex() == transferTab ? 1 : 0];
    const int count = static_cast<int>(codes_.size());
    return count <= rows * perRow_ ? perRow_ : (count + rows - 1) / rows;
}

int CodeButtons::pitch() const {
    return columnPitch * perRow_ / columns();
}

void CodeButtons::placeButton(int index) {
    QPushButton* made = button(index);
    controls_.sstFz->putOn(controls_.sstFz->currentIndex(), made, first_.x() + index % columns() * pitch(),
                           first_.y() + 1 + index / columns() * rowPitch, std::min(buttonWidth, pitch()), buttonHeight);
}

void CodeButtons::placeText() {
    // A row of buttons that comes down to the text's own line pushes it to the right.
    const int last = static_cast<int>(codes_.size()) - 1;
    const bool meets = last >= 0 && first_.y() + last / columns() * rowPitch + buttonHeight > text_.y();
    int left = text_.x(), width = textWidth_;
    if (meets) {
        const int right = std::max(left + width, first_.x() + perRow_ * columnPitch);
        left = std::max(left, first_.x() + (last % columns() + 1) * pitch() + 60);
        width = std::max(right - left, 0);
    }
    TabControl* sstFz = controls_.sstFz;
    sstFz->putOn(sstFz->currentIndex(), txtB0, left, text_.y(), width, textHeight);
    if (sstFz->currentIndex() != intakeTab) return;
    if (meets)
        sstFz->putOn(intakeTab, lblBx_[1], first_.x(), text_.y() + textHeight, 3640, textHeight - 60);
    else
        sstFz->putOn(intakeTab, lblBx_[1], left + width + 60, text_.y(), 1860, textHeight);
}

// Builds the filter buttons of the chosen album.
void CodeButtons::bhan() {
    for (QPushButton* made : cmdBh_) made->hide();
    codes_.clear();
    controls_.lbl1->setText(u"按编号筛选"_s);
    lblBx_[0]->setText(u"选中编号：v\n＝全选"_s);
    lblBx_[1]->setText(u"选中编号：v＝全选"_s);
    for (QLabel* label : lblBx_) label->show();
    attempt([&] {
        Recordset buttons = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tcan WHERE InStr(图册,"_s +
                                                           quoted(tableOfLine(controls_.cboBm->currentText())) +
                                                           u") > 0 ORDER BY [序号]"_s);
        for (; !buttons.Eof(); buttons.MoveNext())
            codes_.push_back({buttons.Fields(u"编号"_s).Value().textOr(), buttons.Fields(u"名称"_s).Value().textOr()});
    });
    for (int i = 0; i < static_cast<int>(codes_.size()); ++i) {
        const Code& code = codes_[static_cast<std::size_t>(i)];
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

void CodeButtons::buttonClicked(int index) {
    const QString code = codes_.at(static_cast<std::size_t>(index)).code;
    const Recordset row =
        mekTp::catalogue.OpenRecordset(u"SELECT * FROM tcan WHERE 编号 = "_s + quoted(code) + u" ORDER BY [序号]"_s);
    const QString name = row.Fields(u"名称"_s).Value().textOr();
    if (controls_.sstFz->currentIndex() == intakeTab)
        lblBx_[1]->setText(u"选中编号："_s + code + u"＝"_s + name);
    else
        lblBx_[0]->setText(u"选中编号："_s + code + u"\n＝"_s + name);
    QString source = u"SELECT * FROM "_s + state_.albumTable;
    if (code != u"v"_s) source += u" WHERE InStr(编号,"_s + quoted(code) + u") > 0 ORDER BY [序号]"_s;
    controls_.datBj->setRecordSource(source);
    controls_.datBj->Refresh();
    controls_.msgBm->setEnabled(true);
    Q_EMIT filtered(code, name, controls_.datBj->total());
}

bool CodeButtons::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Enter || event->type() == QEvent::MouseMove) {
        const auto found = std::find(cmdBh_.begin(), cmdBh_.end(), watched);
        const auto index = static_cast<std::size_t>(found - cmdBh_.begin());
        if (index < codes_.size()) txtB0->setText(codes_[index].code + u"："_s + codes_[index].name);
    }
    return QObject::eventFilter(watched, event);
}
