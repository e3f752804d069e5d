#pragma once

#include "platform/database/records/recordset.h"

#include <QString>
#include <QStringList>
#include <memory>

class Change;
class Connection;

/// An open database file. Copies share the one connection, which closes with its last user (recordsets count).
/// An object made by default is closed: every operation throws `Error`.
class Database {
  public:
    Database() = default;

    bool isOpen() const { return connection_ != nullptr; }
    /// Path of the file.
    QString Name() const;
    /// Whether the file is a Jet database. It can only be read: `Edit`, `AddNew`, `Delete`, `Execute` and transactions
    /// throw an `Error` that says so.
    bool isForeign() const;
    /// Whether the file was made by this program.
    bool isOurs() const;

    /// `source` is a table's name or a SELECT. The texts may use what the engine's dialect offers: bracketed names,
    /// date literals between hash signs, InStr, IsNull, Left, LCase, DateValue. Text comparison ignores the case of
    /// Latin letters.
    Recordset OpenRecordset(const QString& source) const;

    /// Runs one statement: CREATE TABLE, DROP TABLE or DELETE FROM. Refuses all others.
    void Execute(const QString& sql) const;

    /// Names of the tables, in the order of their creation; what the engine keeps for itself is left out.
    QStringList TableDefs() const;

  private:
    friend Database OpenDatabase(const QString& path);
    friend Database createDatabase(const QString& path);
    friend class Transaction;
    friend class OwnValues;
    explicit Database(std::shared_ptr<Connection> connection) : connection_(std::move(connection)) {}
    std::shared_ptr<Connection> connection_;
};

/// Opens an existing file, told by its content, not by its name: an SQLite file for reading and writing (for reading
/// alone where it cannot be written), a Jet 3 or Jet 4 database for reading (see `isForeign`), with the types and sizes
/// that its columns have there. The latter takes as long as reading the whole file takes. Throws `Error` that names the
/// file when it is missing, no database, damaged, incomplete, of an unknown version, or kept by a password.
Database OpenDatabase(const QString& path);

/// Whether `OpenDatabase` would read a file as a Jet database: much quicker. Throws `Error` when it cannot be read.
bool isJetDatabase(const QString& path);

/// Makes a new, empty file; throws when one stands there.
Database createDatabase(const QString& path);

/// Several changes that stand or fall together: what is not committed when the object goes is taken back.
class Transaction {
  public:
    explicit Transaction(const Database& database);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void commit();

  private:
    std::shared_ptr<Connection> connection_;
    std::unique_ptr<Change> change_;
};

/// A text as part of an SQL statement, between single quotes, with its own quotes doubled.
QString quoted(const QString& text);
