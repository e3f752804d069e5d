#pragma once

#include "intake/browser_panel.h"
#include "intake/code_buttons.h"
#include "intake/form_state.h"
#include "intake/hint_line.h"
#include "intake/preview_panel.h"
#include "intake/shared_controls.h"

#include <QObject>

/// The page 图片录入: album, source, way of adding, files, and the intake run.
class IntakePage : public QObject {
    Q_OBJECT

  public:
    /// Puts the page's controls on tab 1 of the frame.
    IntakePage(SharedControls& controls, FormState& state, HintLine& hints, BrowserPanel& browser,
               CodeButtons& codeButtons, PreviewPanel& preview);

    /// What the page switch does for this page beyond the shared controls.
    void enter();
    /// What choosing an album does on this page.
    void albumChosen();
    /// Intake follows the current record while the preview is open on this page.
    void recordChanged();
};
