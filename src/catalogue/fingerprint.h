#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QHashFunctions>
#include <functional>
#include <memory>

class QIODevice;
class StoredValue;
struct evp_md_ctx_st;

/// By what two pictures are the same: the length in bytes and the SHA-256 of their bytes without the zeros at the end.
/// A stored picture has such zeros (see `storedLength`) where its file has none.
struct Fingerprint {
    qint64 length = 0;
    QByteArray sha256 = {};  ///< 32 bytes.

    bool operator==(const Fingerprint&) const = default;
    friend size_t qHash(const Fingerprint& print, size_t seed = 0) noexcept { return qHash(print.sha256, seed); }
};

/// Makes the fingerprint of bytes that come piece by piece. Throws `Error` when the library cannot.
class FingerprintMaker {
  public:
    FingerprintMaker();
    void add(QByteArrayView piece);
    /// Of all that was added. Nothing can be added any more.
    Fingerprint finish();

  private:
    struct Free {
        void operator()(evp_md_ctx_st* hash) const;
    };
    void feed(QByteArrayView bytes);

    std::unique_ptr<evp_md_ctx_st, Free> hash_;
    qint64 length_ = 0;
    qint64 zeros_ = 0;  ///< Zeros that came last. They count as soon as another byte follows.
};

Fingerprint fingerprintOf(QByteArrayView bytes);

/// The same of a stored value and of an open file, read from first to last in pieces, and the length alone, for which
/// only the end is read. Throw `Error` when they cannot be read.
Fingerprint fingerprintOf(const StoredValue& value);
Fingerprint fingerprintOf(QIODevice& file);
qint64 lengthWithoutZeros(const StoredValue& value);
qint64 lengthWithoutZeros(QIODevice& file);

/// The same, but before each piece `goesOn` is asked. A fingerprint is empty (it has no `sha256`) when it said no.
using GoesOn = std::function<bool()>;
Fingerprint fingerprintOf(const StoredValue& value, const GoesOn& goesOn);
Fingerprint fingerprintOf(QIODevice& file, const GoesOn& goesOn);
