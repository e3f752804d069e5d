#include "catalogue/runs/record_copy.h"

#include "catalogue/album_rules.h"
#include "catalogue/album_tables.h"
#include "catalogue/bin.h"
#include "catalogue/next_number.h"
#include "catalogue/picture_hashes.h"
#include "catalogue/runs/read_ahead.h"
#include "catalogue/runs/run_in_turn.h"
#include "catalogue/runs/source_record.h"
#include "platform/base/error.h"

#include <QDate>
#include <QHash>
#include <QSet>
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

class RecordCopy : public RunIntoDatabase {
  public:
    RecordCopy(const Database& album, const QString& table, const CopyOrder& order)
        : RunIntoDatabase(keysOf(order.records)), album_(album), hashes_(album), table_(table), order_(order) {}

  protected:
    const Database& target() const override { return album_; }

    void open() override {
        if (!order_.replace) {
            rows_ = album_.OpenRecordset(noRecordsSql(table_));
            numbers_.emplace(album_, table_);
            if (order_.keepNumbers) findTakenNumbers();
        }
        if (!order_.replace && order_.skipKnown && !known_) findKnown();
        if (!ahead_) openSource();
    }

    bool isAtHand(qsizetype place) const override { return ahead_->isAtHand(place); }

    Taken take(qsizetype place) override {
        if (order_.replace && !findInAlbum(place)) {
            attempt([&] { ahead_->take(place); });  // makes room for the next ones
            return {Fate::notFound};
        }
        const SourceValues source = ahead_->take(place);
        if (source.kind == PictureBytes::truncated) return {Fate::truncated};
        if (source.kind == PictureBytes::notAPicture) return {Fate::notAPicture};
        if (source.isSpoilt) return {Fate::truncated, 0, u"图片与存入源库时的不同，已有损坏"_s};
        if (isKnown(source)) return {Fate::alreadyThere};
        if (endsBefore(place)) return {Fate::left};
        try {
            return {write(source, place), source.picture.size()};
        } catch (...) {
            attempt([&] { rows_.CancelUpdate(); });
            throw;
        }
    }

  private:
    /// The first question may take long, and is better asked before a group is begun.
    void findKnown() {
        known_.emplace(album_, table_, [this] { return goesOn(); });
        known_->hasLength(0);
    }

    void openSource() {
        source_ = OpenDatabase(order_.sourcePath);
        reader_.emplace(source_, order_, hashes_.areKept() || known_);
        noteMissing(reader_->missing());
        if (order_.replace) findAlbumRows();
        const auto inThread = [this] {
            const Database source = OpenDatabase(order_.sourcePath);
            return [this, source, records = std::make_shared<RecordsInTurn>(reader_->recordsIn(source))](
                       qsizetype place) { return reader_->read(source, *records, place); };
        };
        // A second connection would wait for the one that writes to the same file.
        ahead_.emplace(
            names().size(), inThread, [](const SourceValues& record) { return record.bytes; },
            ReadAhead<SourceValues>::Limits{.things = isSameFile(order_.sourcePath, album_.Name()) ? 0U : 128U});
    }

    void findAlbumRows() {
        const auto index = fieldNamed(shapeOf(album_, table_), order_.indexField);
        if (index && holdsWholeNumbers(*index))
            albumRows_.emplace(album_, table_, order_.indexField, reader_->numbers());
    }

    /// Opens the record that is replaced; false when there is none.
    bool findInAlbum(qsizetype place) {
        const auto number = reader_->number(place);
        if (albumRows_ && number) {
            const std::vector<qint64> rows = albumRows_->of(*number);
            if (rows.empty()) return false;
            rows_ = recordsOfRows(album_, table_, {rows.front()});
        } else {
            rows_ = album_.OpenRecordset(allRecordsSql(table_) + u" WHERE "_s + reader_->criteria(place));
        }
        return !rows_.Eof();
    }

    bool isKnown(const SourceValues& source) {
        return known_ && source.print.length > 0 && known_->hasLength(source.print.length) && known_->has(source.print);
    }

    void findTakenNumbers() {
        takenNumbers_.clear();
        for (Recordset all = album_.OpenRecordset(allRecordsSql(table_)); !all.Eof(); all.MoveNext())
            takenNumbers_.insert(all.Fields(u"序号"_s).Value().textOr().toLongLong());
    }

    int numberFor(qsizetype place) {
        const auto own = order_.keepNumbers ? reader_->number(place) : std::optional<qint32>();
        if (own && *own > 0 && !takenNumbers_.contains(*own)) return *own;
        while (takenNumbers_.contains(numbers_->value())) numbers_->take();
        return numbers_->value();
    }

    Fate write(const SourceValues& source, qsizetype place) {
        if (order_.replace)
            rows_.Edit();
        else
            rows_.AddNew();
        // The picture of a replaced record stays when no other comes.
        const bool keepsPicture = order_.replace && source.picture.isEmpty();
        const bool hadPicture = keepsPicture && rows_.Fields(pictureColumn).FieldSize() > 0;
        for (std::size_t i = 0; i < order_.mapping.size(); ++i) {
            const QString& column = order_.mapping[i].target;
            if (!source.values[i].isNull())
                rows_.Fields(column).SetValue(source.values[i]);
            else if (order_.fillFields && !(keepsPicture && aboutPicture.contains(column)))
                complete(source, column);
        }
        const int number = order_.replace ? 0 : numberFor(place);
        if (!order_.replace) rows_.Fields(u"序号"_s).SetValue(number);
        if (order_.replace)
            updateIntoBin(album_, table_, rows_);
        else
            rows_.Update();
        if (order_.keepNumbers)
            takenNumbers_.insert(number);
        else if (!order_.replace)
            numbers_->take();
        if (!source.picture.isEmpty()) notePrint(source);
        return hadPicture && order_.fillFields ? Fate::withoutPicture : Fate::taken;
    }

    /// Without it the picture is as good.
    void notePrint(const SourceValues& source) {
        const int row = order_.replace ? rows_.row() : rows_.rowCount() - 1;
        attempt([&] { hashes_.note(rows_.storedAt(row, pictureColumn), source.print); });
    }

    /// A column without a value is filled from what is known of the picture.
    void complete(const SourceValues& source, const QString& column) {
        const auto set = [&](const FieldValue& value) { rows_.Fields(column).SetValue(value); };
        if (column == u"编号"_s || column == u"备注"_s)
            set(u" "_s);
        else if (column == pictureColumn)
            set(QByteArray(""));
        else if (column == u"日期"_s)
            set(QDate::currentDate().startOfDay());
        else if (column == u"规格"_s && !source.sizeText.isEmpty())
            set(source.sizeText);
        else if (column == u"大小"_s && !source.picture.isEmpty())
            set(kilobytesText(source.picture.size()));
    }

    const Database& album_;
    PictureHashes hashes_;
    const QString& table_;
    const CopyOrder& order_;
    Recordset rows_;  ///< Of the album.
    Database source_;
    std::optional<SourceReader> reader_;
    std::optional<RowsByNumber> albumRows_;  ///< That are replaced, where they can be found by whole numbers.
    std::optional<NextNumber> numbers_;      ///< For records that are appended.
    QSet<qint64> takenNumbers_;              ///< Of the album, where records keep theirs.
    std::optional<KnownPictures> known_;     ///< What the album had before, where that counts.
    std::optional<ReadAhead<SourceValues>> ahead_;
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
