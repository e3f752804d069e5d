#pragma once

#include "intake/form_state.h"
#include "intake/preview_panel.h"
#include "intake/shared_controls.h"

#include <QObject>
#include <array>

class QGroupBox;
class QRadioButton;
class TextBox;

/// The group fraAs 图片选择按钮设置: the selection buttons in the grid, and the row that was clicked.
class ButtonGroup : public QObject {
    Q_OBJECT

  public:
    ButtonGroup(SharedControls& controls, FormState& state, PreviewPanel& preview);

    QGroupBox* frame() const { return fraAs; }

    /// Back to rest: all buttons by code, none chosen. Throws `Error` when they cannot be read.
    void reset();

    /// Shows the button at datBj's current record.
    void anjl();

  private:
    void optApClick(int index);

    SharedControls& controls_;
    FormState& state_;
    PreviewPanel& preview_;
    QGroupBox* fraAs;
    std::array<QRadioButton*, 2> optAp{};
    TextBox* txtX1;
    TextBox* txtB1;
    TextBox* txtM1;
    TextBox* txtC1;
    QPushButton* cmdCk4;
};
