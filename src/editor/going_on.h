#pragma once

#include "editor/album_chooser.h"

/// Offers to go on with a picture whose steps a crash or a power cut has left in the catalogue. It is asked once, when
/// the editor has been opened.
class GoingOn : public Chapter {
    Q_OBJECT

  public:
    GoingOn(const Workplace& at, AlbumChooser& chooser);

    /// Asks where there is something to go on with. Who does not want it loses the steps.
    void offer();

  private:
    void goOn(const PictureSource& source);

    AlbumChooser& chooser_;
};
