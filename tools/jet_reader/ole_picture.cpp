#include "ole_picture.h"

#include <algorithm>
#include <array>

namespace {

/// Length of the BMP file that begins here, 0 for none.
size_t bitmapLength(Bytes bytes) {
    constexpr size_t fileHeader = 14;
    if (bytes.size() < fileHeader + 16 || bytes[0] != 'B' || bytes[1] != 'M') return 0;
    const size_t length = numberAt<uint32_t>(bytes, 2);
    const size_t pixels = numberAt<uint32_t>(bytes, 10);
    const size_t header = numberAt<uint32_t>(bytes, fileHeader);
    constexpr std::array<size_t, 6> headers{12, 40, 52, 56, 108, 124};
    if (std::ranges::find(headers, header) == headers.end() || pixels < fileHeader + header) return 0;
    const auto planes = numberAt<uint16_t>(bytes, fileHeader + (header == 12 ? 8 : 12));
    const auto bits = numberAt<uint16_t>(bytes, fileHeader + (header == 12 ? 10 : 14));
    constexpr std::array<int, 6> depths{1, 4, 8, 16, 24, 32};
    if (planes != 1 || std::ranges::find(depths, int{bits}) == depths.end() || pixels >= bytes.size()) return 0;
    // Some programs leave the length out.
    return length > pixels && length <= bytes.size() ? length : bytes.size();
}

/// The place of the next marker of a JPEG behind its pixels.
size_t endOfPixels(Bytes bytes, size_t at) {
    for (; at + 1 < bytes.size(); ++at) {
        const bool restart = bytes[at + 1] >= 0xD0 && bytes[at + 1] <= 0xD7;
        if (bytes[at] == 0xFF && bytes[at + 1] != 0 && bytes[at + 1] != 0xFF && !restart) return at;
    }
    return bytes.size();
}

/// Length of the JPEG file that begins here, 0 for none: from marker to marker, past the small picture inside its
/// camera data.
size_t jpegLength(Bytes bytes) {
    if (bytes.size() < 4 || bytes[0] != 0xFF || bytes[1] != 0xD8 || bytes[2] != 0xFF) return 0;
    bool hasFrame = false;
    bool hasPixels = false;
    size_t at = 2;
    while (at + 4 <= bytes.size() && bytes[at] == 0xFF) {
        const unsigned char marker = bytes[at + 1];
        if (marker == 0xFF) {  // filling
            ++at;
            continue;
        }
        if (marker == 0xD9) break;
        if (marker < 0xC0 || (marker >= 0xD0 && marker <= 0xD8)) return 0;
        const size_t length = size_t{bytes[at + 2]} << 8 | bytes[at + 3];
        if (length < 2) return 0;
        if (marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC) hasFrame = true;
        at += 2 + length;
        if (marker != 0xDA) continue;
        hasPixels = true;
        at = endOfPixels(bytes, std::min(at, bytes.size()));
    }
    if (!hasFrame || !hasPixels) return 0;
    const bool ended = at + 2 <= bytes.size() && bytes[at] == 0xFF && bytes[at + 1] == 0xD9;
    return ended ? at + 2 : bytes.size();
}

}  // namespace

Bytes pictureWithoutWrapper(Bytes value) {
    if (value.size() < 4 || value[0] != 0x15 || value[1] != 0x1C) return value;
    for (size_t at = 2; at + 4 < value.size(); ++at) {
        if (value[at] != 'B' && value[at] != 0xFF) continue;
        const Bytes rest = value.subspan(at);
        const size_t length = value[at] == 'B' ? bitmapLength(rest) : jpegLength(rest);
        if (length > 0) return rest.first(length);
    }
    return value;
}
