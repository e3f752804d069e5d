#include "catalogue/runs/record_copy.h"

#include "catalogue/album_rules.h"
#include "catalogue/next_number.h"
#include "catalogue/picture_field.h"
#include "catalogue/runs/run_in_turn.h"
#include "platform/base/error.h"
#include "platform/database/records/field_device.h"
#include "platform/picture/picture_bytes.h"

#include <QDate>
#include <QHash>
#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString pictureColumn = u"图片"_s;
const QStringList aboutPicture{pictureColumn, u"规格"_s, u"大小"_s, u"日期"_s};

QStringList keysOf(const QList<SourceRecord>& records) {
    QStringList keys;
    for (const SourceRecord& record : records) keys << record.key;
    return keys;
}

class RecordCopy : public RunInTurn {
  public:
    RecordCopy(const Database& album, const QString& table, const CopyOrder& order)
        : RunInTurn(keysOf(order.records)),
          album_(album),
          table_(table),
          order_(order),
          pictureSource_(sourceOf(order.mapping, pictureColumn)) {}

  protected:
    const Database& target() const override { return album_; }

    void open() override {
        rows_ = album_.OpenRecordset(order_.replace ? table_ : noRecordsSql(table_));
        source_ = OpenDatabase(order_.sourcePath);
        const auto index = fieldNamed(shapeOf(source_, order_.sourceTable), order_.indexField);
        if (!index) throw Error(u"源表“%1”中没有字段“%2”。"_s.arg(order_.sourceTable, order_.indexField));
        index_ = *index;
        if (!order_.replace) numbers_.emplace(album_, table_);
    }

    Taken take(qsizetype place) override {
        const SourceRecord& source = order_.records[place];
        const QString criteria = keyCriteria(index_, source.key);
        Recordset record = source_.OpenRecordset(allRecordsSql(order_.sourceTable) + u" WHERE "_s + criteria);
        if (order_.replace && !findInAlbum(criteria)) return {Fate::notFound};
        for (int i = 0; i < source.earlier && !record.Eof(); ++i) record.MoveNext();
        if (record.Eof()) throw Error(u"源表“%1”中没有这条记录。"_s.arg(order_.sourceTable));
        if (const Fate doubt = doubtAbout(record); doubt != Fate::taken) return {doubt};
        try {
            return {write(record), pictureLength(record)};
        } catch (...) {
            attempt([&] { rows_.CancelUpdate(); });
            throw;
        }
    }

  private:
    /// Why the record is left out; `taken` when it is not.
    Fate doubtAbout(const Recordset& record) const {
        if (order_.takesDoubtful || pictureLength(record) == 0) return Fate::taken;
        FieldDevice value(record.Fields(pictureSource_));
        const PictureBytes kind = pictureBytes(value, pictureSource_);
        if (kind == PictureBytes::whole) return Fate::taken;
        return kind == PictureBytes::truncated ? Fate::truncated : Fate::notAPicture;
    }

    bool findInAlbum(const QString& criteria) {
        if (rows_.rowCount() == 0) return false;
        rows_.FindFirst(criteria);
        return !rows_.NoMatch();
    }

    Fate write(Recordset& record) {
        if (order_.replace)
            rows_.Edit();
        else
            rows_.AddNew();
        specOfSource_.reset();
        keepsPicture_ = order_.replace && pictureLength(record) == 0;
        const bool hadPicture = keepsPicture_ && rows_.Fields(pictureColumn).FieldSize() > 0;
        for (const FieldPair& pair : order_.mapping)
            if (!give(record, pair) && order_.fillFields) complete(record, pair.target);
        if (!order_.replace) rows_.Fields(u"序号"_s).SetValue(numbers_->value());
        rows_.Update();
        if (!order_.replace) numbers_->take();
        return hadPicture && order_.fillFields ? Fate::withoutPicture : Fate::taken;
    }

    /// Whether the source has a value for the column. A picture without a byte is none.
    bool give(Recordset& record, const FieldPair& pair) {
        if (pair.source.isEmpty()) return false;
        const Field source = record.Fields(pair.source);
        if (source.isNull() || (source.Type() == FieldType::longBinary && source.FieldSize() == 0)) return false;
        rows_.Fields(pair.target).SetValue(source.Value());
        return true;
    }

    /// A column without a value is filled from what is known of the picture. The picture of a replaced record, and what
    /// tells about it, stay when no other comes.
    void complete(Recordset& record, const QString& column) {
        if (keepsPicture_ && aboutPicture.contains(column)) return;
        const auto set = [&](const FieldValue& value) { rows_.Fields(column).SetValue(value); };
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

    const Database& album_;
    const QString& table_;
    const CopyOrder& order_;
    const QString pictureSource_;  ///< The column that 图片 is taken from; empty when there is none.
    Recordset rows_;               ///< Of the album.
    Database source_;
    std::optional<NextNumber> numbers_;  ///< For records that are appended.
    FieldShape index_;
    std::optional<QString> specOfSource_;
    bool keepsPicture_ = false;  ///< The source has none for the record in hand, which is replaced.
};

}  // namespace

// Copies the chosen records.
RunReport sklr(const Database& album, const QString& table, const CopyOrder& order, RunWatch& watch) {
    return RecordCopy(album, table, order).run(watch);
}

QList<SourceRecord> recordsOfKeys(const QStringList& keys) {
    QList<SourceRecord> records;
    QHash<QString, int> seen;
    for (const QString& key : keys) records.push_back({key, seen[key]++});
    return records;
}
