#pragma once

#include "settings/frame/settings_frame.h"

#include <QObject>
#include <array>

class QCheckBox;
class QPushButton;
class TextBox;

/// The group Frame1: main title of the whole collection, and two options of the main window.
class TitleGroup : public QObject {
    Q_OBJECT

  public:
    TitleGroup(const SettingsFrame& frame);

    /// Back to rest with the stored values; what cannot be read stays as it is.
    void reset();

    /// Asks before changes are lost; false when they are to stay.
    bool mayLeave();

  private:
    void cmdBtClick();
    bool store();
    struct Values {
        QString title;
        bool labels, fullScreen;
        bool operator==(const Values&) const = default;
    };
    Values values() const;
    void titleChanged();
    void optionClicked(int index);
    bool isEditing() const;

    SettingsFrame frame_;
    Values begun_{};  ///< When the editing began.
    TextBox* txtXt;
    QPushButton* cmdBt;
    std::array<QCheckBox*, 2> chkB1{};
};
