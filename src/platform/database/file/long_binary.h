#pragma once

#include "platform/database/file/value_source.h"

#include <QByteArray>
#include <memory>

struct sqlite3_blob;
class Connection;

/// The bytes of a value that is to be stored: they are in memory, or come from a source.
class PendingBytes {
  public:
    PendingBytes() = default;
    explicit PendingBytes(QByteArray whole) : memory_(std::move(whole)) {}
    explicit PendingBytes(std::unique_ptr<ValueSource> source) : source_(std::move(source)) {}

    qint64 size() const { return source_ ? source_->size() : memory_.size(); }
    void append(const QByteArray& bytes) { memory_ += bytes; }
    const QByteArray& inMemory() const { return memory_; }
    /// Nullptr when the bytes are in memory. Can be read once.
    ValueSource* source() const { return source_.get(); }

  private:
    QByteArray memory_;
    std::unique_ptr<ValueSource> source_;
};

/// The side table of a file's long-binary values. Each value has a key; the rows of the other tables hold these keys. A
/// value never changes: a new value gets a key that was never used before. Reads and writes piece by piece.
class LongBinaries {
  public:
    explicit LongBinaries(Connection& connection);
    ~LongBinaries();

    static QString createTableSql();

    qint64 size(qint64 key);
    /// Fewer bytes at the end of the value, none behind it.
    QByteArray read(qint64 key, qint64 offset, qint64 count);
    /// Lets the disk bring a large value, or so many bytes of it, without waiting for them. The first call for a value
    /// in the life of the connection does so.
    void askFor(qint64 key, qint64 most);
    /// Returns the key of the new value. Called within a change.
    qint64 store(const PendingBytes& value);

    /// Closes the value that is being read. It stays open between two pieces, and keeps other programs from writing: so
    /// call this before a change of the file and when a record is left.
    void release();

  private:
    struct Close {
        void operator()(sqlite3_blob* blob) const;
    };
    using Blob = std::unique_ptr<sqlite3_blob, Close>;

    void fill(qint64 key, ValueSource& source);
    Blob openBlob(qint64 key, bool writable);
    sqlite3_blob* opened(qint64 key);
    void check(int code);

    Connection& connection_;
    Blob open_;
    qint64 openKey_ = 0;
    qint64 measuredKey_ = 0;  ///< The value whose size is known, 0 for none.
    qint64 measuredSize_ = 0;
};
