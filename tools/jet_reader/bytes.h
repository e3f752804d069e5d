#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

using Bytes = std::span<const unsigned char>;

/// A number from its little-endian bytes at `offset`, which the caller knows to be there.
template <typename Number>
Number numberAt(Bytes bytes, size_t offset) {
    Number number{};
    std::memcpy(&number, bytes.subspan(offset, sizeof number).data(), sizeof number);
    return number;
}
