#include "settings/editing/record_frame.h"

#include "catalogue/album_rules.h"
#include "catalogue/bin.h"
#include "catalogue/mektp.h"
#include "platform/base/conversion.h"
#include "platform/base/error.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/option_buttons.h"
#include "platform/desktop/text_box.h"
#include "settings/editing/editing_rules.h"
#include "settings/frame/form_parts.h"

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

const QString atRest = u"编 辑"_s;
const QString pending = u"确 定"_s;
const QString next = u"下一张"_s;
const QString deletes = u"删 除"_s;
const QString cancels = u"取 消"_s;

const QRect groupPlace(5460, 3960, 3765, 2550);
constexpr int rightEdge = 3645, left = 120;
constexpr int pitch = 369, captionWidth = 540, fieldsWidth = 2625;
constexpr int buttonLeft = 2835, buttonWidth = rightEdge - buttonLeft;

constexpr int lineTop(int line) {
    return 255 + line * pitch;
}

}  // namespace

RecordFrame::RecordFrame(const SettingsFrame& frame, Preview& preview)
    : frame_(frame),
      preview_(preview),
      Frame9(makeGroup(frame.sstFz, editingTab, u"Frame9"_s, u"编辑记录"_s, groupPlace, rightColumn + movesDown)) {
    makeFields();
    makeButtons();
    makeOptions();
    frame.grid.putMoverIn(Frame9, {left, lineTop(5), 2460, 345}, u"移动记录"_s);
    connect(&frame.grid, &RecordGrid::listed, this, [this] {
        if (frame_.grid.total() == 0) clear();
    });
    connect(&preview, &Preview::storing, this, &RecordFrame::keepTyped);
    connect(&preview, &Preview::stored, this, &RecordFrame::restoreTyped);
    rest();
    albumLost();
}

void RecordFrame::makeFields() {
    const int numberWidth = 600, codesLeft = left + captionWidth + numberWidth + 75;
    const int wide = fieldsWidth - captionWidth;
    const auto field = [&](const QString& name, const QString& caption, int x, int line, int width) {
        return makeLabelled<TextBox>(Frame9, name, caption, {x, lineTop(line)}, captionWidth, width, widens);
    };
    txtXh = field(u"txtXh"_s, u"序号："_s, left, 0, numberWidth);
    letGrow(txtXh, {});
    txtBh = field(u"txtBh"_s, u"编号："_s, codesLeft, 0, left + fieldsWidth - codesLeft - captionWidth);
    txtRq = field(u"txtRq"_s, u"日期："_s, left, 1, wide);
    txtB2 = field(u"txtB2"_s, u"备注："_s, left, 2, wide);
    const auto value = [&](const QString& name, const QString& caption, int x, int width) {
        makeCaption(Frame9, caption, x, lineTop(3), captionWidth);
        auto* label = make<QLabel>(Frame9, name);
        label->setTextFormat(Qt::PlainText);
        place(label, x + captionWidth, lineTop(3), width, rowHeight);
        return label;
    };
    lblGg = value(u"lblGg"_s, u"规格："_s, left, 1080);
    lblDx = value(u"lblDx"_s, u"大小："_s, left + captionWidth + 1110, 900);

    connect(txtXh, &TextBox::lostFocus, this, [this] {
        // The focus is still on its way; a box opened now would swallow the click that moved it.
        numberToCheck_ = true;
        QMetaObject::invokeMethod(this, guarded(frame_.form, [this] { numberLeft(); }), Qt::QueuedConnection);
    });
}

void RecordFrame::makeButtons() {
    cmdQd = makeButton(Frame9, u"cmdQd"_s, atRest, buttonLeft, lineTop(0), buttonWidth);
    cmdSc = makeButton(Frame9, u"cmdSc"_s, deletes, buttonLeft, lineTop(1), buttonWidth);
    QPushButton* opener = preview_.makeOpener(
        recordOpener, Frame9,
        {.isEditing = [this] { return isEditing(); }, .caption = [this] { return pictureCaption(); }});
    place(opener, buttonLeft, lineTop(2), buttonWidth, rowHeight);
    letGrow(opener, movesRight);
    connect(cmdQd, &QPushButton::clicked, this, guarded(frame_.form, [this] { cmdQdClick(); }));
    connect(cmdSc, &QPushButton::clicked, this, guarded(frame_.form, [this] { cmdScClick(); }));
}

