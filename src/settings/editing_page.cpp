#include "settings/editing_page.h"

#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "intake/settings_tab.h"
#include "platform/base/error.h"
#include "platform/desktop/data_control.h"
#include "platform/desktop/list_box.h"
#include "platform/desktop/tab_control.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// Fills a list with the selection buttons; those that an album offers carry braces.
void fillCodes(ListBox& list, const QString& source, const QString& album) {
    list.clear();
    for (Recordset buttons = mekTp::catalogue.OpenRecordset(source); !buttons.Eof(); buttons.MoveNext()) {
        const auto text = [&](const QString& column) { return buttons.Fields(column).Value().textOr(); };
        const bool offered = !album.isEmpty() && offersAlbum(text(u"图册"_s), album);
        list.AddItem(text(u"编号"_s) + (offered ? u" {"_s + text(u"名称"_s) + u'}' : u' ' + text(u"名称"_s)));
    }
}

}  // namespace

EditingPage::EditingPage(SharedControls& controls, FormState& state, HintLine& hints)
    : controls_(controls), state_(state), hints_(hints) {
    controls.datBj->setCaption(u"移动记录"_s);
    controls.sstFz->putOn(editingTab, controls.datBj, 5760, 3480, 3165, 375);
    controls.lstBh->setColumns(3);
    controls.sstFz->putOn(editingTab, controls.lstBh, 5760, 1300, 3165, 2040);
}

void EditingPage::enter() {
    hints_.show(u"操作提示：请在左侧选择要编辑的图片"_s);
    attempt([&] { fillCodes(*controls_.lstBh, u"tcan"_s, {}); });
}

void EditingPage::albumLost() {
    controls_.lstBh->setEnabled(false);
}

void EditingPage::albumChosen() {
    attempt([&] { fillCodes(*controls_.lstBh, u"SELECT * FROM tcan"_s, state_.albumTable); });
    controls_.lstBh->setEnabled(true);
}
