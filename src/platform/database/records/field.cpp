#include "platform/base/error.h"
#include "platform/database/records/recordset_state.h"
#include "platform/database/records/value_conversion.h"

using namespace Qt::Literals::StringLiterals;

namespace {

void requireLongBinary(const Column& column) {
    if (column.type != FieldType::longBinary) throw Error(u"列“%1”不是二进制列。"_s.arg(column.name));
}

void requireInMemory(const PendingBytes& bytes) {
    if (bytes.source() != nullptr) throw Error(u"记录还没有保存，它的二进制数据不能读取或续写。"_s);
}

/// Key of the long-binary value that the file holds for the current record, 0 for Null and in a record not yet stored.
qint64 storedKey(RecordsetState& state, int column) {
    if (state.mode == Recordset::Mode::add) return 0;
    return state.currentRow()[size_t(column)].longBinaryKey;
}

}  // namespace

QString Field::Name() const {
    return state_->column(column_).name;
}

FieldType Field::Type() const {
    return state_->column(column_).type;
}

int Field::Size() const {
    return state_->column(column_).size;
}

FieldValue Field::Value() const {
    if (Type() == FieldType::longBinary) return isNull() ? FieldValue() : FieldValue(GetChunk(0, FieldSize()));
    if (const PendingValue* pending = state_->pendingValue(column_)) return pending->value;
    if (state_->mode == Recordset::Mode::add) return {};
    return state_->currentRow()[size_t(column_)].value;
}

void Field::SetValue(const FieldValue& value) {
    state_->requireEditing();
    const FieldValue fit = fitted(state_->column(column_), value);
    const bool bytes = Type() == FieldType::longBinary && !fit.isNull();
    PendingValue& pending = state_->pending[column_];
    pending.value = bytes ? FieldValue() : fit;
    pending.bytes = bytes ? std::make_unique<PendingBytes>(fit.toBytes()) : nullptr;
}

bool Field::isNull() const {
    if (Type() != FieldType::longBinary) return Value().isNull();
    if (const PendingValue* pending = state_->pendingValue(column_)) return pending->bytes == nullptr;
    return storedKey(*state_, column_) == 0;
}

qint64 Field::FieldSize() const {
    requireLongBinary(state_->column(column_));
    if (const PendingValue* pending = state_->pendingValue(column_)) return pending->bytes ? pending->bytes->size() : 0;
    const qint64 key = storedKey(*state_, column_);
    return key == 0 ? 0 : state_->connection->longBinaries().size(key);
}

QByteArray Field::GetChunk(qint64 offset, qint64 count) const {
    requireLongBinary(state_->column(column_));
    if (const PendingValue* pending = state_->pendingValue(column_)) {
        if (!pending->bytes) return {};
        requireInMemory(*pending->bytes);
        return pending->bytes->inMemory().mid(offset, count);
    }
    const qint64 key = storedKey(*state_, column_);
    return key == 0 ? QByteArray() : state_->connection->longBinaries().read(key, offset, count);
}

void Field::AppendChunk(const QByteArray& bytes) {
    requireLongBinary(state_->column(column_));
    state_->requireEditing();
    PendingValue& pending = state_->pending[column_];
    if (!pending.bytes) pending.bytes = std::make_unique<PendingBytes>();
    requireInMemory(*pending.bytes);
    pending.bytes->append(bytes);
}

void Field::TakeFrom(std::unique_ptr<ValueSource> source) {
    requireLongBinary(state_->column(column_));
    state_->requireEditing();
    state_->pending[column_] = {FieldValue(), std::make_unique<PendingBytes>(std::move(source))};
}