QString RecordFrame::pictureCaption() const {
    return frame_.albums.table() + u" 图片： 序号 "_s + txtXh->text() + u" 编号 "_s + txtBh->text();
}

void RecordFrame::makeOptions() {
    const std::array captions{u"全部"_s, u"未设编号"_s, u"已设编号"_s};
    const std::array lefts{left, 1215, 2445};
    for (int i = 0; i < 3; ++i) {
        auto& option = optBs.at(i);
        option = make<QRadioButton>(Frame9, element(u"optBs"_s, i), captions.at(i));
        place(option, lefts.at(i), lineTop(4), 1080, rowHeight);
        connect(option, &QRadioButton::clicked, this, guarded(frame_.form, [this, i] { Q_EMIT filterChosen(i); }));
    }
    chkLi = make<QCheckBox>(Frame9, u"chkLi"_s, u"连续编辑"_s);
    place(chkLi, 2655, lineTop(5), 1050, 345);
    groupOptions(optBs);
}

// What is shown ------------------------------------------------------------------------------------------------------

void RecordFrame::albumChosen() {
    rest();
    showFilter(0);
    for (QRadioButton* option : optBs) option->setEnabled(true);
    frame_.grid.setMoverEnabled(true);
    allowChanges();
}

void RecordFrame::albumLost() {
    rest();
    clear();
    showFilter(-1);
    for (QRadioButton* option : optBs) option->setEnabled(false);
    frame_.grid.setMoverEnabled(false);  // what it stands on belongs to another page
    cmdQd->setEnabled(false);
    cmdSc->setEnabled(false);
    preview_.allowOpening(recordOpener, false);
}

void RecordFrame::rowSelected() {
    allowChanges();
}

/// The demonstration album can be looked at only.
void RecordFrame::allowChanges() {
    const bool changeable = !frame_.albums.table().isEmpty() && !isDemo(frame_.albums.table());
    cmdQd->setEnabled(changeable);
    cmdSc->setEnabled(changeable);
    preview_.allowOpening(recordOpener, !frame_.albums.table().isEmpty());
}

void RecordFrame::fill() {
    showTexts(textsOfRecord(frame_.grid.records()));
    preview_.followRecord();
}

void RecordFrame::clear() {
    showTexts({});
    if (frame_.isInFront(editingTab)) preview_.followRecord();
}

void RecordFrame::showTexts(const RecordTexts& texts) {
    shown_ = texts;
    txtXh->setText(texts.number);
    txtBh->setText(texts.codes);
    txtRq->setText(texts.date);
    txtB2->setText(texts.remark);
    lblGg->setText(texts.pixels);
    lblDx->setText(texts.size);
    for (TextBox* box : {txtRq, txtB2}) box->setCursorPosition(0);
}

RecordTexts RecordFrame::texts() const {
    return {txtXh->text(), txtBh->text(), lblDx->text(), lblGg->text(), txtRq->text(), txtB2->text()};
}

void RecordFrame::showFilter(int option) {
    filter_ = option;
    clearOptions(optBs);
    if (option >= 0) optBs.at(static_cast<std::size_t>(option))->setChecked(true);
}

bool RecordFrame::hasRecord() const {
    const Recordset& records = frame_.grid.records();
    return !records.isNothing() && records.row() >= 0;
}

// States -------------------------------------------------------------------------------------------------------------

bool RecordFrame::isEditing() const {
    return cmdQd->text() != atRest;
}

bool RecordFrame::isChanged() const {
    return isEditing() && texts() != shown_;
}

bool RecordFrame::isContinuous() const {
    return cmdQd->text() == next;
}

void RecordFrame::setLocked(bool on) {
    for (TextBox* box : {txtXh, txtBh, txtRq, txtB2}) box->setLocked(on);
}

