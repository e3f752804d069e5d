#include "platform/desktop/file_lists.h"

#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/base/odd_names.h"
#include "platform/desktop/message_box.h"

#include <QCollator>
#include <QDir>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QStorageInfo>
#include <QStyle>
#include <QStyledItemDelegate>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

void sortNaturally(QStringList& names) {
    QCollator order(QLocale(QLocale::Chinese, QLocale::China));
    order.setNumericMode(true);
    order.setCaseSensitivity(Qt::CaseInsensitive);
    // Keys that are made once for each name: comparing the names themselves would take several times as long.
    std::vector<std::pair<QCollatorSortKey, QString>> keyed;
    keyed.reserve(size_t(names.size()));
    for (const QString& name : std::as_const(names)) keyed.emplace_back(order.sortKey(name), name);
    std::sort(keyed.begin(), keyed.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    for (size_t i = 0; i < keyed.size(); ++i) names[qsizetype(i)] = std::move(keyed[i].second);
}

namespace {

QString cleanPath(const QString& path) {
    return QDir::toNativeSeparators(QDir::cleanPath(QDir(path).absolutePath()));
}

QStringList drives() {
    QStringList result;
    for (const QFileInfo& root : QDir::drives()) result.append(cleanPath(root.absoluteFilePath()));
#ifndef Q_OS_WIN
    result.append(cleanPath(QDir::homePath()));
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
        const QString root = volume.rootPath();
        const bool isMedium = root.startsWith(u"/media/"_s) || root.startsWith(u"/run/media/"_s) ||
                              root.startsWith(u"/mnt/"_s) || root == u"/mnt"_s;
        if (isMedium && volume.isReady()) result.append(cleanPath(root));
    }
#endif
    result.removeDuplicates();
    return result;
}

bool liesIn(const QString& path, const QString& place) {
    return path == place || path.startsWith(place.endsWith(QDir::separator()) ? place : place + QDir::separator());
}

}  // namespace

DriveList::DriveList(QWidget* parent) : QComboBox(parent) {
    fill();
    folder_ = cleanPath(QDir::currentPath());
    setCurrentIndex(placeOf(folder_));
    connect(this, &QComboBox::currentIndexChanged, this, &DriveList::enterChosenPlace);
    connect(this, &QComboBox::activated, this, &DriveList::enterChosenPlace);
}

void DriveList::fill() {
    const QSignalBlocker silence(this);
    const QString chosen = currentText();
    clear();
    const QIcon icon = style()->standardIcon(QStyle::SP_DriveHDIcon);
    for (const QString& drive : drives()) addItem(icon, drive);
    setCurrentIndex(std::max(0, findText(chosen)));
}

int DriveList::placeOf(const QString& path) const {
    int best = -1;
    for (int i = 0; i < count(); ++i)
        if (liesIn(path, itemText(i)) && (best < 0 || itemText(i).size() > itemText(best).size())) best = i;
    return best;
}

void DriveList::setDrive(const QString& path) {
    const QString clean = cleanPath(path);
    const int place = placeOf(clean);
    if (place < 0) throw Error(u"没有驱动器[%1]。"_s.arg(path));
    folder_ = clean;
    if (place == currentIndex()) return;
    {
        const QSignalBlocker silence(this);
        setCurrentIndex(place);
    }
    Q_EMIT changed();
}

void DriveList::enterChosenPlace() {
    if (currentIndex() < 0 || folder_ == currentText()) return;
    folder_ = currentText();
    Q_EMIT changed();
}

void DriveList::showPopup() {
    fill();
    QComboBox::showPopup();
}

namespace {

constexpr int depthRole = Qt::UserRole + 1;
constexpr int indentation = 8;

/// Sets a line in by its depth.
class IndentingDelegate : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        QStyleOptionViewItem shifted = option;
        shifted.rect.setLeft(option.rect.left() + indentation * index.data(depthRole).toInt());
        QStyledItemDelegate::paint(painter, shifted, index);
    }
};

}  // namespace

DirList::DirList(QWidget* parent) : ListBox(parent) {
    setIconSize({14, 14});
    setItemDelegate(new IndentingDelegate(this));
    attempt([&] { setPath(QDir::currentPath()); });
    connect(this, &QListWidget::itemDoubleClicked, this, guarded(this, [this](QListWidgetItem* line) { enter(line); }));
    connect(this, &ListBox::lineClicked, this, &DirList::clickedLine);
}

