#include "platform/database/records/recordset.h"

#include "platform/base/error.h"
#include "platform/database/records/recordset_state.h"

using namespace Qt::Literals::StringLiterals;

using Place = RecordsetState::Place;

namespace {

RecordsetState& required(const std::unique_ptr<RecordsetState>& state) {
    if (!state) throw Error(u"记录集没有打开。"_s);
    return *state;
}

void requireRows(const RecordsetState& state) {
    if (state.rows->count() == 0) throw Error(u"记录集中没有记录。"_s);
}

int requiredColumn(const RecordsetState& state, const QString& name) {
    const int index = columnIndex(state.columns(), name);
    if (index < 0) throw Error(u"记录集中没有列“%1”。"_s.arg(name));
    return index;
}

void requireRow(const RecordsetState& state, int row) {
    if (row < 0 || row >= state.rows->count()) throw Error(u"没有第 %1 条记录。"_s.arg(row + 1));
}

}  // namespace

Recordset::Recordset() = default;
Recordset::~Recordset() = default;
Recordset::Recordset(Recordset&& other) noexcept = default;
Recordset& Recordset::operator=(Recordset&& other) noexcept = default;
Recordset::Recordset(std::unique_ptr<RecordsetState> state) : state_(std::move(state)) {}

int Recordset::RecordCount() const {
    return required(state_).visited;
}

bool Recordset::Eof() const {
    const Place place = required(state_).place;
    return place == Place::behind || place == Place::nowhere;
}

bool Recordset::Bof() const {
    const Place place = required(state_).place;
    return place == Place::before || place == Place::nowhere;
}

void Recordset::MoveFirst() {
    moveToRow(0);
}

void Recordset::MoveLast() {
    moveToRow(rowCount() - 1);
}

void Recordset::MoveNext() {
    RecordsetState& state = required(state_);
    if (Eof()) throw Error(u"已在最后一条记录之后。"_s);
    const int next = state.place == Place::before ? 0 : state.place == Place::gap ? state.row : state.row + 1;
    if (next < state.rows->count())
        state.goTo(next);
    else
        state.leaveRecord(Place::behind, state.rows->count());
}

void Recordset::MovePrevious() {
    RecordsetState& state = required(state_);
    if (Bof()) throw Error(u"已在第一条记录之前。"_s);
    const int previous = (state.place == Place::behind ? state.rows->count() : state.row) - 1;
    if (previous >= 0)
        state.goTo(previous);
    else
        state.leaveRecord(Place::before, -1);
}

void Recordset::FindFirst(const QString& criteria) {
    RecordsetState& state = required(state_);
    const Tokens tokens = tokensOf(criteria);
    if (tokens.empty()) throw Error(u"没有查找条件。"_s);
    CancelUpdate();
    const int found = state.rows->firstMatch(tokens);
    state.noMatch = found < 0;
    if (found >= 0) state.goTo(found);
}

bool Recordset::NoMatch() const {
    return required(state_).noMatch;
}

Field Recordset::Fields(const QString& name) const {
    RecordsetState& state = required(state_);
    return {state, requiredColumn(state, name)};
}

Field Recordset::Fields(int index) const {
    RecordsetState& state = required(state_);
    if (index < 0 || index >= FieldCount()) throw Error(u"记录集中没有第 %1 列。"_s.arg(index + 1));
    return {state, index};
}

int Recordset::FieldCount() const {
    return int(required(state_).columns().size());
}

void Recordset::AddNew() {
    RecordsetState& state = required(state_);
    state.requireUpdatable();
    state.cancelUpdate();
    state.mode = Mode::add;
    for (int i = 0; i < FieldCount(); ++i) {
        if (state.column(i).type == FieldType::boolean) state.pending[i].value = FieldValue(false);
    }
}

void Recordset::Edit() {
    RecordsetState& state = required(state_);
    state.requireUpdatable();
    state.cancelUpdate();
    state.currentRow();  // throws when the record is gone
    state.mode = Mode::edit;
}

void Recordset::Update() {
    required(state_).update();
}

void Recordset::CancelUpdate() {
    required(state_).cancelUpdate();
}

void Recordset::Delete() {
    RecordsetState& state = required(state_);
    state.requireUpdatable();
    state.remove();
}

Recordset::Mode Recordset::EditMode() const {
    return required(state_).mode;
}

int Recordset::rowCount() const {
    return required(state_).rows->count();
}

int Recordset::row() const {
    const RecordsetState& state = required(state_);
    return state.place == Place::record ? state.row : -1;
}

void Recordset::moveToRow(int row) {
    RecordsetState& state = required(state_);
    requireRows(state);
    requireRow(state, row);
    state.goTo(row);
}

std::vector<FieldValue> Recordset::valuesAt(int row) const {
    RecordsetState& state = required(state_);
    requireRow(state, row);
    std::vector<FieldValue> values;
    for (const Cell& cell : state.valuesOf(row)) values.push_back(cell.value);
    return values;
}

Cell Recordset::cellAt(int row, const QString& column) const {
    RecordsetState& state = required(state_);
    requireRow(state, row);
    const auto index = size_t(requiredColumn(state, column));
    return state.valuesOf(row)[index];
}

FieldValue Recordset::valueAt(int row, const QString& column) const {
    return cellAt(row, column).value;
}

StoredValue Recordset::storedAt(int row, const QString& column) const {
    const qint64 key = cellAt(row, column).longBinaryKey;
    return key == 0 ? StoredValue() : StoredValue(state_->connection, key);
}
