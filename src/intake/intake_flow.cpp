// The part of the page 图片录入 from the choice of files on: selection, run, steps back.

#include "catalogue/album_rules.h"
#include "catalogue/album_tables.h"
#include "catalogue/mektp.h"
#include "catalogue/runs/file_intake.h"
#include "catalogue/runs/picture_names.h"
#include "catalogue/table_shape.h"
#include "intake/intake_page.h"
#include "intake/intake_texts.h"
#include "intake/progress_bar_watch.h"
#include "intake/run_boxes.h"
#include "intake/run_texts.h"
#include "intake/settings_tab.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/data_control.h"
#include "platform/desktop/file_lists.h"
#include "platform/desktop/grid.h"
#include "platform/desktop/list_box.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/option_buttons.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/tab_control.h"
#include "platform/desktop/text_box.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <utility>

using namespace Qt::Literals::StringLiterals;

void IntakePage::fileClicked() {
    if (!inFront()) return;
    if (!fromFiles()) {
        database_->fileClicked();
        return;
    }
    if (replaces() && deselectUnnumbered()) {
        sayUnnumbered();
        if (state_.selectedFileCount == 0) {
            showNoSelection();
            return;
        }
    }
    showSelection();
}

/// In replace mode files without a number cannot be chosen. Tells whether there were any.
bool IntakePage::deselectUnnumbered() {
    FileList* fil1 = browser_.fil1();
    bool found = false;
    for (const int index : browser_.selectedFiles()) {
        if (standsForNumber(fil1->List(index))) continue;
        browser_.deselectQuietly(index);
        found = true;
    }
    return found;
}

void IntakePage::sayUnnumbered() {
    // A name that was reached by a key is selected by the list once more after the box: that is not told again.
    if (std::exchange(unnumberedTold_, true)) return;
    say(controls_.form, u"文件名不能转换为序号，无法替换！"_s, BoxIcon::information);
    QMetaObject::invokeMethod(
        this, [this] { unnumberedTold_ = false; }, Qt::QueuedConnection);
}

void IntakePage::showSelection() {
    QStringList chosen;
    for (const int index : browser_.selectedFiles()) chosen << browser_.fil1()->List(index);
    browser_.setEcho(selectionEcho(chosen));
    hints_.show(selectionHint(state_.selectedFileCount));
    state_.previewMark = u"w"_s;
    state_.newPictureFile = state_.pickedFilePath;
    if (preview_.isOpen()) preview_.chkCkClick();
    state_.pageFree = false;
    state_.intakeStep = 13;
    cmdLr_->setEnabled(state_.selectedFileCount >= 1);
    preview_.allowOpening(1, state_.selectedFileCount == 1);
}

void IntakePage::showNoSelection() {
    browser_.setEcho({});
    cmdLr_->setEnabled(false);
    preview_.allowOpening(1, false);
    state_.intakeStep = 12;
}

void IntakePage::cmdQxClick() {
    if (!fromFiles()) {
        database_->chooseAll();
        return;
    }
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
        case 1:
        case 11:
            undoSource();
            break;
        case 2:
        case 12:
            undoWay();
            break;
        case 13:
            undoFiles();
            break;
        default:
            database_->stepBack();
            break;
    }
}

void IntakePage::undoSource() {
    if (state_.intakeStep == 11) clearFiles();
    for (QRadioButton* option : optYl_) clearOption(option);
    browser_.fil1()->setEnabled(false);
    state_.intakeStep = 0;
    hints_.czts(1);
}

/// Nothing is to be seen any more of the choice of files.
void IntakePage::clearFiles() {
    browser_.showFileParts(false);
    for (QWidget* part : {static_cast<QWidget*>(browser_.fil1()), static_cast<QWidget*>(browser_.txtMl()),
                          static_cast<QWidget*>(chkZd_), static_cast<QWidget*>(cmdQx_), static_cast<QWidget*>(cmdLr_),
                          static_cast<QWidget*>(preview_.cmdCk(1))})
        part->hide();
    browser_.hideCountLine();
    browser_.showFolderHint(true);
}

void IntakePage::undoWay() {
    for (QRadioButton* option : optCz_) clearOption(option);
    browser_.fil1()->setEnabled(false);
    cmdQx_->setEnabled(false);
    if (state_.intakeStep == 2) {
        fraFs_->setEnabled(false);
        infoLines_[1]->clear();
    }
    state_.intakeStep = state_.intakeStep == 2 ? 1 : 11;
    hints_.czts(1);
}

void IntakePage::undoFiles() {
    browser_.selectQuietly(false);
    showNoSelection();
    hints_.czts(3);
}

/// Text that is typed into the chooser names no target until it was confirmed.
bool IntakePage::targetIsChosen() const {
    const QString typed = tableOfLine(controls_.cboBm->currentText());
    return !state_.targetTable.isEmpty() && typed.compare(state_.targetTable, Qt::CaseInsensitive) == 0;
}

