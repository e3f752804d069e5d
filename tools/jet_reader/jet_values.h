#pragma once

#include "bytes.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

/// How a Jet database writes its values, turned into what the album's files hold. Texts come as UTF-8.

/// UTF-16, or its compressed form, which begins with FF FE: there a zero byte changes between one byte and two bytes to
/// the character. What is no character becomes U+FFFD.
std::string jet4Text(Bytes bytes);

/// A text in a Windows code page. Bytes that 1252 does not define are U+0080 to U+009F; a text that is none of another
/// code page is taken for GBK, perhaps cut inside its last character.
std::string jet3Text(Bytes bytes, int codePage);

/// The bytes of a text whose characters are all below U+0100.
std::vector<unsigned char> latin1Bytes(const std::string& utf8);

/// `2003-10-01 12:30:00` for the days since 1899-12-30; before it the fraction still counts forward. Nothing outside
/// the years 100 to 9999.
std::optional<std::string> dateText(double days);

/// A number, or digits of which it would lose some.
using ExactValue = std::variant<double, std::string>;

/// From eight bytes in ten-thousandths.
ExactValue currencyValue(Bytes bytes);

/// From seventeen bytes: a sign, and four words, the highest first.
ExactValue decimalValue(Bytes bytes, int scale);

/// `{00112233-4455-6677-8899-AABBCCDDEEFF}` from sixteen bytes.
std::string guidText(Bytes bytes);
