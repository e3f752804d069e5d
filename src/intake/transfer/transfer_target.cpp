// The target of the page 图片转存, a folder or a table of a catalogue, and the steps back.

#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "catalogue/runs/table_transfer.h"
#include "intake/browsing/intake_texts.h"
#include "intake/transfer/new_target.h"
#include "intake/transfer/transfer_page.h"
#include "platform/base/error.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/option_buttons.h"
#include "platform/desktop/placing.h"
#include "settings/frame/columns.h"

#include <QDir>
#include <QFileInfo>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int panelLeft = 170, panelTop = 720;
constexpr int infoLeft = 5400, infoWidth = 3945;
constexpr int lineHeight = 225, twoLinesHeight = 540;

bool isJet(const QString& file) {
    bool is = false;
    attempt([&] { is = isJetDatabase(file); });
    return is;
}

void showLine(QLabel* line, const QString& text) {
    line->setText(text);
    line->setToolTip(text);
    line->setVisible(!text.isEmpty());
}
}  // namespace

bool TransferPage::toFolder() const {
    return optMb_[0]->isChecked();
}

void TransferPage::optMbClick(int index) {
    if (names_.isOpen()) {
        optMb_[0]->setChecked(true);
        return;
    }
    browser_.readFolders();
    browser_.mlcl();
    for (QLabel* line : {lbl3_, lbl6_, lblLj_}) showLine(line, {});
    browser_.showOn(transferTab, panelLeft, panelTop);
    if (index == 1) {
        browser_.setNote(u"“图片转录”只能在目标表后追加记录。"_s);
        browser_.placeNote(transferTab, {575, 6390, 4300, lineHeight}, beside(0, transferShare) + movesDown);
        browser_.showNote();
    }
    frame_.hints.czts(index == 0 ? 4 : 3);
    flow_.goTo(index == 0 ? 2 : 12);
    cmdQq_->setEnabled(true);
    enableRuns(false);
    preview_.allowOpening(transferOpener, false);
}

// Clears the choice of the target.
void TransferPage::xzfy() {
    for (QLabel* line : {lbl3_, lbl6_, lblLj_}) showLine(line, {});
    for (QRadioButton* option : optMb_) clearOption(option);
}

// Lets album and records be chosen, or not while a target is set.
void TransferPage::bsxz(bool enabled) {
    fraMb_->setEnabled(enabled && chosen_.count() > 0);
    frame_.albums.setEnabled(enabled);
    frame_.grid.setEnabled(enabled);
}

void TransferPage::stand(QLabel* line, int top, int height) const {
    frame_.sstFz->putOn(transferTab, line, infoLeft, top, infoWidth, height);
}

void TransferPage::enableRuns(bool on) {
    for (QPushButton* button : {cmdWj_, cmdYd_, cmdFz_}) button->setEnabled(on);
}

void TransferPage::folderConfirmed() {
    const QString folder = browser_.echo();
    if (!toFolder() || folder.isEmpty()) return;
    stand(lblLj_, 4850, lineHeight);
    showLine(lblLj_, u"目标文件夹路径："_s + folder);
    stand(lbl3_, 5100, twoLinesHeight);
    showLine(lbl3_, u"默认文件名为：\n选定路径＋'\\'＋编号＋序号＋'.jpg' "_s);
    frame_.hints.show(u"操作提示：可根据需要选按各按钮进行图片文件的复制或移动。"_s);
    enableRuns(true);
    browser_.hide();
    bsxz(false);
    flow_.goTo(4);
}

/// Another folder shows other databases.
void TransferPage::folderChanged() {
    if (toFolder() || !mapping_.sourceDatabase().isOpen()) return;
    dropTarget();
    enableRuns(false);
}

void TransferPage::fileClicked() {
    if (toFolder()) return;
    enableRuns(false);
    if (browser_.selectedCount() == 0) {
        dropTarget();
        return;
    }
    const QString file = browser_.pickedFile();
    if (const QString objection = objectionTo(file); !objection.isEmpty()) {
        dropTarget();
        if (isJet(file))
            offerNewTarget(file);
        else
            say(frame_.form, objection);
        return;
    }
    chooseTarget();
    if (browser_.selectedCount() <= 1) return;
    say(frame_.form, onlyOneDatabase, BoxIcon::information);
    browser_.selectQuietly(false);
}

/// Why a file can take no pictures; empty when it can.
QString TransferPage::objectionTo(const QString& file) {
    const Hourglass hourglass;
    try {
        openTarget(file);
        return {};
    } catch (const Error& error) {
        return error.text();
    }
}

