#include "editor/document/undo_steps.h"

#include "catalogue/mektp.h"
#include "catalogue/picture_field.h"
#include "editor/document/kept_work.h"
#include "editor/document/picture_files.h"
#include "platform/base/error.h"

#include <future>
#include <new>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString pictureColumn = u"图片"_s;

std::future<QByteArray> encoded(const UndoSteps::Step& step) {
    return std::async(std::launch::async, [picture = step.picture, profile = step.profile] {
        return encodeJpeg(picture, jpegQuality, profile);
    });
}

/// One record, stored whole or not at all. A value that its column refuses is left out.
void write(const UndoSteps::Step& step, const QByteArray& jpeg) {
    Recordset rows = mekTp::catalogue.OpenRecordset(u"tccx"_s);
    rows.AddNew();
    const std::pair<QString, FieldValue> values[] = {
        {u"编号"_s, stepText(step.number)},     {u"标签"_s, step.label}, {u"图宽"_s, float(step.size.width())},
        {u"图高"_s, float(step.size.height())}, {u"标题"_s, step.tag},   {u"参数"_s, step.parameter},
    };
    for (const auto& entry : values) attempt([&] { rows.Fields(entry.first).SetValue(entry.second); });
    storePictureBytes(rows.Fields(pictureColumn), jpeg);
    rows.Update();
}

}  // namespace

QString stepText(int number) {
    return QString::number(number).rightJustified(2, u'0');
}

void UndoSteps::start(Step loaded) {
    loaded_ = std::move(loaded);
    lost_.clear();
    loss_.clear();
    isLossTaken_ = false;
}

/// Two large pictures are turned into their JPEGs at once, before the catalogue is touched.
bool UndoSteps::record(const Step& step) {
    auto jpeg = encoded(step);
    if (const auto loaded = std::exchange(loaded_, std::nullopt)) {
        auto first = encoded(*loaded);
        store(*loaded, [&first] { return first.get(); });
    }
    return store(step, [&jpeg] { return jpeg.get(); });
}

/// Of a step that cannot be stored nothing stays, nor does an earlier picture's step of its number, as far as the
/// catalogue lets it go.
bool UndoSteps::store(const Step& step, const std::function<QByteArray()>& jpeg) {
    try {
        write(step, jpeg());
        lost_.remove(step.number);
        return true;
    } catch (const Error& failure) {
        loss_ = failure.text();
    } catch (const std::bad_alloc&) {
        loss_ = u"内存不足。"_s;
    } catch (const std::exception& failure) {
        loss_ = QString::fromLocal8Bit(failure.what());
    }
    lost_.insert(step.number);
    attempt([&] { remove(step.number); });
    return false;
}

/// Stepping through an album starts the numbers again without removing the earlier rows: the newest one counts.
std::optional<UndoSteps::Step> UndoSteps::read(int number) const {
    if (lost_.contains(number)) return {};
    Recordset row = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tccx WHERE 编号 = "_s + quoted(stepText(number)));
    if (row.Eof()) return {};
    row.MoveLast();
    const auto picture = pictureFromField(row, pictureColumn, {}, Colours::ofFile);
    if (!picture) return {};
    const auto value = [&row](const QString& column) { return row.Fields(column).Value(); };
    return Step{.number = number,
                .label = value(u"标签"_s).textOr(),
                .tag = value(u"标题"_s).textOr(),
                .size = {value(u"图宽"_s).toInteger(), value(u"图高"_s).toInteger()},
                .parameter = 0,
                .picture = picture->image(),
                .profile = picture->profile()};
}

/// Rows of an earlier picture may be in front of those of the last one, which begin with its load.
std::optional<UndoSteps::Step> UndoSteps::newest() const {
    const Recordset rows = mekTp::catalogue.OpenRecordset(u"tccx"_s);
    if (rows.rowCount() == 0) return {};
    std::optional<Step> step;
    for (int number = rows.valueAt(rows.rowCount() - 1, u"编号"_s).textOr().toInt(); number > 0 && !step; --number)
        step = read(number);
    return step;
}

void UndoSteps::remove(int number) {
    mekTp::catalogue.Execute(u"DELETE FROM [tccx] WHERE 编号 = "_s + quoted(stepText(number)));
}

void UndoSteps::clear() {
    loaded_.reset();
    emptyUndoSteps();
}

QString UndoSteps::takeLoss() {
    if (loss_.isEmpty() || std::exchange(isLossTaken_, true)) return {};
    return loss_;
}

/// A table that is empty already is not written to.
void emptyUndoSteps() {
    if (mekTp::catalogue.OpenRecordset(u"tccx"_s).rowCount() > 0) mekTp::catalogue.Execute(u"DELETE FROM [tccx]"_s);
    forgetSource();
}