void RecordFrame::rest() {
    setLocked(true);
    numberToCheck_ = false;
    if (isContinuous()) frame_.hints.show(u"操作提示：请在左侧选择要编辑的图片"_s);
    cmdQd->setText(atRest);
    cmdSc->setText(deletes);
    preview_.allowStoring(false);
    frame_.work.end();
}

void RecordFrame::startEditing() {
    if (!hasRecord()) {
        say(frame_.form, u"没有可以编辑的记录。"_s);
        return;
    }
    setLocked(false);
    limitTyping();
    if (chkLi->isChecked()) {
        cmdQd->setText(next);
        frame_.hints.show(u"操作提示：编辑后如果继续进行，按《下一张》，否则按《取 消》。"_s);
    } else {
        cmdQd->setText(pending);
    }
    cmdSc->setText(cancels);
    frame_.work.begin();
    txtBh->setFocus();
}

/// An album that another program has made may hold shorter texts, or longer ones.
void RecordFrame::limitTyping() {
    attempt([&] {
        const Recordset& records = frame_.grid.records();
        txtBh->setTypingLimit(records.Fields(u"编号"_s).Size());
        txtB2->setTypingLimit(records.Fields(u"备注"_s).Size());
    });
}

void RecordFrame::cmdQdClick() {
    if (!isEditing())
        startEditing();
    else if (isContinuous())
        goOn();
    else if (bjbc())
        rest();
    else
        tellNotStored();
}

void RecordFrame::goOn() {
    if (numberToCheck_ && !numberIsFree()) return;
    if (!bjbc()) {
        tellNotStored();
        return;
    }
    RecordGrid& grid = frame_.grid;
    const int following = grid.records().row() + 1;
    if (following == 0 || following >= grid.total()) {
        cmdQd->setEnabled(false);
        rest();
        return;
    }
    grid.moveToRow(following);
    setLocked(false);
    txtBh->setFocus();
}

void RecordFrame::cmdScClick() {
    if (!isEditing())
        deleteRecord();
    else if (bjbc())
        rest();
    else
        stopOrStay();
}

// 取 消 stores as well; what cannot be stored must not keep anybody in the record.
void RecordFrame::stopOrStay() {
    if (notStored_.isEmpty()) return;
    const int answer = choose(frame_.form, notStored_ + u"\n\n不保存就结束编辑吗？"_s, {u"不保存"_s, u"继续编辑"_s}, 1,
                              1, BoxIcon::exclamation);
    if (answer != 0) return;
    rest();
    fill();
}

bool RecordFrame::mayLeave() {
    if (!isChanged()) return true;
    const QString which = shown_.number.isEmpty() ? u"这条记录"_s : u"序号为 %1 的记录"_s.arg(shown_.number);
    switch (askAboutUnsaved(frame_.form, which + u"改过了，还没有保存。"_s)) {
        case Unsaved::keepEditing:
            return false;
        case Unsaved::discard:
            rest();
            fill();
            return true;
        case Unsaved::save:
            break;
    }
    if (bjbc()) {
        rest();
        return true;
    }
    tellNotStored();
    return false;
}

void RecordFrame::appendCode(const QString& code) {
    txtBh->setText(txtBh->text() + code);
}

// Changes ------------------------------------------------------------------------------------------------------------

// Stores the fields in the current record. False when it is still to be done: the user wants to fill in the codes
// first, or the record could not be stored, for the moment perhaps; what was typed stays in the fields.
bool RecordFrame::bjbc() {
    notStored_.clear();
    if (txtBh->text().isEmpty() &&
        !ask(frame_.form,
             u"编号没有填，会造成以后无法筛选图片。\n\n如果暂不填写，按《确定》；否则按《取消》，重新填写。"_s)) {
        txtBh->setFocus();
        return false;
    }
    Recordset& records = frame_.grid.records();
    QStringList refused = faults();
    if (refused.isEmpty()) {
        try {
            storeRecord(records, texts(), shown_);
        } catch (const Error& error) {
            refused << error.text();
        }
    }
    if (!refused.isEmpty()) {
        notStored_ = u"以下内容没有保存，记录没有改变：\n\n"_s + refused.join(u'\n');
        return false;
    }
    setLocked(true);
    const CodesRegistered codes = registerCodes(mekTp::catalogue, textsOfRecord(records).codes, frame_.albums.table());
    if (codes.added > 0) Q_EMIT codesRegistered();
    frame_.grid.moveToRow(records.row());
    if (!codes.failures.isEmpty()) say(frame_.form, u"以下内容没有保存：\n\n"_s + codes.failures.join(u'\n'));
    return true;
}

