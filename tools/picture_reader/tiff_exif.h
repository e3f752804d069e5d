#pragma once

#include "picture_reader/reading.h"

#include <vector>

/// The camera's data of a TIFF file as a block for other formats: maker, model, texts, dates, and the directories of
/// the exposure and the place. What belongs to the pixels is left out, and so are the maker's own notes, which hold
/// places of the file. Empty where there is nothing, and for files with places of 64 bits.
std::vector<unsigned char> exifOfTiff(Bytes file);
