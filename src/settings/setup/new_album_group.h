#pragma once

#include "catalogue/album_directory.h"
#include "settings/frame/settings_frame.h"

#include <QObject>
#include <utility>

class QLabel;
class QPushButton;
class TextBox;

/// The group Frame2 建立新图册: proposes an album, creates it, and takes the album just created back.
class NewAlbumGroup : public QObject {
    Q_OBJECT

  public:
    NewAlbumGroup(const SettingsFrame& frame);

    /// Back to rest with empty boxes; an album created before can no longer be taken back.
    void reset();

    /// Asks before a changed proposal is lost; false when it is to stay.
    bool mayLeave();

  Q_SIGNALS:
    void created(const QString& albumLine);
    void undone(const QString& table);

  private:
    void cmdJlClick();
    void cmdSxClick();
    void propose();
    bool create();
    Album typed() const;
    /// What is wrong with it, and the box to mend it in; no sentence when nothing is.
    std::pair<QString, TextBox*> faultOf(const Album& album) const;
    void dropProposal();
    void undoCreation();
    bool hasProposal() const;
    void emptyBoxes();
    void nameLeft();
    bool nameIsFree();

    SettingsFrame frame_;
    QLabel* lblXh;
    TextBox* txtBa;
    TextBox* txtBb;
    TextBox* txtBz;
    QPushButton* cmdJl;
    QPushButton* cmdSx;
    Album proposed_;
    QString createdTable_;      ///< Table of the album in hand after a creation, else empty.
    bool nameToCheck_ = false;  ///< txtBa was left and its name has not been checked yet.
};
