#include "settings/backup/restore_window.h"

#include "catalogue/album_tables.h"
#include "catalogue/mektp.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "settings/backup/backup_reminder.h"
#include "settings/backup/dialog_parts.h"

#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QSize usualSize(760, 400);
constexpr std::array widths{150, 70, 70, 90};
const QString restoredOver = u"恢复以前的图册数据库"_s;

QString sizeText(qint64 bytes) {
    return QLocale(QLocale::English).formattedDataSize(bytes, 1, QLocale::DataSizeSIFormat);
}

QString number(qint64 value) {
    return QLocale(QLocale::English).toString(value);
}

/// Nobody knows of an old backup which catalogue it is of.
QString kindOf(const BackupFile& file, const QString& newest, const QString& catalogue) {
    if (!file.catalogue.isEmpty() && !catalogue.isEmpty() && file.catalogue != catalogue)
        return u"另一个图册数据库的备份"_s;
    return file.path == newest ? u"最新的备份"_s : u"以前的备份"_s;
}

bool isDamaged(const QString& path) {
    try {
        OpenDatabase(path);
        return false;
    } catch (const Error& failure) {
        return failure.isDamage();
    }
}

}  // namespace

RestoreWindow::RestoreWindow(QWidget* parent, const QString& newest) : QDialog(parent), newest_(newest) {
    setUpDialog(*this, u"frmHy"_s, u" 备份与恢复"_s, usualSize);
    makeControls();
    list();
    lstHy->setFocus();
}

void RestoreWindow::makeControls() {
    auto* lines = new QVBoxLayout(this);
    lblHy = addHead(*this, *lines, u"lblHy"_s);
    lstHy =
        addTable(*this, *lines, u"lstHy"_s, u"备份"_s, {u"日期"_s, u"图册"_s, u"图片"_s, u"大小"_s, u"说明"_s}, widths);
    lstHy->setSelectionMode(QAbstractItemView::SingleSelection);
    lines->addWidget(makeReminder());
    cmdQf = make<QPushButton>(this, u"cmdQf"_s, u"全部恢复…"_s);
    cmdQf->setToolTip(u"用选中的换下现在的图册数据库；现在的改名留着"_s);
    cmdQh = make<QPushButton>(this, u"cmdQh"_s, u"取回图片…"_s);
    cmdSc = make<QPushButton>(this, u"cmdSc"_s, u"删 除"_s);
    cmdGb = make<QPushButton>(this, u"cmdGb"_s, u"关 闭"_s);
    addButtons(*this, *lines, {cmdQf, cmdQh, cmdSc}, cmdGb);
    cmdGb->setDefault(true);
    connect(lstHy, &QTableWidget::itemSelectionChanged, this, [this] { showChoice(); });
    connect(cmdQf, &QPushButton::clicked, this, guarded(this, [this] { leaveTo(&RestoreWindow::restoreAsked); }));
    connect(cmdQh, &QPushButton::clicked, this, guarded(this, [this] { leaveTo(&RestoreWindow::picturesAsked); }));
    connect(cmdSc, &QPushButton::clicked, this, guarded(this, [this] { removeChosen(); }));
}

QWidget* RestoreWindow::makeReminder() {
    auto* strip = new QWidget(this);
    auto* row = new QHBoxLayout(strip);
    row->setContentsMargins(0, 0, 0, 0);
    auto* caption = new QLabel(u"多久没有完好的备份就提醒："_s, strip);
    cboTx = make<QComboBox>(strip, u"cboTx"_s);
    caption->setBuddy(cboTx);
    const std::pair<QString, int> choices[] = {{u"不提醒"_s, 0}, {u"7 天"_s, 7}, {u"30 天"_s, 30}};
    for (const auto& [text, days] : choices) cboTx->addItem(text, days);
    cboTx->setCurrentIndex(std::max(0, cboTx->findData(reminderDays())));
    row->addWidget(caption);
    row->addWidget(cboTx);
    row->addStretch(1);
    strip->setEnabled(mekTp::catalogue.isOpen());
    connect(cboTx, &QComboBox::activated, this, [this] { setReminderDays(cboTx->currentData().toInt()); });
    return strip;
}

