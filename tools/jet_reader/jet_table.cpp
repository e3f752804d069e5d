#include "jet_table.h"

#include "jet_failure.h"
#include "jet_values.h"
#include "ole_picture.h"
#include "platform/database/file/storage_format.h"

#include <algorithm>
#include <numeric>

namespace {

constexpr unsigned mostColumns = 255;
constexpr unsigned mostIndexes = 1000;
constexpr unsigned mostRowsInPage = 256;
constexpr int deletedMark = 0x8000;    ///< Also that of a moved row at its new place.
constexpr int leadsAwayMark = 0x4000;  ///< There is but the way to the new place of a moved row.

Bytes firstBytes(Bytes bytes, size_t count) {
    if (bytes.size() < count) throw JetFailure{JetOutcome::damaged};
    return bytes.first(count);
}

const MdbColumn& columnAt(const MdbTableDef& table, size_t place) {
    return *static_cast<const MdbColumn*>(g_ptr_array_index(table.columns, place));
}

int sizeOf(const MdbColumn& column, bool wideTexts) {
    return column.col_type == MDB_TEXT && wideTexts ? column.col_size / 2 : column.col_size;
}

size_t placeOf(const JetTable& table, const std::string& name) {
    const auto& columns = table.columns();
    const auto found = std::ranges::find(columns, name, &JetColumn::name);
    if (found == columns.end()) throw JetFailure{JetOutcome::damaged};
    return size_t(found - columns.begin());
}

JetValue jetValue(const ExactValue& number) {
    return std::visit([](const auto& value) { return JetValue(value); }, number);
}

template <typename Kind>
Kind valueAs(const JetTable& table, size_t column) {
    const JetValue value = table.value(column);
    const Kind* kind = std::get_if<Kind>(&value);
    if (!kind) throw JetFailure{JetOutcome::damaged};
    return *kind;
}

}  // namespace

JetTable::JetTable(JetFile& file, unsigned long definitionPage) : file_(file) {
    entry_.mdb = file.handle();
    entry_.object_type = MDB_TABLE;
    entry_.table_pg = definitionPage;
    readDefinition(definitionPage);
    readColumns();
    mdb_rewind_table(table_.get());
}

/// The bytes of a definition, and a look whether all its pages are there: where one is missing, the library reads
/// another one again.
std::vector<unsigned char> JetTable::definition(unsigned long page) {
    constexpr int mostPages = 256;
    constexpr size_t placeOfNext = 4;
    constexpr size_t head = 8;
    std::vector<unsigned char> bytes;
    for (int pages = 0; page != 0; ++pages) {
        if (!file_.hasPage(page)) throw JetFailure{JetOutcome::incomplete};
        if (pages == mostPages || !mdb_read_pg(file_.handle(), page)) throw JetFailure{JetOutcome::damaged};
        const Bytes read(file_.handle()->pg_buf, size_t(file_.handle()->fmt->pg_size));
        const Bytes part = read.subspan(pages == 0 ? 0 : head);
        bytes.insert(bytes.end(), part.begin(), part.end());
        page = numberAt<uint32_t>(read, placeOfNext);
    }
    return bytes;
}

void JetTable::readDefinition(unsigned long page) {
    const std::vector<unsigned char> bytes = definition(page);
    table_.reset(mdb_read_table(&entry_));
    constexpr size_t smallestMap = 5;  // the library looks at so many bytes of it unasked
    const bool plausible = table_ && table_->num_cols <= mostColumns && table_->num_real_idxs <= mostIndexes &&
                           table_->map_sz >= smallestMap;
    if (!plausible) throw JetFailure{JetOutcome::damaged};
    if (!mdb_read_columns(table_.get())) throw JetFailure{JetOutcome::damaged};
    orderByDesign(bytes);
}

