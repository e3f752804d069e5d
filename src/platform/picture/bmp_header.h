#pragma once

#include <QByteArrayView>
#include <QSize>
#include <optional>

/// What the first bytes of a BMP say about it.
struct BmpHeader {
    /// Bytes from which every header can be read; the oldest are shorter.
    static constexpr qsizetype needed = 38;

    quint32 length;      ///< Of the part behind the first 14 bytes; it differs by version.
    QSize pixels;        ///< The height is negative where the rows run downwards.
    int depth;           ///< Bits of a pixel.
    qint64 pixelOffset;  ///< Where the pixels begin.
    qint64 pixelBytes;   ///< How many bytes of pixels there are, those that fill up the last row left out.
};

/// Nothing when the bytes do not begin a BMP of a known version.
std::optional<BmpHeader> bmpHeader(QByteArrayView beginning);
