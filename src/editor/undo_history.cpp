#include "editor/undo_history.h"

#include "catalogue/mektp.h"
#include "catalogue/picture_field.h"
#include "editor/picture_files.h"
#include "platform/base/error.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"

#include <new>
#include <optional>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString pictureColumn = u"图片"_s;

/// Stepping through an album starts the numbers again without removing the earlier rows: the newest one counts.
Recordset newestRow(const QString& number) {
    Recordset rows = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tccx WHERE 编号 = "_s + quoted(number));
    if (!rows.Eof()) rows.MoveLast();
    return rows;
}

/// Two large pictures are turned into their JPEGs at once.
std::future<QByteArray> encoded(const QImage& picture) {
    return std::async([picture] { return encodeJpeg(picture, jpegQuality); });
}

void storeJpeg(const QByteArray& bytes, Recordset& recordset, EditorState& state) {
    state.savedSize = bytes.size();
    recordset.Edit();
    storePictureBytes(recordset.Fields(pictureColumn), bytes);
    recordset.Update();
}

}  // namespace

/// Stores a picture in a record.
void bcsk(const QImage& image, Recordset& recordset, EditorState& state) {
    storeJpeg(encodeJpeg(image, jpegQuality), recordset, state);
}

UndoHistory::UndoHistory(EditorState& state, Commands& commands, EditorView& view, OperationDialog& dialog)
    : QObject(view.picCq), state_(state), commands_(commands), view_(view), dialog_(dialog) {}

void UndoHistory::start() {
    state_.stepNumber = 0;
    loss_.clear();
    isLossTold_ = false;
    state_.stepTrail = StepTrail(state_.editState);
    loaded_ = nextStep();
    state_.forgetChanges();
}

/// Stores a step. Of one that cannot be stored nothing stays, nor does an earlier picture's step of its number, which
/// would be taken for it.
void UndoHistory::record(const Step& step, std::future<QByteArray> jpeg) {
    try {
        write(step, jpeg.get());
        return;
    } catch (const Error& failure) {
        loss_ = failure.text();
    } catch (const std::bad_alloc&) {
        loss_ = u"内存不足。"_s;
    } catch (const std::exception& failure) {
        loss_ = QString::fromLocal8Bit(failure.what());
    }
    attempt([&] { removeStep(step.number); });
}

/// Once for a picture: whoever goes on to change it may count on the way back.
void UndoHistory::tellLoss() {
    if (loss_.isEmpty() || std::exchange(isLossTold_, true)) return;
    say(view_.picYu->window(), u"这一步没有记录下来，以后不能撤消。图片可以继续处理和保存。\n\n"_s + loss_);
}

/// The picture on the screen as a step with the next number.
UndoHistory::Step UndoHistory::nextStep() {
    state_.stepTrail.push(++state_.stepNumber);
    if (state_.stepNumber <= state_.keptStep) state_.keptStep = -1;
    return {.number = StepTrail::stepText(state_.stepNumber),
            .label = view_.txtTs->text(),
            .tag = state_.opTag,
            .size = {widthOf(view_.picYu), heightOf(view_.picYu)},
            .parameter = dialog_.isOpen() ? dialog_.value() : 0.0,
            .picture = view_.picYu->Image()};
}

/// Records the picture on screen as a step. A step that cannot be written never stops the work on the picture.
void UndoHistory::cxcz() {
    if (state_.undoing) return;
    const Step step = nextStep();
    auto jpeg = encoded(step.picture);
    if (const auto loaded = std::exchange(loaded_, std::nullopt)) record(*loaded, encoded(loaded->picture));
    record(step, std::move(jpeg));
    tellLoss();
}

void UndoHistory::write(const Step& step, const QByteArray& jpeg) {
    Transaction whole(mekTp::catalogue);
    Recordset rows = mekTp::catalogue.OpenRecordset(u"tccx"_s);
    rows.AddNew();
    const std::pair<QString, FieldValue> values[] = {
        {u"编号"_s, step.number},
        {u"标签"_s, step.label},
        {u"图宽"_s, float(step.size.width())},
        {u"图高"_s, float(step.size.height())},
        {u"标题"_s, step.tag},
        {u"参数"_s, step.parameter},
    };
    for (const auto& entry : values) attempt([&] { rows.Fields(entry.first).SetValue(entry.second); });
    rows.Update();
    Recordset stored = newestRow(step.number);
    storeJpeg(jpeg, stored, state_);
    whole.commit();
}

void UndoHistory::removeStep(const QString& number) {
    mekTp::catalogue.Execute(u"DELETE FROM [tccx] WHERE 编号 = "_s + quoted(number));
}

void UndoHistory::clear() {
    loaded_.reset();
    emptyUndoSteps();
}

/// A table that is empty already is not written to.
void emptyUndoSteps() {
    if (mekTp::catalogue.OpenRecordset(u"tccx"_s).rowCount() > 0) mekTp::catalogue.Execute(u"DELETE FROM [tccx]"_s);
}

void UndoHistory::mnuCxClick() {
    if (!view_.picCs->isHidden()) return;  // the picture is out of sight, and its steps are gone
    state_.undoing = true;
    view_.picYu->show();  // a paint that failed has left it hidden
    if (!view_.shpYu->isHidden()) {
        view_.shpYu->hide();
        view_.txtCc->hide();
    }
    if (dialog_.isOpen()) {
        view_.picCq->hide();
        view_.tscz(u"w1"_s);
        commands_.szan(true);
    } else if (!view_.picAn->isHidden()) {
        view_.picAn->hide();
        commands_.szan(true);
    } else {
        pop();
    }
}

void UndoHistory::pop() {
    if (state_.stepTrail.isEmpty()) return;
    removeStep(state_.stepTrail.newest());
    state_.stepTrail.pop();
    --state_.stepNumber;
    if (!state_.stepTrail.isEmpty()) {
        restore(state_.stepTrail.newest());
        return;
    }
    loaded_.reset();
    Q_EMIT emptied();
}

void UndoHistory::restore(const QString& number) {
    Recordset step = newestRow(number);
    const auto picture = step.Eof() ? std::nullopt : pictureFromField(step, pictureColumn);
    if (!picture) {  // it could not be stored: what is on the screen is no step that is kept
        state_.keptStep = -1;
        return;
    }
    view_.setWorkingPicture(picture->image());
    state_.isTakenBack = true;
    state_.picWidth = step.Fields(u"图宽"_s).Value().toInteger();
    state_.picHeight = step.Fields(u"图高"_s).Value().toInteger();
    view_.txtTs->setText(step.Fields(u"标签"_s).Value().textOr());
    state_.opTag = step.Fields(u"标题"_s).Value().textOr();
    view_.pmsz();
    view_.setCaption(state_.sourceLine + (state_.opTag.isEmpty() ? QString() : u"["_s + state_.opTag + u"]"_s));
    view_.txtCc->hide();
    if (state_.editState != u"p" && state_.editState != u"z") dialog_.reopen();
    view_.tscz(state_.editState + u"1"_s);
}
