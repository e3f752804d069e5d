// The part of the browsing panel that lists files.

#include "catalogue/remembered.h"
#include "intake/browsing/browser_panel.h"
#include "platform/desktop/file_lists.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/surface.h"
#include "platform/desktop/text_box.h"

#include <QCheckBox>
#include <QLabel>
#include <QSet>
#include <QSignalBlocker>

using namespace Qt::Literals::StringLiterals;

namespace {
const QString databasePattern = u"*.mdb"_s;
const QString allFormats = u"intake.formats"_s;  ///< Name of what is remembered.
}  // namespace

void BrowserPanel::makeOptions() {
    chkGs_ = make<QCheckBox>(picMl_, u"chkGs"_s, u"更多格式"_s);
    chkGs_->setToolTip(u"列出所有能读取的图片（PNG、HEIC、WebP、TIFF 等），存入时转成 JPG，原文件不动"_s);
    place(chkGs_, 1785, 3090, 1200, 270);
    letGrow(chkGs_, movesDown * 0.5);
    chkGs_->setChecked(remembered::flag(allFormats));
    chkZw_ = make<QCheckBox>(picMl_, u"chkZw"_s, u"包括子文件夹"_s);
    chkZw_->setToolTip(u"也列出所有下级文件夹里的图片；替换时不能用"_s);
    place(chkZw_, 405, 5715, 1485, 240);
    letGrow(chkZw_, movesDown);
    connect(chkGs_, &QCheckBox::clicked, this, guarded(frame_.form, [this] { chkGsClick(); }));
    connect(chkZw_, &QCheckBox::clicked, this, guarded(frame_.form, [this] { readAnew(); }));
    connect(&walk_, &FolderWalk::counted, this,
            [this](qsizetype count) { lblGy_->setText(u"正在查找图片：\n已找到%1张"_s.arg(count)); });
    connect(&walk_, &FolderWalk::done, this,
            guarded(frame_.form, [this](const QStringList& files) { endWalk(files); }));
}

bool BrowserPanel::listsSubfolders() const {
    return chkZw_->isChecked();
}

bool BrowserPanel::listsAllFormats() const {
    return chkGs_->isChecked();
}

void BrowserPanel::allowSubfolders(bool on) {
    chkZw_->setEnabled(on);
    if (!on) listOneFolder();
}

void BrowserPanel::listOneFolder() {
    if (!listsSubfolders()) return;
    chkZw_->setChecked(false);
    readFiles();
}

bool BrowserPanel::walks() const {
    return modeNow() == BrowseMode::pictureFiles && host() != nullptr && listsSubfolders();
}

ListedFiles BrowserPanel::listedFiles() const {
    return modeNow() == BrowseMode::pictureFiles && listsAllFormats() ? ListedFiles::byContent : ListedFiles::byEnding;
}

/// Nothing is listed by itself while the folders are walked through.
QString BrowserPanel::wantedPattern() const {
    if (!isPictureMode()) return databasePattern;
    if (walks()) return {};
    return listedFiles() == ListedFiles::byContent ? u"*"_s : picturePattern;
}

void BrowserPanel::readFiles() {
    walk_.stop();
    selectQuietly(false);
    const bool byContent = isPictureMode() && listedFiles() == ListedFiles::byContent;
    fil1_->setPattern(wantedPattern(), byContent ? isPictureByContent : FileList::Choice());
    if (walks()) beginWalk();
}

void BrowserPanel::beginWalk() {
    fil1_->showFiles({});
    enableFiles(false);
    lblGy_->setText(u"正在查找图片…"_s);
    lblGy_->show();
    walk_.begin(fil1_->Path(), listedFiles());
}

void BrowserPanel::endWalk(const QStringList& files) {
    fil1_->showFiles(files);
    Q_EMIT filesRead();
}

void BrowserPanel::chkGsClick() {
    remembered::setFlag(allFormats, listsAllFormats());
    readAnew();
}

/// The other files are another choice.
void BrowserPanel::readAnew() {
    readFiles();
    Q_EMIT filesRead();
}

QStringList BrowserPanel::fileNames() const {
    QStringList names;
    names.reserve(fil1_->ListCount());
    for (int i = 0; i < fil1_->ListCount(); ++i) names << fil1_->List(i);
    return names;
}

void BrowserPanel::showCountLine() {
    if (isSearching()) return;
    lblGy_->setText(u"该文件夹（目录）共有图片%1张"_s.arg(fil1_->ListCount()));
    lblGy_->setVisible(fil1_->ListCount() > 0);
}

void BrowserPanel::goTo(const QString& folder) {
    dir1_->setPath(folder);
}

void BrowserPanel::listAllFormats() {
    if (!listsAllFormats()) chkGs_->click();
}

/// In ranges that are as long as can be: there may be many thousands of files.
QItemSelection BrowserPanel::linesAt(const QList<int>& places) const {
    const auto line = [this](int place) { return fil1_->model()->index(place, 0); };
    QItemSelection lines;
    for (qsizetype first = 0, end = 0; first < places.size(); first = end) {
        for (end = first + 1; end < places.size() && places[end] == places[end - 1] + 1;) ++end;
        lines.append(QItemSelectionRange(line(places[first]), line(places[end - 1])));
    }
    return lines;
}

void BrowserPanel::deselectQuietly(const QList<int>& places) {
    txtMl_->setEnabled(false);
    fil1_->selectionModel()->select(linesAt(places), QItemSelectionModel::Deselect);
    txtMl_->setEnabled(true);
}

void BrowserPanel::selectNames(const QStringList& names) {
    const QSet<QString> wanted(names.begin(), names.end());
    QList<int> places;
    for (int i = 0; i < fil1_->ListCount(); ++i)
        if (wanted.contains(fil1_->List(i))) places << i;
    {
        const QSignalBlocker silence(fil1_);
        if (!places.isEmpty()) fil1_->setCurrentRow(places.front(), QItemSelectionModel::NoUpdate);
        fil1_->selectionModel()->select(linesAt(places), QItemSelectionModel::ClearAndSelect);
    }
    fil1Click();
}