namespace {

QStringList foldersIn(const QString& path) {
    const QDir folder(path);
    if (!folder.exists() || !folder.isReadable()) throw Error(u"不能打开文件夹[%1]。"_s.arg(path));
    QStringList names = folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    // The toolkit takes a link to a pipe or a device for a folder, too.
    names.removeIf([&](const QString& name) { return !QFileInfo(folder.filePath(name)).isDir(); });
    sortNaturally(names);
    return names;
}

QStringList withAncestors(const QString& path) {
    QStringList result{path};
    QDir folder(path);
    while (folder.cdUp()) result.prepend(cleanPath(folder.absolutePath()));
    return result;
}

}  // namespace

void DirList::setPath(const QString& path) {
    const QString clean = cleanPath(path);
    const QStringList folders = foldersIn(clean);
    if (clean == path_) return;
    fill(clean, folders);
    Q_EMIT changed();
}

void DirList::refresh() {
    QString path = path_;
    while (!QDir(path).exists() && !QDir(path).isRoot()) path = QFileInfo(path).absolutePath();
    if (path != path_)
        setPath(path);
    else
        fill(path, foldersIn(path));
}

void DirList::fill(const QString& path, const QStringList& folders) {
    path_ = path;
    const QIcon open = style()->standardIcon(QStyle::SP_DirOpenIcon);
    const QIcon closed = style()->standardIcon(QStyle::SP_DirClosedIcon);
    clear();
    int depth = 0;
    const auto add = [&](const QIcon& icon, const QString& name, const QString& whole) {
        auto* line = new QListWidgetItem(icon, name, this);
        line->setData(depthRole, depth);
        line->setData(Qt::UserRole, whole);
        line->setToolTip(whole);
    };
    for (const QString& ancestor : withAncestors(path)) {
        const QString name = QDir(ancestor).dirName();
        add(open, name.isEmpty() ? ancestor : name, ancestor);
        ++depth;
    }
    ownLine_ = count() - 1;
    for (const QString& name : folders) add(closed, name, cleanPath(QDir(path).filePath(name)));
    for (const QString& name : oddFoldersIn(path)) {
        add(closed, name, u"这个文件夹的名称不是系统的编码，不能打开。请先给它改名。"_s);
        item(count() - 1)->setFlags(Qt::NoItemFlags);
    }
    setCurrentRow(ownLine_);
    showWay();
}

void DirList::showWay() {
    // From the root, where there is room: the way there, and where it leads on.
    scrollToTop();
    scrollToItem(item(std::min(ownLine_ + 3, count() - 1)));
    scrollToItem(item(ownLine_));
}

void DirList::resizeEvent(QResizeEvent* event) {
    ListBox::resizeEvent(event);
    showWay();
}

void DirList::enter(const QListWidgetItem* line) {
    if (line != nullptr) setPath(line->data(Qt::UserRole).toString());
}

void DirList::keyPressEvent(QKeyEvent* event) {
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    ListBox::keyPressEvent(event);
    if (isEnter) runHandler(this, [this] { enter(currentItem()); });
}

FileList::FileList(QWidget* parent) : ListBox(parent) {
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    path_ = cleanPath(QDir::currentPath());
    refill();
    connect(this, &QListWidget::itemSelectionChanged, this, &FileList::selectionClicked);
}

void FileList::setPath(const QString& path) {
    const QString clean = cleanPath(path);
    if (clean == path_) return;
    path_ = clean;
    refill();
    Q_EMIT pathChanged();
}

void FileList::setPattern(const QString& pattern, Choice isListed) {
    pattern_ = pattern;
    isListed_ = std::move(isListed);
    refill();
}

void FileList::showFiles(const QStringList& files) {
    const QSignalBlocker silence(this);
    clear();
    addItems(files);
}

void FileList::refill() {
    const QSignalBlocker silence(this);
    clear();
    QStringList names, odd;
    for (const FolderEntry& entry : filesIn(path_, pattern_.split(u';', Qt::SkipEmptyParts))) {
        if (isListed_ && !isListed_(joinedPath(path_, entry.name))) continue;
        names << entry.name;
        if (entry.isStandIn) odd << entry.name;
    }
    sortNaturally(names);
    addItems(names);
    for (const QString& name : std::as_const(odd))
        for (QListWidgetItem* line : findItems(name, Qt::MatchExactly))
            line->setToolTip(u"文件名不是系统的编码，这里显示的是代用的名称。"_s);
}

QString FileList::FileName() const {
    return currentItem() != nullptr ? currentItem()->text() : QString();
}

bool FileList::Selected(int index) const {
    const QListWidgetItem* line = item(index);
    return line != nullptr && line->isSelected();
}

void FileList::setSelected(int index, bool on) {
    if (QListWidgetItem* line = item(index)) line->setSelected(on);
}

void FileList::selectAllEntries(bool on) {
    if (on)
        selectAll();
    else
        clearSelection();
}
