// The runs of the page 图片转存: into a folder by names, one after the other or by default, and into a table.

#include "catalogue/album_rules.h"
#include "catalogue/album_tables.h"
#include "catalogue/mektp.h"
#include "catalogue/picture_field.h"
#include "catalogue/runs/picture_names.h"
#include "intake/transfer/transfer_page.h"
#include "intake/transfer/transfer_rules.h"
#include "platform/base/error.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/failure_list.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "settings/frame/columns.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <algorithm>
#include <memory>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {
const QString copiedCaption = u"已复制"_s;
}  // namespace

void TransferPage::cmdFzClick() {
    if (chosen_.count() == 0) return;
    if (!toFolder()) {
        fzyd(operationText(false));
        return;
    }
    cmdYd_->setText(u"移 动"_s);
    cmdFz_->setText(copiedCaption);
    fzzb();
}

void TransferPage::cmdYdClick() {
    if (chosen_.count() == 0) return;
    if (isDemo(flow_.sourceTable())) {
        say(frame_.form, onlyForShow);
        return;
    }
    if (!isAlbumTable(mekTp::catalogue, flow_.sourceTable())) {
        say(frame_.form, u"数据表“%1”不是图册，其中的记录不能移走。"_s.arg(flow_.sourceTable()));
        return;
    }
    if (!toFolder()) {
        fzyd(operationText(true));
        return;
    }
    cmdFz_->setText(u"复 制"_s);
    cmdYd_->setText(u"已移动"_s);
    fzzb();
}

// Opens the name dialog for the first picture.
void TransferPage::fzzb() {
    nameEntryIndex_ = 0;
    named_ = {};
    setNaming(true);
    names_.open(prg3_);
    askName();
}

/// Shows the picture in hand and asks for its name.
void TransferPage::askName() {
    const Hourglass hourglass;
    const QString number = chosen_.at(nameEntryIndex_);
    NameQuestion question;
    question.text = nameQuestion(albumNameOfLine(frame_.albums.line()), number, nameEntryIndex_ == 0);
    question.defaultName = defaultPictureName({}, number.toInt());
    attempt([&] {
        Recordset record = openChosen(mekTp::catalogue, recordInHand(moves()));
        question.defaultName = defaultPictureName(record.Fields(u"编号"_s).Value(), number.toInt());
        question.picture = pictureFromField(record, u"图片"_s, names_.pictureSize());
    });
    names_.ask(question);
}

/// Told by the caption that the pressed button has taken.
bool TransferPage::moves() const {
    return cmdFz_->text() != copiedCaption;
}

ChosenRecord TransferPage::recordInHand(bool move) const {
    const QStringList numbers = chosen_.all();
    ChosenRecord chosen{flow_.sourceTable(), numbers[nameEntryIndex_], 0, move};
    for (const RunItem& item : named_.items) {
        const bool isGone = move && item.fate == Fate::taken;
        if (item.name == chosen.number && !isGone) ++chosen.earlier;
    }
    return chosen;
}

/// While names are asked for, the list of pictures stays as it is.
void TransferPage::setNaming(bool on) {
    chosen_.setEnabled(!on);
    for (QPushButton* button : {cmdFz_, cmdYd_}) button->setEnabled(false);
    cmdWj_->setEnabled(!on && flow_.step() == 4);
    enableChoosing();
    if (!on) return;
    for (QPushButton* button : {cmdQb_, cmdXb_}) button->setEnabled(false);
}

void TransferPage::nameCancelled() {
    names_.close();
    prg3_->hide();
    setNaming(false);
    const bool move = moves();
    const RunReport ended = takeNamed();
    if (move) dropDone(ended);
    if (nameEntryIndex_ > 0) frame_.runBar.tellReport(ended, transferWords(move), {});
    frame_.bin.look();
}

/// The report on the names that were given.
RunReport TransferPage::takeNamed() {
    RunReport report = std::exchange(named_, {});
    report.stopped = nameEntryIndex_ < chosen_.count();
    report.close(chosen_.all(), nameEntryIndex_);
    return report;
}

/// What was moved leaves the list; what is left of it can still be moved.
void TransferPage::dropDone(const RunReport& moved) {
    const QList<qsizetype> gone = moved.placesOf({Fate::taken});
    if (gone.isEmpty()) return;
    std::for_each(gone.rbegin(), gone.rend(), [this](qsizetype line) { chosen_.drop(static_cast<int>(line)); });
    attempt([&] { frame_.grid.listAgain(); });
    showTotal();
    linesChanged();
    bsxz(false);
}

// One step of a copy or move: the picture whose name was given, or all records.
void TransferPage::fzyd(const QString& operation) {
    const bool move = operation == operationText(true);
    if (toFolder())
        sendNamed(move);
    else
        toTable(move);
}

/// The picture in hand, to the name that was given. It is under way when this returns.
void TransferPage::sendNamed(bool move) {
    const auto sent = std::make_shared<SentPicture>();
    const auto send = [sent, catalogue = mekTp::cataloguePath(), record = recordInHand(move),
                       target = FileTarget{browser_.folder(), names_.name()},
                       now = progressOfNames()](RunWatch& watch) {
        watch.progress(now);
        *sent = transferToFile(OpenDatabase(catalogue), record, target);
        return RunReport{.stopped = !watch.progress(now)};
    };
    frame_.runBar.startStep(transferWords(move), send, [this, sent, move](const RunReport& report) {
        if (!report.failure.isEmpty()) *sent = {SentPicture::failed, report.failure};
        named(*sent, move);
        if (report.stopped && names_.isOpen()) nameCancelled();
    });
}

