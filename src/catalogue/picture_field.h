#pragma once

#include "platform/database/records/recordset.h"
#include "platform/picture/picture.h"

#include <optional>

/// The picture of a long-binary column of the current record, decoded for a target of that many device pixels. Throws
/// the `Error` that calls it by `name` and says why it is none.
Picture loadPictureField(Recordset& recordset, const QString& fieldName, const QString& name, QSize target,
                         Colours colours = Colours::ofScreen);

/// The same, or nothing for a Null or empty field and for bytes that are no picture: a caller then leaves its target as
/// it was.
std::optional<Picture> pictureFromField(Recordset& recordset, const QString& fieldName, QSize target = {},
                                        Colours colours = Colours::ofScreen);

/// Puts the picture of a column on an image control, decoded for the control's own size or for `target`. The control
/// keeps what it shows when there is no picture to read. Returns whether there was one.
template <typename Image>
bool readPictureField(Recordset& recordset, const QString& fieldName, Image& image, QSize target = {}) {
    const auto picture = pictureFromField(recordset, fieldName, target.isEmpty() ? image.targetSize() : target);
    if (picture) image.setPicture(*picture);
    return picture.has_value();
}

/// Target for a picture of which only the size is wanted: it may be decoded as small as the decoder can.
inline constexpr QSize sizeOnly{1, 1};

/// Chunk size of all picture writing.
inline constexpr int pictureChunk = 16384;

/// Length of the value that holds a picture of `length` bytes: behind them come zeros, one and one more for each whole
/// chunk. All catalogues hold their pictures like that, and decoders never see the zeros.
qint64 storedLength(qint64 length);

/// Stores the bytes of a picture in a long-binary column of the record under `Edit` or `AddNew`. Returns their number;
/// 0, and nothing is stored, where there are none.
qint64 storePictureBytes(Field field, const QByteArray& bytes);
