#include "platform/database/records/field_device.h"

#include "platform/base/error.h"
#include "platform/database/records/recordset_state.h"

#include <cstring>

FieldDevice::FieldDevice(const Field& field) : field_(field), size_(field.FieldSize()) {
    QIODevice::open(QIODevice::ReadOnly);
}

FieldDevice::~FieldDevice() {
    field_.state_->connection->longBinaries().release();
}

qint64 FieldDevice::readData(char* data, qint64 maxSize) {
    QByteArray bytes;
    if (!attempt([&] { bytes = field_.GetChunk(pos(), maxSize); })) return -1;
    std::memcpy(data, bytes.constData(), size_t(bytes.size()));
    return bytes.size();
}

qint64 FieldDevice::writeData(const char*, qint64) {
    return -1;
}
