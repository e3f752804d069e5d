#pragma once

#include "platform/picture/picture.h"

#include <QSize>
#include <QString>
#include <QStringList>
#include <optional>

/// Rules of the catalogue's values, without a database.

inline const QString demoTable = QStringLiteral("tc00");

/// Whether an album is the one that is only for show.
bool isDemo(const QString& table);

/// Every name of an album table has that many characters: other tables store them one after the other.
inline constexpr int tableNameLength = 4;

/// "tc" and the album number with two digits: 7 gives `tc07`, 12 gives `tc12`.
QString albumTableName(int number);

/// Names of the columns of an album table.
QStringList albumColumns();

/// The statement that makes an album table.
QString createAlbumSql(const QString& table);

/// A line of an album chooser: table name, blank, title.
QString albumLine(const QString& table, const QString& title);
QString tableOfLine(const QString& line);  ///< The first four characters, trimmed.
QString titleOfLine(const QString& line);  ///< From the sixth character on.

/// `tcan.图册` is a string of table names of four characters without separators.
QStringList tablesOfButton(const QString& tables);
bool offersAlbum(const QString& tables, const QString& table);
QString withoutAlbum(const QString& tables, const QString& table);

/// The size in pixels out of `规格`, such as "640 * 480". Width and height are the numbers before and behind the first
/// star, 0 if there is no number; nothing when the text has no star.
std::optional<QSize> sizeFromSpec(const QString& sizeText);
QString specOfSize(QSize pixels, const QString& star = QStringLiteral(" * "));
QString specOfPicture(const Picture& picture, const QString& star = QStringLiteral(" * "));

/// `大小`: kilobytes of 1000 bytes with thousands commas and three decimals.
QString kilobytesText(qint64 bytes);

/// Display width in half-character cells: a Chinese (double-byte) character counts 2, any other 1.
int wzcd(const QString& text);

/// Whether the part of a file name before the first "." is a number (the whole name if there is no ".").
bool zhjy(const QString& name);
