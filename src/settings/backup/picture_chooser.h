#pragma once

#include "catalogue/runs/backup_return.h"

#include <QDialog>

class QLabel;
class QListView;
class QListWidget;
class QPushButton;

/// The window frmQh: the albums of a backup and the pictures of the one in hand, small. Whole albums are chosen, or
/// single pictures of one.
class PictureChooser : public QDialog {
    Q_OBJECT

  public:
    /// Throws `Error` when the file cannot be opened.
    PictureChooser(QWidget* parent, const QString& backup);
    ~PictureChooser() override;

  Q_SIGNALS:
    void chosen(const QList<Return>& returns);  ///< The window is closed.

  private:
    class Pictures;

    void makeControls();
    void listAlbums();
    void albumsMarked();
    void showCount();
    QStringList markedAlbums() const;
    QList<Return> choice() const;
    void takeBackChosen();

    Database backup_;
    Pictures* pictures_;
    QListWidget* lstTc;  ///< The albums.
    QListView* lstTp;    ///< The pictures of the album in hand.
    QLabel* lblQh;       ///< What is marked.
    QPushButton* cmdQh;  ///< Takes it back.
    QPushButton* cmdGb;  ///< Closes the window.
};
