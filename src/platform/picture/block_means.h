#pragma once

#include "platform/picture/jpeg_source.h"

#include <QImage>

/// Fills an RGB32 image with a JPEG picture at an eighth of its size: each pixel is the mean of a block of the coded
/// picture, which stands in front of the block, so that the rest is passed over. This takes about half the time of the
/// library, which decodes the rest as well.
/// Of a progressive picture it reads the first scan.
/// The library has read the header, and the source stands behind it. False when the picture is of another kind than
/// cameras write, or in any way damaged: what the image and the source hold then is of no use.
bool readBlockMeans(const jpeg_decompress_struct& codec, JpegSource& source, QImage& image);
