#include "intake/code_buttons.h"

#include "catalogue/mektp.h"
#include "intake/settings_tab.h"
#include "platform/base/error.h"
#include "platform/desktop/caption.h"
#include "platform/desktop/data_control.h"
#include "platform/desktop/grid.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/tab_control.h"
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
constexpr int rowsOnIntake = 4, rowsOnTransfer = 11;  ///< That the pages have room for.

}  // namespace

CodeButtons::CodeButtons(SharedControls& controls, FormState& state) : controls_(controls), state_(state) {
    const int pages[] = {transferTab, intakeTab};
    for (int i = 0; i < 2; ++i) {
        auto& label = lblBx_[static_cast<std::size_t>(i)];
        label = make<QLabel>(controls_.sstFz->page(pages[i]), element(u"lblBx"_s, i));
        label->setTextFormat(Qt::PlainText);
        label->hide();
    }
    txtB0 = make<TextBox>(controls_.sstFz->page(intakeTab), u"txtB0"_s);
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
    const int room = controls_.sstFz->currentIndex() == transferTab ? rowsOnTransfer : rowsOnIntake;
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
    controls_.sstFz->putOn(controls_.sstFz->currentIndex(), made, first_.x() + index % columns() * pitch(),
                           first_.y() + 1 + index / columns() * rowPitch, std::min(buttonWidth, pitch()), buttonHeight);
}

void CodeButtons::placeText() {
    // Rows that come down to the line of the text push it below them.
    const int bottom = first_.y() + 1 + (rows() - 1) * rowPitch + buttonHeight;
    const bool pushed = bottom > text_.y();
    const int left = pushed ? first_.x() : text_.x();
    const int top = pushed ? bottom + gap : text_.y();
    TabControl* sstFz = controls_.sstFz;
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
    controls_.lbl1->setText(u"按编号筛选"_s);
    lblBx_[0]->setText(u"选中编号：v\n＝全选"_s);
    lblBx_[1]->setText(u"选中编号：v＝全选"_s);
    for (QLabel* label : lblBx_) label->show();
    attempt([&] {
        Recordset buttons = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tcan WHERE InStr(图册,"_s +
                                                           quoted(state_.albumTable) + u") > 0 ORDER BY [序号]"_s);
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

QString CodeButtons::chosenCode() const {
    const QString text = lblBx_[0]->text();
    const qsizetype from = text.indexOf(u'：') + 1;
    const QString code = text.mid(from, text.indexOf(u'\n') - from);
    return code.isEmpty() ? u"v"_s : code;
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