RunProgress TransferPage::progressOfNames() const {
    const int count = chosen_.count();
    return {.percent = nameEntryIndex_ * 100 / count, .done = nameEntryIndex_, .all = count};
}

void TransferPage::named(const SentPicture& sent, bool move) {
    if (!passesOver(sent, move)) {
        names_.askAgain();
        return;
    }
    ++nameEntryIndex_;
    toNextName(move);
}

void TransferPage::toNextName(bool move) {
    const int count = chosen_.count();
    if (nameEntryIndex_ < count) {
        prg3_->setValue(nameEntryIndex_ * 100 / count);
        askName();
        return;
    }
    names_.close();
    prg3_->hide();
    setNaming(false);
    const RunReport ended = takeNamed();
    finish(ended.count);
    frame_.runBar.tellReport(ended, transferWords(move), {});
}

/// Notes what became of the picture in hand. False when its name is to be asked for again: nothing is passed over that
/// another name, or another try, can still save.
bool TransferPage::passesOver(const SentPicture& sent, bool move) {
    const QString number = chosen_.at(nameEntryIndex_);
    if (sent.outcome == SentPicture::doubtful || sent.outcome == SentPicture::failed)
        noteFailure(number + u'：' + sent.reason);
    switch (sent.outcome) {
        case SentPicture::done:
            named_.items.push_back({nameEntryIndex_, number, Fate::taken, {}, names_.name()});
            ++named_.verified;
            return true;
        case SentPicture::badName:
            say(frame_.form, sent.reason);
            return false;
        case SentPicture::doubtful:
            say(frame_.form, sent.reason, BoxIcon::exclamation);
            named_.items.push_back({nameEntryIndex_, number, Fate::doubtful, sent.reason, names_.name()});
            return true;
        case SentPicture::failed:
            if (choose(frame_.form, retryQuestion(move, number, sent.reason), {u"再试一次"_s, u"跳过这一张"_s}, 0, 0,
                       BoxIcon::exclamation) == 0)
                return false;
            break;
        case SentPicture::impossible:
            break;
    }
    named_.items.push_back({nameEntryIndex_, number, Fate::failed, sent.reason});
    return true;
}

void TransferPage::toTable(bool move) {
    if (!ask(frame_.form, startQuestion(move))) return;
    const TransferJob::Table target{flow_.targetDatabase(), flow_.targetTable(), mapping_.fieldMapping(), move};
    begin({flow_.sourceTable(), chosen_.all(), target}, &TransferPage::finish);
}

/// The run is under way when this returns.
void TransferPage::begin(const TransferJob& job, void (TransferPage::*end)(int count)) {
    const auto send = [job, catalogue = mekTp::cataloguePath()](RunWatch& watch) { return job.run(catalogue, watch); };
    frame_.runBar.start({{6345, 5640, 1950, 255}, transferTab, prg3_, beside(transferShare, 1) + movesDown},
                        job.words(), send, [this, job, end](const RunReport& report) {
                            // The target takes nothing: all is as it was.
                            if (report.items.empty() && !report.failure.isEmpty()) throw Error(report.failure);
                            (this->*end)(report.count);
                            const RunBar::Retry again = [this, job, end](const QList<qsizetype>& places) {
                                begin(job.some(places), end);
                            };
                            frame_.runBar.tellReport(report, job.words(), job.isDivisible() ? again : RunBar::Retry());
                        });
}

/// The tail of a copy or move: the list is empty again. A mapping can have been used without its panel being closed.
void TransferPage::finish(int count) {
    const QString album = albumNameOfLine(frame_.albums.line());
    browser_.hide();
    browser_.hideNote();
    chosen_.clear();
    linesChanged();
    if (toFolder()) lbl5_->setText(u"已转录完成"_s);
    cmdFz_->setText(u"复 制"_s);
    cmdYd_->setText(u"移 动"_s);
    resetCaptions();
    enableChoosing();
    cmdQq_->setEnabled(false);
    attempt([&] { frame_.grid.listAgain(); });
    showTotal();
    frame_.hints.czts(20);
    bsxz(true);
    frame_.work.end();
    say(frame_.form, copiedText(album, count), BoxIcon::information);
    frame_.bin.look();
}

void TransferPage::cmdWjClick() {
    const QStringList numbers = chosen_.all();
    if (numbers.isEmpty()) {
        frame_.work.end();
        return;
    }
    if (browser_.echo().isEmpty()) {
        say(frame_.form, u"请先选择要保存图片文件的文件夹。"_s);
        return;
    }
    if (!ask(frame_.form, toFilesQuestion())) return;
    begin({flow_.sourceTable(), numbers, TransferJob::Folder{browser_.folder()}}, &TransferPage::finishFiles);
}

void TransferPage::finishFiles(int count) {
    browser_.disableEcho();
    cmdQb_->setText(chooseAllCaption);
    cmdQb_->setEnabled(false);
    say(frame_.form, madeIntoFilesText(count));
    frame_.hints.czts(20);
    frame_.work.end();
    bsxz(true);
    cmdQq_->setEnabled(false);
}
