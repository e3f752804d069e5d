#include "picture_reader/tiff_exif.h"

#include <algorithm>
#include <array>

namespace {

using Block = std::vector<unsigned char>;

constexpr size_t entryBytes = 12, valueAt = 8, valueBytes = 4;
constexpr size_t mostEntries = 200, longestValue = 16384, longestBlock = 60000;
constexpr uint16_t exposureTag = 0x8769, placeTag = 0x8825, notesTag = 0x927C, exchangeTag = 0xA005;
constexpr std::array<uint16_t, 8> textTags{0x010E, 0x010F, 0x0110, 0x0131, 0x0132, 0x013B, 0x8298, 0x9286};

/// Numbers in the byte order of a file.
class Numbers {
  public:
    explicit Numbers(Bytes bytes) : Numbers(bytes, !bytes.empty() && bytes[0] == 'M') {}
    Numbers(Bytes bytes, bool bigEndian) : bytes_(bytes), bigEndian_(bigEndian) {}

    bool bigEndian() const { return bigEndian_; }
    bool has(size_t at, size_t count) const { return at <= bytes_.size() && count <= bytes_.size() - at; }
    Bytes part(size_t at, size_t count) const { return bytes_.subspan(at, count); }
    /// Of two or four bytes; 0 where they are not there.
    uint32_t at(size_t place, size_t count) const {
        uint32_t number = 0;
        if (!has(place, count)) return 0;
        for (size_t i = 0; i < count; ++i) number = number << 8 | bytes_[place + (bigEndian_ ? i : count - 1 - i)];
        return number;
    }
    void append(Block& block, uint32_t number, size_t count) const {
        for (size_t i = 0; i < count; ++i)
            block.push_back(static_cast<unsigned char>(number >> 8 * (bigEndian_ ? count - 1 - i : i)));
    }

  private:
    Bytes bytes_;
    bool bigEndian_;
};

struct Entry {
    uint16_t tag = 0;
    uint16_t type = 0;
    uint32_t count = 0;
    Block value = {};  ///< At least as long as its place in the entry.
};

size_t bytesOfType(uint16_t type) {
    constexpr std::array<size_t, 14> bytes{0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8, 4};
    return type < bytes.size() ? bytes[type] : 0;
}

Block valueOf(const Numbers& file, size_t entry, size_t bytes) {
    const size_t place = bytes <= valueBytes ? entry + valueAt : file.at(entry + valueAt, 4);
    if (bytes == 0 || bytes > longestValue || !file.has(place, bytes)) return {};
    const Bytes part = file.part(place, bytes);
    Block value(part.begin(), part.end());
    value.resize(std::max(bytes + bytes % 2, valueBytes));
    return value;
}

template <typename IsWanted>
std::vector<Entry> entriesOf(const Numbers& file, size_t directory, const IsWanted& isWanted) {
    std::vector<Entry> entries;
    const size_t count = std::min<size_t>(file.at(directory, 2), mostEntries);
    for (size_t i = 0; i < count; ++i) {
        const size_t at = directory + 2 + i * entryBytes;
        Entry entry{.tag = uint16_t(file.at(at, 2)), .type = uint16_t(file.at(at + 2, 2)), .count = file.at(at + 4, 4)};
        if (!isWanted(entry.tag) || entry.count > longestValue) continue;
        entry.value = valueOf(file, at, bytesOfType(entry.type) * entry.count);
        if (!entry.value.empty()) entries.push_back(std::move(entry));
    }
    std::ranges::sort(entries, {}, &Entry::tag);
    return entries;
}

size_t lengthOf(const std::vector<Entry>& entries) {
    size_t bytes = 2 + entries.size() * entryBytes + 4;
    for (const Entry& entry : entries)
        if (entry.value.size() > valueBytes) bytes += entry.value.size();
    return bytes;
}

/// The directory, and behind it the values that are too long for it.
void append(Block& block, const Numbers& numbers, const std::vector<Entry>& entries) {
    size_t place = block.size() + 2 + entries.size() * entryBytes + 4;
    Block values;
    numbers.append(block, uint32_t(entries.size()), 2);
    for (const Entry& entry : entries) {
        numbers.append(block, entry.tag, 2);
        numbers.append(block, entry.type, 2);
        numbers.append(block, entry.count, 4);
        if (entry.value.size() <= valueBytes) {
            block.insert(block.end(), entry.value.begin(), entry.value.end());
            continue;
        }
        numbers.append(block, uint32_t(place), 4);
        place += entry.value.size();
        values.insert(values.end(), entry.value.begin(), entry.value.end());
    }
    numbers.append(block, 0, 4);
    block.insert(block.end(), values.begin(), values.end());
}

Entry leadingTo(uint16_t tag, const Numbers& numbers, size_t place) {
    constexpr uint16_t longNumber = 4;
    Entry entry{.tag = tag, .type = longNumber, .count = 1};
    numbers.append(entry.value, uint32_t(place), 4);
    return entry;
}

}  // namespace

std::vector<unsigned char> exifOfTiff(Bytes bytes) {
    const Numbers file(bytes);
    if (file.at(2, 2) != 42) return {};
    const size_t first = file.at(4, 4);
    std::vector<Entry> texts =
        entriesOf(file, first, [](uint16_t tag) { return std::ranges::count(textTags, tag) > 0; });
    const auto inner = [&](uint16_t tag) {
        const auto lead = entriesOf(file, first, [&](uint16_t each) { return each == tag; });
        if (lead.empty()) return std::vector<Entry>();
        const size_t directory = Numbers(lead[0].value, file.bigEndian()).at(0, 4);
        return entriesOf(file, directory, [](uint16_t each) { return each != notesTag && each != exchangeTag; });
    };
    const std::vector<Entry> exposure = inner(exposureTag), place = inner(placeTag);
    if (texts.empty() && exposure.empty() && place.empty()) return {};

    texts.push_back(leadingTo(exposureTag, file, 0));
    texts.push_back(leadingTo(placeTag, file, 0));
    const size_t exposureAt = 8 + lengthOf(texts), placeAt = exposureAt + lengthOf(exposure);
    texts[texts.size() - 2] = leadingTo(exposureTag, file, exposureAt);
    texts.back() = leadingTo(placeTag, file, placeAt);
    std::ranges::sort(texts, {}, &Entry::tag);
    Block block(bytes.begin(), bytes.begin() + 4);
    file.append(block, 8, 4);
    append(block, file, texts);
    append(block, file, exposure);
    append(block, file, place);
    return block.size() <= longestBlock ? block : Block();
}
