#pragma once

#include "catalogue/picture_in_hand.h"
#include "platform/database/records/recordset.h"

/// The storing of a picture file in a record. Files that end in "bmp", in small letters, go into the catalogue as JPEG.

/// What becomes of such a file itself.
enum class BmpFiles {
    toJpeg,  ///< The file on the disk becomes a JPEG, too; its name stays.
    keep     ///< It is turned into a JPEG in memory and stays as it is.
};

/// Whether taking this file in can turn it into a JPEG on the disk: it ends in "bmp" and can be written over. Does not
/// throw.
bool canBecomeJpeg(const QString& path);

/// The JPEG that is stored for a file that ends in "bmp"; none for any other file, or one that is a JPEG already.
/// With `toJpeg` the file on the disk becomes the same where it can be written over. Throws `Error` when the file is no
/// picture.
QByteArray jpegOfBmp(PictureInHand& file, BmpFiles bmp);

/// Stores a file in the column 图片 of the record under `Edit` or `AddNew`. Returns the length of what is stored; 0
/// when the file is empty and nothing was.
qint64 bctp(PictureInHand& file, Recordset& recordset, BmpFiles bmp);
