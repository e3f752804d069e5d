#include "intake/database_copy.h"

#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "catalogue/next_number.h"
#include "catalogue/picture_field.h"
#include "intake/intake_texts.h"
#include "intake/picture_size.h"
#include "platform/base/error.h"
#include "platform/database/records/field_device.h"
#include "platform/desktop/data_control.h"
#include "platform/picture/picture_bytes.h"

#include <QDate>
#include <QHash>
#include <algorithm>
#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString pictureColumn = u"图片"_s;
const QStringList aboutPicture{pictureColumn, u"规格"_s, u"大小"_s, u"日期"_s};

class Copy {
  public:
    Copy(DataControl& datLr, const CopyOrder& order, FormState& state, CopyResult& result)
        : datLr_(datLr),
          order_(order),
          state_(state),
          result_(result),
          pictureSource_(sourceOf(order.mapping, pictureColumn)) {}

    void open() {
        datLr_.setDatabaseName(state_.targetDatabasePath);
        datLr_.setRecordSource(state_.targetTable);
        datLr_.Refresh();
        source_ = OpenDatabase(state_.sourceDatabasePath);
        const auto index = fieldNamed(shapeOf(source_, state_.sourceTable), order_.indexField);
        if (!index) throw Error(u"源表“%1”中没有字段“%2”。"_s.arg(state_.sourceTable, order_.indexField));
        index_ = *index;
        if (!order_.replace) numbers_.emplace(mekTp::catalogue, state_.targetTable);
    }

    void copy(const SourceRecord& source) {
        const QString& key = source.key;
        const QString criteria = keyCriteria(index_, key);
        Recordset record = source_.OpenRecordset(allRecordsSql(state_.sourceTable) + u" WHERE "_s + criteria);
        if (order_.replace && !findInTarget(criteria)) {
            result_.notFound << key;
            return;
        }
        for (int i = 0; i < source.earlier && !record.Eof(); ++i) record.MoveNext();
        if (record.Eof()) throw Error(u"源表“%1”中没有这条记录。"_s.arg(state_.sourceTable));
        if (!order_.takesDoubtful && isLeftOut(source, record)) return;
        try {
            write(record, key);
        } catch (...) {
            attempt([&] { table().CancelUpdate(); });
            throw;
        }
        result_.copied << key;
    }

  private:
    Recordset& table() { return datLr_.Recordset(); }

    bool isLeftOut(const SourceRecord& source, const Recordset& record) {
        if (pictureLength(record) == 0) return false;
        FieldDevice value(record.Fields(pictureSource_));
        const PictureBytes kind = pictureBytes(value, pictureSource_);
        if (kind == PictureBytes::whole) return false;
        result_.leftOut << source;
        (kind == PictureBytes::truncated ? result_.truncated : result_.noPictures) << source.key;
        return true;
    }

    bool findInTarget(const QString& criteria) {
        if (datLr_.total() == 0) return false;
        table().FindFirst(criteria);
        return !table().NoMatch();
    }

    void write(Recordset& record, const QString& key) {
        if (order_.replace)
            table().Edit();
        else
            table().AddNew();
        specOfSource_.reset();
        keepsPicture_ = order_.replace && pictureLength(record) == 0;
        const bool hadPicture = keepsPicture_ && table().Fields(pictureColumn).FieldSize() > 0;
        for (const FieldPair& pair : order_.mapping)
            if (!give(record, pair) && order_.fillFields) complete(record, pair.target);
        if (!order_.replace) table().Fields(u"序号"_s).SetValue(state_.replaceNumber = numbers_->value());
        table().Update();
        if (!order_.replace) numbers_->take();
        if (hadPicture && order_.fillFields) result_.kept << key;
    }

    /// Whether the source has a value for the column. A picture without a byte is none.
    bool give(Recordset& record, const FieldPair& pair) {
        if (pair.source.isEmpty()) return false;
        const Field source = record.Fields(pair.source);
        if (source.isNull() || (source.Type() == FieldType::longBinary && source.FieldSize() == 0)) return false;
        table().Fields(pair.target).SetValue(source.Value());
        return true;
    }

    /// A column without a value is filled from what is known of the picture. The picture of a replaced record, and what
    /// tells about it, stay when no other comes.
    void complete(Recordset& record, const QString& column) {
        if (keepsPicture_ && aboutPicture.contains(column)) return;
        const auto set = [&](const FieldValue& value) { table().Fields(column).SetValue(value); };
        if (column == u"编号"_s || column == u"备注"_s)
            set(u" "_s);
        else if (column == pictureColumn)
            set(QByteArray(""));
        else if (column == u"日期"_s)
            set(QDate::currentDate().startOfDay());
        else if (column == u"规格"_s && !specOfSource(record).isEmpty())
            set(specOfSource(record));
        else if (column == u"大小"_s && pictureLength(record) > 0)
            set(kilobytesText(pictureLength(record)));
    }

