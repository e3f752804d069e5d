#include "platform/database/records/recordset_state.h"

#include "platform/base/error.h"

using namespace Qt::Literals::StringLiterals;

RecordsetState::RecordsetState(std::shared_ptr<Connection> openConnection, const QString& source)
    : connection(std::move(openConnection)), rows(openRows(*connection, source)) {
    if (rows->count() > 0) goTo(0);
}

void RecordsetState::goTo(int newRow) {
    leaveRecord(Place::record, newRow);
    visited = std::max(visited, newRow + 1);
}

void RecordsetState::leaveRecord(Place where, int newRow) {
    cancelUpdate();
    connection->longBinaries().release();
    read_.reset();
    place = rows->count() == 0 ? Place::nowhere : where;
    row = newRow;
}

void RecordsetState::cancelUpdate() {
    mode = Recordset::Mode::none;
    pending.clear();
}

void RecordsetState::update() {
    requireEditing();
    const Recordset::Mode finished = mode;
    const PendingValues values = std::move(pending);
    cancelUpdate();
    if (finished == Recordset::Mode::edit) {
        rows->update(row, values);
        return;
    }
    rows->add(values);
    ++visited;
}

void RecordsetState::remove() {
    requireRecord();
    rows->remove(row);
    if (row < visited) --visited;
    cancelUpdate();
    read_.reset();
    place = Place::gap;
}

void RecordsetState::requireRecord() const {
    if (place != Place::record) throw Error(u"没有当前记录。"_s);
}

void RecordsetState::requireEditing() const {
    if (mode == Recordset::Mode::none) throw Error(u"记录没有处于编辑（Edit）或追加（AddNew）状态。"_s);
}

void RecordsetState::requireUpdatable() const {
    connection->requireOurs();
    rows->requireUpdatable();
}

const Row& RecordsetState::currentRow() {
    requireRecord();
    return valuesOf(row);
}

const Row& RecordsetState::valuesOf(int wanted) {
    if (!read_ || readRow_ != wanted || readAt_ != connection->changeCount()) {
        read_.reset();
        read_ = rows->read(wanted);
        readRow_ = wanted;
        readAt_ = connection->changeCount();
    }
    return *read_;
}

PendingValue* RecordsetState::pendingValue(int index) {
    const auto found = pending.find(index);
    return found == pending.end() ? nullptr : &found->second;
}
