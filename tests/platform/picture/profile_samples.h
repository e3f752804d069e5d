#pragma once

#include "platform/picture/colour_transform.h"

#include <QByteArray>
#include <QList>

/// ICC profiles as bytes, made by the library that reads them, and what that library itself says of colours.

QByteArray displayP3Profile(double version = 4.3);
QByteArray adobeRgbProfile();
/// Of monitors in general: not the same bytes as any other sRGB profile.
QByteArray screenProfile();
QByteArray greyProfile(double gamma);
/// Red, green and blue by a table instead of a matrix; the table exchanges them.
QByteArray tableProfile();
/// Cyan, magenta, yellow and black by a table. With `padding` bytes of text beside it.
QByteArray inkProfile(qsizetype padding = 0);

/// The pixels in sRGB, by the library's own transform without short cuts. They come as `ColourTransform` takes them.
QList<QRgb> byLibrary(const QByteArray& profile, ColourKind kind, QList<QRgb> pixels);

/// The JPEG with a profile in segments of so many bytes, the last one first when `backwards`.
QByteArray jpegWithSegments(const QByteArray& jpeg, const QByteArray& profile, qsizetype segmentBytes = 65519,
                            bool backwards = false);
