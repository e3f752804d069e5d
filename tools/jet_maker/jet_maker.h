#pragma once

#include <QList>
#include <QVariant>

/// Makes small Jet databases for tests and fuzz targets.
namespace jet {

enum class Version : quint8 { jet3, jet4 };

/// The numbers by which the files name the types of their columns.
enum class Type : quint8 {
    truth = 1,
    byte = 2,
    integer = 3,
    longInteger = 4,
    currency = 5,
    single = 6,
    real = 7,
    date = 8,
    binary = 9,
    text = 10,
    ole = 11,
    memo = 12,
    guid = 15,
    decimal = 16
};

struct Column {
    QString name;
    Type type;
    int size = 0;     ///< Characters of a text, bytes of a binary value; the others have a size of their own.
    int scale = 0;    ///< Digits behind the point of a decimal.
    int number = -1;  ///< By which the rows hold the column; its place among the columns when negative.
};

/// A value for each column, an invalid one for Null. Numbers, truth values, texts, QDateTime and QUuid are taken for
/// what they are, currencies and decimals may be texts too. Bytes in the place of a text are written as they are.
using Row = QVariantList;

struct Table {
    QString name;
    QList<Column> columns;
    QList<Row> rows;
    QList<Row> deletedRows = {};      ///< Between the others, and marked as deleted.
    QList<qsizetype> movedRows = {};  ///< Rows that have grown out of their page into another one.
};

struct Form {
    Version version = Version::jet4;
    int codePage = 936;  ///< Of the texts of Jet 3.
    QString password = {};
    quint32 key = 0;  ///< With which the pages are encoded; 0 leaves them plain.
};

QByteArray database(const QList<Table>& tables, const Form& form = {});

/// A picture in the wrapper that forms put around it.
QByteArray wrapped(const QByteArray& picture);
/// The same without the header of its file: the bare bitmap, or one inside a metafile.
QByteArray wrappedBitmap(const QByteArray& bmp);
QByteArray wrappedMetafile(const QByteArray& bmp);

/// What one page holds of a long value at most, and what a row holds of it itself.
qsizetype roomInPage(Version version);
constexpr qsizetype roomInRow = 64;

}  // namespace jet
