#include "intake/intake_page.h"

#include "catalogue/album_rules.h"
#include "catalogue/album_tables.h"
#include "catalogue/mektp.h"
#include "catalogue/runs/picture_names.h"
#include "intake/intake_texts.h"
#include "intake/preview_parts.h"
#include "intake/settings_tab.h"
#include "platform/base/error.h"
#include "platform/desktop/data_control.h"
#include "platform/desktop/file_lists.h"
#include "platform/desktop/grid.h"
#include "platform/desktop/list_box.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/option_buttons.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/surface.h"
#include "platform/desktop/tab_control.h"
#include "platform/desktop/text_box.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int recordButtonLeft = 8250;
constexpr int columnLeft = 3240, columnWidth = 1770;  ///< Right column beside the lists of folders and files.
constexpr int buttonLeft = 3960, buttonWidth = 1050, buttonHeight = 345;
constexpr int firstButtonTop = 4260, buttonPitch = 405;
}  // namespace

IntakePage::IntakePage(SharedControls& controls, FormState& state, HintLine& hints, BrowserPanel& browser,
                       MappingPanel& mapping, CodeButtons& codeButtons, PreviewPanel& preview)
    : controls_(controls),
      state_(state),
      hints_(hints),
      browser_(browser),
      mapping_(mapping),
      codeButtons_(codeButtons),
      preview_(preview) {
    makeLabels();
    makeGroups();
    makeButtons();
    datLr_ = make<DataControl>(controls_.sstFz->page(intakeTab), u"datLr"_s);
    datLr_->useDatabase(mekTp::catalogue);
    datLr_->hide();
    database_ = std::make_unique<DatabaseIntake>(
        controls_, state_, hints_, browser_, mapping_, codeButtons_, preview_,
        DatabaseIntake::Controls{infoLines_[1], infoLines_[2], infoLines_[3], lblMk_, lblJl_, chkZd_});
    connectControls();
}

void IntakePage::makeLabels() {
    const auto make1 = [this](const QString& name, int left, int top, int width, int height) -> QLabel* {
        auto* label = make<ElidedLabel>(controls_.sstFz->page(intakeTab), name);
        label->setTextFormat(Qt::PlainText);
        controls_.sstFz->putOn(intakeTab, label, left, top, width, height);
        return label;
    };
    lblMk_ = make1(u"lblMk"_s, 5750, 735, 2400, 240);
    lblMk_->setText(u"目 标 数 据 库 表"_s);
    lblJl_ = make1(u"lblJl"_s, 5435, 4880, 3750, 270);
    infoLines_ = {make1(u"lbl11"_s, 5435, 5175, 1245, 225), make1(u"lbl12"_s, 555, 6480, 2250, 225),
                  make1(u"lbl13"_s, 2820, 6480, 1020, 225), make1(u"lbl14"_s, 3855, 6480, 1155, 225)};
    controls_.lbl12 = infoLines_[1];
}

