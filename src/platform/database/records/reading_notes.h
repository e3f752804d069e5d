#pragma once

#include "platform/database/records/database.h"

#include <QHash>
#include <QList>

/// What the reading of a Jet database has found besides its tables. Of any other database there are no notes.
class ReadingNotes {
  public:
    explicit ReadingNotes(const Database& database);

    /// The code page by which texts were read, where the file does not tell it reliably; otherwise 0.
    int codePage() const { return codePage_; }
    /// Some texts both ways; none unless the code page is in doubt.
    struct Sample {
        QString chinese;
        QString western;
    };
    const QList<Sample>& samples() const { return samples_; }

    bool isCatalogueDamaged() const { return isCatalogueDamaged_; }
    const QStringList& unreadableTables() const { return unreadable_; }
    /// Records of a table that could not be read; -1 for an unknown number.
    int missingRecords(const QString& table) const { return missing_.value(table.toLower()); }
    /// A value of a record that could not be read: Null is in its place, or a long value that cannot be read either.
    struct LostValue {
        qint64 row = 0;  ///< Its identity, see `recordsOfRows`.
        QString column;
    };
    QList<LostValue> lostValues(const QString& table) const { return lost_.value(table.toLower()); }
    bool isDamaged(const QString& table) const { return missingRecords(table) != 0 || !lostValues(table).isEmpty(); }

  private:
    int codePage_ = 0;
    QList<Sample> samples_;
    bool isCatalogueDamaged_ = false;
    QStringList unreadable_;
    QHash<QString, int> missing_;  ///< By table in lower case, as are the lost values.
    QHash<QString, QList<LostValue>> lost_;
};
