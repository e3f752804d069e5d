#pragma once

#include "intake/code_buttons.h"
#include "intake/form_state.h"
#include "intake/hint_line.h"
#include "intake/shared_controls.h"
#include "settings/settings_page.h"

/// The page 图片转存: the records of the album that pictures are to be taken from, with its code buttons.
class TransferPage : public SettingsPage {
  public:
    TransferPage(SharedControls& controls, FormState& state, HintLine& hints, CodeButtons& codeButtons);

    void enter() override;
    void albumChosen() override;

  private:
    SharedControls& controls_;
    FormState& state_;
    HintLine& hints_;
    CodeButtons& codeButtons_;
};
