#include "catalogue/runs/file_intake.h"

#include "catalogue/album_rules.h"
#include "catalogue/next_number.h"
#include "catalogue/picture_field.h"
#include "catalogue/runs/picture_names.h"
#include "catalogue/runs/run_in_turn.h"
#include "catalogue/table_shape.h"
#include "platform/base/error.h"
#include "platform/base/files.h"

#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace {

QStringList chosenNames(const IntakeOrder& order) {
    QStringList names;
    for (const int place : order.selected) names << order.names[place];
    return names;
}

class FileIntake : public RunIntoDatabase {
  public:
    FileIntake(const Database& album, const QString& table, const IntakeOrder& order)
        : RunIntoDatabase(chosenNames(order)), album_(album), table_(table), order_(order) {}

  protected:
    const Database& target() const override { return album_; }

    void open() override {
        rows_ = album_.OpenRecordset(order_.replace ? table_ : noRecordsSql(table_));
        if (!order_.replace) numbers_.emplace(album_, table_);
    }

    Taken take(qsizetype place) override {
        const QString& name = names()[place];
        const bool hasPlace = !order_.replace || findRecordOf(name);
        PictureInHand file(joinedPath(order_.folder, name));
        // A file that is no picture ends the run, also one that is then left out.
        const Picture picture = file.length() == 0 ? Picture() : file.load(sizeOnly);
        if (!hasPlace) return {Fate::notFound};
        if (!order_.takesTruncated && !picture.isNull() && file.wholeness() == PictureBytes::truncated)
            return {Fate::truncated};
        try {
            return store(file, picture);
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
    bool findRecordOf(const QString& name) {
        if (!standsForNumber(name)) return false;
        rows_.FindFirst(u"序号 = %1"_s.arg(numberOfFile(name)));
        return !rows_.NoMatch();
    }

    Taken store(PictureInHand& file, const Picture& picture) {
        if (order_.replace)
            rows_.Edit();
        else
            rows_.AddNew();
        if (!order_.replace) rows_.Fields(u"序号"_s).SetValue(numbers_->value());
        // The fields go on telling about the old picture when there is no new one.
        if (order_.fillFields && !(order_.replace && picture.isNull())) fill(file, picture);
        const qint64 length = bctp(file, rows_, order_.bmp);
        rows_.Update();
        if (!order_.replace) numbers_->take();
        return {length > 0 ? Fate::taken : Fate::withoutPicture, length};
    }

    void fill(const PictureInHand& file, const Picture& picture) {
        rows_.Fields(u"编号"_s).SetValue(u" "_s);
        rows_.Fields(u"大小"_s).SetValue(kilobytesText(file.length()));
        rows_.Fields(u"日期"_s).SetValue(file.changed());
        if (!picture.isNull()) rows_.Fields(u"规格"_s).SetValue(specOfPicture(picture));
    }

    const Database& album_;
    const QString& table_;
    const IntakeOrder& order_;
    Recordset rows_;
    std::optional<NextNumber> numbers_;  ///< For records that are appended.
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
