#include "platform/database/file/long_binary.h"

#include "platform/base/error.h"
#include "platform/database/file/connection.h"
#include "platform/database/file/disk_ahead.h"
#include "platform/database/file/storage_format.h"

#include <sqlite3.h>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint64 pieceSize = 1 << 18;

/// A place in the first of the pages that hold nothing but a large value; its beginning shares a page with others.
constexpr qint64 firstPageBehind = 16384;

}  // namespace

LongBinaries::LongBinaries(Connection& connection) : connection_(connection) {}
LongBinaries::~LongBinaries() = default;

void LongBinaries::Close::operator()(sqlite3_blob* blob) const {
    sqlite3_blob_close(blob);
}

QString LongBinaries::createTableSql() {
    return QString::fromLatin1(createLongBinarySql);
}

qint64 LongBinaries::size(qint64 key) {
    if (measuredKey_ != key) {
        measuredSize_ = sqlite3_blob_bytes(openBlob(key, false).get());
        measuredKey_ = key;
    }
    return measuredSize_;
}

void LongBinaries::release() {
    open_.reset();
    measuredKey_ = 0;
}

QByteArray LongBinaries::read(qint64 key, qint64 offset, qint64 count) {
    if (offset < 0 || count < 0) throw Error(u"二进制数据的读取位置不对。"_s);
    const qint64 whole = size(key);
    QByteArray bytes(std::clamp<qint64>(whole - offset, 0, count), Qt::Uninitialized);
    if (!bytes.isEmpty()) {
        check(sqlite3_blob_read(opened(key), bytes.data(), int(bytes.size()), int(offset)));
    }
    if (offset + count >= whole) open_.reset();
    return bytes;
}

void LongBinaries::askFor(qint64 key, qint64 most) {
    const Blob blob = openBlob(key, false);
    const qint64 whole = sqlite3_blob_bytes(blob.get());
    if (whole <= 2 * firstPageBehind) return;
    const DiskAhead ahead(std::min(whole, most));
    char byte = 0;
    check(sqlite3_blob_read(blob.get(), &byte, 1, int(firstPageBehind)));
}

qint64 LongBinaries::store(const PendingBytes& value) {
    const QByteArray& whole = value.inMemory();
    auto insert =
        connection_.kept(value.source() == nullptr ? u"INSERT INTO long_binary (bytes) VALUES (?)"_s
                                                   : u"INSERT INTO long_binary (bytes) VALUES (zeroblob(?))"_s);
    connection_.checked([&] {
        if (value.source() == nullptr)
            insert->bindNoCopy(1, whole.isEmpty() ? "" : whole.constData(), int(whole.size()));
        else
            insert->bind(1, int64_t(value.size()));
        insert->exec();
    });
    const qint64 key = connection_.lastRowId();
    if (value.source() != nullptr) fill(key, *value.source());
    return key;
}

void LongBinaries::fill(qint64 key, ValueSource& source) {
    const Blob blob = openBlob(key, true);
    QByteArray piece(pieceSize, Qt::Uninitialized);
    for (qint64 offset = 0; offset < source.size(); offset += pieceSize) {
        const qint64 count = std::min(pieceSize, source.size() - offset);
        source.read(piece.data(), count);
        check(sqlite3_blob_write(blob.get(), piece.constData(), int(count), int(offset)));
    }
}

LongBinaries::Blob LongBinaries::openBlob(qint64 key, bool writable) {
    sqlite3_blob* blob = nullptr;
    const int code =
        sqlite3_blob_open(connection_.handle(), "main", "long_binary", "bytes", key, writable ? 1 : 0, &blob);
    Blob owner(blob);
    if (code == SQLITE_ERROR)
        throw Error(u"数据库文件“%1”中缺少编号为 %2 的二进制数据。"_s.arg(connection_.path(), QString::number(key)));
    check(code);
    return owner;
}

sqlite3_blob* LongBinaries::opened(qint64 key) {
    if (!open_ || openKey_ != key) {
        open_ = openBlob(key, false);
        openKey_ = key;
    }
    return open_.get();
}

void LongBinaries::check(int code) {
    if (code != SQLITE_OK) throw connection_.error(code);
}
