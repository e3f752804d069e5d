#include "intake/files/intake_page.h"

#include "catalogue/album_rules.h"
#include "catalogue/album_tables.h"
#include "catalogue/mektp.h"
#include "catalogue/remembered.h"
#include "catalogue/runs/picture_names.h"
#include "intake/browsing/intake_texts.h"
#include "platform/base/error.h"
#include "platform/desktop/data_control.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/option_buttons.h"
#include "platform/desktop/placing.h"
#include "settings/frame/columns.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QPushButton>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int recordButtonLeft = 8250;
constexpr int columnLeft = 3240, columnWidth = 1770;  ///< Right column beside the lists of folders and files.
constexpr int buttonLeft = 3960, buttonWidth = 1050, buttonHeight = 345;
constexpr int openFileTop = 4665, backTop = 5475;
constexpr Growth besideLists = movesRight * intakeShare, besideFiles = besideLists + movesDown * 0.5;
}  // namespace

IntakePage::IntakePage(const SettingsFrame& frame, GuidedFlow& flow, BrowserPanel& browser, MappingPanel& mapping,
                       CodeButtons& codeButtons, PreviewPanel& preview, ChosenLines& chosen)
    : frame_(frame),
      flow_(flow),
      browser_(browser),
      mapping_(mapping),
      codeButtons_(codeButtons),
      preview_(preview),
      chosen_(chosen),
      signs_(frame, browser),
      database_(frame, flow, browser, mapping, codeButtons, preview, chosen, signs_) {
    makeGroups();
    makeButtons();
    makePhotoOptions();
    datLr_ = make<DataControl>(frame_.sstFz->page(intakeTab), u"datLr"_s);
    datLr_->useDatabase(mekTp::catalogue);
    datLr_->setDatabaseName(mekTp::cataloguePath());
    datLr_->hide();
    connectControls();
}

void IntakePage::makeGroups() {
    const auto makeGroup = [this](const QString& name, const QString& caption, int top) {
        auto* group = make<QGroupBox>(frame_.sstFz->page(intakeTab), name, caption);
        frame_.sstFz->putOn(intakeTab, group, columnLeft, top, columnWidth, 990);
        letGrow(group, besideLists);
        return group;
    };
    const auto makeOptions = [](QGroupBox* group, const QString& name, std::array<QString, 2> captions) {
        std::array<QRadioButton*, 2> options{};
        for (int i = 0; i < 2; ++i) {
            auto& option = options[static_cast<std::size_t>(i)];
            option = make<QRadioButton>(group, element(name, i), captions[static_cast<std::size_t>(i)]);
            place(option, 240, 285 + i * 330, 1350, 300);
        }
        groupOptions(options);
        return options;
    };
    fraLy_ = makeGroup(u"fraLy"_s, u"图片来源"_s, 1305);
    optYl_ = makeOptions(fraLy_, u"optYl"_s, {u"从文件"_s, u"数据库"_s});
    fraFs_ = makeGroup(u"fraFs"_s, u"添加方式"_s, 2340);
    optCz_ = makeOptions(fraFs_, u"optCz"_s, {u"替换"_s, u"追加"_s});
    fraLy_->setEnabled(false);
    fraFs_->setEnabled(false);
}

void IntakePage::makeButtons() {
    TabControl* sstFz = frame_.sstFz;
    QWidget* page = sstFz->page(intakeTab);
    chkZd_ = make<QCheckBox>(page, u"chkZd"_s, u"自动补足"_s);
    chkZd_->setChecked(true);
    chkZd_->setToolTip(u"同时填入编号、大小、规格和日期"_s);
    sstFz->putOn(intakeTab, chkZd_, buttonLeft, 3900, buttonWidth, 300);
    cmdQ1_ = make<QPushButton>(page, u"cmdQ1"_s, u"撤 消"_s);
    openFile_ = preview_.makeOpener(intakeFileOpener, page);
    preview_.pickedFile = [this] { return browser_.pickedFile(); };
    sstFz->putOn(intakeTab, openFile_, buttonLeft, openFileTop, buttonWidth, buttonHeight);
    sstFz->putOn(intakeTab, cmdQ1_, buttonLeft, backTop, buttonWidth, buttonHeight);
    letGrow({chkZd_, openFile_, cmdQ1_}, besideFiles);
    for (QPushButton* button : {openFile_, cmdQ1_}) button->setEnabled(false);
    openRecord_ = preview_.makeOpener(intakeRecordOpener, page);
    sstFz->putOn(intakeTab, openRecord_, recordButtonLeft, 990, 930, 285);
    letGrow(openRecord_, movesRight);
}

