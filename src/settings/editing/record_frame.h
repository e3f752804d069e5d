#pragma once

#include "settings/editing/record_changes.h"
#include "settings/frame/preview.h"
#include "settings/frame/settings_frame.h"

#include <QObject>
#include <array>

class QCheckBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;
class TextBox;

/// The frame Frame9 of the page 图册编辑: shows the current record of the grid, changes it and deletes it, one record
/// or one after the other. The captions of cmdQd and cmdSc are its state.
class RecordFrame : public QObject {
    Q_OBJECT

  public:
    RecordFrame(const SettingsFrame& frame, Preview& preview);

    void albumChosen();
    void albumLost();
    void rowSelected();
    /// Shows the current record.
    void fill();
    /// Gives up what is pending; the fields are locked.
    void rest();

    bool isEditing() const;
    bool isChanged() const;  ///< The record is being edited, and differs from what is stored.
    /// Asks what becomes of a changed record before it is left. False: it goes on being edited.
    bool mayLeave();
    void appendCode(const QString& code);
    /// Chooses one of optBs; -1 for none of them.
    void showFilter(int option);
    void showFilterAgain() { showFilter(filter_); }  ///< The one in force, after another one was clicked.

  Q_SIGNALS:
    void filterChosen(int option);
    void codesRegistered();  ///< Buttons offer the album that did not before.
    void recordDeleted();

  private:
    void makeFields();
    void makeOptions();
    void makeButtons();
    QString pictureCaption() const;

    void clear();
    void showTexts(const RecordTexts& texts);
    RecordTexts texts() const;
    void setLocked(bool on);
    void allowChanges();
    bool isContinuous() const;
    bool hasRecord() const;

    void cmdQdClick();
    void cmdScClick();
    void startEditing();
    void limitTyping();
    void goOn();
    bool bjbc();
    void stopOrStay();
    QStringList faults();
    void tellNotStored();
    void deleteRecord();
    void goToNeighbour(qint64 deletedNumber, int row);

    void numberLeft();
    bool numberIsFree();
    void keepTyped();
    void restoreTyped();

    SettingsFrame frame_;
    Preview& preview_;
    RecordTexts shown_;  ///< As the record held them when it was shown.
    RecordTexts typed_;  ///< As they were typed, while a picture is stored in the record.
    RecordTexts before_;
    bool numberToCheck_ = false;
    int filter_ = -1;
    QString notStored_;  ///< Why the last attempt at storing failed; empty when it did not, or was called off.

    QGroupBox* Frame9;
    TextBox* txtXh = nullptr;
    TextBox* txtBh = nullptr;
    TextBox* txtRq = nullptr;
    TextBox* txtB2 = nullptr;
    QLabel* lblGg = nullptr;
    QLabel* lblDx = nullptr;
    QCheckBox* chkLi = nullptr;
    std::array<QRadioButton*, 3> optBs{};
    QPushButton* cmdQd = nullptr;
    QPushButton* cmdSc = nullptr;
};
