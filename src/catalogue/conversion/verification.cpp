#include "catalogue/conversion/verification.h"

#include "catalogue/decoding_threads.h"
#include "catalogue/picture_hashes.h"
#include "catalogue/table_shape.h"
#include "platform/base/error.h"
#include "platform/database/records/second_reading.h"

#include <algorithm>
#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString pictureColumn = u"图片"_s;

bool hasPictures(const Database& database, const QString& table) {
    return fieldNamed(shapeOf(database, table), pictureColumn).has_value();
}

}  // namespace

Verification::Verification(const Database& secondReading, const Database& target, std::vector<TablePair> tables)
    : secondReading_(secondReading), target_(target), tables_(std::move(tables)) {}

Fingerprint Verification::read(const StoredValue& value, const Fingerprint&) const {
    const ValueHashes::Kept hash = SecondReading::hashOf(value);
    return {hash.length, hash.sha256};
}

/// What cannot be read is not in the new catalogue either.
Fingerprint Verification::printAt(const Recordset& secondReading, int row, const Fingerprint& stored) const {
    Fingerprint print;
    attempt([&] {
        const StoredValue value = secondReading.storedAt(row, pictureColumn);
        if (!value.isNull()) {
            print = read(value, stored);
            return;
        }
        const FieldValue inTheRow = secondReading.valueAt(row, pictureColumn);
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
    const bool isEmpty = target.rowCount() == 0 || !difference_.isEmpty();
    if (isEmpty || !hasPictures(secondReading_, pair.old) || !hasPictures(target_, pair.target)) return true;
    const bool goesOn = comparePictures(pair, old, target, watch);
    // What was stopped, or is not the same, is told of in any case.
    if (goesOn && difference_.isEmpty())
        keepPrints();
    else
        attempt([&] { keepPrints(); });
    return goesOn;
}

bool Verification::comparePictures(const TablePair& pair, const Recordset& old, const Recordset& target,
                                   RunWatch& watch) {
    ReadAhead<Fingerprint> stored(
        target.rowCount(), [&] { return reader(pair.target); }, [](const Fingerprint&) { return qint64(0); },
        {.threads = std::min(target.rowCount(), DecodingThreads::count())});
    int oldRow = 0;
    for (int row = 0; row < target.rowCount() && difference_.isEmpty(); ++row, ++oldRow) {
        while (pair.skipped.contains(oldRow)) ++oldRow;
        difference_ = differenceAt(old, oldRow, target.storedAt(row, pictureColumn), stored.take(row), pair);
        if (!difference_.isEmpty())
            difference_ = u"表 %1 第 %2 条记录的图片%3"_s.arg(pair.target).arg(row + 1).arg(difference_);
        if (!pass(watch)) return false;
    }
    return true;
}

void Verification::keepPrints() {
    Transaction together(target_);
    PictureHashes hashes(target_);
    for (const auto& [picture, print] : same_) hashes.note(picture, print);
    together.commit();
    same_.clear();
}

bool Verification::pass(RunWatch& watch) {
    constexpr qsizetype all = 100;
    ++progress_.done;
    progress_.percent = int(begun_ + progress_.done * (all - begun_) / progress_.all);
    return watch.progress(progress_);
}

ReadAhead<Fingerprint>::Prepare Verification::reader(const QString& table) const {
    const auto records =
        std::make_shared<const Recordset>(openForOnePass(target_.Name()).OpenRecordset(allRecordsSql(table)));
    return [records](qsizetype row) {
        const StoredValue value = records->storedAt(int(row), pictureColumn);
        return value.isNull() ? Fingerprint() : fingerprintOf(value);
    };
}

QString Verification::differenceAt(const Recordset& old, int oldRow, const StoredValue& picture,
                                   const Fingerprint& stored, const TablePair& pair) {
    const Fingerprint expected = printAt(old, oldRow, stored);
    if (stored != expected) return u"与原来的不同"_s;
    if (picture.isNull()) return {};
    progress_.bytes += stored.length;
    if (!pair.isAlbum) return {};
    same_.emplace_back(picture, kept(pair, oldRow, old.storedAt(oldRow, pictureColumn), expected));
    ++verified_;
    return {};
}
