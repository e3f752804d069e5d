#pragma once

#include "platform/base/error.h"
#include "platform/database/dialect/table_layout.h"
#include "platform/database/file/kept_statements.h"
#include "platform/database/file/long_binary.h"
#include "platform/database/file/shared_file.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QTimer>

/// One open file: the engine's handle, its settings, and the wording of its failures. All users of a file in one thread
/// share one connection. So they see each other's changes at once, and nobody waits for another one's lock. Another
/// thread gets a connection of its own; one of two that write at the same time waits for the other, up to two seconds.
class Connection {
  public:
    /// The connection of this thread.
    static std::shared_ptr<Connection> open(const QString& path);
    /// An open file is not read for that: opening and closing it here would take away all locks that the engine has on
    /// it.
    static bool isJetFile(const QString& path);
    static std::shared_ptr<Connection> create(const QString& path);
    /// To what was read of a foreign database. Nobody else gets this connection.
    static std::shared_ptr<Connection> toCopy(const QString& path, std::unique_ptr<ForeignCopy> copy);
    ~Connection();

    const QString& path() const { return path_; }
    /// The file that the engine reads: for a foreign database a copy, not `path`.
    QString engineFile() const { return isForeign() ? file_->foreign()->file() : path_; }
    bool isForeign() const { return file_->foreign() != nullptr; }
    bool isOurs();  ///< Made by this program.
    int version();  ///< Of the file's layout; has a meaning only in a file of ours.
    /// Throws for a foreign database, and for one that is kept from changes.
    void requireOurs() const;
    /// Lets the file be read alone, by all its users in this process, as long as one of them has it open.
    void keepFromChanges() const { file_->keepFromChanges(); }
    /// Of those that were read; they are not needed again.
    void keepFewPages() { run(QStringLiteral("PRAGMA cache_size = -1000")); }
    /// Whether the file at `path` has been replaced, or a foreign one changed, since it was opened.
    bool isOutdated() const;
    sqlite3* handle() const { return database_.getHandle(); }
    LongBinaries& longBinaries() { return longBinaries_; }

    /// `table` is the table of the statement: the failure names it when a column is missing.
    SQLite::Statement prepare(const QString& sql, const QString& table = {});
    /// The same for one that comes again and again.
    KeptStatements::Use kept(const QString& sql, const QString& table = {});
    void run(const QString& sql, const QString& table = {});
    bool step(SQLite::Statement& statement);
    qint64 lastRowId() const { return database_.getLastInsertRowid(); }

    /// The columns of a table; none for a missing table and for a reserved one (see `isReservedTable`).
    std::vector<Column> columnsOf(const QString& table);

    /// Grows whenever something in the file changes through a connection of this process.
    qint64 changeCount() const;
    void noteChange() { ++otherChanges_; }
    bool isInChange() const { return openChanges_ > 0; }

    /// Notes the highest row identity that was read of a table. No new row gets an identity up to that one, even when
    /// its row is gone. So a recordset never takes a newer record for one of its own.
    void noteRowIds(const QString& table, qint64 highest);
    qint64 newRowId(const QString& table);

    /// Gives the space of deleted values back to the disk: at once when few pages have to be moved for it, otherwise
    /// for a tenth of a second now and further in the program's pauses. Within a change it happens at the end.
    void giveBackSpace();
    /// The same, a second after the last deletion: deleting many single records stays quick.
    void giveBackSpaceLater();

    /// The failure of the last call, as an `Error` that names the file.
    Error error(int code, const QString& table = {}) const;
    Error missingTable(const QString& table) const;

    /// Runs calls of the engine's wrapper and turns their exceptions into `Error`.
    template <typename Calls>
    auto checked(Calls&& calls) {
        try {
            return calls();
        } catch (const SQLite::Exception& failure) {
            throw error(failure.getErrorCode());
        }
    }

  private:
    friend class Change;
    /// `file` is null where nothing has the file open; that of a foreign database never is.
    Connection(const QString& path, int flags, std::shared_ptr<SharedFile> file = nullptr);
    static std::shared_ptr<SharedFile> fileAt(const QString& path);
    void configure();
    void requireKnownVersion();
    void takeForWriting();
    bool isWritable() const;
    void giveBackInPause();
    bool shortenFile();
    void movePages(qint64 freePages);
    qint64 number(const QString& sql);

    QString path_;
    std::shared_ptr<SharedFile> file_;  ///< Above the handle: what was read of a foreign database goes after it.
    SQLite::Database database_;
    KeptStatements kept_{database_};
    LongBinaries longBinaries_;
    qint64 otherChanges_ = 0;
    int openChanges_ = 0;
    bool isTakenForWriting_ = false;
    bool isSpaceToGiveBack_ = false;
    bool isShortenedBySteps_ = false;  ///< Shortening in one go has failed.
    QTimer pause_;
};

/// A change of the file as a whole: without `commit` the destructor takes all of it back. Changes can be nested. When
/// the engine itself has taken the outermost one back (a full or failing disk), every later step in it throws.
class Change {
  public:
    explicit Change(Connection& connection);
    ~Change();
    Change(const Change&) = delete;
    Change& operator=(const Change&) = delete;
    void commit();

  private:
    Connection& connection_;
    bool outermost_;
    bool open_ = true;
};
