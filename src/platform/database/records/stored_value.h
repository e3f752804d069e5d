#pragma once

#include <QByteArray>
#include <QHash>
#include <memory>

class Connection;

/// The bytes of a long-binary field, apart from the record that they belong to. They never change: whatever replaces
/// them is another value. So what has been made of them may be kept under this as its key. Reading throws `Error`; it
/// belongs to the thread that has opened the database.
class StoredValue {
  public:
    StoredValue() = default;  ///< Null.

    bool isNull() const { return key_ == 0; }
    qint64 size() const;
    /// Fewer bytes at the end of the value, none behind it. Keeps no other program from writing afterwards.
    QByteArray read(qint64 offset, qint64 count) const;

    bool operator==(const StoredValue& other) const = default;
    friend size_t qHash(const StoredValue& value, size_t seed = 0) noexcept { return ::qHash(value.key_, seed); }

  private:
    friend class Recordset;
    StoredValue(std::shared_ptr<Connection> connection, qint64 key) : connection_(std::move(connection)), key_(key) {}
    std::shared_ptr<Connection> connection_;
    qint64 key_ = 0;
};
