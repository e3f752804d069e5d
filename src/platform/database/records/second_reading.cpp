#include "platform/database/records/second_reading.h"

#include "platform/database/foreign/foreign_copy.h"

#include <QtEndian>

SecondReading::SecondReading(const QString& path)
    : path_(path), reading_(std::async(std::launch::async, [path] {
          return std::make_unique<ForeignCopy>(path, ForeignCopy::LongValues::hashes);
      })) {}

Database SecondReading::take() {
    return ValueHashes::ofForeign(path_, reading_.get());
}

ValueHashes::Kept SecondReading::hashOf(const StoredValue& value) {
    constexpr qint64 lengthBytes = 8, hashBytes = 32;
    const QByteArray bytes = value.read(0, lengthBytes + hashBytes);
    if (bytes.size() < lengthBytes + hashBytes) return {};
    return {qFromLittleEndian<qint64>(bytes.constData()), bytes.mid(lengthBytes)};
}
