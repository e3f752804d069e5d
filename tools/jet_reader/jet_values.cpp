#include "jet_values.h"

#include "platform/database/file/storage_format.h"

#include <glib.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <memory>

namespace {

constexpr char32_t replacement = 0xFFFD;

void appendUtf8(std::string& text, char32_t code) {
    std::array<char, 6> bytes{};
    text.append(bytes.data(), size_t(g_unichar_to_utf8(code, bytes.data())));
}

std::u16string unitsOf(Bytes bytes) {
    std::u16string units;
    for (size_t at = 0; at + 1 < bytes.size(); at += 2) units += numberAt<char16_t>(bytes, at);
    return units;
}

std::u16string decompressed(Bytes bytes) {
    std::u16string units;
    bool oneByte = true;
    for (size_t at = 0; at < bytes.size();) {
        if (bytes[at] == 0) {
            oneByte = !oneByte;
            ++at;
        } else if (oneByte) {
            units += char16_t(bytes[at++]);
        } else if (at + 1 < bytes.size()) {
            units += numberAt<char16_t>(bytes, at);
            at += 2;
        } else {
            break;
        }
    }
    return units;
}

std::string utf8(const std::u16string& units) {
    std::string text;
    for (size_t at = 0; at < units.size(); ++at) {
        const char32_t unit = units[at];
        const bool high = unit >= 0xD800 && unit < 0xDC00;
        const bool low = unit >= 0xDC00 && unit < 0xE000;
        const bool pair = high && at + 1 < units.size() && units[at + 1] >= 0xDC00 && units[at + 1] < 0xE000;
        if (pair)
            appendUtf8(text, 0x10000 + ((unit - 0xD800) << 10) + (units[++at] - 0xDC00U));
        else
            appendUtf8(text, high || low ? replacement : unit);
    }
    return text;
}

/// Nothing when the bytes are no text in that encoding.
std::optional<std::string> converted(Bytes bytes, const std::string& encoding) {
    gsize length = 0;
    const std::unique_ptr<gchar, decltype(&g_free)> text(
        g_convert(reinterpret_cast<const gchar*>(bytes.data()), gssize(bytes.size()), "UTF-8", encoding.c_str(),
                  nullptr, &length, nullptr),
        g_free);
    if (!text) return {};
    return std::string(text.get(), length);
}

/// Code page 1252 differs from Unicode's first characters in these alone, from 0x80 on.
constexpr std::array<char16_t, 32> westernMarks{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

std::string westernText(Bytes bytes) {
    std::string text;
    for (const unsigned char byte : bytes) {
        const bool isMark = byte >= 0x80 && byte < 0x80 + westernMarks.size();
        appendUtf8(text, isMark ? westernMarks[byte - 0x80U] : byte);
    }
    return text;
}

/// The number that these digits are, so many of them behind the point.
ExactValue exactValue(bool negative, std::string digits, size_t decimals) {
    digits.insert(0, digits.size() <= decimals ? decimals + 1 - digits.size() : 0, '0');
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size() - decimals - 1));
    if (decimals > 0) {
        digits.insert(digits.size() - decimals, 1, '.');
        digits.erase(digits.find_last_not_of('0') + 1);
        if (digits.back() == '.') digits.pop_back();
    }
    if (negative && digits != "0") digits.insert(0, 1, '-');
    if (hasMoreDigitsThanNumber(digits)) return digits;
    double number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

}  // namespace

std::string jet4Text(Bytes bytes) {
    const bool compressed = bytes.size() >= 2 && bytes[0] == 0xFF && bytes[1] == 0xFE;
    return utf8(compressed ? decompressed(bytes.subspan(2)) : unitsOf(bytes));
}

std::string jet3Text(Bytes bytes, int codePage) {
    if (bytes.empty()) return {};
    if (codePage == 1252) return westernText(bytes);
    if (const auto text = converted(bytes, "CP" + std::to_string(codePage))) return *text;
    // It has all of GBK, and private characters. A text may have been cut inside its last one.
    if (const auto text = converted(bytes, "GB18030")) return *text;
    std::string text;
    if (const auto whole = converted(bytes.first(bytes.size() - 1), "GB18030")) {
        text = *whole;
        appendUtf8(text, replacement);
        return text;
    }
    for (const unsigned char byte : bytes) appendUtf8(text, byte < 0x80 ? byte : replacement);
    return text;
}

std::vector<unsigned char> latin1Bytes(const std::string& utf8) {
    std::vector<unsigned char> bytes;
    for (size_t at = 0; at < utf8.size(); ++at) {
        auto byte = static_cast<unsigned char>(utf8[at]);
        if (byte >= 0x80 && at + 1 < utf8.size()) byte = static_cast<unsigned char>(byte << 6 | (utf8[++at] & 0x3F));
        bytes.push_back(byte);
    }
    return bytes;
}

std::optional<std::string> dateText(double days) {
    constexpr double firstDay = -657434;
    constexpr double dayAfterLast = 2958466;
    constexpr int64_t daysTo1970 = 25569;
    constexpr int64_t secondsOfDay = 86400;
    if (!(days >= firstDay && days < dayAfterLast)) return {};
    const double wholeDays = std::trunc(days);
    auto day = int64_t(wholeDays);
    auto seconds = int64_t(std::llround(std::abs(days - wholeDays) * secondsOfDay));
    if (seconds == secondsOfDay) {
        seconds = 0;
        ++day;
    }
    const std::chrono::year_month_day date = std::chrono::sys_days(std::chrono::days(day - daysTo1970));
    const auto year = int(date.year());
    if (year > 9999) return {};
    const auto second = int(seconds);
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02u-%02u %02d:%02d:%02d", year, unsigned(date.month()),
                  unsigned(date.day()), second / 3600, second / 60 % 60, second % 60);
    return text.data();
}

ExactValue currencyValue(Bytes bytes) {
    constexpr size_t decimals = 4;
    const auto parts = numberAt<int64_t>(bytes, 0);
    const uint64_t amount = parts < 0 ? 0 - uint64_t(parts) : uint64_t(parts);
    return exactValue(parts < 0, std::to_string(amount), decimals);
}

/// Nine digits at a time, from the last, each the rest of a division of all four words.
ExactValue decimalValue(Bytes bytes, int scale) {
    constexpr uint64_t billion = 1'000'000'000;
    constexpr size_t nine = 9;
    std::array<uint32_t, 4> words{};
    for (size_t i = 0; i < words.size(); ++i) words[i] = numberAt<uint32_t>(bytes, 1 + i * 4);
    std::string digits;
    while (std::ranges::any_of(words, [](uint32_t word) { return word != 0; })) {
        uint64_t rest = 0;
        for (uint32_t& word : words) {
            rest = rest << 32 | word;
            word = uint32_t(rest / billion);
            rest %= billion;
        }
        const std::string part = std::to_string(rest);
        digits.insert(0, std::string(nine - part.size(), '0') + part);
    }
    return exactValue(bytes[0] != 0, digits, size_t(scale));
}

std::string guidText(Bytes bytes) {
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}",
                  numberAt<uint32_t>(bytes, 0), numberAt<uint16_t>(bytes, 4), numberAt<uint16_t>(bytes, 6), bytes[8],
                  bytes[9], bytes[10], bytes[11], bytes[12], bytes[13], bytes[14], bytes[15]);
    return text.data();
}
