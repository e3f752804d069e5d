#pragma once

#include "editor/album_chooser.h"
#include "editor/button_picture.h"
#include "editor/operation_runner.h"

/// The command that takes back: closes a dialog that is open, else goes a step back.
class TakingBack : public Chapter {
    Q_OBJECT

  public:
    TakingBack(const Workplace& at, OperationDialog& dialog, OperationRunner& runner, const AlbumChooser& chooser,
               ButtonPicture& button);

  private:
    void mnuCxClick();
    void goBack();

    OperationDialog& dialog_;
    OperationRunner& runner_;
    const AlbumChooser& chooser_;
    ButtonPicture& button_;
};
