#pragma once

#include "settings/frame/preview.h"
#include "settings/frame/settings_frame.h"
#include "settings/setup/album_picker.h"
#include "settings/setup/button_records.h"
#include "settings/setup/button_row.h"

#include <QObject>
#include <array>
#include <memory>
#include <optional>

class QGroupBox;
class QPushButton;
class QRadioButton;
class TextBox;

/// The group fraAs 图片选择按钮设置: the selection buttons in the grid, and the one in hand, which can be changed or
/// deleted; new ones are added. Writes the table tcan.
class ButtonGroup : public QObject {
    Q_OBJECT

  public:
    ButtonGroup(const SettingsFrame& frame, Preview& preview);

    QGroupBox* frame() const { return fraAs; }

    /// Back to rest: all buttons by code, none chosen. Throws `Error` when they cannot be read.
    void reset();

    /// Asks before changes of the button in hand are lost, for another row of the grid or with the window; false when
    /// they are to stay.
    bool mayGoTo(int row);
    bool mayLeave();

    /// Takes the button at the grid's current record in hand. What was begun with another one is given up.
    void anjl();

  private:
    void makeControls();
    QPushButton* makeOpener();
    void connectControls();

    void optApClick(int index);
    void cmdQuClick();
    void cmdBjClick();
    void cmdSnClick();
    void startAdding();
    void startChanging();
    void openForWork();
    bool anbc();
    bool codeIsMeant();
    void cancel();
    void deleteChosen();
    void listCodes();
    void codeChanged();
    void offerAlbums();

    bool refuseLong(const QString& caption, TextBox* box);
    bool isChanged() const;
    void showCurrent();
    void showNone();
    void rest();
    void findChosen();
    void clearPicture();
    ButtonTexts texts() const;
    /// A number that may be stored, and who gets the old one for it.
    struct Number {
        int number;
        std::optional<ButtonTexts> partner;
    };
    std::optional<Number> numberToStore();
    QString pictureToStore() const;

    SettingsFrame frame_;
    Preview& preview_;
    QGroupBox* fraAs;
    std::array<QRadioButton*, 2> optAp{};
    TextBox* txtX1;
    TextBox* txtB1;
    TextBox* txtM1;
    TextBox* txtC1;
    QPushButton* cmdQu;
    QPushButton* cmdBj;
    QPushButton* cmdSn;
    std::array<TextBox*, 4> boxes_{};
    std::unique_ptr<AlbumPicker> albums_;
    std::unique_ptr<ButtonRow> row_;

    ButtonRecords buttonSet;
    ButtonTexts begun_;   ///< What the boxes held when the work in hand began.
    QString chosen_;      ///< 序号 of the button in hand, or of the one before a new one was begun; empty for none.
    QString chosenCode_;  ///< Its 编号.
    QString agreedPicture_;  ///< File that was confirmed as the picture, while the texts were not complete yet.
};
