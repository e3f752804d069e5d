#pragma once

#include <QByteArray>
#include <QImage>

/// Pictures of all formats as bytes, made by the encoders of the same libraries.

/// What goes into a file beside its pixels.
struct Beside {
    QByteArray profile = {};
    QByteArray exif = {};  ///< As a TIFF file begins.
    QByteArray xmp = {};
};

QByteArray pngBytes(const QImage& image, const Beside& beside = {});

/// A GIF of 2 x 1 pixels: red, and a transparent one.
QByteArray gifBytes();

QByteArray webpBytes(const QImage& image, bool lossless, const Beside& beside = {});
/// An animation: the image, then the other one.
QByteArray webpBytes(const QImage& image, const QImage& next);

struct TiffOptions {
    enum class Kind { lights, deepLights, lightsWithAlpha, greys, inks, lab };
    Kind kind = Kind::lights;
    int orientation = 1;
    bool isSmallPicture = false;  ///< It says of itself that it is one of a larger picture.
    QByteArray profile = {};
    QByteArray model = {};  ///< Of the camera; with it comes the moment of the exposure, 2003:10:01 12:30:00.
};
/// Inks are 255 less than the lights, without black. A second page is white.
QByteArray tiffBytes(const QImage& image, const TiffOptions& options = {});

struct HeifOptions {
    bool av1 = false;
    bool sharesColours = true;  ///< Four pixels share one.
    int turn = 1;               ///< As EXIF counts it.
    unsigned primaries = 0;     ///< Instead of a profile.
};
QByteArray heifBytes(const QImage& image, const HeifOptions& options = {}, const Beside& beside = {});

/// An EXIF block with an orientation, the sides of the picture (1 x 1), and a text that tells it from others.
QByteArray exifBlock(int orientation, const QByteArray& model = "camera");
