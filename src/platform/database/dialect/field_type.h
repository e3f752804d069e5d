#pragma once

/// The types that a column can be declared with. Messages show their numbers.
enum class FieldType {
    boolean = 1,
    byte = 2,
    integer = 3,
    longInteger = 4,
    currency = 5,
    single = 6,
    real = 7,
    date = 8,
    binary = 9,  ///< A few bytes in the row itself.
    text = 10,
    longBinary = 11,
    memo = 12,
    guid = 15,
    decimal = 20
};
