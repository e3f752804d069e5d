#pragma once

#include "intake/form_state.h"
#include "intake/hint_line.h"
#include "intake/shared_controls.h"
#include "settings/settings_page.h"

/// The page 图册编辑: the records of an album, with the list of selection codes.
class EditingPage : public SettingsPage {
  public:
    EditingPage(SharedControls& controls, FormState& state, HintLine& hints);

    void enter() override;
    void albumChosen() override;
    void albumLost() override;

  private:
    SharedControls& controls_;
    FormState& state_;
    HintLine& hints_;
};
