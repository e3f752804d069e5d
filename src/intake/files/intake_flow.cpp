// The part of the page 图片录入 from the choice of files on: selection, run, steps back.

#include "catalogue/album_rules.h"
#include "catalogue/album_tables.h"
#include "catalogue/mektp.h"
#include "catalogue/runs/file_intake.h"
#include "catalogue/runs/picture_names.h"
#include "catalogue/table_shape.h"
#include "intake/browsing/intake_texts.h"
#include "intake/files/intake_page.h"
#include "intake/files/run_boxes.h"
#include "intake/files/run_texts.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/data_control.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/option_buttons.h"
#include "platform/desktop/placing.h"
#include "settings/frame/bmp_question.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QPushButton>
#include <utility>

using namespace Qt::Literals::StringLiterals;

void IntakePage::fileClicked() {
    if (!inFront()) return;
    if (!fromFiles()) {
        database_.fileClicked();
        return;
    }
    if (replaces() && deselectUnnumbered()) {
        sayUnnumbered();
        if (browser_.selectedCount() == 0) {
            showNoSelection();
            return;
        }
    }
    showSelection();
}

/// In replace mode files without a number cannot be chosen. Tells whether there were any.
bool IntakePage::deselectUnnumbered() {
    bool found = false;
    const QStringList names = browser_.fileNames();
    for (const int index : browser_.selectedFiles()) {
        if (standsForNumber(names[index])) continue;
        browser_.deselectQuietly(index);
        found = true;
    }
    return found;
}

void IntakePage::sayUnnumbered() {
    // A name that was reached by a key is selected by the list once more after the box: that is not told again.
    if (std::exchange(unnumberedTold_, true)) return;
    say(frame_.form, u"文件名不能转换为序号，无法替换！"_s, BoxIcon::information);
    QMetaObject::invokeMethod(
        this, [this] { unnumberedTold_ = false; }, Qt::QueuedConnection);
}

void IntakePage::showSelection() {
    browser_.setEcho(selectionEcho(browser_.selectedNames()));
    frame_.hints.show(selectionHint(browser_.selectedCount()));
    preview_.showFile(browser_.pickedFile());
    frame_.work.begin();
    flow_.goTo(13);
    mapping_.allowEnter(browser_.selectedCount() >= 1);
    preview_.allowOpening(intakeFileOpener, browser_.selectedCount() == 1);
}

void IntakePage::showNoSelection() {
    browser_.setEcho({});
    mapping_.allowEnter(false);
    preview_.allowOpening(intakeFileOpener, false);
    flow_.goTo(12);
}

void IntakePage::cmdQxClick() {
    if (!fromFiles()) {
        database_.chooseAll();
        return;
    }
    if (browser_.fileNames().isEmpty()) return;
    const Hourglass hourglass;
    browser_.selectQuietly(true);
    browser_.setEcho(browser_.folder() + u" (选择全部)共"_s + QString::number(browser_.selectedCount()) + u"条"_s);
    frame_.hints.czts(8, browser_.selectedCount());
    flow_.goTo(13);
    preview_.allowOpening(intakeFileOpener, false);
    mapping_.allowEnter(true);
    mapping_.nameEnterForFiles();
}

void IntakePage::cmdQ1Click() {
    switch (flow_.step()) {
        case 0:
            cmdQ1_->setEnabled(false);
            frame_.work.end();
            frame_.hints.czts(1);
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
            database_.stepBack();
            break;
    }
}

void IntakePage::undoSource() {
    if (flow_.step() == 11) clearFiles();
    for (QRadioButton* option : optYl_) clearOption(option);
    browser_.enableFiles(false);
    flow_.goTo(0);
    frame_.hints.czts(1);
}

/// Nothing is to be seen any more of the choice of files.
void IntakePage::clearFiles() {
    browser_.showFileParts(false);
    browser_.hideFiles();
    mapping_.hideButtons();
    for (QWidget* part : {static_cast<QWidget*>(chkZd_), static_cast<QWidget*>(openFile_)}) part->hide();
    browser_.hideCountLine();
    browser_.showFolderHint(true);
}

void IntakePage::undoWay() {
    for (QRadioButton* option : optCz_) clearOption(option);
    browser_.enableFiles(false);
    mapping_.allowAll(false);
    if (flow_.step() == 2) {
        fraFs_->setEnabled(false);
        signs_.clearSourceFile();
    }
    flow_.goTo(flow_.step() == 2 ? 1 : 11);
    frame_.hints.czts(1);
}