/// The definition lists the columns in the order of their design. A number, which the library sorts them by, tells how
/// the rows hold them.
void JetTable::orderByDesign(Bytes definition) {
    const MdbFormatConstants& form = *file_.handle()->fmt;
    const size_t entries =
        size_t(form.tab_cols_start_offset) + size_t{table_->num_real_idxs} * size_t(form.tab_ridx_entry_size);
    std::vector<size_t> unused(table_->num_cols);
    std::iota(unused.begin(), unused.end(), 0);
    for (size_t i = 0; i < table_->num_cols; ++i) {
        const size_t at = entries + i * size_t(form.tab_col_entry_size) + size_t(form.col_num_offset);
        if (at >= definition.size()) throw JetFailure{JetOutcome::damaged};
        const auto found = std::ranges::find_if(
            unused, [&](size_t place) { return columnAt(*table_, place).col_num == definition[at]; });
        if (found == unused.end()) throw JetFailure{JetOutcome::damaged};
        places_.push_back(*found);
        unused.erase(found);
    }
}

void JetTable::readColumns() {
    for (const size_t place : places_) {
        const MdbColumn& column = columnAt(*table_, place);
        JetColumn read{column.name, {}, column.col_type, sizeOf(column, file_.isJet4()), column.col_prec};
        if (!file_.isJet4()) {
            read.nameBytes = latin1Bytes(column.name);
            read.name = file_.text(read.nameBytes);
        }
        columns_.push_back(std::move(read));
    }
    fields_.resize(columns_.size());
}

bool JetTable::next() {
    for (int entry = 0; nextEntry(entry);) {
        if (!(entry & deletedMark) && cutEntry(entry)) {
            ++rows_;
            return true;
        }
    }
    return false;
}

/// A number that the file has no room for is as damaged as the rows.
int64_t JetTable::missingRows() const {
    if (rows_ >= table_->num_rows) return 0;
    const uint64_t missing = table_->num_rows - rows_;
    return missing <= file_.pages() * mostRowsInPage ? int64_t(missing) : -1;
}

/// Goes to the next entry of the table's pages, and gives its place and marks. One that cannot be has that of a deleted
/// row.
bool JetTable::nextEntry(int& entry) {
    if (isAway_ && !mdb_read_pg(file_.handle(), table_->cur_phys_pg)) pageRow_ = pageRows_;
    isAway_ = false;
    while (pageRow_ == pageRows_) {
        if (!mdb_read_next_dpg(table_.get())) return false;
        const MdbFormatConstants& form = *file_.handle()->fmt;
        const auto rows =
            numberAt<uint16_t>(Bytes(file_.handle()->pg_buf, size_t(form.pg_size)), size_t(form.row_count_offset));
        pageRows_ = std::min<unsigned>(rows, mostRowsInPage);
        pageRow_ = 0;
    }
    size_ = 0;
    if (mdb_find_row(file_.handle(), int(pageRow_++), &entry, &size_) != 0) entry = deletedMark;
    return true;
}

/// False where the row is damaged.
bool JetTable::cutEntry(int entry) {
    try {
        if (entry & leadsAwayMark) entry = follow(entry & rowPlaceMask);
        cutRow(entry & rowPlaceMask);
        return true;
    } catch (const JetFailure&) {
        return false;
    }
}

/// A row that has become too long for its page is on another one.
int JetTable::follow(int place) {
    constexpr size_t lengthOfWay = 4;
    const Bytes page(file_.handle()->pg_buf, size_t(file_.handle()->fmt->pg_size));
    if (size_t(place) + lengthOfWay > page.size()) throw JetFailure{JetOutcome::damaged};
    const auto way = numberAt<uint32_t>(page, size_t(place));
    if (!file_.hasPage(way >> 8)) throw JetFailure{JetOutcome::incomplete};
    isAway_ = true;
    int entry = 0;
    const bool isThere = mdb_read_pg(file_.handle(), way >> 8) && file_.handle()->pg_buf[0] == MDB_PAGE_DATA &&
                         mdb_find_row(file_.handle(), int(way & 0xFF), &entry, &size_) == 0;
    if (!isThere || (entry & leadsAwayMark)) throw JetFailure{JetOutcome::damaged};
    return entry;
}