/// What photographs tell of themselves goes into the record. They stand in one row with chkZw.
void IntakePage::makePhotoOptions() {
    const auto option = [this](const QString& name, const QString& caption, const QString& key, int left) {
        auto* box = make<QCheckBox>(browser_.ground(), name, caption);
        place(box, left, 5715, 1485, 240);
        letGrow(box, movesDown);
        box->setChecked(remembered::flag(key));
        connect(box, &QCheckBox::toggled, this, [key](bool on) { remembered::setFlag(key, on); });
        return box;
    };
    chkPz_ = option(u"chkPz"_s, u"日期取自照片"_s, u"intake.exposureDates"_s, 1920);
    chkPz_->setToolTip(u"照片里有拍摄时间的，自动补足时用它作日期；没有的仍用文件的日期"_s);
    connect(chkZd_, &QCheckBox::toggled, chkPz_, &QWidget::setEnabled);
    chkSm_ = option(u"chkSm"_s, u"备注取自照片"_s, u"intake.titles"_s, 3435);
    chkSm_->setToolTip(u"照片里有标题的，用它作备注，最多 50 个字"_s);
}

void IntakePage::connectControls() {
    const auto run = [this](auto slot) { return guarded(frame_.form, [this, slot] { (this->*slot)(); }); };
    browser_.serve(intakeTab, {[this] { return mode(); }, [this] { return filesMayBePicked(); }});
    connect(&browser_, &BrowserPanel::laidOut, this, run(&IntakePage::arrange));
    connect(&browser_, &BrowserPanel::filesListed, this, run(&IntakePage::listFiles));
    connect(&browser_, &BrowserPanel::filesRead, this, run(&IntakePage::filesRead));
    connect(&browser_, &BrowserPanel::folderChanged, this, run(&IntakePage::folderChanged));
    connect(&browser_, &BrowserPanel::fileClicked, this, run(&IntakePage::fileClicked));
    for (QRadioButton* option : optYl_) connect(option, &QRadioButton::clicked, this, run(&IntakePage::optYlClick));
    for (QRadioButton* option : optCz_) connect(option, &QRadioButton::clicked, this, run(&IntakePage::optCzClick));
    connect(&mapping_, &MappingPanel::otherAllClicked, this, run(&IntakePage::cmdQxClick));
    connect(&mapping_, &MappingPanel::otherEnterClicked, this, run(&IntakePage::cmdLrClick));
    connect(cmdQ1_, &QPushButton::clicked, this, run(&IntakePage::cmdQ1Click));
    mapping_.replaces = [this] { return replaces(); };
    mapping_.targetIsFit = [this] { return targetIsFit(); };
    connect(&database_, &DatabaseIntake::targetShown, this, run(&IntakePage::showAlbumCount));
    connect(&database_, &DatabaseIntake::fillingOffered, chkZd_, &QWidget::setVisible);
    connect(&codeButtons_, &CodeButtons::filtered, this, [this](const QString& code, const QString& name, int total) {
        signs_.tell(u"编号=["_s + code + u"]("_s + name + u") 共有"_s + QString::number(total) + u"张"_s);
    });
}

bool IntakePage::inFront() const {
    return frame_.isInFront(intakeTab);
}

bool IntakePage::fromFiles() const {
    return optYl_[0]->isChecked();
}

bool IntakePage::replaces() const {
    return optCz_[0]->isChecked();
}

bool IntakePage::filesMayBePicked() const {
    return isWayChosen() && !browser_.isSearching();
}

bool IntakePage::isWayChosen() const {
    return (optYl_[0]->isChecked() || optYl_[1]->isChecked()) && (optCz_[0]->isChecked() || optCz_[1]->isChecked());
}

BrowseMode IntakePage::mode() const {
    return fromFiles() ? BrowseMode::pictureFiles : BrowseMode::sourceDatabase;
}

PageLayout IntakePage::layout() const {
    return {.outerFrame = {255, 0, 0},
            .innerFrame = {255, 255, 0},
            .grid = {5180, 1320, 4100, 3525},
            .gridGrowth = beside(intakeShare, 1) + heightens,
            .chooser = PageLayout::Chooser{{5335, 1050}, u"目标图册："_s, {6250, 990}, 1950, beside(intakeShare, 1)}};
}

void IntakePage::enter() {
    choosesAllOf_.reset();
    codeButtons_.setGrowth(besideLists + movesDown);
    codeButtons_.moveHeading(6710, 5175);
    chosen_.hide();
    browser_.readFolders();
    if (database_.choosesRows()) database_.showTarget();
    browser_.mlcl();
    showFileCount();
    signs_.tellTarget({});
    frame_.hints.czts(1);
    frame_.sstFz->putOn(intakeTab, cmdQ1_, buttonLeft, backTop);
    frame_.sstFz->putOn(intakeTab, openRecord_, recordButtonLeft, 990);
    browser_.showOn(intakeTab, 150, 750);
    raiseControls();
    signs_.headAlbum();
}

/// The panel of folders and files covers the ground on which the page's own controls stand.
void IntakePage::raiseControls() {
    for (QWidget* control :
         {static_cast<QWidget*>(fraLy_), static_cast<QWidget*>(fraFs_), static_cast<QWidget*>(chkZd_),
          static_cast<QWidget*>(openFile_), static_cast<QWidget*>(cmdQ1_)})
        control->raise();
    mapping_.raiseButtons();
    browser_.showNote();
    signs_.raise();
}

