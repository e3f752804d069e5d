#pragma once

#include <QByteArray>
#include <QTemporaryFile>
#include <memory>

struct sqlite3_blob;
class Connection;

/// The pieces of a value that is being put together: in memory while they are few, in a scratch file from then on.
class Spool {
  public:
    Spool() = default;
    explicit Spool(QByteArray whole) : memory_(std::move(whole)) {}

    qint64 size() const { return file_ ? file_->size() : memory_.size(); }
    /// Throws `Error` when the scratch file cannot be written: the value is broken from then on.
    void append(const QByteArray& bytes);
    bool isBroken() const { return broken_; }
    QByteArray read(qint64 offset, qint64 count) const;
    /// The whole value when it lies in memory.
    const QByteArray* inMemory() const { return file_ ? nullptr : &memory_; }

  private:
    void write(const QByteArray& piece);
    QByteArray memory_;
    std::unique_ptr<QTemporaryFile> file_;
    bool broken_ = false;
};

/// The side table in which the long-binary values of a file lie, each under a key of its own; the rows of the other
/// tables hold these keys. A value never changes: a new one takes its place, under a key that was never used before.
/// Reads and writes by pieces.
class LongBinaries {
  public:
    explicit LongBinaries(Connection& connection);
    ~LongBinaries();

    static QString createTableSql();

    qint64 size(qint64 key);
    /// Fewer bytes at the end of the value, none behind it.
    QByteArray read(qint64 key, qint64 offset, qint64 count);
    /// Returns the key of the new value. Called within a change.
    qint64 store(const Spool& value);

    /// A value that is being read by pieces stays open until its last one. Whoever changes the file, or leaves the
    /// record, closes it: it would keep other programs from writing.
    void release();

  private:
    struct Close {
        void operator()(sqlite3_blob* blob) const;
    };
    using Blob = std::unique_ptr<sqlite3_blob, Close>;

    Blob openBlob(qint64 key, bool writable);
    sqlite3_blob* opened(qint64 key);
    void check(int code);

    Connection& connection_;
    Blob open_;
    qint64 openKey_ = 0;
    qint64 measuredKey_ = 0;  ///< The value whose size is known, 0 for none.
    qint64 measuredSize_ = 0;
};
