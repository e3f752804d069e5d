#pragma once

#include <QString>

/// Numbers as somebody types them, also with full-width signs and digits.

/// A number such as an angle in degrees; 0 where there is none.
double numberFromText(const QString& text);
/// A number or a percentage.
double factorFromText(const QString& text);
