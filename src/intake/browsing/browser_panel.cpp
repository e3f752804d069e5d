#include "intake/browsing/browser_panel.h"

#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/base/odd_names.h"
#include "platform/desktop/elided_label.h"
#include "platform/desktop/file_lists.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/surface.h"
#include "platform/desktop/text_box.h"
#include "settings/frame/columns.h"

#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStandardPaths>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

QLabel* makeLabel(QWidget* parent, const QString& name, const QString& text, int left, int top, int width, int height) {
    auto* label = make<QLabel>(parent, name, text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    place(label, left, top, width, height);
    return label;
}

}  // namespace

BrowserPanel::BrowserPanel(const SettingsFrame& frame, GuidedFlow& flow)
    : frame_(frame),
      flow_(flow),
      picMl_(make<Surface>(frame.sstFz->page(intakeTab), u"picMl"_s)),
      lbl12_(make<ElidedLabel>(frame.sstFz->page(intakeTab), u"lbl12"_s)) {
    lbl12_->setTextFormat(Qt::PlainText);
    picMl_->setAutoFillBackground(true);
    frame_.sstFz->putOn(intakeTab, picMl_, 150, 750, 4935, 5925);
    picMl_->hide();
    makeLists();
    makeLabels();
    makeOptions();
    makeFolderButtons();
    connectLists();
    const QString pictures = QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    if (!attempt([&] { dir1_->setPath(pictures); })) attempt([&] { dir1_->setPath(QDir::homePath()); });
    folder_ = dir1_->Path();
}

void BrowserPanel::makeLists() {
    drv1_ = make<DriveList>(picMl_, u"drv1"_s);
    drv1_->setAccessibleName(u"磁盘"_s);
    place(drv1_, 405, 45, 1650, 345);
    letGrow(drv1_, beside(0, 0.5));
    dir1_ = make<DirList>(picMl_, u"dir1"_s);
    dir1_->setAccessibleName(u"文件夹"_s);
    fil1_ = make<FileList>(picMl_, u"fil1"_s);
    fil1_->setAccessibleName(u"文件"_s);
    txtMl_ = make<CaptionBox>(picMl_, u"txtMl"_s);
    txtMl_->setFrameShape(QFrame::StyledPanel);
}

