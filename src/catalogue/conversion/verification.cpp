#include "catalogue/conversion/verification.h"

#include "catalogue/picture_hashes.h"
#include "catalogue/table_shape.h"
#include "platform/base/error.h"
#include "platform/database/records/second_reading.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int rowsInAChange = 256;
const QString picture = u"图片"_s;

bool hasPictures(const Database& database, const QString& table) {
    return fieldNamed(shapeOf(database, table), picture).has_value();
}

}  // namespace

Verification::Verification(const Database& secondReading, const Database& target, std::vector<TablePair> tables)
    : secondReading_(secondReading), target_(target), tables_(std::move(tables)) {}

Fingerprint Verification::read(const StoredValue& value) const {
    const ValueHashes::Kept hash = SecondReading::hashOf(value);
    return {hash.length, hash.sha256};
}

/// What cannot be read is not in the new catalogue either.
Fingerprint Verification::printAt(const Recordset& secondReading, int row) const {
    Fingerprint print;
    attempt([&] {
        const StoredValue value = secondReading.storedAt(row, picture);
        if (!value.isNull()) {
            print = read(value);
            return;
        }
        const FieldValue inTheRow = secondReading.valueAt(row, picture);
        if (const auto* bytes = std::get_if<QByteArray>(&inTheRow.storage())) print = fingerprintOf(*bytes);
    });
    return print;
}

void Verification::run(RunReport& report, RunWatch& watch, int begun, const QString& consequence) {
    begun_ = begun;
    report.stopped = !compareAll(watch);
    report.verified = verified_;
    if (!difference_.isEmpty())
        report.failure = u"核对时发现：%1。磁盘或内存可能有毛病%2。"_s.arg(difference_, consequence);
    report.cameToEnd = !report.stopped && report.failure.isEmpty();
}

bool Verification::compareAll(RunWatch& watch) {
    for (const TablePair& pair : tables_) progress_.all += target_.OpenRecordset(allRecordsSql(pair.target)).rowCount();
    return std::ranges::all_of(tables_,
                               [&](const TablePair& pair) { return !difference_.isEmpty() || compare(pair, watch); });
}

bool Verification::compare(const TablePair& pair, RunWatch& watch) {
    const Recordset old = secondReading_.OpenRecordset(pair.source.isEmpty() ? allRecordsSql(pair.old) : pair.source);
    const Recordset target = target_.OpenRecordset(allRecordsSql(pair.target));
    const int expected = old.rowCount() - int(pair.skipped.size());
    if (expected != target.rowCount())
        difference_ = u"表 %1 有 %2 条记录，第二次读取有 %3 条"_s.arg(pair.target).arg(target.rowCount()).arg(expected);
    const int rows = hasPictures(secondReading_, pair.old) && hasPictures(target_, pair.target) ? target.rowCount() : 0;
    int oldRow = 0;
    for (int row = 0; row < rows && difference_.isEmpty();) {
        Transaction kept(target_);
        for (const int end = std::min(row + rowsInAChange, rows); row < end && difference_.isEmpty(); ++row, ++oldRow) {
            while (pair.skipped.contains(oldRow)) ++oldRow;
            difference_ = differenceAt(old, oldRow, target, row, pair);
            if (!difference_.isEmpty())
                difference_ = u"表 %1 第 %2 条记录的图片%3"_s.arg(pair.target).arg(row + 1).arg(difference_);
            ++progress_.done;
            constexpr qsizetype all = 100;
            progress_.percent = int(begun_ + progress_.done * (all - begun_) / progress_.all);
            if (!watch.progress(progress_)) return false;
        }
        kept.commit();
    }
    return true;
}

QString Verification::differenceAt(const Recordset& old, int oldRow, const Recordset& target, int row,
                                   const TablePair& pair) {
    const StoredValue stored = target.storedAt(row, picture);
    const Fingerprint expected = printAt(old, oldRow);
    if (stored.isNull() != expected.sha256.isEmpty()) return u"与原来的不同"_s;
    if (stored.isNull()) return {};
    progress_.bytes += stored.size();
    if (fingerprintOf(stored) != expected) return u"与原来的不同"_s;
    PictureHashes(target_).note(stored, kept(pair, oldRow, old.storedAt(oldRow, picture), expected));
    verified_ += pair.isAlbum ? 1 : 0;
    return {};
}
