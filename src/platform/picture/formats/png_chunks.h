#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QSize>
#include <optional>

/// What a PNG says in front of its pixels.
struct PngChunks {
    QSize pixels;
    int bitsPerPixel = 0;  ///< In the file.
    bool isGrey = false;
    QByteArray profile;  ///< ICC; empty where there is none, or a damaged one.
    QByteArray exif;     ///< As a TIFF file begins.
    QByteArray xmp;
};

/// Reads them; the device stands where it stood afterwards. Nothing when the beginning is that of no PNG,
/// or no pixels follow: a chunk in front of them may claim to be longer than the file.
std::optional<PngChunks> pngChunks(QIODevice& device);
