#pragma once

#include "catalogue/backup_file.h"
#include "catalogue/runs/backup_return.h"
#include "settings/frame/settings_frame.h"

#include <QObject>

class QGroupBox;
class QPushButton;

/// The buttons of the group 图册备份设置 that prove the pictures and bring back what is in backups.
class KeepingButtons : public QObject {
    Q_OBJECT

  public:
    KeepingButtons(const SettingsFrame& frame, QGroupBox* Frame3);

  Q_SIGNALS:
    void stateChanged();   ///< What is known of pictures or backups.
    void albumsChanged();  ///< Pictures came back, perhaps with their albums.

  private:
    void cmdJyClick();
    void proved(const RunReport& report);
    void cmdHyClick();
    void restore(const BackupFile& backup);
    void takePictures(const BackupFile& backup);
    void takeBackFrom(const QString& backup, const QList<Return>& returns);

    SettingsFrame frame_;
    QPushButton* cmdJy;  ///< Proves all pictures.
    QPushButton* cmdHy;  ///< Opens the window of the backups.
};

/// What a proof has found, for its closing box.
QString proofOutcome(const RunReport& report);
/// What a restore has left; `kept` is the file that was restored over.
QString restoredText(const QString& kept);
