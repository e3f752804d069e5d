#include "platform/database/records/stored_value.h"

#include "platform/database/file/connection.h"

namespace {

/// A value that is open keeps others from writing.
struct Release {
    LongBinaries& values;
    ~Release() { values.release(); }
};

}  // namespace

qint64 StoredValue::size() const {
    return isNull() ? 0 : connection_->longBinaries().size(key_);
}

QByteArray StoredValue::read(qint64 offset, qint64 count) const {
    if (isNull()) return {};
    const Release after{connection_->longBinaries()};
    return after.values.read(key_, offset, count);
}
