#pragma once

#include <QDateTime>
#include <QString>
#include <optional>

/// Dates as people type and paste them.

/// Examples of the forms that are understood, for messages that ask for a date.
inline const QString typedDateForms = QStringLiteral("20031001、2003-10-01、03-10-01 或 2003年10月1日");

/// `-`, `/`, `.`, 年, 月 or 日, each also in its full-width form.
bool isDateSeparator(QChar c);

/// Years of two digits: up to the present one they belong to its century, the others to the one before. A photograph is
/// not of the future.
int yearOfTwoDigits(int year);

/// The text with plain digits and marks in place of those of full width, character by character.
QString inPlainWidth(QString text);

/// Year, month and day with separators between them, or eight or six digits in a row; a year has four digits or two.
/// An optional time of day `hh:mm` or `hh:mm:ss` may follow behind a blank or 日. Nothing when it names no day of the
/// calendar.
std::optional<QDateTime> dateFromTyping(const QString& text);