void BrowserPanel::makeLabels() {
    lblB1Second_ = makeLabel(picMl_, u"lblB1(1)"_s, {}, 2085, 45, 2835, 345);
    letGrow(lblB1Second_, beside(0.5, 1));
    lblB0_ = makeLabel(picMl_, u"lblB0"_s, u"▼"_s, 450, 3105, 240, 270);
    lblB1First_ = makeLabel(picMl_, u"lblB1(0)"_s, {}, 405, 3105, 2535, 270);
    lblB1First_->stackUnder(lblB0_);
    letGrow({lblB0_, lblB1First_}, movesDown * 0.5);
    lblGy_ = makeLabel(picMl_, u"lblGy"_s, {}, 3090, 2610, 1770, 540);
    lblGy_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    letGrow(lblGy_, movesRight);
    lblGy_->hide();
    lbl7_ = makeLabel(picMl_, u"lbl7"_s, u"操作提示：在目录列表框中要双击鼠标才能选中"_s, 405, 3555, 2565, 540);
    lbl7_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

void BrowserPanel::makeFolderButtons() {
    const auto button = [this](const QString& name, const QString& caption, int top) {
        auto* made = make<QPushButton>(picMl_, name, caption);
        place(made, 3090, top, 1500, 345);
        letGrow(made, movesRight);
        return made;
    };
    cmdMj_ = button(u"cmdMj"_s, u"新建文件夹"_s, 420);
    cmdMs_ = button(u"cmdMs"_s, u"删除文件夹"_s, 825);
    cmdMq_ = button(u"cmdMq"_s, u"确 定"_s, 1860);
    cmdMx_ = button(u"cmdMx"_s, u"取 消"_s, 2265);
    cmdMq_->setEnabled(false);
    lblJm_ = makeLabel(picMl_, u"lblJm"_s, u"文件夹名称："_s, 405, 3120, 1140, 330);
    txtJm_ = make<TextBox>(picMl_, u"txtJm"_s);
    place(txtJm_, 1560, 3120, 3255, 330);
    letGrow(lblJm_, movesDown);
    letGrow(txtJm_, movesDown + widens);
    for (QWidget* part : {static_cast<QWidget*>(lblJm_), static_cast<QWidget*>(txtJm_)}) part->hide();
}

void BrowserPanel::connectLists() {
    const auto run = [this](auto slot) { return guarded(frame_.form, [this, slot] { (this->*slot)(); }); };
    connect(drv1_, &DriveList::changed, this, run(&BrowserPanel::drv1Change));
    connect(dir1_, &DirList::changed, this, run(&BrowserPanel::dir1Change));
    connect(dir1_, &DirList::clickedLine, this, run(&BrowserPanel::dir1Click));
    connect(fil1_, &FileList::pathChanged, this, run(&BrowserPanel::fil1PathChange));
    connect(fil1_, &FileList::selectionClicked, this, run(&BrowserPanel::fil1Click));
    // Keys move the selection before the focused entry.
    connect(fil1_, &FileList::currentRowChanged, this, guarded(frame_.form, [this](int row) {
                if (row >= 0 && fil1_->Selected(row) && selectedFiles().size() > 1) fil1Click();
            }));
    connect(txtMl_, &CaptionBox::textChanged, this, run(&BrowserPanel::txtMlChange));
    connect(cmdMj_, &QPushButton::clicked, this, run(&BrowserPanel::cmdMjClick));
    connect(txtJm_, &TextBox::enterPressed, this, run(&BrowserPanel::cmdMjClick));
    connect(cmdMs_, &QPushButton::clicked, this, run(&BrowserPanel::cmdMsClick));
    connect(cmdMq_, &QPushButton::clicked, this, guarded(frame_.form, [this] { Q_EMIT confirmed(); }));
    connect(cmdMx_, &QPushButton::clicked, this, run(&BrowserPanel::cmdMxClick));
}

const BrowserPanel::Host* BrowserPanel::host() const {
    const auto found = hosts_.find(frame_.sstFz->currentIndex());
    return found == hosts_.end() ? nullptr : &found->second;
}

BrowseMode BrowserPanel::modeNow() const {
    return host() != nullptr ? host()->mode() : BrowseMode::pictureFiles;
}

bool BrowserPanel::filesMayBePicked() const {
    return host() != nullptr && host()->filesMayBePicked();
}

bool BrowserPanel::onIntakePage() const {
    return modeNow() == BrowseMode::pictureFiles || modeNow() == BrowseMode::sourceDatabase;
}

bool BrowserPanel::isPictureMode() const {
    return modeNow() == BrowseMode::pictureFiles || modeNow() == BrowseMode::targetFolder;
}

QWidget* BrowserPanel::ground() const {
    return picMl_;
}

void BrowserPanel::hide() {
    picMl_->hide();
}

void BrowserPanel::readFolders() {
    attempt([&] { dir1_->refresh(); });
    folder_ = dir1_->Path();
}

QString BrowserPanel::folder() const {
    return folder_;
}

void BrowserPanel::showOn(int page, int left, int top) {
    letGrow(picMl_, beside(0, page == transferTab ? transferShare : intakeShare) + heightens);
    frame_.sstFz->putOn(page, picMl_, left, top);
    picMl_->show();
    picMl_->raise();
}

// Lays the panel out for the mode at hand.
void BrowserPanel::mlcl() {
    const BrowseMode now = modeNow();
    const bool folders = now == BrowseMode::targetFolder;
    for (QPushButton* button : {cmdMj_, cmdMs_, cmdMq_, cmdMx_}) button->setVisible(folders);
    showFileParts(now == BrowseMode::pictureFiles);
    fil1_->setVisible(!folders);
    lbl7_->setVisible(!onIntakePage());
    // The panel goes from page to page; the count is of the pictures of the one alone.
    if (now != BrowseMode::pictureFiles) hideCountLine();
    txtMl_->setVisible(isPictureMode());
    setEcho({});
    placeForMode();
    enableFiles();
    readFiles();
    lblB1Second_->setText(u"      请选择确定图片"_s + (onIntakePage() ? u"来源路径"_s : u"保存路径"_s));
    lblB1First_->setText(now == BrowseMode::pictureFiles ? u"        请选择文件"_s
                         : onIntakePage()                ? u"      请设置来源数据表"_s
                                                         : u"      请设置目标数据表"_s);
    Q_EMIT laidOut();
}

/// The lists share the height that the panel has gained, as far as they are shown, with the tables and fields of a
/// database below them.
void BrowserPanel::placeForMode() {
    if (modeNow() == BrowseMode::pictureFiles) {
        place(dir1_, 405, 420, 2535, 2610);
        place(fil1_, 405, 3390, 2565, 1710);
        place(lblB1First_, 405, 3105, 1365, 270);
        letGrow(dir1_, widens + heightens * 0.5);
        letGrow(fil1_, widens + movesDown * 0.5 + heightens * 0.5);
    } else {
        const bool isAlone = modeNow() == BrowseMode::targetFolder;
        place(dir1_, 405, 420, 2535, 2190);
        place(fil1_, 405, 2650, 2565, 450);
        place(lblB1First_, 405, 3105, 2535, 270);
        letGrow(dir1_, widens + heightens * (isAlone ? 1 : 0.3));
        letGrow(fil1_, widens + movesDown * 0.3 + heightens * 0.2);
        letGrow(lbl7_, movesDown * (isAlone ? 1 : 0.5));
    }
    letGrow(txtMl_, widens + movesDown);
    if (onIntakePage())
        place(txtMl_, 400, 5145, 3495, 555);
    else
        place(txtMl_, 400, 2650, 4410, 345);
}

QStringList BrowserPanel::selectedNames() const {
    QStringList names;
    for (const int index : selectedFiles()) names << fil1_->List(index);
    return names;
}

QString BrowserPanel::nameInFocus() const {
    const QList<int> chosen = selectedFiles();
    return chosen.isEmpty() || chosen.contains(fil1_->currentRow()) ? fil1_->FileName() : fil1_->List(chosen.front());
}

QList<int> BrowserPanel::selectedFiles() const {
    QList<int> places;
    for (const QModelIndex& line : fil1_->selectionModel()->selectedIndexes()) places << line.row();
    std::sort(places.begin(), places.end());
    return places;
}

void BrowserPanel::selectQuietly(bool all) {
    txtMl_->setEnabled(false);
    fil1_->selectAllEntries(all);
    selectedCount_ = all ? fil1_->ListCount() : 0;
    txtMl_->setEnabled(true);
}

void BrowserPanel::enableFiles() {
    enableFiles(filesMayBePicked());
}

void BrowserPanel::enableFiles(bool on) {
    fil1_->setEnabled(on);
}

bool BrowserPanel::areFilesEnabled() const {
    return fil1_->isEnabled();
}

void BrowserPanel::hideFiles() {
    fil1_->hide();
    txtMl_->hide();
}

QString BrowserPanel::echo() const {
    return txtMl_->text();
}

void BrowserPanel::disableEcho() {
    txtMl_->setEnabled(false);
}

void BrowserPanel::placeNote(int page, const QRect& at, const Growth& growth) {
    letGrow(lbl12_, growth);
    frame_.sstFz->putOn(page, lbl12_, at.x(), at.y(), at.width(), at.height());
    lbl12_->raise();
}

void BrowserPanel::setNote(const QString& text, const QString& toolTip) {
    lbl12_->setText(text);
    lbl12_->setToolTip(toolTip);
}

void BrowserPanel::showNote() {
    lbl12_->show();
    lbl12_->raise();
}

void BrowserPanel::hideNote() {
    lbl12_->hide();
}

void BrowserPanel::setEcho(const QString& text) {
    txtMl_->setToolTip(text);
    if (txtMl_->text() != text) txtMl_->setText(text);
}

void BrowserPanel::showFileParts(bool on) {
    lblB0_->setVisible(on);
    lblB1First_->setVisible(on);
    for (QCheckBox* option : {chkGs_, chkZw_}) option->setVisible(on && modeNow() == BrowseMode::pictureFiles);
}

void BrowserPanel::showFolderHint(bool on) {
    lbl7_->setVisible(on);
}

void BrowserPanel::hideCountLine() {
    lblGy_->hide();
}

void BrowserPanel::drv1Change() {
    if (!attempt([&] { dir1_->setPath(drv1_->Drive()); })) {
        // A place that cannot be entered leaves everything as it was.
        const QSignalBlocker silence(drv1_);
        attempt([&] { drv1_->setDrive(dir1_->Path()); });
        return;
    }
    fil1_->setPath(dir1_->Path());
    folder_ = fil1_->Path();
}

void BrowserPanel::dir1Change() {
    fil1_->setPath(dir1_->Path());
    enableFiles();
    folder_ = dir1_->Path();
    if (fil1_->Pattern() != wantedPattern()) readFiles();
    if (onIntakePage()) {
        pickedFile_.clear();
        setEcho({});
    } else {
        setEcho(dir1_->Path());
        endNaming();
    }
    Q_EMIT folderChanged();
}

void BrowserPanel::dir1Click() {
    folder_ = dir1_->Path();
    if (!onIntakePage()) setEcho(dir1_->Path());
    const QListWidgetItem* line = dir1_->currentItem();
    if (line == nullptr || line->data(Qt::UserRole).toString() != dir1_->Path()) return;
    readFiles();
    Q_EMIT filesRead();
}

void BrowserPanel::fil1PathChange() {
    {
        const QSignalBlocker silence(drv1_);
        attempt([&] { drv1_->setDrive(fil1_->Path()); });
    }
    attempt([&] { dir1_->setPath(fil1_->Path()); });
    if (walks()) beginWalk();
    Q_EMIT filesListed();
}

void BrowserPanel::fil1Click() {
    const QString odd = dropOddDatabases();
    const QList<int> chosen = selectedFiles();
    // The one file that is chosen need not be the one in focus.
    pickedFile_ = joinedPath(folder_, chosen.size() == 1 ? fil1_->List(chosen.front()) : fil1_->FileName());
    selectedCount_ = static_cast<int>(chosen.size());
    if (txtMl_->isEnabled()) Q_EMIT fileClicked();
    if (!odd.isEmpty()) throw Error(u"文件“%1”的名称不是系统的编码，不能作为数据库打开。请先给它改名。"_s.arg(odd));
}

/// A picture is read by its stand-in, a database is opened by its name alone. Returns the last that was dropped.
QString BrowserPanel::dropOddDatabases() {
    if (isPictureMode() || !txtMl_->isEnabled()) return {};
    QList<int> odd = selectedFiles();
    odd.removeIf([this](int place) { return !isStandIn(joinedPath(fil1_->Path(), fil1_->List(place))); });
    if (odd.isEmpty()) return {};
    deselectQuietly(odd);
    return fil1_->List(odd.last());
}

void BrowserPanel::txtMlChange() {
    cmdMq_->setEnabled(!txtMl_->text().isEmpty());
    if (!txtMl_->text().isEmpty() && modeNow() != BrowseMode::targetDatabase) flow_.goTo(3);
}

void BrowserPanel::pageTurned() {
    walk_.stop();
    if (!picMl_->isHidden()) cmdMxClick();
}

// Closes the panel.
void BrowserPanel::cmdMxClick() {
    picMl_->hide();
    Q_EMIT targetCleared();
    frame_.work.end();
    flow_.goTo(3);
}
