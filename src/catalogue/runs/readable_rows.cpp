#include "catalogue/runs/readable_rows.h"

#include "catalogue/table_shape.h"
#include "platform/base/error.h"
#include "platform/database/dialect/sql_tokens.h"
#include "platform/database/records/reading_notes.h"
#include "platform/database/records/rows_by_number.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int mostAtOnce = 256;
constexpr qint64 singleSteps = 2000;  ///< More records than a page of the file holds, but for odd ones.
constexpr qint64 farthest = qint64{1} << 48;

}  // namespace

ReadableRows::ReadableRows(const Database& source, const QString& table, const QString& keyField)
    : table_(table), keyField_(keyField) {
    if (source.isForeign()) {
        takeNotes(source);
        return;
    }
    if (!attempt([&] { source.OpenRecordset(allRecordsSql(table, keyField)); })) lookFor(source);
}

std::vector<ReadableRows::Row> ReadableRows::rowsBehind(const Database& source, qint64 identity, int most) const {
    const Recordset read = source.OpenRecordset(
        u"SELECT CAST(_rowid_ AS TEXT) AS place, %1 AS code FROM %2 WHERE _rowid_ > %3 ORDER BY _rowid_ LIMIT %4"_s
            .arg(quotedName(keyField_), quotedName(table_))
            .arg(identity)
            .arg(most));
    std::vector<Row> rows;
    for (int i = 0; i < read.rowCount(); ++i) {
        const std::vector<FieldValue> values = read.valuesAt(i);
        rows.push_back({values[0].toText().toLongLong(), values[1].textOr()});
    }
    return rows;
}

/// Looks for the next record behind one that cannot be read: `found` is empty when there is none. Returns from where it
/// was found.
qint64 ReadableRows::findBehind(const Database& source, qint64 identity, std::vector<Row>& found) const {
    for (qint64 step = 1; identity + step < farthest; step = step < singleSteps ? step + 1 : step * 2)
        if (attempt([&] { found = rowsBehind(source, identity + step, 1); })) return identity + step;
    found.clear();
    return farthest;
}

/// Record by record where many at once cannot be read.
void ReadableRows::lookFor(const Database& source) {
    isListed_ = true;
    qint64 last = -farthest;
    std::optional<QString> lastKey;
    for (int most = mostAtOnce;;) {
        std::vector<Row> found;
        const bool isRead = attempt([&] { found = rowsBehind(source, last, most); });
        if (!isRead && most > 1) {
            most = 1;
            continue;
        }
        if (!isRead) {
            if (last < 0) last = 0;
            findBehind(source, last, found);
            noteGap(lastKey, found.empty() ? std::nullopt : std::optional(found.front().key));
            most = mostAtOnce;
        }
        if (found.empty()) break;
        for (const Row& row : found) rows_.push_back(row.identity);
        last = found.back().identity;
        lastKey = found.back().key;
    }
    if (rows_.empty()) throw Error(u"表“%1”已损坏，其中没有能读取的记录。"_s.arg(table_));
}

void ReadableRows::noteGap(const std::optional<QString>& before, const std::optional<QString>& behind) {
    const auto named = [this](const std::optional<QString>& key) {
        return u"“%1＝%2”"_s.arg(keyField_, key->isEmpty() ? u"（空）"_s : *key);
    };
    if (!before && !behind)
        missing_ << u"所有记录都已损坏，不能读取"_s;
    else if (!before)
        missing_ << named(behind) + u"之前的记录已损坏，不能读取"_s;
    else if (!behind)
        missing_ << named(before) + u"之后的记录已损坏，不能读取"_s;
    else
        missing_ << named(before) + u"与"_s + named(behind) + u"之间的记录已损坏，不能读取"_s;
}

void ReadableRows::takeNotes(const Database& source) {
    const ReadingNotes notes(source);
    const int records = notes.missingRecords(table_);
    if (records > 0) missing_ << u"有 %1 条记录已损坏，不能读取"_s.arg(records);
    if (records < 0) missing_ << u"有些记录已损坏，不能读取"_s;
    for (const ReadingNotes::LostValue& lost : notes.lostValues(table_)) {
        const Recordset record = recordsOfRows(source, table_, {lost.row});
        if (record.Eof()) continue;
        missing_ << u"“%1＝%2”的“%3”已损坏，不能读取"_s.arg(keyField_, record.Fields(keyField_).Value().textOr(),
                                                            lost.column);
    }
}

QString ReadableRows::andAmongThem() const {
    if (!isListed_) return {};
    QStringList places;
    for (const qint64 row : rows_) places << QString::number(row);
    return u" AND _rowid_ IN (%1)"_s.arg(places.join(u','));
}

QString ReadableRows::sql(const QString& orderColumn) const {
    if (!isListed_) return allRecordsSql(table_, orderColumn);
    return allRecordsSql(table_) + u" WHERE 1 = 1"_s + andAmongThem() + u" ORDER BY ["_s + orderColumn + u']';
}
