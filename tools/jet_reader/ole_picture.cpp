#include "ole_picture.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace {

constexpr size_t fileHeader = 14;

/// Length of the BMP file that begins here, 0 for none.
size_t bitmapLength(Bytes bytes) {
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

constexpr size_t bitmapHeader = 40;

/// Where the pixels of the bare bitmap that begins here are, and how long all of it is; nothing for anything else.
struct BareBitmap {
    size_t pixels = 0;
    size_t length = 0;
};
BareBitmap bareBitmap(Bytes bytes) {
    if (bytes.size() <= bitmapHeader || numberAt<uint32_t>(bytes, 0) != bitmapHeader) return {};
    const int64_t width = numberAt<int32_t>(bytes, 4);
    const int64_t height = std::abs(int64_t{numberAt<int32_t>(bytes, 8)});
    const auto planes = numberAt<uint16_t>(bytes, 12);
    const auto bits = numberAt<uint16_t>(bytes, 14);
    const auto packing = numberAt<uint32_t>(bytes, 16);
    const auto colours = numberAt<uint32_t>(bytes, 32);
    constexpr int64_t mostPixels = 32767;
    constexpr std::array<int, 6> depths{1, 4, 8, 16, 24, 32};
    constexpr uint32_t masks = 3;
    const bool isPlausible = width > 0 && width <= mostPixels && height > 0 && height <= mostPixels && planes == 1 &&
                             std::ranges::find(depths, int{bits}) != depths.end() &&
                             (packing == 0 || (packing == masks && bits >= 16)) && colours <= 256;
    if (!isPlausible) return {};
    const size_t table = bits <= 8 && colours == 0 ? size_t{1} << bits : colours;
    const size_t pixels = bitmapHeader + (packing == masks ? 12 : 0) + 4 * table;
    const size_t length = pixels + size_t((width * bits + 31) / 32 * 4 * height);
    return length <= bytes.size() ? BareBitmap{pixels, length} : BareBitmap{};
}

void append(std::vector<unsigned char>& bytes, size_t number) {
    for (int shift = 0; shift < 32; shift += 8) bytes.push_back(static_cast<unsigned char>(number >> shift));
}

std::vector<unsigned char> bitmapFile(Bytes bitmap, const BareBitmap& form) {
    std::vector<unsigned char> file{'B', 'M'};
    append(file, fileHeader + form.length);
    append(file, 0);
    append(file, fileHeader + form.pixels);
    file.insert(file.end(), bitmap.begin(), bitmap.begin() + std::ptrdiff_t(form.length));
    return file;
}

bool hasWrapper(Bytes value) {
    return value.size() >= 4 && value[0] == 0x15 && value[1] == 0x1C;
}

}  // namespace

std::vector<unsigned char> pictureOf(std::vector<unsigned char> value) {
    const Bytes picture = pictureWithoutWrapper(value);
    if (picture.size() < value.size()) return {picture.begin(), picture.end()};
    if (!hasWrapper(value)) return value;
    for (size_t at = 2; at + bitmapHeader < value.size(); ++at) {
        if (value[at] != bitmapHeader) continue;
        const Bytes rest = Bytes(value).subspan(at);
        if (const BareBitmap found = bareBitmap(rest); found.length > 0) return bitmapFile(rest, found);
    }
    return value;
}

Bytes pictureWithoutWrapper(Bytes value) {
    if (!hasWrapper(value)) return value;
    for (size_t at = 2; at + 4 < value.size(); ++at) {
        if (value[at] != 'B' && value[at] != 0xFF) continue;
        const Bytes rest = value.subspan(at);
        const size_t length = value[at] == 'B' ? bitmapLength(rest) : jpegLength(rest);
        if (length > 0) return rest.first(length);
    }
    return value;
}
