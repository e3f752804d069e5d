#pragma once

#include "platform/picture/colour_transform.h"
#include "platform/picture/exif.h"
#include "platform/picture/formats/any_picture.h"

/// What a decoder has made of a file.
struct Decoded {
    PictureFormat format;
    QImage image;  ///< As stored; inks stand in the places of red, green, blue and alpha.
    ColourKind kind = ColourKind::lights;
    Orientation orientation = uprightOrientation;
    QSize pixelsOfColour{1, 1};
    QByteArray profile = {}, exif = {}, xmp = {};
};

/// The last steps, the same for all formats: white behind what is transparent, greys and inks by their profile,
/// upright, and what is beside the pixels made to agree with that. Throws `Error` with `name` when memory is short.
AnyPicture finished(Decoded decoded, const QString& name);
