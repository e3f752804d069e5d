#pragma once

#include "settings/frame/settings_frame.h"

#include <QObject>

class QComboBox;
class QPushButton;
class TextBox;
struct Album;

/// The group fra3 分图册设置: shows an album's row of the directory, changes its remark, and deletes the album.
class AlbumGroup : public QObject {
    Q_OBJECT

  public:
    AlbumGroup(const SettingsFrame& frame);

    /// Back to rest, with the chooser filled anew and no album chosen. Throws `Error` when the directory cannot be
    /// read.
    void reset();

    void addLine(const QString& albumLine);
    /// Asks before a changed remark is lost; false when it is to stay.
    bool mayLeave();
    /// The album no longer exists.
    void addMissing();  ///< Lines of albums that have come back.
    void removeLine(const QString& table);

  private:
    void cboFcClick();
    void cmdFcClick();
    void cmdFsClick();
    void startEditing();
    bool storeEdited();
    void cancelEditing();
    void deleteShown();
    void leaveEditing();
    void endEditing();
    void enableButtons();
    void showRowOf(const QString& table);
    bool isEditing() const;
    QString chosenTable() const;
    void show(const Album& album);
    void showNone();

    SettingsFrame frame_;
    QComboBox* cboFc;
    TextBox* txtXc;
    TextBox* txtBc;
    TextBox* txtTc;
    TextBox* txt1c;
    QPushButton* cmdFc;
    QPushButton* cmdFs;
    QString remark_;  ///< As it is stored with the album that is shown.
};