void IntakePage::makeGroups() {
    const auto makeGroup = [this](const QString& name, const QString& caption, int top) {
        auto* group = make<QGroupBox>(controls_.sstFz->page(intakeTab), name, caption);
        controls_.sstFz->putOn(intakeTab, group, columnLeft, top, columnWidth, 990);
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
    TabControl* sstFz = controls_.sstFz;
    QWidget* page = sstFz->page(intakeTab);
    chkZd_ = make<QCheckBox>(page, u"chkZd"_s, u"自动补足"_s);
    chkZd_->setChecked(true);
    chkZd_->setToolTip(u"同时填入编号、大小、规格和日期"_s);
    sstFz->putOn(intakeTab, chkZd_, buttonLeft, 3900, buttonWidth, 300);
    cmdQx_ = mapping_.cmdQx();
    cmdLr_ = mapping_.cmdLr();
    cmdQ1_ = make<QPushButton>(page, u"cmdQ1"_s, u"撤 消"_s);
    int top = firstButtonTop;
    for (QPushButton* button : {cmdQx_, preview_.makeOpener(1, page), cmdLr_, cmdQ1_}) {
        sstFz->putOn(intakeTab, button, buttonLeft, top, buttonWidth, buttonHeight);
        button->setEnabled(false);
        top += buttonPitch;
    }
    sstFz->putOn(intakeTab, preview_.makeOpener(0, page), recordButtonLeft, 990, 930, 285);
}

void IntakePage::connectControls() {
    const auto run = [this](auto slot) { return guarded(controls_.form, [this, slot] { (this->*slot)(); }); };
    browser_.serve(intakeTab, {[this] { return mode(); }, [this] { return filesMayBePicked(); }});
    connect(&browser_, &BrowserPanel::laidOut, this, run(&IntakePage::arrange));
    connect(&browser_, &BrowserPanel::filesListed, this, run(&IntakePage::listFiles));
    connect(&browser_, &BrowserPanel::filesRead, this, run(&IntakePage::filesRead));
    connect(&browser_, &BrowserPanel::folderChanged, this, run(&IntakePage::chooseFilesAnew));
    connect(&browser_, &BrowserPanel::fileClicked, this, run(&IntakePage::fileClicked));
    for (QRadioButton* option : optYl_) connect(option, &QRadioButton::clicked, this, run(&IntakePage::optYlClick));
    for (QRadioButton* option : optCz_)
        connect(option, &QRadioButton::clicked, this, run(&IntakePage::chooseFilesAnew));
    connect(&mapping_, &MappingPanel::otherAllClicked, this, run(&IntakePage::cmdQxClick));
    connect(&mapping_, &MappingPanel::otherEnterClicked, this, run(&IntakePage::cmdLrClick));
    connect(cmdQ1_, &QPushButton::clicked, this, run(&IntakePage::cmdQ1Click));
    mapping_.replaces = [this] { return replaces(); };
    mapping_.targetIsFit = [this] { return targetIsFit(); };
    connect(database_.get(), &DatabaseIntake::targetShown, this, run(&IntakePage::showAlbumCount));
    connect(&codeButtons_, &CodeButtons::filtered, this, [this](const QString& code, const QString& name, int total) {
        lblJl_->setText(u"编号=["_s + code + u"]("_s + name + u") 共有"_s + QString::number(total) + u"张"_s);
    });
}

bool IntakePage::inFront() const {
    return controls_.sstFz->currentIndex() == intakeTab;
}

bool IntakePage::fromFiles() const {
    return optYl_[0]->isChecked();
}

bool IntakePage::replaces() const {
    return optCz_[0]->isChecked();
}

bool IntakePage::filesMayBePicked() const {
    return (optYl_[0]->isChecked() || optYl_[1]->isChecked()) && (optCz_[0]->isChecked() || optCz_[1]->isChecked());
}

BrowseMode IntakePage::mode() const {
    return fromFiles() ? BrowseMode::pictureFiles : BrowseMode::sourceDatabase;
}

void IntakePage::enter() {
    attempt([&] { browser_.dir1()->refresh(); });
    if (database_->choosesRows()) database_->showTarget();
    browser_.mlcl();
    showFileCount();
    state_.currentFolder = browser_.dir1()->Path();
    infoLines_[0]->clear();
    hints_.czts(1);
    controls_.sstFz->putOn(intakeTab, cmdQ1_, buttonLeft, topOf(cmdLr_) + TabControl::stripHeight + buttonPitch);
    controls_.sstFz->putOn(intakeTab, preview_.cmdCk(0), recordButtonLeft, 990);
    browser_.showOn(intakeTab, 150, 750);
    raiseControls();
    controls_.sstFz->putOn(intakeTab, lblMk_, 5750, 735);
}

/// The panel of folders and files covers the ground on which the page's own controls stand.
void IntakePage::raiseControls() {
    for (QWidget* control :
         {static_cast<QWidget*>(fraLy_), static_cast<QWidget*>(fraFs_), static_cast<QWidget*>(chkZd_),
          static_cast<QWidget*>(cmdQx_), static_cast<QWidget*>(preview_.cmdCk(1)), static_cast<QWidget*>(cmdLr_),
          static_cast<QWidget*>(cmdQ1_), static_cast<QWidget*>(infoLines_[1]), static_cast<QWidget*>(infoLines_[2]),
          static_cast<QWidget*>(infoLines_[3])})
        control->raise();
}

void IntakePage::albumChosen() {
    if (mapping_.sourceDatabase().isOpen()) database_->giveUp();
    const bool demo = isDemo(state_.albumTable);
    fraLy_->setEnabled(!demo);
    if (demo) takesNoPictures();
    if (filesWait_) cmdLr_->setEnabled(state_.selectedFileCount >= 1);
    filesWait_ = false;
    preview_.allowOpening(0, true);

    state_.sourceTable.clear();
    state_.targetDatabasePath = mekTp::cataloguePath();
    state_.targetTable = state_.albumTable;
    codeButtons_.moveTo(5450, 5415, 13);
    attempt([&] { codeButtons_.bhan(); });
    codeButtons_.moveText(5940, 6165, 1400);
    infoLines_[0]->setText(u"目标表："_s + state_.targetTable);
    showAlbumCount();
    state_.intakeStep = 0;
    if (demo) say(controls_.form, onlyForShow);
}

/// Gives up whatever was prepared, and lets nothing new be prepared.
void IntakePage::takesNoPictures() {
    for (const auto& options : {optYl_, optCz_})
        for (QRadioButton* option : options) clearOption(option);
    fraFs_->setEnabled(false);
    browser_.mlcl();
    showFileCount();
    filesWait_ = false;
    state_.pageFree = true;
    hints_.czts(1);
}

void IntakePage::albumLost() {
    if (inFront() && mapping_.sourceDatabase().isOpen()) database_->giveUp();
    filesWait_ = filesWait_ || cmdLr_->isEnabled();
    fraLy_->setEnabled(false);
    cmdLr_->setEnabled(false);
    preview_.allowOpening(0, false);
    infoLines_[0]->clear();
    lblJl_->setText(controls_.cboBm->count() > 0 ? u"请先在上边选择接受图片的图册"_s : u"请先在中“图册设置”建立图册"_s);
}

void IntakePage::showAlbumCount() {
    lblJl_->setText(recordCountLine(controls_.cboBm->currentText(), controls_.datBj->total()));
}

void IntakePage::rowClicked() {
    database_->rowClicked();
}

void IntakePage::recordChanged() {
    if (!inFront() || !preview_.isOpen()) return;
    state_.previewMark = u"s"_s;
    preview_.chkCkClick();
}

void IntakePage::arrange() {
    const bool files = inFront() && fromFiles();
    for (std::size_t i = 1; i < infoLines_.size(); ++i) infoLines_[i]->clear();
    for (QLabel* line : infoLines_) line->setVisible(inFront());
    if (inFront()) placeSourceLines(files);
    for (QWidget* part : {static_cast<QWidget*>(fraLy_), static_cast<QWidget*>(fraFs_), static_cast<QWidget*>(cmdQ1_)})
        part->setVisible(inFront());
    for (QWidget* part : {static_cast<QWidget*>(chkZd_), static_cast<QWidget*>(preview_.cmdCk(1))})
        part->setVisible(files);
    preview_.cmdCk(1)->setEnabled(false);
}

/// The path of a database has a line of its own; with files the lines stand side by side below their echo.
void IntakePage::placeSourceLines(bool files) {
    TabControl* sstFz = controls_.sstFz;
    sstFz->putOn(intakeTab, infoLines_[1], 555, 6480, files ? 2250 : 4500, 225);
    sstFz->putOn(intakeTab, infoLines_[2], files ? 2820 : 555, files ? 6480 : 6225, files ? 1020 : 2100, 225);
    sstFz->putOn(intakeTab, infoLines_[3], files ? 3855 : 2700, files ? 6480 : 6225, files ? 1155 : 2400, 225);
    for (std::size_t i = 1; i < infoLines_.size(); ++i) infoLines_[i]->raise();
}

void IntakePage::listFiles() {
    if (!inFront()) return;
    if (browser_.fil1()->isEnabled() && browser_.fil1()->ListCount() >= 2)
        for (QPushButton* button : {cmdQ1_, cmdQx_}) button->setEnabled(true);
    showFileCount();
    chooseFilesAnew();
}

void IntakePage::filesRead() {
    if (!inFront()) return;
    showFileCount();
    if (filesMayBePicked()) chooseFilesAnew();
}

void IntakePage::showFileCount() {
    if (fromFiles())
        browser_.showCountLine();
    else
        browser_.hideCountLine();
}

void IntakePage::optYlClick() {
    if (database_->choosesRows()) database_->showTarget();
    browser_.mlcl();
    cmdQx_->setEnabled(false);
    browser_.dir1()->setEnabled(true);
    browser_.drv1()->setEnabled(true);
    browser_.fil1()->setEnabled(filesMayBePicked());
    fraFs_->setEnabled(true);
    cmdQ1_->setEnabled(true);
    showFileCount();
    state_.intakeStep = optYl_[1]->isChecked() ? 1 : 11;
}

/// The way of adding or the folder has changed: the files are to be chosen again.
void IntakePage::chooseFilesAnew() {
    if (!inFront()) return;
    FileList* fil1 = browser_.fil1();
    if (mapping_.sourceDatabase().isOpen()) database_->giveUp();
    fil1->setEnabled(filesMayBePicked());
    browser_.selectQuietly(false);
    browser_.setEcho({});
    cmdLr_->setEnabled(false);
    preview_.cmdCk(1)->setEnabled(false);
    cmdQx_->setEnabled(fromFiles() && filesMayBePicked() && fil1->ListCount() > 0);
    if (fromFiles() && replaces()) {
        const QStringList names = browser_.fileNames();
        if (!std::all_of(names.begin(), names.end(), standsForNumber)) cmdQx_->setEnabled(false);
    }
    state_.intakeStep = optYl_[1]->isChecked() ? 2 : 12;
    hints_.czts(11);
}
