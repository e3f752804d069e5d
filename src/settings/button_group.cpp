#include "settings/button_group.h"

#include "intake/settings_tab.h"
#include "platform/base/error.h"
#include "platform/desktop/data_control.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/tab_control.h"
#include "platform/desktop/text_box.h"
#include "settings/form_parts.h"

#include <QPushButton>
#include <QRadioButton>

using namespace Qt::Literals::StringLiterals;

ButtonGroup::ButtonGroup(SharedControls& controls, FormState& state, PreviewPanel& preview)
    : controls_(controls), state_(state), preview_(preview) {
    fraAs = makeGroup(controls.sstFz, setupTab, u"fraAs"_s, u"图片选择按钮设置"_s, {180, 780, 4770, 5880});
    makeCaption(fraAs, u"可在上表中用鼠标单击选择要修改的按钮"_s, 200, 3820, 4330);

    const std::array captions{u"按序号排序"_s, u"按编号排序"_s};
    for (int i = 0; i < 2; ++i) {
        auto& option = optAp.at(i);
        option = make<QRadioButton>(fraAs, element(u"optAp"_s, i), captions.at(i));
        place(option, 200 + 1900 * i, 4140, 1800, rowHeight);
        connect(option, &QRadioButton::clicked, this, guarded(controls.form, [this, i] { optApClick(i); }));
    }

    txtX1 = makeLabelled<TextBox>(fraAs, u"txtX1"_s, u"序号："_s, {200, 4560}, 600, 600);
    txtB1 = makeLabelled<TextBox>(fraAs, u"txtB1"_s, u"编号："_s, {1550, 4560}, 600, 450);
    txtM1 = makeLabelled<TextBox>(fraAs, u"txtM1"_s, u"名称："_s, {2750, 4560}, 600, 1180);
    txtC1 = makeLabelled<TextBox>(fraAs, u"txtC1"_s, u"相关图册："_s, {200, 4560 + rowPitch}, 900, 3430);
    for (TextBox* box : {txtX1, txtB1, txtM1, txtC1}) box->setLocked(true);

    cmdCk4 = preview.makeOpener(4, fraAs);
    cmdCk4->setText(u"图 片"_s);
    place(cmdCk4, 3530, 5430, 1000, rowHeight);
}

void ButtonGroup::reset() {
    for (TextBox* box : {txtX1, txtB1, txtM1, txtC1}) box->clear();
    cmdCk4->setEnabled(false);
    optAp.at(1)->setChecked(true);
    controls_.datBj->setRecordSource(u"SELECT * FROM tcan ORDER BY [编号]"_s);
    controls_.datBj->Refresh();
}

void ButtonGroup::optApClick(int index) {
    DataControl* datBj = controls_.datBj;
    datBj->setRecordSource(u"SELECT * FROM tcan ORDER BY "_s + (index == 1 ? u"[编号]"_s : u"[序号]"_s));
    datBj->Refresh();
    // The boxes and the picture go on speaking of the same button.
    if (!txtX1->text().isEmpty()) attempt([&] { datBj->findFirst(u"序号 = "_s + txtX1->text()); });
}

void ButtonGroup::anjl() {
    Recordset& button = controls_.datBj->Recordset();
    const auto fill = [&](TextBox* box, const QString& column) {
        attempt([&] { box->setText(button.Fields(column).Value().textOr()); });
    };
    fill(txtX1, u"序号"_s);
    fill(txtB1, u"编号"_s);
    fill(txtM1, u"名称"_s);
    fill(txtC1, u"图册"_s);
    state_.previewMark = u"s"_s;
    if (preview_.isOpen())
        attempt([&] { preview_.chkCkClick(); });
    else
        cmdCk4->setEnabled(true);
}
