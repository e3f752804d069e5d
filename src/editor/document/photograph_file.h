#pragma once

#include "platform/picture/exif.h"

#include <QImage>
#include <optional>

/// A JPEG that takes the place of a photograph or is made of it.
struct PhotographFile {
    QByteArray bytes;
    QSize pixels;
    bool isLossless = false;   ///< The photograph's own blocks, turned.
    bool hasLostTags = false;  ///< What the camera had written could not be read, or there was no room for it.
};

/// The picture, with the profile that its colours need, as a JPEG with all that was written about its photograph.
/// `photograph`: the bytes of that, empty where it is gone. With a `turn`, which is all that was done to it, its own
/// blocks are turned where they can be. Throws `Error` when there is no picture.
PhotographFile photographFile(const QImage& picture, const QByteArray& profile, const QByteArray& photograph,
                              std::optional<Orientation> turn);