/// The backups, then what was restored over.
void RestoreWindow::list() {
    const Hourglass hourglass;
    const QString open = mekTp::cataloguePath(), real = QFileInfo(open).canonicalFilePath();
    QString catalogue;  // unknown where that is damaged
    attempt([&] { catalogue = identityOf(mekTp::catalogue); });
    files_.clear();
    unread_.clear();
    lstHy->setRowCount(0);
    if (!newest_.isEmpty())
        for (const BackupFile& one : backupsBeside(newest_, true)) addLine(one, kindOf(one, newest_, catalogue));
    const bool hasBackups = !files_.isEmpty();
    for (const BackupFile& one : datedBeside(real, true)) addLine(one, restoredOver);
    listUnread(real);
    if (!files_.isEmpty()) lstHy->selectRow(0);
    showChoice();
    lblHy->setText(newest_.isEmpty() ? u"还没有设置备份路径。"_s
                   : hasBackups ? u"备份在“%1”。恢复用的是选中的那一份。"_s.arg(QFileInfo(newest_).path())
                                : u"“%1”中没有备份。放备份的磁盘可能没有接上。"_s.arg(QFileInfo(newest_).path()));
}

/// Catalogues that were restored over and cannot be opened, and those that were exchanged for what was whole of them.
void RestoreWindow::listUnread(const QString& real) {
    const QFileInfo file(real);
    const QString start = file.completeBaseName() + u"-损坏-"_s, ending = u'.' + file.suffix();
    QStringList names = datedNames(real);
    for (const QString& name : QDir(file.path()).entryList(QDir::Files | QDir::NoSymLinks, QDir::Name | QDir::Reversed))
        if (name.startsWith(start) && name.endsWith(ending)) names << name;
    for (const QString& name : names) {
        const QFileInfo one(file.path() + u'/' + name);
        const QString path = one.filePath();
        if (std::ranges::find(files_, path, &BackupFile::path) != files_.end() || isSameFile(path, real)) continue;
        const bool isKnown = name.startsWith(start) || isDamaged(path);
        unread_.insert(path, isKnown ? u"已损坏"_s : u"现在打不开"_s);
        addLine({.path = path, .made = one.lastModified(), .size = one.size()},
                isKnown ? u"损坏的图册数据库"_s : u"现在打不开的图册数据库"_s);
    }
}

void RestoreWindow::addLine(const BackupFile& file, const QString& kind) {
    const int row = lstHy->rowCount();
    lstHy->insertRow(row);
    const auto count = [&](int counted) { return unread_.contains(file.path) ? QString() : number(counted); };
    const QString texts[] = {file.made.toString(u"yyyy-MM-dd HH:mm"_s), count(file.albums), count(file.pictures),
                             sizeText(file.size), kind};
    for (int column = 0; column < 5; ++column) {
        auto* part = new QTableWidgetItem(texts[column]);
        part->setToolTip(QDir::toNativeSeparators(file.path));
        lstHy->setItem(row, column, part);
    }
    files_ << file;
}

const BackupFile* RestoreWindow::chosen() const {
    const QModelIndexList rows = lstHy->selectionModel()->selectedRows();
    return rows.isEmpty() ? nullptr : &files_.at(rows.first().row());
}

/// The newest backup is what everything hangs on.
bool RestoreWindow::isRemovable() const {
    return chosen() != nullptr && chosen()->path != newest_;
}

void RestoreWindow::showChoice() {
    const bool isReadable = chosen() != nullptr && !unread_.contains(chosen()->path);
    cmdQf->setEnabled(isReadable);
    cmdQh->setEnabled(isReadable && mekTp::catalogue.isOpen());
    cmdQh->setToolTip(mekTp::catalogue.isOpen()
                          ? u"从选中的里面取回图册或图片，放进现在的图册数据库"_s
                          : u"图册数据库有损坏，不能放进图片。请先全部恢复，或取出完好的部分，再取回其中的图片。"_s);
    cmdSc->setEnabled(isRemovable());
}

void RestoreWindow::removeChosen() {
    if (!isRemovable()) return;
    const BackupFile file = *chosen();
    const QString pictures = unread_.value(file.path, u"%1 张图片"_s.arg(number(file.pictures)));
    if (!askBeforeDeleting(this,
                           u"删除“%1”（%2，%3）吗？删除以后不能恢复。\n\n"
                           "如果“是”，按《确定》；否则按《取消》。"_s.arg(QDir::toNativeSeparators(file.path),
                                                                          sizeText(file.size), pictures)))
        return;
    Kill(file.path);
    if (const QString journal = file.path + u"-journal"_s; fileExists(journal)) Kill(journal);
    list();
}

void RestoreWindow::leaveTo(void (RestoreWindow::*way)(const BackupFile&)) {
    if (chosen() == nullptr) return;
    const BackupFile file = *chosen();
    close();
    Q_EMIT(this->*way)(file);
}
