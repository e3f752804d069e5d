#pragma once

#include <array>
#include <charconv>
#include <string_view>

// The parts of the file format that the engine has no types for. No Qt here: the reader of Jet databases writes them
// too.

/// The table of the long-binary values; the cells of the other tables hold its keys.
inline constexpr auto createLongBinarySql =
    "CREATE TABLE IF NOT EXISTS long_binary (id INTEGER PRIMARY KEY AUTOINCREMENT, bytes BLOB NOT NULL)";

/// Digits that a number of the engine keeps. An amount or a decimal with more digits is stored as the bytes of its
/// text: a text itself the engine would turn into a number.
inline constexpr int digitsOfNumber = 15;

/// For digits with or without a point, without an exponent.
inline bool hasMoreDigitsThanNumber(std::string_view decimal) {
    int digits = 0;
    for (const char c : decimal) digits += (c >= '1' && c <= '9') || (c == '0' && digits > 0) ? 1 : 0;
    return digits > digitsOfNumber;
}

/// The number that the shortest decimal for a single-precision one names: 1234.567, not 1234.5670166015625.
inline double shortestDecimal(float number) {
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    auto decimal = double(number);
    std::from_chars(digits.data(), end, decimal);
    return decimal;
}
