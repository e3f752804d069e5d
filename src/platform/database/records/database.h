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

    /// Names of the tables, in the order of their creation, without the reserved ones (see `isReservedTable`).
    QStringList TableDefs() const;

  private:
    friend Database OpenDatabase(const QString& path);
    friend Database openForOnePass(const QString& path);
    friend Database createDatabase(const QString& path);
    friend class Transaction;
    friend class OwnValues;
    friend class ValueHashes;
    explicit Database(std::shared_ptr<Connection> connection) : connection_(std::move(connection)) {}
    std::shared_ptr<Connection> connection_;
};

/// Opens an existing file; its content decides, not its name. An SQLite file is opened for reading and writing, or for
/// reading alone if it cannot be written. A Jet 3 or Jet 4 database is opened for reading (see `isForeign`), with the
/// types and sizes of its columns; that takes as long as reading the whole file. Throws `Error` that names the file
/// when it is missing, no database, damaged, incomplete, of an unknown version, or protected by a password.
Database OpenDatabase(const QString& path);

/// The same for a thread that reads many pictures, each of them once: few pages stay in memory.
Database openForOnePass(const QString& path);

/// Whether `OpenDatabase` would read a file as a Jet database; reads only its first bytes. Throws `Error` when it
/// cannot be read.
bool isJetDatabase(const QString& path);

/// Makes a new, empty file; throws when the path exists already.
Database createDatabase(const QString& path);

/// Several changes as one: without `commit` the destructor takes all of them back.
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
