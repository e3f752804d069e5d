#pragma once

#include "bytes.h"

#include <vector>

/// Forms store pictures inside a wrapper (it begins 15 1C) that names the program which made them. Returns the BMP or
/// JPEG file inside it, or the value as it is: when it has no wrapper, or when there is no such picture.
Bytes pictureWithoutWrapper(Bytes value);

/// The same, and a bare bitmap inside the wrapper, or inside a metafile there, becomes a BMP file.
std::vector<unsigned char> pictureOf(std::vector<unsigned char> value);
