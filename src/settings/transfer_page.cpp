#include "settings/transfer_page.h"

#include "catalogue/mektp.h"
#include "platform/base/error.h"

TransferPage::TransferPage(SharedControls& controls, FormState& state, HintLine& hints, CodeButtons& codeButtons)
    : controls_(controls), state_(state), hints_(hints), codeButtons_(codeButtons) {}

void TransferPage::enter() {
    hints_.czts(2);
}

void TransferPage::albumChosen() {
    state_.targetTable.clear();
    state_.sourceDatabasePath = mekTp::cataloguePath();
    state_.sourceTable = state_.albumTable;
    codeButtons_.moveTo(7830, 1230, 4);
    attempt([&] { codeButtons_.bhan(); });
    codeButtons_.moveText(7770, 3470, 1185);
    state_.intakeStep = 0;
}
