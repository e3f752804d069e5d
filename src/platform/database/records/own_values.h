#pragma once

#include "platform/database/records/database.h"

#include <optional>

/// Names and values that the program keeps for itself inside its catalogue, in a reserved table. Version 2 of the file
/// has them, and the hashes (see `ValueHashes`): a file of version 1 has neither.
class OwnValues {
  public:
    /// Throws `Error` when the database is closed.
    explicit OwnValues(const Database& database);

    /// Raises a file of version 1 to version 2, in one change; does nothing to a whole file of version 2. Older
    /// programs refuse the file from then on, so the caller has to have it for itself. Throws `Error` when the file is
    /// not ours or cannot be written.
    void prepare();

    /// Nothing where the file has no such value.
    std::optional<QString> value(const QString& name) const;
    /// Durable on return. Throws `Error` when the file is of version 1 or cannot be written.
    void setValue(const QString& name, const QString& value);
    void remove(const QString& name);

  private:
    bool isPrepared() const;
    bool hasAll() const;
    void run(const QString& sql, const QStringList& parameters);
    std::shared_ptr<Connection> connection_;
};
