// The runs of the page 图片转存: into a folder by names, one after the other or by default, and into a table.

#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "intake/intake_texts.h"
#include "intake/settings_tab.h"
#include "intake/transfer_page.h"
#include "platform/base/error.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/data_control.h"
#include "platform/desktop/list_box.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/surface.h"
#include "platform/desktop/tab_control.h"
#include "platform/desktop/text_box.h"

#include <QComboBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <utility>

using namespace Qt::Literals::StringLiterals;

void TransferPage::cmdFzClick() {
    if (controls_.lstSu->ListCount() == 0) return;
    if (!toFolder()) {
        fzyd(operationText(false));
        return;
    }
    fzzb();
    cmdYd_->setText(u"移 动"_s);
    cmdFz_->setText(u"已复制"_s);
}

void TransferPage::cmdYdClick() {
    if (controls_.lstSu->ListCount() == 0) return;
    if (isDemo(state_.sourceTable)) {
        say(controls_.form, onlyForShow);
        return;
    }
    if (!toFolder()) {
        fzyd(operationText(true));
        return;
    }
    fzzb();
    cmdFz_->setText(u"复 制"_s);
    cmdYd_->setText(u"已移动"_s);
}

// Opens the name dialog for the first picture.
void TransferPage::fzzb() {
    nameEntryIndex_ = 0;
    notNamed_ = {};
    setNaming(true);
    names_.open(nameQuestion(albumNameOfLine(controls_.cboBm->currentText()), controls_.lstSu->List(0), true), prg3_);
}

/// While names are asked for, the list of pictures stays as it is.
void TransferPage::setNaming(bool on) {
    controls_.lstSu->setEnabled(!on);
    for (QPushButton* button : {cmdFz_, cmdYd_}) button->setEnabled(false);
    cmdWj_->setEnabled(!on && state_.intakeStep == 4);
    enableChoosing();
    if (!on) return;
    for (QPushButton* button : {cmdQb_, cmdXb_}) button->setEnabled(false);
}

void TransferPage::nameCancelled() {
    names_.close();
    prg3_->hide();
    setNaming(false);
    const bool moved = cmdYd_->text() == u"已移动"_s;
    tellNotDone(std::exchange(notNamed_, {}), moved);
    if (!moved || nameEntryIndex_ == 0) return;
    for (int i = 0; i < nameEntryIndex_; ++i) delete controls_.lstSu->takeItem(0);
    nameEntryIndex_ = 0;
    attempt([&] { controls_.datBj->Refresh(); });
    showTotal();
    linesChanged();
}

// One step of a copy or move: the picture whose name was given, or all records.
void TransferPage::fzyd(const QString& operation) {
    const bool move = operation == operationText(true);
    if (toFolder())
        toNextName(move);
    else
        toTable(move);
}

void TransferPage::toNextName(bool move) {
    const QStringList numbers = lines();
    const QString album = albumNameOfLine(controls_.cboBm->currentText());
    names_.setConfirmable(false);
    if (nameEntryIndex_ < numbers.size()) {
        const Hourglass hourglass;
        const QString& number = numbers[nameEntryIndex_];
        const auto earlier = static_cast<int>(numbers.first(nameEntryIndex_).count(number));
        transferToFile(state_.sourceTable, number, earlier, {state_.currentFolder, names_.name()}, move, notNamed_);
        ++nameEntryIndex_;
    }
    if (nameEntryIndex_ < numbers.size()) {
        prg3_->setValue(static_cast<int>(nameEntryIndex_ * 100 / numbers.size()));
        names_.askNext(nameQuestion(album, numbers[nameEntryIndex_], false));
        names_.setConfirmable(true);
        return;
    }
    names_.close();
    prg3_->hide();
    setNaming(false);
    tellNotDone(std::exchange(notNamed_, {}), move);
    finish(static_cast<int>(numbers.size()));
}

void TransferPage::toTable(bool move) {
    if (!ask(controls_.form, startQuestion(move))) return;
    const QStringList numbers = lines();
    const NotDone notDone = withProgress([&](const Progress& progress) {
        const TransferTarget target{openTarget(state_.targetDatabasePath), state_.targetTable, mapping_.fieldMapping()};
        return transferToTable(state_.sourceTable, numbers, target, move, progress);
    });
    tellNotDone(notDone, move);
    finish(static_cast<int>(numbers.size()));
}

void TransferPage::tellNotDone(const NotDone& notDone, bool move) {
    if (!notDone.isEmpty()) say(controls_.form, notDone.text(notTransferredHeading(move)));
}

/// The tail of a copy or move: the list is empty again. A mapping can have been used without its panel being closed.
void TransferPage::finish(int count) {
    const QString album = albumNameOfLine(controls_.cboBm->currentText());
    browser_.picMl()->hide();
    controls_.lbl12->hide();
    controls_.lstSu->clear();
    linesChanged();
    if (toFolder()) lbl5_->setText(u"已转录完成"_s);
    cmdFz_->setText(u"复 制"_s);
    cmdYd_->setText(u"移 动"_s);
    resetCaptions();
    enableChoosing();
    cmdQq_->setEnabled(false);
    attempt([&] { controls_.datBj->Refresh(); });
    showTotal();
    hints_.czts(20);
    bsxz(true);
    state_.pageFree = true;
    say(controls_.form, copiedText(album, count), BoxIcon::information);
}

/// Runs a piece of work while the progress bar stands on the page.
NotDone TransferPage::withProgress(const std::function<NotDone(const Progress&)>& work) {
    struct Shown {
        explicit Shown(QProgressBar* bar) : bar_(bar) {}
        ~Shown() { bar_->hide(); }
        QProgressBar* bar_;
    };
    const Hourglass hourglass;
    controls_.sstFz->putOn(transferTab, prg3_, 6345, 5640, 1950, 255);
    prg3_->setValue(0);
    prg3_->show();
    prg3_->raise();
    prg3_->repaint();
    const Shown shown(prg3_);
    return work([this](int percent) {
        if (prg3_->value() == percent) return;
        prg3_->setValue(percent);
        prg3_->repaint();
    });
}

void TransferPage::cmdWjClick() {
    const QStringList numbers = lines();
    if (numbers.isEmpty()) {
        state_.pageFree = true;
        return;
    }
    if (browser_.txtMl()->text().isEmpty()) {
        say(controls_.form, u"请先选择要保存图片文件的文件夹。"_s);
        return;
    }
    if (!ask(controls_.form, toFilesQuestion())) return;
    const NotDone notDone = withProgress([&](const Progress& progress) {
        return transferToFiles(state_.sourceTable, numbers, state_.currentFolder, progress);
    });
    browser_.txtMl()->setEnabled(false);
    cmdQb_->setText(chooseAllCaption);
    cmdQb_->setEnabled(false);
    if (!notDone.isEmpty()) say(controls_.form, notDone.text(u"有 %1 张图片没有写成文件。"_s));
    say(controls_.form, madeIntoFilesText(static_cast<int>(numbers.size())));
    hints_.czts(20);
    state_.pageFree = true;
    bsxz(true);
    cmdQq_->setEnabled(false);
}
