#include "catalogue/runs/source_record.h"

#include "catalogue/album_rules.h"
#include "catalogue/picture_hashes.h"
#include "platform/base/error.h"
#include "platform/picture/picture_size.h"

#include <QBuffer>

using namespace Qt::Literals::StringLiterals;

namespace {

PictureBytes kindOf(const CopyOrder& order, const QByteArray& picture) {
    return order.takesDoubtful || picture.isEmpty() ? PictureBytes::whole : pictureBytes(picture);
}

/// Empty when the bytes are no picture: they are copied all the same.
QString sizeTextOf(QByteArray& bytes) {
    QString sizeText;
    attempt([&] {
        QBuffer device(&bytes);
        device.open(QIODevice::ReadOnly);
        sizeText = specOfSize(pictureSize(device, {}), u"*"_s);
    });
    return sizeText;
}

}  // namespace

bool holdsWholeNumbers(const FieldShape& column) {
    return column.type == FieldType::longInteger || column.type == FieldType::byte;
}

SourceReader::SourceReader(const Database& source, const CopyOrder& order, bool printed)
    : order_(order), printed_(printed), isForeign_(source.isForeign()) {
    const auto index = fieldNamed(shapeOf(source, order.sourceTable), order.indexField);
    if (!index) throw Error(u"源表“%1”中没有字段“%2”。"_s.arg(order.sourceTable, order.indexField));
    index_ = *index;
    readable_ = ReadableRows(source, order.sourceTable, index_.name);
    if (holdsWholeNumbers(index_))
        rows_ = RowsByNumber(source, order.sourceTable, index_.name, numbers(), readable_.andAmongThem());
}

std::optional<qint32> SourceReader::number(qsizetype place) const {
    bool isWhole = false;
    const qint32 number = order_.records[place].key.toInt(&isWhole);
    return isWhole && holdsWholeNumbers(index_) ? std::optional(number) : std::nullopt;
}

std::vector<qint32> SourceReader::numbers() const {
    std::vector<qint32> all;
    for (qsizetype place = 0; place < order_.records.size(); ++place)
        if (const auto one = number(place)) all.push_back(*one);
    return all;
}

/// Identity of the row with that number; 0, which is none, where there are fewer of them.
qint64 SourceReader::rowOf(qint32 number, qsizetype place) const {
    const auto earlier = std::size_t(order_.records[place].earlier);
    const std::vector<qint64> rows = rows_.of(number);
    return earlier < rows.size() ? rows[earlier] : 0;
}

RecordsInTurn SourceReader::recordsIn(const Database& source) const {
    std::vector<qint64> rows;
    for (qsizetype place = 0; place < order_.records.size(); ++place) {
        const auto wanted = number(place);
        rows.push_back(wanted ? rowOf(*wanted, place) : 0);
    }
    return {source, order_.sourceTable, std::move(rows)};
}

Recordset SourceReader::find(const Database& source, qsizetype place) const {
    const auto earlier = std::size_t(order_.records[place].earlier);
    if (const auto wanted = number(place)) return recordsOfRows(source, order_.sourceTable, {rowOf(*wanted, place)});
    Recordset record = source.OpenRecordset(allRecordsSql(order_.sourceTable) + u" WHERE "_s + criteria(place) +
                                            readable_.andAmongThem());
    for (std::size_t i = 0; i < earlier && !record.Eof(); ++i) record.MoveNext();
    return record;
}

SourceValues SourceReader::read(const Database& source, RecordsInTurn& records, qsizetype place) const {
    return number(place) ? valuesOf(source, records.at(std::size_t(place))) : valuesOf(source, find(source, place));
}

SourceValues SourceReader::valuesOf(const Database& source, const Recordset& record) const {
    if (record.Eof()) throw Error(u"源表“%1”中没有这条记录。"_s.arg(order_.sourceTable));
    SourceValues read;
    Fingerprint kept;
    for (const FieldPair& pair : order_.mapping) {
        FieldValue& value = read.values.emplace_back();
        if (pair.source.isEmpty()) continue;
        const Field field = record.Fields(pair.source);
        const bool isLong = field.Type() == FieldType::longBinary;
        if (isLong && isForeign_ && !attempt([&] { field.FieldSize(); }))
            throw Error(u"源库中这条记录的“%1”已损坏，不能读取。"_s.arg(pair.source));
        // A long value without a byte is none.
        if (isLong && field.FieldSize() == 0) continue;
        value = field.Value();
        if (isLong) read.bytes += field.FieldSize();
        if (!isLong || pair.target != u"图片") continue;
        read.picture = value.toBytes();
        attempt([&] { kept = PictureHashes(source).of(record.storedAt(record.row(), pair.source)); });
    }
    read.kind = kindOf(order_, read.picture);
    const bool isPrinted = printed_ || !kept.sha256.isEmpty();
    if (isPrinted && !read.picture.isEmpty()) read.print = fingerprintOf(read.picture);
    read.isSpoilt = !order_.takesSpoilt && !kept.sha256.isEmpty() && kept != read.print;
    if (wantsSizeText(read)) read.sizeText = sizeTextOf(read.picture);
    return read;
}

StoredValue SourceReader::picture(const Database& source, qsizetype place) const {
    const Recordset record = find(source, place);
    const QString column = sourceOf(order_.mapping, u"图片"_s);
    return record.Eof() || column.isEmpty() ? StoredValue() : record.storedAt(record.row(), column);
}

bool SourceReader::wantsSizeText(const SourceValues& record) const {
    if (!order_.fillFields || record.picture.isEmpty()) return false;
    for (std::size_t i = 0; i < order_.mapping.size(); ++i)
        if (order_.mapping[i].target == u"规格" && record.values[i].isNull()) return true;
    return false;
}
