#pragma once

#include "platform/database/records/database.h"

#include <QStringList>
#include <optional>

/// Reserved tables (`lunq_…`) that another room needs in the file.
struct OwnTables {
    QStringList names = {};     ///< Of the tables, and of the indexes and triggers that belong to them.
    QStringList creation = {};  ///< The statements that make them, in the engine's own language. They change nothing
                                ///< where they are.
};

/// Names and values that the program keeps for itself inside its catalogue, in a reserved table. Version 2 of the file
/// has them, and the hashes (see `ValueHashes`): a file of version 1 has neither.
class OwnValues {
  public:
    /// Throws `Error` when the database is closed.
    explicit OwnValues(const Database& database);

    /// Raises a file of version 1 to version 2, in one change; does nothing to a whole file of version 2, which has the
    /// `others`, too. Older programs refuse the file from then on, so the caller has to have it for itself. Throws
    /// `Error` when the file is not ours or cannot be written.
    void prepare(const OwnTables& others = {});

    /// Nothing where the file has no such value.
    std::optional<QString> value(const QString& name) const;
    /// Durable on return. Throws `Error` when the file is of version 1 or cannot be written.
    void setValue(const QString& name, const QString& value);
    void remove(const QString& name);

    /// For the classes of this room.
    std::shared_ptr<Connection> connection() const { return connection_; }

  private:
    bool isPrepared() const;
    bool hasAll(const QStringList& names) const;
    void run(const QString& sql, const QStringList& parameters);
    std::shared_ptr<Connection> connection_;
};
