#pragma once

#include "platform/database/records/recordset.h"

#include <QSize>
#include <QString>

/// The sentences of the editor.

inline const QString editorCaption = QStringLiteral("览忆集苑（图片处理）");

/// The hint for a code such as "w1" or "c2"; empty for a code that has none.
QString hintFor(const QString& code);

/// Width in twips of a text in a hint box: 90 for each half-character cell, and 60.
int hintWidth(const QString& text);

/// "#,###,##0.000" of bytes / 1024.
QString kilobytes1024Text(qint64 bytes);

/// The factor that somebody typed: a number, also with full-width digits, or a percentage.
double factorFromText(const QString& text);
/// The angle in degrees that somebody typed, also with full-width digits.
double angleFromText(const QString& text);

/// What is told about a picture from a file. The size is in HiMetric.
QString fileSourceLine(const QString& path, qint64 bytes, QSize hiMetric);
/// What is told about the current record of an album; what is Null is left out.
QString albumSourceLine(const QString& table, Recordset& record);

/// Twips of a picture's length: HiMetric / 1.7638, rounded. On a side above 10,000 pixels that would be one pixel too
/// many; there the twips of the pixels are taken.
int pictureTwips(int hiMetric, int pixels);
