#pragma once

#include "platform/database/foreign/foreign_copy.h"

#include <QHash>
#include <QString>
#include <atomic>
#include <memory>
#include <mutex>

/// What all connections of this process to one file have in common, whatever thread they belong to. It lives as long as
/// one of them. All of it may be used from any thread.
class SharedFile {
  public:
    /// Of the file at `path`, when a connection is open on it and it is still the same file. Opens nothing: closing a
    /// file of its own on the same bytes would cost the engine all its locks.
    static std::shared_ptr<SharedFile> find(const QString& path);
    /// For the first connection. `foreign` holds what was read of a foreign database, otherwise it is null.
    static std::shared_ptr<SharedFile> add(const QString& path, std::unique_ptr<ForeignCopy> foreign = nullptr);

    /// That nobody else finds.
    static std::shared_ptr<SharedFile> alone(const QString& path, std::unique_ptr<ForeignCopy> foreign);

    const ForeignCopy* foreign() const { return foreign_.get(); }

    /// From now on no connection changes the file.
    void keepFromChanges() { isKept_ = true; }
    bool isKeptFromChanges() const { return isKept_; }

    /// Grows with every change that one of the connections has stored.
    qint64 changes() const { return changes_; }
    void noteChange() { ++changes_; }

    /// Notes that somebody has read row identities of a table, up to this one.
    void noteRowIds(const QString& table, qint64 highest);
    /// An identity that nobody has read, above `highest`. Throws `Error` when there is none left.
    qint64 newRowId(const QString& table, qint64 highest);

  private:
    /// Tells a file from another one that comes in its place.
    struct Identity {
        quint64 device = 0;
        quint64 number = 0;
        QString path;  ///< Where the system knows no better.
        bool operator==(const Identity&) const = default;
    };
    static Identity identityOf(const QString& path);
    SharedFile(Identity identity, std::unique_ptr<ForeignCopy> foreign);

    Identity identity_;
    std::unique_ptr<ForeignCopy> foreign_;
    std::atomic<qint64> changes_ = 0;
    std::atomic<bool> isKept_ = false;
    std::mutex mutex_;
    QHash<QString, qint64> highestRowIds_;  ///< By table, in lower case.
};
