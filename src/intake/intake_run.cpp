#include "intake/intake_run.h"

#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "catalogue/next_number.h"
#include "catalogue/picture_field.h"
#include "intake/intake_texts.h"
#include "intake/picture_size.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/desktop/data_control.h"
#include "platform/picture/picture.h"
#include "platform/picture/picture_bytes.h"

#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace {

QString findNumber(int number) {
    return u"序号 = %1"_s.arg(number);
}

class Run {
  public:
    Run(DataControl& datLr, const IntakeOrder& order, FormState& state, IntakeResult& result)
        : datLr_(datLr), order_(order), state_(state), result_(result) {}

    void open() {
        datLr_.setDatabaseName(state_.targetDatabasePath);
        datLr_.setRecordSource(state_.targetTable);
        datLr_.Refresh();
        if (!order_.replace) numbers_.emplace(mekTp::catalogue, state_.targetTable);
    }

    void enter(const QString& name) {
        const QString path = joinedPath(order_.folder, name);
        if (order_.replace && !findRecordOf(name)) {
            result_.notFound << name;
            look(path);
            return;
        }
        const Picture picture = look(path);
        if (!order_.takesTruncated && !picture.isNull() && pictureBytesOfFile(path) == PictureBytes::truncated) {
            result_.truncated << name;
            return;
        }
        try {
            if (order_.replace)
                replaceOne(name, path, picture);
            else
                appendOne(name, path, picture);
        } catch (...) {
            attempt([&] { table().CancelUpdate(); });
            throw;
        }
    }

    int count() const { return count_; }

  private:
    Recordset& table() { return datLr_.Recordset(); }

    void appendOne(const QString& name, const QString& path, const Picture& picture) {
        table().AddNew();
        table().Fields(u"序号"_s).SetValue(numbers_->value());
        if (order_.fillFields) fill(path, picture);
        const qint64 length = bctp(path, table(), order_.bmp, false);
        table().Update();
        numbers_->take();
        note(name, length);
        datLr_.Refresh();
    }

    void replaceOne(const QString& name, const QString& path, const Picture& picture) {
        // The fields and the picture stand or fall together.
        Transaction whole(mekTp::catalogue);
        table().Edit();
        // The fields go on telling about the old picture when there is no new one.
        if (order_.fillFields && !picture.isNull()) fill(path, picture);
        table().Update();
        datLr_.Refresh();
        table().FindFirst(findNumber(state_.replaceNumber));
        const qint64 length = bctp(path, table(), order_.bmp, true);
        whole.commit();
        note(name, length);
    }

    bool findRecordOf(const QString& name) {
        if (!standsForNumber(name)) return false;
        state_.replaceNumber = numberOfFile(name);
        if (datLr_.total() == 0) return false;
        table().FindFirst(findNumber(state_.replaceNumber));
        return !table().NoMatch();
    }

    /// The picture of a file, also of one that is then left out: a file that is no picture ends the run. An empty file
    /// gives no picture.
    static Picture look(const QString& path) { return FileLen(path) == 0 ? Picture() : LoadPicture(path, sizeOnly); }

    void fill(const QString& path, const Picture& picture) {
        table().Fields(u"编号"_s).SetValue(u" "_s);
        table().Fields(u"大小"_s).SetValue(kilobytesText(FileLen(path)));
        table().Fields(u"日期"_s).SetValue(FileDateTime(path));
        if (!picture.isNull()) table().Fields(u"规格"_s).SetValue(specOfPicture(picture));
    }

    void note(const QString& name, qint64 length) {
        ++count_;
        if (length > 0) state_.lastPictureLength = length;
        (length > 0 ? result_.entered : result_.empty) << name;
    }

    DataControl& datLr_;
    const IntakeOrder& order_;
    FormState& state_;
    IntakeResult& result_;
    std::optional<NextNumber> numbers_;  ///< For records that are appended.
    int count_ = 0;
};

}  // namespace

// Enters the selected files.
IntakeResult wjlr(DataControl& datLr, const IntakeOrder& order, FormState& state,
                  const std::function<void(int)>& progress) {
    IntakeResult result;
    QStringList waiting;
    for (const int place : order.selected) waiting << order.names[place];
    try {
        Run run(datLr, order, state, result);
        run.open();
        for (const int place : order.selected) {
            result.failedFile = waiting.takeFirst();
            run.enter(result.failedFile);
            result.failedFile.clear();
            // A list of one file has no way to be part of: the run ends here and counts nothing.
            if (order.names.size() == 1) return result;
            progress(static_cast<int>(place * 100 / (order.names.size() - 1)));
        }
        result.count = run.count();
        result.cameToEnd = true;
    } catch (const Error& error) {
        result.failure = error.text();
    } catch (const std::exception& error) {
        result.failure = QString::fromLocal8Bit(error.what());
    }
    result.left = waiting;
    return result;
}

// Writes one file into the column 图片.
qint64 bctp(const QString& path, Recordset& recordset, BmpFiles bmp, bool replace) {
    const QByteArray jpeg = convertBmp(path, bmp);
    if (replace) recordset.Edit();
    const Field picture = recordset.Fields(u"图片"_s);
    const qint64 length = jpeg.isEmpty() ? storePictureFile(picture, path) : storePictureBytes(picture, jpeg);
    if (length > 0 && replace) recordset.Update();
    return length;
}

void IntakeResult::add(const IntakeResult& second) {
    count += static_cast<int>(second.entered.size() + second.empty.size());
    entered += second.entered;
    notFound += second.notFound;
    empty += second.empty;
    failedFile = second.failedFile;
    failure = second.failure;
    left = second.left;
    cameToEnd = second.failure.isEmpty();
    truncated.clear();
}

QString intakeReport(const IntakeResult& result) {
    QStringList lines;
    if (!result.failure.isEmpty()) {
        lines << (result.failedFile.isEmpty() ? u"录入没有进行："_s
                                              : u"录入到文件“%1”时停止，该文件没有录入："_s.arg(result.failedFile)) +
                     result.failure;
        if (!result.left.isEmpty()) lines << u"以下文件也没有录入："_s + someOf(result.left);
        if (!result.truncated.isEmpty()) lines << u"文件不完整，没有录入："_s + someOf(result.truncated);
    }
    if (!result.cameToEnd) {
        if (!result.entered.isEmpty()) lines << u"文件已录入图册："_s + someOf(result.entered);
        if (!result.notFound.isEmpty()) lines << u"目标表无对应序号，没有替换："_s + someOf(result.notFound);
    }
    if (!result.empty.isEmpty()) lines << u"文件没有内容，没有存入图片："_s + someOf(result.empty);
    return lines.join(u"\n\n"_s);
}
