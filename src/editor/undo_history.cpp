#include "editor/undo_history.h"

#include "catalogue/mektp.h"
#include "catalogue/picture_field.h"
#include "editor/picture_files.h"
#include "platform/base/conversion.h"
#include "platform/base/error.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"

#include <new>
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
    if (state_.undoing) return;
    finishFirst();
    state_.stepNumber = 0;
    loss_.clear();
    isLossTold_ = false;
    state_.stepTrail = StepTrail(state_.editState);
    const QString number = nextStep();
    if (!record(number, [&] { writeRow(number); })) return;
    first_ = std::async(std::launch::async, [this, image = view_.picYu->Image()] {
        const QByteArray bytes = encodeJpeg(image, jpegQuality);
        QMetaObject::invokeMethod(this, &UndoHistory::finishFirst, Qt::QueuedConnection);
        return bytes;
    });
}

/// Stores the picture of the first step, for which the row is there already.
void UndoHistory::finishFirst() {
    if (!first_.valid()) return;
    const QString number = StepTrail::stepText(1);
    record(number, [&] {
        const QByteArray bytes = first_.get();
        Recordset row = newestRow(number);
        storeJpeg(bytes, row, state_);
    });
}

/// Stores a step, or what belongs to it. Of one that cannot be stored nothing stays, nor does an earlier picture's step
/// of its number, which would be taken for it.
bool UndoHistory::record(const QString& number, const std::function<void()>& storing) {
    try {
        storing();
        return true;
    } catch (const Error& failure) {
        loss_ = failure.text();
    } catch (const std::bad_alloc&) {
        loss_ = u"内存不足。"_s;
    } catch (const std::exception& failure) {
        loss_ = QString::fromLocal8Bit(failure.what());
    }
    attempt([&] { removeStep(number); });
    return false;
}

/// Of the first step too only whoever goes on to change the picture is told: to him it matters.
void UndoHistory::tellLoss() {
    if (loss_.isEmpty() || std::exchange(isLossTold_, true)) return;
    say(view_.picYu->window(), u"这一步没有记录下来，以后不能撤消。图片可以继续处理和保存。\n\n"_s + loss_);
}

QString UndoHistory::nextStep() {
    state_.stepTrail.push(++state_.stepNumber);
    return StepTrail::stepText(state_.stepNumber);
}

/// Records the picture on screen as a step. A step that cannot be written never stops the work on the picture; whoever
/// counts on it is told, once for a picture.
void UndoHistory::cxcz() {
    if (state_.undoing) return;
    finishFirst();
    const QString number = nextStep();
    record(number, [&] {
        Transaction step(mekTp::catalogue);
        writeRow(number);
        Recordset stored = newestRow(number);
        bcsk(view_.picYu->Image(), stored, state_);
        step.commit();
    });
    tellLoss();
}

void UndoHistory::writeRow(const QString& number) {
    Recordset rows = mekTp::catalogue.OpenRecordset(u"tccx"_s);
    rows.AddNew();
    const std::pair<QString, Variant> values[] = {
        {u"编号"_s, number},
        {u"标签"_s, view_.txtTs->text()},
        {u"图宽"_s, float(widthOf(view_.picYu))},
        {u"图高"_s, float(heightOf(view_.picYu))},
        {u"标题"_s, state_.opTag},
        {u"参数"_s, dialog_.isOpen() ? numericValue(dialog_.txtCq->text()) : 0.0},
    };
    for (const auto& entry : values) attempt([&] { rows.Fields(entry.first).SetValue(entry.second); });
    rows.Update();
}

void UndoHistory::removeStep(const QString& number) {
    mekTp::catalogue.Execute(u"DELETE FROM [tccx] WHERE 编号 = "_s + quoted(number));
}

void UndoHistory::clear() {
    first_ = {};
    mekTp::catalogue.Execute(u"DELETE FROM [tccx]"_s);
}

void UndoHistory::mnuCxClick() {
    if (!view_.picCs->isHidden()) return;  // the picture is out of sight, and its steps are gone
    state_.undoing = true;
    finishFirst();
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
    if (state_.stepTrail.isEmpty())
        Q_EMIT emptied();
    else
        restore(state_.stepTrail.newest());
}

void UndoHistory::restore(const QString& number) {
    Recordset step = newestRow(number);
    if (step.Eof()) return;  // it could not be stored
    const auto picture = pictureFromField(step, pictureColumn);
    if (!picture) return;
    view_.picYu->setPicture(picture->image());
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
