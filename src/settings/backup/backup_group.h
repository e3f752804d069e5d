#pragma once

#include "settings/backup/keeping_buttons.h"
#include "settings/frame/settings_frame.h"

#include <QObject>
#include <memory>

class ElidedLabel;
class QPushButton;
class TextBox;

/// The group Frame3 图册备份设置: where the catalogue is copied to, and the start of a copy. A saved path leaves a
/// script for each direction; the program itself runs only the one that copies.
class BackupGroup : public QObject {
    Q_OBJECT

  public:
    explicit BackupGroup(const SettingsFrame& frame);

    /// Shows the stored path. A change that was begun stays open.
    void reset();

  Q_SIGNALS:
    void albumsChanged();  ///< Pictures came back, perhaps with their albums.

  private:
    void cmdBbClick();
    void cmdBkClick();
    void cmdBlClick();
    void startEditing();
    void store();
    void leaveEditing();
    void startBackup();
    void pathLeft();
    void showResult();
    bool mayReplaceRestoreScript(const QString& path);
    bool isEditing() const;
    bool canStart() const;

    SettingsFrame frame_;
    TextBox* txtBf;
    ElidedLabel* lblBf;  ///< How the last copy has ended, and what is known of the pictures.
    QPushButton* cmdBb;
    QPushButton* cmdBk;
    QPushButton* cmdBl;
    std::unique_ptr<KeepingButtons> keeping_;
};