bool IntakePage::targetIsFit() const {
    if (targetIsChosen() && !isDemo(state_.targetTable)) return true;
    say(controls_.form, targetIsChosen() ? onlyForShow : chooseAlbumFirst);
    return false;
}

/// The file in focus, when it is one of the chosen.
QString IntakePage::nameToTell() const {
    const FileList* fil1 = browser_.fil1();
    const QList<int> chosen = browser_.selectedFiles();
    return chosen.isEmpty() || chosen.contains(fil1->currentRow()) ? fil1->FileName() : fil1->List(chosen.front());
}

void IntakePage::cmdLrClick() {
    const QString album = controls_.cboBm->currentText();
    const QString description =
        fromFiles() ? intakeDescription(nameToTell(), replaces(), state_.selectedFileCount) : QString();
    if (!ask(controls_.form, intakeQuestion(album, replaces(), description))) return;
    if (fromFiles()) {
        const std::optional<BmpFiles> bmp = askAboutBmp(controls_.form, selectedPaths());
        if (!bmp) return;
        bmpFiles_ = *bmp;
    }
    lrtc();
    showAlbumCount();
}

QStringList IntakePage::selectedPaths() const {
    QStringList paths;
    for (const int index : browser_.selectedFiles())
        paths << joinedPath(browser_.fil1()->Path(), browser_.fil1()->List(index));
    return paths;
}

// One intake run with everything around it.
void IntakePage::lrtc() {
    for (QPushButton* button : {cmdQx_, cmdLr_, cmdQ1_}) button->setEnabled(false);
    const Outcome outcome = fromFiles() ? enterFiles() : copyRecords();
    refreshTarget();
    readFilesAnew();
    for (const QString& message : outcome.messages)
        if (!message.isEmpty()) say(controls_.form, message, BoxIcon::information);
    say(controls_.form, u"图片录入完成！  共录入：%1张"_s.arg(outcome.count));
    if (!fromFiles()) database_->endRun();
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

/// The album, as the run has left it.
void IntakePage::refreshTarget() {
    const std::pair<DataControl*, QString> views[] = {{datLr_, state_.targetTable},
                                                      {controls_.datBj, allRecordsSql(state_.albumTable, u"序号"_s)}};
    for (const auto& [data, source] : views) {
        data->setDatabaseName(mekTp::cataloguePath());
        data->setRecordSource(source);
        attempt([data = data] { data->Refresh(); });
    }
}

/// The run may have changed files, and others may have come meanwhile. None is chosen any more.
void IntakePage::readFilesAnew() {
    browser_.readFiles();
    browser_.setEcho({});
    state_.pickedFilePath.clear();
    preview_.allowOpening(1, false);
    showFileCount();
}

/// Runs while the progress bar stands in the empty part of the strip of captions.
RunReport IntakePage::shown(const std::function<RunReport(RunWatch&)>& run) {
    controls_.prg2->setParent(controls_.sstFz);
    place(controls_.prg2, 5000, 50, 2000, 285);
    ProgressBarWatch watch(controls_.prg2);
    return run(watch);
}

/// The files that are chosen, and then, if they are wanted, those of them that were left out.
RunReport IntakePage::enterSelected() {
    IntakeOrder order{browser_.fil1()->Path(),  browser_.fileNames(),
                      browser_.selectedFiles(), replaces(),
                      chkZd_->isChecked(),      bmpFiles_};
    const auto enter = [&](RunWatch& watch) { return wjlr(mekTp::catalogue, state_.targetTable, order, watch); };
    RunReport report = shown(enter);
    if (!takesLeftOut(controls_.form, report, {}, replaces())) return report;
    const QList<int> chosen = std::exchange(order.selected, {});
    for (const qsizetype place : report.leftOut()) order.selected << chosen[place];
    order.takesTruncated = true;
    report.add(shown(enter));
    return report;
}

IntakePage::Outcome IntakePage::enterFiles() {
    const RunReport report = enterSelected();
    return {report.count, {filesNotReplacedText(report), intakeReport(report)}};
}

/// The records that are chosen, and then, if they are wanted, those of them that were left out.
RunReport IntakePage::copyChosen() {
    CopyOrder order = database_->order(replaces());
    const auto copy = [&](RunWatch& watch) { return sklr(mekTp::catalogue, state_.targetTable, order, watch); };
    RunReport report = shown(copy);
    if (!takesLeftOut(controls_.form, report, order.indexField, replaces())) return report;
    const QList<SourceRecord> chosen = std::exchange(order.records, {});
    for (const qsizetype place : report.leftOut()) order.records << chosen[place];
    order.takesDoubtful = true;
    report.add(shown(copy));
    return report;
}

IntakePage::Outcome IntakePage::copyRecords() {
    const RunReport report = copyChosen();
    const QString& indexField = mapping_.indexFieldName();
    return {report.count, {notReplacedText(report, indexField), copyReport(report, indexField)}};
}
