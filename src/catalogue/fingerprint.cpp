#include "catalogue/fingerprint.h"

#include "platform/base/error.h"
#include "platform/base/system_reason.h"
#include "platform/database/records/stored_value.h"

#include <openssl/evp.h>

#include <QIODevice>
#include <algorithm>
#include <array>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint64 pieceSize = 256 << 10;
constexpr qint64 endSize = 32 << 10;  ///< More than the tail of a stored picture up to 500 MB.

void check(int outcome) {
    if (outcome != 1) throw Error(u"图片的特征码不能计算。"_s);
}

qint64 lengthWithoutZeros(QByteArrayView bytes) {
    const auto last = std::find_if(bytes.rbegin(), bytes.rend(), [](char byte) { return byte != '\0'; });
    return bytes.rend() - last;
}

QByteArray readFrom(QIODevice& file, qint64 offset, qint64 count) {
    QByteArray bytes(count, Qt::Uninitialized);
    if (!file.seek(offset) || file.read(bytes.data(), count) != count)
        throw Error(u"文件没有读完：%1。"_s.arg(systemReason(file.errorString())));
    return bytes;
}

QByteArray readFrom(const StoredValue& value, qint64 offset, qint64 count) {
    return value.read(offset, count);
}

template <typename Source>
Fingerprint fingerprintBy(Source& source, const GoesOn& goesOn) {
    FingerprintMaker maker;
    const qint64 whole = source.size();
    for (qint64 offset = 0; offset < whole; offset += pieceSize) {
        if (!goesOn()) return {};
        maker.add(readFrom(source, offset, std::min(pieceSize, whole - offset)));
    }
    return maker.finish();
}

template <typename Source>
qint64 lengthBy(Source& source) {
    for (qint64 end = source.size(); end > 0; end -= std::min(end, endSize)) {
        const qint64 count = std::min(end, endSize);
        const qint64 length = lengthWithoutZeros(readFrom(source, end - count, count));
        if (length > 0) return end - count + length;
    }
    return 0;
}

bool always() {
    return true;
}

}  // namespace

void FingerprintMaker::Free::operator()(evp_md_ctx_st* hash) const {
    EVP_MD_CTX_free(hash);
}

FingerprintMaker::FingerprintMaker() : hash_(EVP_MD_CTX_new()) {
    check(hash_ ? EVP_DigestInit_ex(hash_.get(), EVP_sha256(), nullptr) : 0);
}

void FingerprintMaker::add(QByteArrayView piece) {
    static constexpr std::array<char, 4096> zeros{};
    const qint64 length = lengthWithoutZeros(piece);
    if (length > 0) {
        for (; zeros_ > 0; zeros_ -= std::min(zeros_, qint64(zeros.size())))
            feed(QByteArrayView(zeros).first(std::min(zeros_, qint64(zeros.size()))));
        feed(piece.first(length));
    }
    zeros_ += piece.size() - length;
}

void FingerprintMaker::feed(QByteArrayView bytes) {
    check(EVP_DigestUpdate(hash_.get(), bytes.data(), size_t(bytes.size())));
    length_ += bytes.size();
}

Fingerprint FingerprintMaker::finish() {
    std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
    unsigned int size = 0;
    check(EVP_DigestFinal_ex(hash_.get(), digest.data(), &size));
    return {length_, QByteArray(reinterpret_cast<const char*>(digest.data()), size)};
}

Fingerprint fingerprintOf(QByteArrayView bytes) {
    FingerprintMaker maker;
    maker.add(bytes);
    return maker.finish();
}

Fingerprint fingerprintOf(const StoredValue& value) {
    return fingerprintBy(value, always);
}

Fingerprint fingerprintOf(QIODevice& file) {
    return fingerprintBy(file, always);
}

Fingerprint fingerprintOf(const StoredValue& value, const GoesOn& goesOn) {
    return fingerprintBy(value, goesOn);
}

Fingerprint fingerprintOf(QIODevice& file, const GoesOn& goesOn) {
    return fingerprintBy(file, goesOn);
}

qint64 lengthWithoutZeros(const StoredValue& value) {
    return lengthBy(value);
}

qint64 lengthWithoutZeros(QIODevice& file) {
    return lengthBy(file);
}
