#pragma once

#include <QByteArray>
#include <QHash>
#include <memory>

class Connection;

/// The bytes of a long-binary field, apart from their record. They never change, so this can be the key of a cache.
/// Reading may throw `Error`, and is only allowed in the thread that has opened the database.
class StoredValue {
  public:
    StoredValue() = default;  ///< Null.

    bool isNull() const { return key_ == 0; }
    qint64 id() const { return key_; }  ///< Of the value in its file, 0 for Null. It is never used again.
    qint64 size() const;
    /// Fewer bytes at the end of the value, none behind it. Closes the value, so that other programs can write.
    QByteArray read(qint64 offset, qint64 count) const;

    bool operator==(const StoredValue& other) const = default;
    friend size_t qHash(const StoredValue& value, size_t seed = 0) noexcept { return ::qHash(value.key_, seed); }

  private:
    friend class Recordset;
    friend class ValueHashes;
    StoredValue(std::shared_ptr<Connection> connection, qint64 key) : connection_(std::move(connection)), key_(key) {}
    std::shared_ptr<Connection> connection_;
    qint64 key_ = 0;
};
