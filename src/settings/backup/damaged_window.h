#pragma once

#include "catalogue/picture_proof.h"

#include <QDialog>

class QLabel;
class QPushButton;
class QTableWidget;

/// The window frmJy: the pictures of the catalogue that are known to be damaged, each with a small picture of what is
/// left, where it is, and whether a backup has it whole. Closes itself when there are none left.
class DamagedWindow : public QDialog {
    Q_OBJECT

  public:
    explicit DamagedWindow(QWidget* parent);

  Q_SIGNALS:
    void changed();  ///< Pictures were brought back, or accepted.

  private:
    void makeControls();
    void list();
    void addLine(qint64 picture, Fault fault);
    void healAll();
    void acceptChosen();
    void closeIfEmpty(const QString& text);

    QMap<qint64, Fault> damaged_;
    QMap<qint64, Remedies> remedies_;
    QLabel* lblJy;        ///< How many there are, and how many of them can be brought back.
    QTableWidget* lstJy;  ///< One line for each.
    QPushButton* cmdXf;   ///< Brings back all that a backup has.
    QPushButton* cmdJs;   ///< Takes those in the marked lines as they are.
    QPushButton* cmdGb;   ///< Closes the window.
};

/// Shows it, for a window or above all; when there are no damaged pictures, or it is open already, nothing happens.
/// Returns the new window, or null.
DamagedWindow* showDamagedPictures(QWidget* parent);
