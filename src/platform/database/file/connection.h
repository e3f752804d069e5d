#pragma once

#include "platform/base/error.h"
#include "platform/database/dialect/table_layout.h"
#include "platform/database/file/long_binary.h"
#include "platform/database/foreign/foreign_copy.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QHash>
#include <QTimer>

/// One open file: the engine's handle, its settings, and the wording of its failures. Everybody who opens the same file
/// shares one connection, so that all see each other's changes at once and none waits for another's lock.
class Connection {
  public:
    static std::shared_ptr<Connection> open(const QString& path);
    /// Of a file that is open it is not the bytes that are asked: a file of its own on them, closed again, would cost
    /// the engine all its locks.
    static bool isJetFile(const QString& path);
    static std::shared_ptr<Connection> create(const QString& path);
    ~Connection();

    const QString& path() const { return path_; }
    /// The file that the engine reads: another one than `path` for a foreign database.
    QString engineFile() const { return foreign_ ? foreign_->file() : path_; }
    bool isForeign() const { return foreign_ != nullptr; }
    bool isOurs();  ///< Made by this program.
    int version();  ///< Of the file's layout; tells something only of a file of ours.
    /// Throws for a foreign database.
    void requireOurs() const;
    /// Whether the file at `path` has been replaced, or a foreign one changed, since it was opened.
    bool isOutdated() const;
    sqlite3* handle() const { return database_.getHandle(); }
    LongBinaries& longBinaries() { return longBinaries_; }

    /// Where a column is missing, the failure names the `table` too that the statement is about.
    SQLite::Statement prepare(const QString& sql, const QString& table = {});
    void run(const QString& sql, const QString& table = {});
    bool step(SQLite::Statement& statement);
    qint64 lastRowId() const { return database_.getLastInsertRowid(); }

    /// The columns of a table; empty when there is no such table, or when it is one that the engine and the pictures
    /// keep to themselves.
    std::vector<Column> columnsOf(const QString& table);

    /// Grows whenever something in the file changes through this connection.
    qint64 changeCount() const;
    void noteChange() { ++otherChanges_; }

    /// Row identities of a table that somebody has read: no new row gets one of them, even when theirs is gone. So a
    /// set opened earlier never takes another record for its own.
    void noteRowIds(const QString& table, qint64 highest);
    qint64 newRowId(const QString& table);

    /// Gives the space of deleted values back to the disk: all of it where hardly anything lies behind it in the file,
    /// otherwise as far as a tenth of a second goes, and on in the pauses of the program. Within a change, at its end.
    void giveBackSpace();
    /// The same when nothing has been deleted for a second: deleting many single records stays quick.
    void giveBackSpaceLater();

    /// The failure of the last call, as an `Error` that names the file.
    Error error(int code, const QString& table = {}) const;
    Error missingTable(const QString& table) const;

    /// Runs calls of the engine's wrapper; what they throw comes out as `Error`.
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
    Connection(const QString& path, int flags);
    explicit Connection(const QString& path, std::unique_ptr<ForeignCopy> foreign);
    void configure();
    void requireKnownVersion();
    void takeForWriting();
    bool isWritable() const;
    bool shortenFile();
    void movePages(qint64 freePages);
    qint64 number(const QString& sql);

    QString path_;
    std::unique_ptr<ForeignCopy> foreign_;  ///< Closed before it goes.
    SQLite::Database database_;
    LongBinaries longBinaries_;
    qint64 otherChanges_ = 0;
    int openChanges_ = 0;
    bool isTakenForWriting_ = false;
    QHash<QString, qint64> highestRowIds_;  ///< By table, in lower case.
    bool isSpaceToGiveBack_ = false;
    bool isShortenedBySteps_ = false;  ///< All at once has failed.
    QTimer pause_;
};

/// A change of the file that stands or falls as a whole: what is not committed when the object goes is taken back. May
/// stand within another one. Where the engine has taken the outermost one back itself (a full disk, a failing one), all
/// that would follow in it throws.
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
