#pragma once

#include "platform/database/records/recordset.h"

#include <QSize>
#include <QString>
#include <variant>

/// Where the picture in the editor came from, and what is said about that.

struct NoSource {};

struct PictureFile {
    QString path;         ///< Full path.
    qint64 bytes;         ///< Its length when it was opened.
    QSize hiMetric;       ///< Size of its picture.
    qint64 bytesNow = 0;  ///< Its length since the editor has written it; a file of another one is another file.
};

/// A record of an album, as it was when its picture was taken.
struct AlbumRecord {
    QString table;
    FieldValue number, codes, kilobytes, dimensions;  ///< 序号, 编号, 大小 and 规格, each of which can be Null.
    qint64 picture = 0;                               ///< Id of the value of 图片.
};

using PictureSource = std::variant<NoSource, PictureFile, AlbumRecord>;

/// The current record of an album.
AlbumRecord albumRecord(const QString& table, const Recordset& record);

/// The line with which the window's caption begins. What is Null is left out.
QString sourceLine(const PictureSource& source);

/// "#,###,##0.000" of bytes / 1024.
QString kilobytes1024Text(qint64 bytes);
