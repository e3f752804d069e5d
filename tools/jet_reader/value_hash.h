#pragma once

#include "bytes.h"

#include <vector>

/// What stands for a long value where only its hash is wanted: its length without the zeros at its end in 8 bytes, the
/// lowest first, and the SHA-256 of that part.
std::vector<unsigned char> hashOfValue(Bytes value);
