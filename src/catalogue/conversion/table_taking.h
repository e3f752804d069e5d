#pragma once

#include "catalogue/table_shape.h"
#include "platform/database/records/database.h"

#include <QHash>
#include <QStringList>
#include <functional>
#include <vector>

/// A table of an old catalogue whose records go into a table of a new one, column by column under the same names. What
/// the old table lacks stays Null.
class TableTaking {
  public:
    /// Changes a text on its way: of this column, from this value.
    using Change = std::function<QString(const QString& column, const QString& text)>;

    /// `source` is the statement that lists the records; empty for all.
    TableTaking(const Database& old, const QString& from, const Database& target, const QString& to,
                const QString& source = {});

    const QString& from() const { return from_; }
    const QString& to() const { return to_; }
    int rows() const { return source_.rowCount(); }

    struct Taken {
        bool hasPicture = false;
        QByteArray picture = {};  ///< The bytes of 图片.
        QString number = {};      ///< 序号 as text.
        QStringList odd = {};     ///< Sentences about what could not be taken as it is.
        bool isUnreadable = false;
    };
    /// Adds a record of the old table. Throws `Error` when the new one cannot be written.
    Taken take(int row, const Change& change = {});

  private:
    struct Column {
        QString source;
        QString target;
        FieldType type;
    };
    void takeColumn(const Column& column, const Change& change, Taken& taken);

    QString from_, to_;
    std::vector<Column> columns_;
    QHash<int, QStringList> lost_;  ///< Columns of a row whose values could not be read.
    Recordset source_, target_;
};

/// Where texts of the old table may be longer, the new one is made anew with room for them; it must be empty.
void makeRoomFor(const Database& old, const QString& from, const Database& target, const QString& to);