/// Nothing is written into such a file: the pictures can go into a new one beside it.
void TransferPage::offerNewTarget(const QString& jetFile) {
    const QString table = newTargetTable(frame_.albums.table());
    const QString target = newTargetPath(jetFile);
    constexpr int leaveIt = 0, makeNew = 1;
    if (choose(frame_.form, jetTargetText(jetFile, target, table), {u"取 消"_s, u"新建图册库"_s}, leaveIt, leaveIt) !=
        makeNew)
        return;
    makeTarget(target, table, titleOfLine(frame_.albums.line()));
    browser_.readFiles();
    browser_.selectNames({QFileInfo(target).fileName()});
}

void TransferPage::chooseTarget() {
    flow_.setTarget(browser_.pickedFile(), {});
    flow_.setSource(mekTp::cataloguePath(), frame_.albums.table());
    {
        const Hourglass hourglass;
        mapping_.chooseDatabase(u"请选择目标数据表"_s);
    }
    showLine(lbl6_, u"目标库："_s + QDir::toNativeSeparators(flow_.targetDatabase()));
    for (QLabel* line : {lblLj_, lbl3_}) showLine(line, {});
}

void TransferPage::dropTarget() {
    mapping_.undoDatabase();
    flow_.setTarget({}, flow_.targetTable());
    for (QLabel* line : {lbl6_, lblLj_, lbl3_}) showLine(line, {});
}

/// The fields are to be mapped anew: nothing can go to the target before they are.
void TransferPage::tableChosen(const QString& table) {
    enableRuns(false);
    showLine(lbl3_, {});
    if (const QString objection = objectionToChosen(table); !objection.isEmpty()) {
        mapping_.undoTable();
        say(frame_.form, objection);
        return;
    }
    stand(lblLj_, 5040, lineHeight);
    showLine(lblLj_, u"目标表："_s + table);
}

void TransferPage::tableDropped() {
    enableRuns(false);
    for (QLabel* line : {lblLj_, lbl3_}) showLine(line, {});
}

/// Why a table of the target can take no pictures; empty when it can.
QString TransferPage::objectionToChosen(const QString& table) const {
    try {
        return objectionToTable(mekTp::catalogue, openTarget(flow_.targetDatabase()), table);
    } catch (const Error& error) {
        return error.text();
    }
}

void TransferPage::indexChosen(const QString& field) {
    stand(lbl3_, 5265, lineHeight);
    showLine(lbl3_, u"索引字段名："_s + field);
}

/// 关闭本框: the target is set.
void TransferPage::mappingClosed() {
    browser_.hide();
    browser_.hideNote();
    frame_.hints.show(
        u"操作提示：接受图片的数据表已经设定，请按“按默认文件名转成文件”或“复制”或“移动”按钮进行相应操作。"_s);
    bsxz(false);
    flow_.goTo(16);
}

void TransferPage::cmdQqClick() {
    mapping_.hideFieldList();
    fraMb_->setEnabled(chosen_.count() > 0);
    switch (flow_.step()) {
        case 1:
            undoChoice();
            break;
        case 2:
        case 12:
            undoTarget();
            break;
        case 3:
            browser_.setEcho({});
            flow_.goTo(2);
            frame_.hints.czts(4);
            break;
        case 4:
            undoFolder();
            break;
        case 5:
            browser_.endNaming();
            flow_.goTo(3);
            frame_.hints.czts(2);
            break;
        case 13:
            dropTarget();
            break;
        case 14:
            mapping_.undoTable();
            break;
        case 15:
            undoMapping();
            break;
        case 16:
            browser_.showOn(transferTab, panelLeft, panelTop);
            browser_.showNote();
            bsxz(true);
            flow_.goTo(15);
            frame_.hints.czts(7);
            break;
        default:
            break;
    }
}

void TransferPage::undoChoice() {
    chosen_.clear();
    nothingChosen();
}

void TransferPage::undoTarget() {
    browser_.hide();
    browser_.hideNote();
    for (QRadioButton* option : optMb_) clearOption(option);
    enableRuns(false);
    preview_.allowOpening(transferOpener, true);
    flow_.goTo(1);
    frame_.hints.czts(2);
}

void TransferPage::undoFolder() {
    if (names_.isOpen()) nameCancelled();
    browser_.cmdMxClick();
    // The folder is still the one that pictures are to go to.
    optMb_[0]->setChecked(true);
    browser_.showOn(transferTab, panelLeft, panelTop);
    bsxz(true);
    enableRuns(false);
    frame_.work.setUnderWay(chosen_.count() > 0);
    flow_.goTo(3);
    frame_.hints.czts(4);
}

void TransferPage::undoMapping() {
    enableRuns(false);
    preview_.allowOpening(transferOpener, false);
    mapping_.undoMapping();
    showLine(lbl3_, {});
}
