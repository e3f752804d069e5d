// The part of the page 图片录入 from the choice of files on: selection, run, steps back.

#include "catalogue/album_rules.h"
#include "catalogue/album_tables.h"
#include "catalogue/mektp.h"
#include "catalogue/runs/picture_names.h"
#include "catalogue/table_shape.h"
#include "intake/browsing/intake_texts.h"
#include "intake/files/intake_page.h"
#include "intake/files/intake_question.h"
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
    QList<int> others = browser_.selectedFiles();
    others.removeIf([names = browser_.fileNames()](int index) { return standsForNumber(names[index]); });
    if (!others.isEmpty()) browser_.deselectQuietly(others);
    return !others.isEmpty();
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
    choosesAllOf_.reset();
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
    showFileOptions(false);
    browser_.hideCountLine();
    browser_.showFolderHint(true);
}

void IntakePage::undoWay() {
    for (QRadioButton* option : optCz_) clearOption(option);
    browser_.allowSubfolders(true);
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
    const bool replaces = this->replaces();
    const QString description =
        fromFiles() ? intakeDescription(browser_.nameInFocus(), replaces, browser_.selectedCount()) : QString();
    const QStringList files = fromFiles() ? selectedPaths() : QStringList();
    const CopyOrder records = fromFiles() ? CopyOrder() : database_.order(replaces, chkZd_->isChecked());
    std::optional<SkipOffer> offer;
    if (!replaces && fromFiles())
        offer = SkipOffer{flow_.targetTable(), ChosenFiles{files, browser_.listsAllFormats()}};
    if (!replaces && !fromFiles()) offer = SkipOffer{flow_.targetTable(), records};
    const std::optional<bool> skipsKnown = askIntake(frame_.form, intakeQuestion(album, replaces, description), offer);
    if (!skipsKnown) return;
    if (!fromFiles()) {
        CopyOrder order = records;
        order.skipKnown = *skipsKnown;
        database_.rememberMapping();
        begin({flow_.targetTable(), order});
    } else if (const std::optional<BmpFiles> bmp = askAboutBmp(frame_.form, files)) {
        begin({flow_.targetTable(), IntakeOrder{.folder = browser_.folder(),
                                                .names = browser_.fileNames(),
                                                .selected = browser_.selectedFiles(),
                                                .replace = replaces,
                                                .fillFields = chkZd_->isChecked(),
                                                .bmp = *bmp,
                                                .otherFormats = browser_.listsAllFormats(),
                                                .exposureDates = chkPz_->isChecked(),
                                                .titles = chkSm_->isChecked(),
                                                .skipKnown = *skipsKnown}});
    }
}

QStringList IntakePage::selectedPaths() const {
    QStringList paths;
    for (const QString& name : browser_.selectedNames()) paths << joinedPath(browser_.folder(), name);
    return paths;
}

/// The run is under way when this returns.
void IntakePage::begin(const IntakeJob& job) {
    mapping_.allowAll(false);
    mapping_.allowEnter(false);
    cmdQ1_->setEnabled(false);
    run(job, [this, job](const RunReport& report) { askAboutLeftOut(job, report); });
}

/// The bar stands in the empty part of the strip of captions.
void IntakePage::run(const IntakeJob& job, RunBar::After after) {
    const auto enter = [job, catalogue = mekTp::cataloguePath()](RunWatch& watch) { return job.run(catalogue, watch); };
    frame_.runBar.start({{5000, 50, 2000, 285}}, job.words(), enter, std::move(after));
}

/// Those that were left out are taken in by a second run, if they are wanted.
void IntakePage::askAboutLeftOut(const IntakeJob& job, const RunReport& report) {
    if (!takesLeftOut(frame_.form, report, job.words().field, job.replaces())) {
        lrtc(job, report);
        return;
    }
    IntakeJob doubtful = job.some(report.leftOut());
    doubtful.takeDoubtful();
    run(doubtful, [this, job, report](const RunReport& second) {
        RunReport both = report;
        both.add(second);
        lrtc(job, both);
    });
}

// Everything that follows an intake run.
void IntakePage::lrtc(const IntakeJob& job, const RunReport& report) {
    refreshTarget();
    readFilesAnew();
    const RunWords words = job.words();
    const QString missing = job.isOfFiles() ? filesNotReplacedText(report) : notReplacedText(report, words.field);
    if (!missing.isEmpty()) say(frame_.form, missing, BoxIcon::information);
    say(frame_.form, u"图片录入完成！  共录入：%1张"_s.arg(report.count));
    if (!job.isOfFiles()) database_.endRun();
    frame_.grid.putOn(intakeTab, {5435, 1320, 3745, 3555});
    frame_.sstFz->putOn(intakeTab, openRecord_, 8250, 990);
    signs_.headAlbum();
    mapping_.allowAll(false);
    mapping_.allowEnter(false);
    chosen_.hide();
    mapping_.nameAllForFiles();
    frame_.hints.show(u"操作提示：图片录入完成。要继续录入，请选择“图片来源”重新开始。"_s);
    frame_.work.end();
    showAlbumCount();
    frame_.runBar.tellReport(report, words, [this, job](const QList<qsizetype>& places) { begin(job.some(places)); });
    frame_.bin.look();
}

/// The album, as the run has left it.
void IntakePage::refreshTarget() {
    datLr_->setRecordSource(flow_.targetTable());
    attempt([&] { datLr_->Refresh(); });
    attempt([&] { frame_.grid.list(allRecordsSql(frame_.albums.table(), u"序号"_s)); });
}

/// The run may have changed files, and others may have come meanwhile. None is chosen any more.
void IntakePage::readFilesAnew() {
    // A search would take long, and end with a list to choose from anew.
    if (browser_.listsSubfolders())
        browser_.selectQuietly(false);
    else
        browser_.readFiles();
    browser_.setEcho({});
    browser_.forgetPicked();
    preview_.allowOpening(intakeFileOpener, false);
    showFileCount();
}
