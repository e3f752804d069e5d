#pragma once

#include "platform/picture/jpeg_source.h"

#include <QImage>

/// Fills an RGB32 image with a JPEG picture at an eighth of its size: each pixel is the mean of a coded block. The mean
/// comes first in a block, so the rest is skipped. That takes about half the time of the library, which decodes the
/// rest too. Of a progressive picture only the first scan is read. The library has to have read the header, and the
/// source has to be right behind it. Returns false when the picture is damaged or not of the kind that cameras write:
/// then image and source are of no use.
bool readBlockMeans(const jpeg_decompress_struct& codec, JpegSource& source, QImage& image);