void JetTable::cutRow(int place) {
    if (mdb_crack_row(table_.get(), place, size_, fields_.data()) < 0) throw JetFailure{JetOutcome::damaged};
}

/// What the row holds of a value that is not Null.
Bytes JetTable::bytesOf(size_t column) const {
    const MdbField& field = fields_[places_[column]];
    const auto pageSize = size_t(file_.handle()->fmt->pg_size);
    const auto start = size_t(field.start);
    const auto size = size_t(field.siz);
    if (field.start < 0 || field.siz < 0 || start + size > pageSize) throw JetFailure{JetOutcome::damaged};
    return {file_.handle()->pg_buf + start, size};
}

std::vector<unsigned char> JetTable::textBytes(size_t column) const {
    if (fields_[places_[column]].is_null) return {};
    if (columns_[column].type == MDB_MEMO) return file_.longValue(bytesOf(column));
    if (columns_[column].type != MDB_TEXT) return {};
    const Bytes bytes = bytesOf(column);
    return {bytes.begin(), bytes.end()};
}

JetValue JetTable::value(size_t column) const {
    const MdbField& field = fields_[places_[column]];
    const JetColumn& form = columns_[column];
    if (form.type == MDB_BOOL) return int64_t{field.is_null ? 0 : 1};  // the mark of Null is its value
    if (field.is_null) return {};

    const Bytes bytes = bytesOf(column);
    switch (form.type) {
        case MDB_BYTE:
            return int64_t{firstBytes(bytes, 1)[0]};
        case MDB_INT:
            return int64_t{numberAt<int16_t>(firstBytes(bytes, 2), 0)};
        case MDB_LONGINT:
            return int64_t{numberAt<int32_t>(firstBytes(bytes, 4), 0)};
        case MDB_MONEY:
            return jetValue(currencyValue(firstBytes(bytes, 8)));
        case MDB_FLOAT:
            return shortestDecimal(numberAt<float>(firstBytes(bytes, 4), 0));
        case MDB_DOUBLE:
            return numberAt<double>(firstBytes(bytes, 8), 0);
        case MDB_DATETIME: {
            const auto days = numberAt<double>(firstBytes(bytes, 8), 0);
            if (auto date = dateText(days)) return std::move(*date);
            return days;
        }
        case MDB_BINARY:
            return std::vector<unsigned char>(bytes.begin(), bytes.end());
        case MDB_TEXT:
        case MDB_MEMO:
            return file_.text(textBytes(column));
        case MDB_OLE:
            return pictureOf(file_.longValue(bytes));
        case MDB_REPID:
            return guidText(firstBytes(bytes, 16));
        case MDB_NUMERIC:
            return jetValue(decimalValue(firstBytes(bytes, 17), form.scale));
        default:
            throw JetFailure{JetOutcome::damaged};
    }
}

TableList userTables(JetFile& file) {
    constexpr unsigned long cataloguePage = 2;
    constexpr int64_t kindMask = 0x7F;
    constexpr int64_t systemFlags = 0x80000002;
    constexpr int64_t pageMask = 0x00FFFFFF;
    JetTable objects(file, cataloguePage);
    const size_t id = placeOf(objects, "Id");
    const size_t name = placeOf(objects, "Name");
    const size_t kind = placeOf(objects, "Type");
    const size_t flags = placeOf(objects, "Flags");
    TableList list;
    while (objects.next()) {
        try {
            if ((valueAs<int64_t>(objects, kind) & kindMask) != MDB_TABLE) continue;
            if (valueAs<int64_t>(objects, flags) & systemFlags) continue;
            list.tables.push_back({valueAs<std::string>(objects, name), objects.textBytes(name),
                                   static_cast<unsigned long>(valueAs<int64_t>(objects, id) & pageMask)});
        } catch (const JetFailure&) {
            list.isWhole = false;
        }
    }
    if (objects.missingRows() != 0) list.isWhole = false;
    return list;
}
