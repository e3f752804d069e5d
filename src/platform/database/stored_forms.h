#pragma once

#include <array>
#include <charconv>

// How a file holds what its engine knows nothing about. The reader of Jet databases, which does without Qt, writes the
// same.

/// The table in which long-binary values lie; the cells of the other tables hold its keys.
inline constexpr auto createLongBinarySql =
    "CREATE TABLE IF NOT EXISTS long_binary (id INTEGER PRIMARY KEY AUTOINCREMENT, bytes BLOB NOT NULL)";

/// The number that the shortest decimal for a single-precision one names: 1234.567, not 1234.5670166015625.
inline double shortestDecimal(float number) {
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    auto decimal = static_cast<double>(number);
    std::from_chars(digits.data(), end, decimal);
    return decimal;
}