void IntakePage::albumChosen() {
    if (mapping_.sourceDatabase().isOpen()) database_.giveUp();
    const bool demo = isDemo(frame_.albums.table());
    fraLy_->setEnabled(!demo);
    if (demo) takesNoPictures();
    if (filesWait_) mapping_.allowEnter(browser_.selectedCount() >= 1);
    filesWait_ = false;
    preview_.allowOpening(intakeRecordOpener, true);

    flow_.setSourceTable({});
    flow_.setTarget(mekTp::cataloguePath(), frame_.albums.table());
    codeButtons_.moveTo(5450, 5415, 13);
    attempt([&] { codeButtons_.bhan(); });
    codeButtons_.moveText(5940, 6165, 1400);
    signs_.tellTarget(flow_.targetTable());
    showAlbumCount();
    flow_.goTo(0);
    if (demo) say(frame_.form, onlyForShow);
}

/// Gives up whatever was prepared, and lets nothing new be prepared.
void IntakePage::takesNoPictures() {
    choosesAllOf_.reset();
    for (const auto& options : {optYl_, optCz_})
        for (QRadioButton* option : options) clearOption(option);
    fraFs_->setEnabled(false);
    browser_.allowSubfolders(true);
    browser_.mlcl();
    showFileCount();
    filesWait_ = false;
    frame_.work.end();
    frame_.hints.czts(1);
}

void IntakePage::albumLost() {
    if (inFront() && mapping_.sourceDatabase().isOpen()) database_.giveUp();
    filesWait_ = filesWait_ || mapping_.mayEnter();
    choosesAllOf_.reset();
    fraLy_->setEnabled(false);
    mapping_.allowEnter(false);
    preview_.allowOpening(intakeRecordOpener, false);
    signs_.tellTarget({});
    signs_.tell(frame_.albums.hasLines() ? u"请先在上边选择接受图片的图册"_s : u"请先在中“图册设置”建立图册"_s);
}

void IntakePage::showAlbumCount() {
    signs_.tell(recordCountLine(frame_.albums.line(), frame_.grid.total()));
}

void IntakePage::rowClicked() {
    database_.rowClicked();
}

void IntakePage::recordChanged() {
    preview_.showRecord();
}

void IntakePage::arrange() {
    const bool files = inFront() && fromFiles();
    signs_.clearSource();
    signs_.setVisible(inFront());
    if (inFront()) signs_.placeSource(files);
    for (QWidget* part : {static_cast<QWidget*>(fraLy_), static_cast<QWidget*>(fraFs_), static_cast<QWidget*>(cmdQ1_)})
        part->setVisible(inFront());
    showFileOptions(files);
    preview_.allowOpening(intakeFileOpener, false);
}

void IntakePage::showFileOptions(bool on) {
    for (QWidget* part : {static_cast<QWidget*>(chkZd_), static_cast<QWidget*>(chkPz_), static_cast<QWidget*>(chkSm_),
                          static_cast<QWidget*>(openFile_)})
        part->setVisible(on);
}

void IntakePage::listFiles() {
    if (!inFront()) return;
    if (browser_.areFilesEnabled() && browser_.fileNames().size() >= 2) {
        cmdQ1_->setEnabled(true);
        mapping_.allowAll(true);
    }
    showFileCount();
    chooseFilesAnew();
}

void IntakePage::filesRead() {
    if (!inFront()) return;
    showFileCount();
    if (isWayChosen()) chooseFilesAnew();
    chooseAllIfWanted();
}

void IntakePage::showFileCount() {
    if (fromFiles())
        browser_.showCountLine();
    else
        browser_.hideCountLine();
}

void IntakePage::optYlClick() {
    choosesAllOf_.reset();
    if (database_.choosesRows()) database_.showTarget();
    browser_.mlcl();
    mapping_.allowAll(false);
    browser_.enableFiles(filesMayBePicked());
    fraFs_->setEnabled(true);
    cmdQ1_->setEnabled(true);
    showFileCount();
    flow_.goTo(optYl_[1]->isChecked() ? 1 : 11);
}

/// Names tell which record a file replaces; in several folders they would do so more than once.
void IntakePage::optCzClick() {
    choosesAllOf_.reset();
    browser_.allowSubfolders(!replaces());
    showFileCount();
    chooseFilesAnew();
}

void IntakePage::folderChanged() {
    choosesAllOf_.reset();
    chooseFilesAnew();
}

/// The way of adding or the folder has changed: the files are to be chosen again.
void IntakePage::chooseFilesAnew() {
    if (!inFront()) return;
    if (mapping_.sourceDatabase().isOpen()) database_.giveUp();
    browser_.enableFiles(filesMayBePicked());
    browser_.selectQuietly(false);
    browser_.setEcho({});
    mapping_.allowEnter(false);
    preview_.allowOpening(intakeFileOpener, false);
    const QStringList names = browser_.fileNames();
    const bool areFit = !replaces() || std::all_of(names.begin(), names.end(), standsForNumber);
    mapping_.allowAll(fromFiles() && filesMayBePicked() && !names.isEmpty() && areFit);
    flow_.goTo(optYl_[1]->isChecked() ? 2 : 12);
    frame_.hints.czts(11);
}
