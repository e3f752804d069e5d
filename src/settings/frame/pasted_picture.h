#pragma once

#include "windows/picture_offer.h"

#include <QTemporaryDir>

/// Pictures that came without a file get one, in a folder that goes with this object.
class PastedPictures {
  public:
    /// Asks for a name and returns the path of the file; empty when the person cancels. `form` is the parent of the
    /// boxes. Throws `Error` when the file cannot be written.
    QString keep(const PictureOffer& offer, QWidget* form);

  private:
    QTemporaryDir folder_;
};
