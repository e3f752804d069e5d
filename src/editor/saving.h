#pragma once

#include "editor/album_chooser.h"
#include "editor/button_picture.h"
#include "editor/operation_dialog.h"

#include <optional>

/// How a picture leaves the editor: over its source, or into another file.
class Saving : public Chapter {
    Q_OBJECT

  public:
    Saving(const Workplace& at, OperationDialog& dialog, AlbumChooser& chooser, const ButtonPicture& button);

    /// Whether the open picture may go: asks about changes that are not saved, and saves them if that is the answer.
    bool mayGo();

  private:
    void mnuBcClick();
    void mnuLcClick();
    std::optional<QImage> askWhatToSave();
    std::optional<QString> askWhereTo();
    /// Writes a picture over the source; the result tells where it is now.
    QString store(const QImage& picture);
    QString storeInAlbum(const QImage& picture);
    void finish();

    OperationDialog& dialog_;
    AlbumChooser& chooser_;
    const ButtonPicture& button_;
};
