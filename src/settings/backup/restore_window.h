#pragma once

#include "catalogue/backup_file.h"

#include <QDialog>
#include <QHash>

class QComboBox;
class QLabel;
class QPushButton;
class QTableWidget;

/// The window frmHy: the backups at the chosen place, and the catalogues that were restored over, beside the program.
/// One of them can be restored as a whole or in part, and old ones removed. What is restored is left to its owner; the
/// window is closed then.
class RestoreWindow : public QDialog {
    Q_OBJECT

  public:
    /// `newest` is the chosen place of backups, empty when there is none.
    RestoreWindow(QWidget* parent, const QString& newest);

  Q_SIGNALS:
    void restoreAsked(const BackupFile& backup);
    void picturesAsked(const BackupFile& backup);

  private:
    void makeControls();
    QWidget* makeReminder();
    void list();
    void listUnread(const QString& real);
    void addLine(const BackupFile& file, const QString& kind);
    void showChoice();
    const BackupFile* chosen() const;
    bool isRemovable() const;
    void removeChosen();
    void leaveTo(void (RestoreWindow::*way)(const BackupFile&));

    QString newest_;
    QList<BackupFile> files_;
    QHash<QString, QString> unread_;  ///< Those of which only date and size are known, by path: and why.
    QLabel* lblHy;                    ///< What there is.
    QTableWidget* lstHy;              ///< A line for each file.
    QPushButton* cmdQf;               ///< Restores the whole file.
    QPushButton* cmdQh;               ///< Takes albums and pictures out of it.
    QPushButton* cmdSc;               ///< Removes it.
    QPushButton* cmdGb;               ///< Closes the window.
    QComboBox* cboTx;                 ///< After how many days without a backup the program says so.
};
