#pragma once

#include "catalogue/picture_in_hand.h"
#include "platform/database/records/recordset.h"
#include "platform/picture/picture_facts.h"

/// The storing of a picture file in a record. Files that end in "bmp", in small letters, go into the catalogue as JPEG.

/// What becomes of such a file itself.
enum class BmpFiles {
    toJpeg,  ///< The file on the disk becomes a JPEG, too; its name stays.
    keep     ///< It is turned into a JPEG in memory and stays as it is.
};

/// Whether taking this file in can turn it into a JPEG on the disk: it ends in "bmp", is of no other format, and can be
/// written over. Does not throw.
bool canBecomeJpeg(const QString& path);

/// The JPEG that is stored for a file that ends in "bmp"; none for any other file, or one that is a JPEG already.
/// Throws `Error` when the file is no picture.
QByteArray jpegOfBmp(PictureInHand& file);

/// Whether the bytes from here on are a picture that is neither JPEG nor BMP; the device stays where it stands.
bool isOfOtherFormat(QIODevice& bytes);

/// Stores a file in the column 图片 of the record under `Edit` or `AddNew`. Returns the length of what is stored; 0
/// when the file is empty and nothing was. With `toJpeg` a BMP file becomes a JPEG where it can be written over.
qint64 bctp(PictureInHand& file, Recordset& recordset, BmpFiles bmp);

/// A picture file that was read and looked at: nothing but the storing is left to do.
struct ReadyPicture {
    PictureInHand file;
    QSize pixels = {};         ///< Of the upright picture; empty when the file is.
    bool isTruncated = false;  ///< Its end is missing.
    QByteArray jpeg = {};      ///< Of a BMP, or another format: what is stored for it.
    bool isOfBmp = false;      ///< The JPEG may take the place of the file.
    PictureFacts facts = {};   ///< Where they are wanted.
    Fingerprint print = {};    ///< Of what is stored.

    qint64 bytesHeld() const { return file.bytesHeld() + jpeg.size(); }
    /// Of what is stored where the file is of another format; of the file otherwise.
    qint64 length() const { return jpeg.isEmpty() || isOfBmp ? file.length() : jpeg.size(); }
};

struct PictureWish {
    bool otherFormats = false;  ///< Those besides JPEG and BMP are read, too, and become JPEG.
    bool facts = false;
};

/// Reads a file. Throws `Error` when it cannot be read, or is neither empty nor a picture.
ReadyPicture readyPicture(const QString& path, PictureWish wish = {});

/// Stores it as the `bctp` of a file does; the file itself stays as it is.
qint64 bctp(ReadyPicture& picture, Recordset& recordset);
/// Writes the JPEG that was stored for a BMP file over that file, where that can be written and is still the one that
/// the JPEG was made of. Does not throw.
void turnIntoJpeg(const ReadyPicture& picture);
