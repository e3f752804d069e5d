#pragma once

#include "editor/album_chooser.h"

/// Opens a picture from a file.
class Opening : public Chapter {
    Q_OBJECT

  public:
    /// `mayGo` is asked before the picture that is open makes way.
    Opening(const Workplace& at, AlbumChooser& chooser, std::function<bool()> mayGo);

  private:
    void mnuCwClick();
    void open(const QString& path);

    AlbumChooser& chooser_;
    std::function<bool()> mayGo_;
};