    /// Of the picture that a record of the source brings; 0 for none.
    qint64 pictureLength(const Recordset& record) const {
        return pictureSource_.isEmpty() ? 0 : record.Fields(pictureSource_).FieldSize();
    }

    /// Empty when the record has no picture that can be read: what it has is copied all the same.
    const QString& specOfSource(Recordset& record) {
        if (!specOfSource_) {
            const auto picture =
                pictureLength(record) > 0 ? pictureFromField(record, pictureSource_, sizeOnly) : std::nullopt;
            specOfSource_ = picture ? specOfPicture(*picture, u"*"_s) : QString();
        }
        return *specOfSource_;
    }

    DataControl& datLr_;
    const CopyOrder& order_;
    FormState& state_;
    CopyResult& result_;
    const QString pictureSource_;  ///< The column that 图片 is taken from; empty when there is none.
    Database source_;
    std::optional<NextNumber> numbers_;  ///< For records that are appended.
    FieldShape index_;
    std::optional<QString> specOfSource_;
    bool keepsPicture_ = false;  ///< The source has none for the record in hand, which is replaced.
};

QString keysText(const QStringList& keys, const QString& indexField) {
    return indexField + u"＝"_s + someOf(keys);
}

}  // namespace

// Copies the chosen records.
CopyResult sklr(DataControl& datLr, const CopyOrder& order, FormState& state,
                const std::function<void(int)>& progress) {
    CopyResult result;
    result.left = keysOf(order.records);
    try {
        Copy run(datLr, order, state, result);
        run.open();
        for (qsizetype i = 0; i < order.records.size(); ++i) {
            result.failedKey = result.left.takeFirst();
            run.copy(order.records[i]);
            result.failedKey.clear();
            progress(static_cast<int>((i + 1) * 100 / order.records.size()));
        }
        result.count = static_cast<int>(result.copied.size());
        attempt([&] { datLr.Refresh(); });
    } catch (const Error& error) {
        result.failure = error.text();
    } catch (const std::exception& error) {
        result.failure = QString::fromLocal8Bit(error.what());
    }
    return result;
}

QList<SourceRecord> recordsOfKeys(const QStringList& keys) {
    QList<SourceRecord> records;
    QHash<QString, int> seen;
    for (const QString& key : keys) records.push_back({key, seen[key]++});
    return records;
}

QStringList keysOf(const QList<SourceRecord>& records) {
    QStringList keys;
    for (const SourceRecord& record : records) keys << record.key;
    return keys;
}

void CopyResult::add(const CopyResult& second) {
    count += static_cast<int>(second.copied.size());
    copied += second.copied;
    notFound += second.notFound;
    kept += second.kept;
    failedKey = second.failedKey;
    failure = second.failure;
    left = second.left;
    leftOut.clear();
    noPictures.clear();
    truncated.clear();
}

QString notReplacedText(const CopyResult& result, const QString& indexField) {
    if (result.notFound.isEmpty() || !result.failure.isEmpty()) return {};
    return u"目标表中下列序号的对应的记录不存在，没有替换。\n\n["_s + indexField + u" = "_s +
           nearlyAllOf(result.notFound) + u']';
}

QString copyReport(const CopyResult& result, const QString& indexField) {
    QStringList lines;
    if (!result.kept.isEmpty()) lines << u"源记录没有图片，原有的图片没有改动："_s + keysText(result.kept, indexField);
    if (result.failure.isEmpty()) return lines.join(u"\n\n"_s);
    lines << (result.failedKey.isEmpty()
                  ? u"录入没有进行："_s
                  : u"录入到记录“%1”时停止，该记录没有录入："_s.arg(keysText({result.failedKey}, indexField))) +
                 result.failure;
    if (!result.left.isEmpty()) lines << u"以下记录也没有录入："_s + keysText(result.left, indexField);
    if (!result.noPictures.isEmpty())
        lines << u"图片不是 BMP 或 JPEG，没有录入："_s + keysText(result.noPictures, indexField);
    if (!result.truncated.isEmpty()) lines << u"图片不完整，没有录入："_s + keysText(result.truncated, indexField);
    if (!result.copied.isEmpty()) lines << u"记录已录入图册："_s + keysText(result.copied, indexField);
    if (!result.notFound.isEmpty())
        lines << u"目标表中没有对应的记录，没有替换："_s + keysText(result.notFound, indexField);
    return lines.join(u"\n\n"_s);
}