void IntakePage::undoFiles() {
    browser_.selectQuietly(false);
    showNoSelection();
    frame_.hints.czts(3);
}

/// Text that is typed into the chooser names no target until it was confirmed.
bool IntakePage::targetIsChosen() const {
    const QString typed = tableOfLine(frame_.albums.line());
    return !flow_.targetTable().isEmpty() && typed.compare(flow_.targetTable(), Qt::CaseInsensitive) == 0;
}

bool IntakePage::targetIsFit() const {
    if (targetIsChosen() && !isDemo(flow_.targetTable())) return true;
    say(frame_.form, targetIsChosen() ? onlyForShow : chooseAlbumFirst);
    return false;
}

void IntakePage::cmdLrClick() {
    const QString album = frame_.albums.line();
    const QString description =
        fromFiles() ? intakeDescription(browser_.nameInFocus(), replaces(), browser_.selectedCount()) : QString();
    if (!ask(frame_.form, intakeQuestion(album, replaces(), description))) return;
    if (fromFiles()) {
        const std::optional<BmpFiles> bmp = askAboutBmp(frame_.form, selectedPaths());
        if (!bmp) return;
        bmpFiles_ = *bmp;
    }
    lrtc();
    showAlbumCount();
}

QStringList IntakePage::selectedPaths() const {
    QStringList paths;
    for (const QString& name : browser_.selectedNames()) paths << joinedPath(browser_.folder(), name);
    return paths;
}

// One intake run with everything around it.
void IntakePage::lrtc() {
    mapping_.allowAll(false);
    mapping_.allowEnter(false);
    cmdQ1_->setEnabled(false);
    const Outcome outcome = fromFiles() ? enterFiles() : copyRecords();
    refreshTarget();
    readFilesAnew();
    for (const QString& message : outcome.messages)
        if (!message.isEmpty()) say(frame_.form, message, BoxIcon::information);
    say(frame_.form, u"图片录入完成！  共录入：%1张"_s.arg(outcome.count));
    if (!fromFiles()) database_.endRun();
    frame_.grid.putOn(intakeTab, {5435, 1320, 3745, 3555});
    frame_.sstFz->putOn(intakeTab, openRecord_, 8250, 990);
    signs_.headAlbum();
    mapping_.allowAll(false);
    mapping_.allowEnter(false);
    chosen_.hide();
    mapping_.nameAllForFiles();
    frame_.hints.show(u"操作提示：图片录入完成。要继续录入，请选择“图片来源”重新开始。"_s);
    frame_.work.end();
}

/// The album, as the run has left it.
void IntakePage::refreshTarget() {
    datLr_->setRecordSource(flow_.targetTable());
    attempt([&] { datLr_->Refresh(); });
    attempt([&] { frame_.grid.list(allRecordsSql(frame_.albums.table(), u"序号"_s)); });
}

/// The run may have changed files, and others may have come meanwhile. None is chosen any more.
void IntakePage::readFilesAnew() {
    browser_.readFiles();
    browser_.setEcho({});
    browser_.forgetPicked();
    preview_.allowOpening(intakeFileOpener, false);
    showFileCount();
}

/// Runs while the progress bar stands in the empty part of the strip of captions.
RunReport IntakePage::shown(const RunBar::Run& run) {
    return frame_.runBar.during({5000, 50, 2000, 285}, run);
}

/// The files that are chosen, and then, if they are wanted, those of them that were left out.
RunReport IntakePage::enterSelected() {
    IntakeOrder order{browser_.folder(), browser_.fileNames(), browser_.selectedFiles(),
                      replaces(),        chkZd_->isChecked(),  bmpFiles_};
    const auto enter = [&](RunWatch& watch) { return wjlr(mekTp::catalogue, flow_.targetTable(), order, watch); };
    RunReport report = shown(enter);
    if (!takesLeftOut(frame_.form, report, {}, replaces())) return report;
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
    CopyOrder order = database_.order(replaces(), chkZd_->isChecked());
    const auto copy = [&](RunWatch& watch) { return sklr(mekTp::catalogue, flow_.targetTable(), order, watch); };
    RunReport report = shown(copy);
    if (!takesLeftOut(frame_.form, report, order.indexField, replaces())) return report;
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
