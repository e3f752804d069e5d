#pragma once

#include "platform/database/records/database.h"

#include <QStringList>
#include <optional>
#include <vector>

/// The records of a source table that can be read, where the table is damaged. A page of the file that is damaged costs
/// the records on it, no others.
class ReadableRows {
  public:
    /// Of a table that is whole, as far as it has been looked at.
    ReadableRows() = default;
    /// Goes through the records by their identities when they cannot be listed in the order of `keyField`, or for Jet
    /// takes what its reader has noted. Throws `Error` when nothing of the table can be read.
    ReadableRows(const Database& source, const QString& table, const QString& keyField);

    bool areAll() const { return missing_.isEmpty(); }
    /// A sentence for each part that is missing. Records are told by `keyField`.
    const QStringList& missing() const { return missing_; }

    /// The statement that lists them in the order of a column, and a condition for other statements: empty where none
    /// is needed, otherwise with " AND " in front.
    QString sql(const QString& orderColumn) const;
    QString andAmongThem() const;

  private:
    struct Row {
        qint64 identity = 0;
        QString key;
    };
    std::vector<Row> rowsBehind(const Database& source, qint64 identity, int most) const;
    qint64 findBehind(const Database& source, qint64 identity, std::vector<Row>& found) const;
    void lookFor(const Database& source);
    /// Between two keys; none: there is no record that can be read.
    void noteGap(const std::optional<QString>& before, const std::optional<QString>& behind);
    void takeNotes(const Database& source);

    QString table_, keyField_;
    std::vector<qint64> rows_;  ///< Where they had to be looked for.
    bool isListed_ = false;     ///< `rows_` counts.
    QStringList missing_;
};
