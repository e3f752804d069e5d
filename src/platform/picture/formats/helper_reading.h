#pragma once

#include "platform/picture/formats/any_picture.h"

/// Lets the program of a format read a picture from the device's bytes. Throws `Error` with `name` when that fails: the
/// picture is damaged, the program has died or takes too long, or a library is not installed.
AnyPicture readInHelper(PictureFormat format, QIODevice& device, const QString& name);

/// The programs that read pictures, and for how long they may work.
struct PictureReaders {
    QString folder = {};  ///< Beside the executable when it is empty.
    int patienceMs = 120000;
};

/// Takes others: tests let them die, be silent or be missing. Without an argument it goes back.
void setPictureReaders(const PictureReaders& readers = {});