/// What keeps the fields from being stored. The first field that is to blame takes the focus.
QStringList RecordFrame::faults() {
    const RecordTexts typed = texts();
    QStringList sentences;
    const auto blame = [&](TextBox* box, const QString& sentence) {
        if (sentence.isEmpty()) return;
        if (sentences.isEmpty()) box->setFocus();
        sentences << sentence;
    };
    blame(txtXh, numberFault(mekTp::catalogue, frame_.albums.table(), typed, shown_));
    blame(txtBh, lengthFault(u"编号"_s, *txtBh));
    blame(txtRq, dateFault(typed, shown_));
    blame(txtB2, lengthFault(u"备注"_s, *txtB2));
    return sentences;
}

/// Nothing to tell when the person has called it off himself.
void RecordFrame::tellNotStored() {
    if (!notStored_.isEmpty()) say(frame_.form, notStored_);
}

void RecordFrame::deleteRecord() {
    if (!hasRecord()) {
        say(frame_.form, u"没有可以删除的记录。"_s);
        return;
    }
    Recordset& records = frame_.grid.records();
    const QString number = records.Fields(u"序号"_s).Value().textOr();
    if (!askBeforeDeleting(frame_.form, recordDeletionQuestion(number, recordInWords(textsOfRecord(records))))) return;
    // The record itself goes, not whichever is found by its number: two can bear the same one.
    const int row = records.row();
    removeIntoBin(mekTp::catalogue, frame_.albums.table(), records);
    const auto deletedNumber = static_cast<qint64>(numericValue(number));
    goToNeighbour(deletedNumber, row);
    Q_EMIT recordDeleted();
    frame_.bin.look();
}

/// The record with the following number by preference, then the one before; where numbers are missing, the next in
/// line.
void RecordFrame::goToNeighbour(qint64 deletedNumber, int row) {
    RecordGrid& grid = frame_.grid;
    if (grid.total() == 0) {
        grid.listAgain();
        return;
    }
    const auto goTo = [&](qint64 number) { return grid.findFirst(u"序号 = "_s + QString::number(number)); };
    if (deletedNumber != 0 && (goTo(deletedNumber + 1) || goTo(deletedNumber - 1))) return;
    grid.moveToRow(std::min(row, grid.total() - 1));
}

// The number ----------------------------------------------------------------------------------------------------------

// The number is tested when the focus leaves it in continuous editing. Whoever ends the editing is let go.
void RecordFrame::numberLeft() {
    const bool stillToCheck = std::exchange(numberToCheck_, false);
    if (!stillToCheck || !isContinuous() || !txtXh->isVisible() || txtXh->hasFocus() || cmdSc->hasFocus()) return;
    numberIsFree();
}

bool RecordFrame::numberIsFree() {
    numberToCheck_ = false;
    // What is no number at all storing will tell.
    if (!isNumberTaken(mekTp::catalogue, frame_.albums.table(), texts(), shown_)) return true;
    say(frame_.form, u"所录入的序号重复，请修改重新录入！"_s, BoxIcon::information);
    txtXh->setFocus();
    return false;
}

// A new picture ------------------------------------------------------------------------------------------------------

// Storing one reads the records anew; what has been typed meanwhile is not to be lost by that.
void RecordFrame::keepTyped() {
    before_ = shown_;
    typed_ = texts();
}

void RecordFrame::restoreTyped() {
    const auto restore = [](TextBox* box, const QString& typed, const QString& before) {
        if (typed != before) box->setText(typed);
    };
    restore(txtXh, typed_.number, before_.number);
    restore(txtBh, typed_.codes, before_.codes);
    restore(txtRq, typed_.date, before_.date);
    restore(txtB2, typed_.remark, before_.remark);
}
