#include "settings/setup/title_group.h"

#include "catalogue/album_directory.h"
#include "catalogue/settings_row.h"
#include "platform/base/error.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/text_box.h"
#include "settings/frame/form_parts.h"

#include <QCheckBox>
#include <QPushButton>
#include <QSignalBlocker>

using namespace Qt::Literals::StringLiterals;

namespace {
const QString atRest = u"开 始"_s;
const QString pending = u"保 存"_s;
const QString startFirst = u"如果编辑，请先按《开始》按钮。"_s;
}  // namespace

TitleGroup::TitleGroup(const SettingsFrame& frame) : frame_(frame) {
    auto* Frame1 =
        makeGroup(frame.sstFz, setupTab, u"Frame1"_s, u"主标题及显示设置"_s, {5070, 4320, 4350, 1140}, rightColumn);
    txtXt = makeLabelled<TextBox>(Frame1, u"txtXt"_s, u"图册主标题："_s, {150, rowTop(0)}, 1100, 1800, widens);
    cmdBt = makeButton(Frame1, u"cmdBt"_s, atRest, 3200, rowTop(0));
    const std::array captions{u"显示标签"_s, u"全屏显示"_s};
    for (int i = 0; i < 2; ++i) {
        auto& check = chkB1.at(i);
        check = make<QCheckBox>(Frame1, element(u"chkB1"_s, i), captions.at(i));
        place(check, 1250 + 1500 * i, rowTop(1), 1400, rowHeight);
        connect(check, &QCheckBox::clicked, this, [this, i] { optionClicked(i); });
    }
    txtXt->setLocked(true);

    connect(cmdBt, &QPushButton::clicked, this, guarded(frame.form, [this] { cmdBtClick(); }));
    connect(txtXt, &QLineEdit::textChanged, this, [this] { titleChanged(); });
}

bool TitleGroup::isEditing() const {
    return cmdBt->text() == pending;
}

void TitleGroup::reset() {
    txtXt->setLocked(true);
    cmdBt->setText(atRest);
    cmdBt->setEnabled(true);

    Recordset settings;
    attempt([&] { settings = settingsRow(); });
    const auto isOn = [&](const QString& column) {
        const FieldValue value = settings.Fields(column).Value();
        return !value.isNull() && value.toBool();
    };
    limitTyping(txtXt, settings, u"像册标题"_s);
    const QSignalBlocker silent(txtXt);
    attempt([&] { txtXt->setText(settings.Fields(u"像册标题"_s).Value().textOr()); });
    attempt([&] { chkB1.at(0)->setChecked(isOn(u"显示标签"_s)); });
    attempt([&] { chkB1.at(1)->setChecked(isOn(u"全屏显示"_s)); });
}

void TitleGroup::cmdBtClick() {
    if (isEditing()) {
        store();
        return;
    }
    begun_ = values();
    txtXt->setLocked(false);
    cmdBt->setText(pending);
    frame_.work.begin();
}

TitleGroup::Values TitleGroup::values() const {
    return {txtXt->text(), chkB1.at(0)->isChecked(), chkB1.at(1)->isChecked()};
}

bool TitleGroup::mayLeave() {
    if (!isEditing() || values() == begun_) return true;
    return mayBeLeft(frame_.form, u"主标题及显示设置改过，还没有保存。"_s, [this] { return store(); });
}

/// False when the title was refused.
bool TitleGroup::store() {
    if (!titleFits(txtXt->text())) {
        titleChanged();
        return false;
    }
    Recordset settings = settingsRow();
    settings.Edit();
    settings.Fields(u"像册标题"_s).SetValue(txtXt->text());
    settings.Fields(u"显示标签"_s).SetValue(chkB1.at(0)->isChecked());
    settings.Fields(u"全屏显示"_s).SetValue(chkB1.at(1)->isChecked());
    settings.Update();
    txtXt->setLocked(true);
    cmdBt->setText(atRest);
    frame_.work.end();
    return true;
}

void TitleGroup::titleChanged() {
    const bool fits = titleFits(txtXt->text());
    cmdBt->setEnabled(fits);
    if (fits) return;
    say(frame_.form, titleTooLong, BoxIcon::information);
    txtXt->setFocus();
}

void TitleGroup::optionClicked(int index) {
    if (isEditing()) return;
    chkB1.at(index)->setChecked(!chkB1.at(index)->isChecked());
    say(frame_.form, startFirst, BoxIcon::information);
}
