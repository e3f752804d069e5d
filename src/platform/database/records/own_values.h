#pragma once

#include "platform/database/records/database.h"

#include <optional>

/// Names and values that the program keeps for itself inside a file of its own, in a table that no list of tables
/// shows. They came with version 2 of the file: a file of version 1 has none.
class OwnValues {
  public:
    /// Throws `Error` when the database is closed.
    explicit OwnValues(const Database& database);

    /// Raises a file of version 1 to version 2, in one change; nothing for a file that has it. Only a program that
    /// keeps the file to itself may do so: programs of version 1 refuse it from then on. Throws `Error` when the file
    /// is not ours or cannot be written.
    void prepare();

    /// Nothing where the file has no such value.
    std::optional<QString> value(const QString& name) const;
    /// Durable on return. Throws `Error` when the file is of version 1 or cannot be written.
    void setValue(const QString& name, const QString& value);
    void remove(const QString& name);

  private:
    bool isPrepared() const;
    void run(const QString& sql, const QStringList& parameters);
    std::shared_ptr<Connection> connection_;
};
