#pragma once

/// The types that a column can be declared with. The numbers are the engine's own type codes, which messages show.
enum class FieldType {
    boolean = 1,
    byte = 2,
    integer = 3,
    longInteger = 4,
    currency = 5,
    single = 6,
    real = 7,
    date = 8,
    binary = 9,  ///< A few bytes that lie in the row itself.
    text = 10,
    longBinary = 11,
    memo = 12,
    guid = 15,
    decimal = 20
};
