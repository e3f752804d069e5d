// The part of the page 图片录入 from the choice of files on: selection, run, steps back.

#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "intake/intake_page.h"
#include "intake/intake_texts.h"
#include "intake/option_buttons.h"
#include "platform/base/error.h"
#include "platform/desktop/data_control.h"
#include "platform/desktop/file_lists.h"
#include "platform/desktop/grid.h"
#include "platform/desktop/list_box.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/tab_control.h"
#include "platform/desktop/text_box.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int intakeTab = 1;

/// The hourglass while it lives.
class Hourglass {
  public:
    Hourglass() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~Hourglass() { QApplication::restoreOverrideCursor(); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
};

}  // namespace

void IntakePage::fileClicked() {
    if (!inFront() || !fromFiles()) return;
    QStringList chosen;
    for (const int index : browser_.selectedFiles()) chosen << browser_.fil1()->List(index);
    browser_.setEcho(selectionEcho(chosen));
    if (replaces() && refuseUnnumbered()) return;
    hints_.show(selectionHint(state_.selectedFileCount));
    state_.previewMark = u"w"_s;
    state_.newPictureFile = state_.pickedFilePath;
    if (preview_.isOpen()) preview_.chkCkClick();
    state_.pageFree = false;
    state_.intakeStep = 13;
    cmdLr_->setEnabled(state_.selectedFileCount >= 1);
    preview_.cmdCk(1)->setEnabled(state_.selectedFileCount == 1);
}

/// In replace mode files without a number cannot be chosen. Tells whether there were any.
bool IntakePage::refuseUnnumbered() {
    FileList* fil1 = browser_.fil1();
    bool refused = false;
    for (const int index : browser_.selectedFiles()) {
        if (zhjy(fil1->List(index))) continue;
        browser_.deselectQuietly(index);
        refused = true;
    }
    if (!refused) return false;
    cmdLr_->setEnabled(state_.selectedFileCount >= 1);
    preview_.cmdCk(1)->setEnabled(state_.selectedFileCount == 1);
    say(controls_.form, u"文件名不能转换为序号，无法替换！"_s, BoxIcon::information);
    browser_.setEcho({});
    state_.intakeStep = state_.selectedFileCount >= 1 ? 13 : 12;
    return true;
}

void IntakePage::cmdQxClick() {
    FileList* fil1 = browser_.fil1();
    if (fil1->ListCount() == 0) return;
    const Hourglass hourglass;
    browser_.selectQuietly(true);
    browser_.setEcho(browser_.dir1()->Path() + u" (选择全部)共"_s + QString::number(state_.selectedFileCount) +
                     u"条"_s);
    hints_.czts(8);
    state_.intakeStep = 13;
    preview_.cmdCk(1)->setEnabled(false);
    cmdLr_->setEnabled(true);
    cmdLr_->setText(u"录入图册"_s);
}

void IntakePage::cmdQ1Click() {
    switch (state_.intakeStep) {
        case 0:
            cmdQ1_->setEnabled(false);
            state_.pageFree = true;
            hints_.czts(1);
            break;
        case 11:
            undoSource();
            break;
        case 12:
            for (QRadioButton* option : optCz_) clearOption(option);
            state_.intakeStep = 11;
            hints_.czts(1);
            break;
        case 13:
            undoFiles();
            break;
        default:
            break;
    }
}

void IntakePage::undoSource() {
    browser_.showFileParts(false);
    for (QWidget* part : {static_cast<QWidget*>(browser_.fil1()), static_cast<QWidget*>(browser_.txtMl()),
                          static_cast<QWidget*>(chkZd_), static_cast<QWidget*>(cmdQx_), static_cast<QWidget*>(cmdLr_),
                          static_cast<QWidget*>(preview_.cmdCk(1))})
        part->hide();
    browser_.hideCountLine();
    browser_.showFolderHint(true);
    clearOption(optYl_[0]);
    state_.intakeStep = 0;
    hints_.czts(1);
}

void IntakePage::undoFiles() {
    browser_.selectQuietly(false);
    browser_.setEcho({});
    cmdLr_->setEnabled(false);
    preview_.cmdCk(1)->setEnabled(false);
    state_.intakeStep = 12;
    hints_.czts(3);
}

void IntakePage::cmdLrClick() {
    const QString album = controls_.cboBm->currentText();
    if (album.isEmpty()) {
        say(controls_.form, u"请先选择要录入的图册，然后才能继续！"_s);
        return;
    }
    const QString description = intakeDescription(browser_.fil1()->FileName(), replaces(), state_.selectedFileCount);
    if (!ask(controls_.form, intakeQuestion(album, replaces(), description))) return;
    lrtc();
    showAlbumCount();
}

// One intake run with everything around it.
void IntakePage::lrtc() {
    for (QPushButton* button : {cmdQx_, cmdLr_, cmdQ1_}) button->setEnabled(false);
    const IntakeResult result = runIntake();
    DataControl* datBj = controls_.datBj;
    datBj->setDatabaseName(mekTp::cataloguePath());
    datBj->setRecordSource(u"SELECT * FROM "_s + state_.albumTable + u" ORDER BY [序号]"_s);
    attempt([&] { datBj->Refresh(); });
    reportRun(result);
    controls_.sstFz->putOn(intakeTab, controls_.msgBm, 5435, 1320, 3745, 3555);
    controls_.sstFz->putOn(intakeTab, preview_.cmdCk(0), 8250, 990);
    lblMk_->setText(u"目 标 数 据 库 表"_s);
    cmdQx_->setEnabled(false);
    cmdLr_->setEnabled(false);
    controls_.lstSu->hide();
    cmdQx_->setText(u"选择全部"_s);
    hints_.show(u"操作提示：图片录入完成。要继续录入，请选择“图片来源”重新开始。"_s);
    state_.pageFree = true;
}

/// The progress bar stands in the empty part of the strip of captions for as long as the run lasts.
IntakeResult IntakePage::runIntake() {
    const Hourglass hourglass;
    QProgressBar* prg2 = controls_.prg2;
    prg2->setParent(controls_.sstFz);
    place(prg2, 5000, 50, 2000, 285);
    prg2->setRange(0, 100);
    prg2->setValue(0);
    prg2->show();
    prg2->raise();
    prg2->repaint();
    const IntakeOrder order{browser_.fil1()->Path(), browser_.fileNames(), browser_.selectedFiles(), replaces(),
                            chkZd_->isChecked()};
    IntakeResult result = wjlr(*datLr_, order, state_, [prg2](int percent) {
        prg2->setValue(percent);
        prg2->repaint();
    });
    prg2->hide();
    return result;
}

void IntakePage::reportRun(const IntakeResult& result) {
    if (result.cameToEnd && !result.notFound.isEmpty())
        say(controls_.form,
            u"本目标表无下列对应序号：\n\n"_s + result.notFound.join(u',') + u"\n\n这些文件没有替换！"_s,
            BoxIcon::information);
    const QString report = intakeReport(result);
    if (!report.isEmpty()) say(controls_.form, report, BoxIcon::information);
    say(controls_.form, u"图片录入完成！  共录入：%1张"_s.arg(result.count));
}
