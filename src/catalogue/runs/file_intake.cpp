#include "catalogue/runs/file_intake.h"

#include "catalogue/album_rules.h"
#include "catalogue/bin.h"
#include "catalogue/decoding_threads.h"
#include "catalogue/next_number.h"
#include "catalogue/picture_hashes.h"
#include "catalogue/runs/picture_names.h"
#include "catalogue/runs/read_ahead.h"
#include "catalogue/runs/run_in_turn.h"
#include "catalogue/table_shape.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/database/records/rows_by_number.h"

#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString numberColumn = u"序号"_s;
const QString pictureColumn = u"图片"_s;
constexpr int longestNote = 50;          ///< Characters of 备注.
constexpr qint64 bytesAhead = 24 << 20;  ///< What is read while a group is written to the disk.

QStringList chosenNames(const IntakeOrder& order) {
    QStringList names;
    for (const int place : order.selected) names << order.names[place];
    return names;
}

/// The numbers that names of files mean.
std::vector<qint32> numbersIn(const QStringList& names) {
    std::vector<qint32> numbers;
    for (const QString& name : names) attempt([&] { numbers.push_back(numberOfFile(name)); });
    return numbers;
}

class FileIntake : public RunIntoDatabase {
  public:
    FileIntake(const Database& album, const QString& table, const IntakeOrder& order)
        : RunIntoDatabase(chosenNames(order)), album_(album), table_(table), order_(order) {}

  protected:
    const Database& target() const override { return album_; }

    void open() override {
        rows_ = album_.OpenRecordset(noRecordsSql(table_));
        hashes_.emplace(album_);
        if (!ahead_) readAhead();
        if (order_.replace) {
            replaced_ = RowsByNumber(album_, table_, numberColumn, numbersIn(names()));
            return;
        }
        numbers_.emplace(album_, table_);
        if (order_.skipKnown && !known_) findKnown();
    }

    void beginGroup() override {
        RunIntoDatabase::beginGroup();
        turned_.clear();
    }

    /// A person's file is changed only when its picture is safe.
    std::optional<RunItem> finish(std::vector<RunItem>&) override {
        for (const ReadyPicture& picture : turned_) turnIntoJpeg(picture);
        return {};
    }

    bool isAtHand(qsizetype place) const override { return ahead_->isAtHand(place); }

    Taken take(qsizetype place) override {
        const bool hasPlace = !order_.replace || findRecordOf(names()[place]);
        // A file that is no picture has failed, also one that would be left out.
        ReadyPicture picture = ahead_->take(place);
        if (!hasPlace) return {Fate::notFound};
        if (picture.isTruncated && !order_.takesTruncated) return {Fate::truncated};
        if (isKnown(picture)) return {Fate::alreadyThere};
        if (endsBefore(place)) return {Fate::left};
        try {
            return store(picture);
        } catch (...) {
            attempt([&] { rows_.CancelUpdate(); });
            throw;
        }
    }

    int percentWith(qsizetype place) const override {
        const qsizetype last = order_.names.size() - 1;
        return last > 0 ? int(order_.selected[place] * 100 / last) : 100;
    }

  private:
    /// A picture that becomes a JPEG takes all processors; one that is only looked at waits for the disk.
    void readAhead() {
        const PictureWish wish{order_.otherFormats, order_.exposureDates || order_.titles};
        const int threads = order_.otherFormats ? DecodingThreads::count() : 1;
        const auto prepare = [folder = order_.folder, names = names(), wish](qsizetype place) {
            return readyPicture(joinedPath(folder, names[place]), wish);
        };
        ahead_.emplace(
            names().size(), [prepare] { return prepare; },
            [](const ReadyPicture& picture) { return picture.bytesHeld(); },
            ReadAhead<ReadyPicture>::Limits{.bytes = bytesAhead, .threads = threads});
    }

    bool findRecordOf(const QString& name) {
        if (!standsForNumber(name)) return false;
        const int number = numberOfFile(name);
        const std::vector<qint64> rows = replaced_.of(number);
        if (rows.empty()) return false;
        rows_ = recordsOfRows(album_, table_, {rows.front()});
        return !rows_.Eof() && rows_.Fields(numberColumn).Value() == FieldValue(number);
    }

    /// The first question may take long, and is better asked before a group is begun.
    void findKnown() {
        known_.emplace(album_, table_, [this] { return goesOn(); });
        known_->hasLength(0);
    }

    bool isKnown(const ReadyPicture& picture) {
        return known_ && picture.print.length > 0 && known_->hasLength(picture.print.length) &&
               known_->has(picture.print);
    }

    Taken store(ReadyPicture& picture) {
        if (order_.replace)
            rows_.Edit();
        else
            rows_.AddNew();
        if (!order_.replace) rows_.Fields(numberColumn).SetValue(numbers_->value());
        // The fields go on telling about the old picture when there is no new one.
        if (order_.fillFields && !(order_.replace && picture.pixels.isEmpty())) fill(picture);
        const QString note = order_.titles ? putTitle(picture.facts.title) : QString();
        const qint64 length = bctp(picture, rows_);
        if (order_.replace)
            updateIntoBin(album_, table_, rows_);
        else
            rows_.Update();
        if (!order_.replace) numbers_->take();
        if (length == 0) return {Fate::withoutPicture};
        const int row = order_.replace ? rows_.row() : rows_.rowCount() - 1;
        attempt([&] { hashes_->note(rows_.storedAt(row, pictureColumn), picture.print); });
        if (order_.bmp == BmpFiles::toJpeg && picture.isOfBmp) {
            picture.file.forgetBytes();
            turned_.push_back(std::move(picture));
        }
        return {Fate::taken, length, note};
    }

    /// Returns what there is to say of a title that is too long.
    QString putTitle(const QString& title) {
        if (title.isEmpty()) return {};
        QString fitting = title.left(longestNote);
        if (fitting.back().isHighSurrogate()) fitting.chop(1);
        rows_.Fields(u"备注"_s).SetValue(fitting);
        return fitting == title ? QString() : u"标题超过 %1 个字，备注只取前面部分"_s.arg(longestNote);
    }

    void fill(const ReadyPicture& picture) {
        rows_.Fields(u"编号"_s).SetValue(u" "_s);
        rows_.Fields(u"大小"_s).SetValue(kilobytesText(picture.length()));
        const bool tells = order_.exposureDates && picture.facts.taken.isValid();
        rows_.Fields(u"日期"_s).SetValue(tells ? picture.facts.taken : picture.file.changed());
        if (!picture.pixels.isEmpty()) rows_.Fields(u"规格"_s).SetValue(specOfSize(picture.pixels));
    }

    const Database& album_;
    const QString& table_;
    const IntakeOrder& order_;
    Recordset rows_;
    RowsByNumber replaced_;              ///< For records that are replaced.
    std::optional<NextNumber> numbers_;  ///< For records that are appended.
    std::optional<PictureHashes> hashes_;
    std::optional<KnownPictures> known_;  ///< What the album had before, where that counts.
    std::vector<ReadyPicture> turned_;    ///< Of the group: those whose files are to become JPEGs.
    std::optional<ReadAhead<ReadyPicture>> ahead_;
};

}  // namespace

// Enters the selected files.
RunReport wjlr(const Database& album, const QString& table, const IntakeOrder& order, RunWatch& watch) {
    RunReport report = FileIntake(album, table, order).run(watch);
    // A list of one file has no way to be part of: its run never comes to the end that counts.
    if (order.names.size() == 1) {
        report.count = 0;
        report.cameToEnd = false;
    }
    return report;
}
