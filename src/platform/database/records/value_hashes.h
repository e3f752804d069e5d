#pragma once

#include "platform/database/records/database.h"

#include <QDate>
#include <QStringList>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class ForeignCopy;

/// Lengths and hashes of long-binary values, kept in a reserved table of the file. A value's row goes with the value.
/// Version 2 of the file has the table; in a file without it there are no hashes, and none are kept.
class ValueHashes {
  public:
    /// Throws `Error` when the database is closed.
    explicit ValueHashes(const Database& database);

    /// A Jet database of which the long-binary values were read as their hashes.
    static Database ofForeign(const QString& path, std::unique_ptr<ForeignCopy> hashes);

    /// The statements that make the table. They change nothing where it is.
    static QStringList creation();
    bool areKept() const { return areKept_; }

    /// Keeps the hash of a value, with the day of today. A value that is gone gets none.
    void note(qint64 value, qint64 length, const QByteArray& sha256);
    /// The hash of a value, where one is kept.
    struct Kept {
        qint64 length = 0;
        QByteArray sha256 = {};
    };
    std::optional<Kept> of(qint64 value) const;
    /// The values of that hash.
    std::vector<StoredValue> like(const Kept& hash) const;

    /// A value whose hash is kept.
    struct Known {
        qint64 value = 0;
        Kept kept = {};
    };
    /// Those that were last checked before `before`, or on a day that has not come yet, and all above an id; by id.
    std::vector<Known> lastChecked(const QDate& before, qint64 above) const;
    void setChecked(const std::vector<qint64>& values);  ///< Today.
    /// How many hashes are kept, and the day since which each was checked; an invalid one where there are none.
    struct Extent {
        qint64 count = 0;
        QDate since = {};
    };
    Extent extent() const;

    StoredValue valueOf(qint64 value) const { return {connection_, value}; }
    /// The identities of the rows that hold a value in a column.
    std::vector<qint64> rowsWith(const QString& table, const QString& column, qint64 value) const;
    /// Gives a damaged value its bytes back. All that point at it keep it.
    void mend(qint64 value, const QByteArray& bytes);

    /// The values in a column that have no hash. Without reading a value.
    std::vector<StoredValue> without(const QString& table, const QString& column) const;
    /// The hashes of the values in a column.
    using Each = std::function<void(qint64 length, const QByteArray& sha256)>;
    void each(const QString& table, const QString& column, const Each& use) const;

  private:
    std::shared_ptr<Connection> connection_;
    bool areKept_ = false;
};
