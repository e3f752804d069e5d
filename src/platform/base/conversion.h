#pragma once

#include <QDateTime>
#include <QString>
#include <QStringView>
#include <optional>

/// Conversions between texts, numbers and dates, as the forms and the database use them.

/// 0 to 9, not the digits of other scripts.
inline bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

/// The number that a text begins with, 0 when there is none: blanks are passed over, reading stops at the first
/// character that cannot belong to a number. Understands the prefixes `&H` (hexadecimal) and `&O` (octal), an
/// optional `&` behind them, and exponents. Commas end the number.
double numericValue(QStringView text);

/// Whether the whole text is a number: sign, digits, thousands commas, decimals, exponent, `&H`; blanks around it are
/// allowed. An empty text is not.
bool isNumeric(QStringView text);

/// The number that the whole text is (see isNumeric); nothing when it is none.
std::optional<double> numberFromText(QStringView text);

/// A number with thousands commas and `decimals` digits behind the point, halves rounded away from zero: 1234.5 with
/// three decimals is `1,234.500`.
QString thousandsText(double number, int decimals);

/// A number as people write it: no thousands commas, no trailing zeros, at most 15 (7 for `float`) significant digits.
QString plainText(double number);
QString plainText(float number);

/// A date and its time as the catalogue stores them, and a date alone.
inline constexpr QStringView dateTimePattern = u"yyyy-mm-dd hh:mm:ss";
inline constexpr QStringView datePattern = u"yyyy-mm-dd";
/// A date and its time as the windows show them.
inline constexpr QStringView shownDatePattern = u"yyyy年mm月dd日 hh:mm:ss";

/// Writes a date in a pattern: yyyy, mm (month, or minute behind hh), dd, hh (24 hours), ss. All other characters are
/// copied.
QString dateText(const QDateTime& date, QStringView pattern);

/// A date as people type it: 2003-10-01, 2003-10-1, 2003/10/1 or 2003年10月1日, with an optional time of day
/// `hh:mm` or `hh:mm:ss` behind a blank. Nothing when it names no day of the calendar.
std::optional<QDateTime> dateFromText(QStringView text);
