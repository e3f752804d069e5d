#pragma once

#include "intake/form_state.h"
#include "intake/shared_controls.h"

#include <QCheckBox>
#include <QObject>
#include <array>

class QPushButton;
class TextBox;

/// A check box that tells when the keyboard brings the focus to it.
class OptionCheck : public QCheckBox {
    Q_OBJECT

  public:
    using QCheckBox::QCheckBox;

  Q_SIGNALS:
    void reachedByKeyboard();

  protected:
    void focusInEvent(QFocusEvent* event) override;
};

/// The group Frame1: main title of the whole collection, and two options of the main window.
class TitleGroup : public QObject {
    Q_OBJECT

  public:
    TitleGroup(SharedControls& controls, FormState& state);

    /// Back to rest with the stored values; what cannot be read stays as it is.
    void reset();

  private:
    void cmdBtClick();
    void store();
    void titleChanged();
    void optionClicked(int index);
    bool isEditing() const;

    SharedControls& controls_;
    FormState& state_;
    TextBox* txtXt;
    QPushButton* cmdBt;
    std::array<OptionCheck*, 2> chkB1{};
};
