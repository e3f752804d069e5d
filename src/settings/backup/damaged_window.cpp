#include "settings/backup/damaged_window.h"

#include "catalogue/backup_file.h"
#include "catalogue/mektp.h"
#include "catalogue/settings_row.h"
#include "platform/base/error.h"
#include "platform/database/records/value_hashes.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/picture/picture.h"
#include "platform/picture/preview.h"
#include "settings/backup/dialog_parts.h"

#include <QApplication>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QSize usualSize(720, 440), small(96, 72);
constexpr std::array widths{small.width() + 12, 180, 190};
constexpr int mostSmallPictures = 200;  ///< Of a disk that is breaking there may be thousands.
enum Part { pictureOf, placeOfIt, faultOfIt, remedyOfIt };

QStringList backups() {
    QStringList paths;
    attempt([&] {
        const QString newest = setting(u"备份路径"_s).textOr();
        if (newest.isEmpty()) return;
        for (const BackupFile& one : backupsBeside(newest, false)) paths << one.path;
    });
    return paths;
}

/// Of what can still be read. The camera's own small picture is often whole when the large one is not.
QImage smallPicture(qint64 picture) {
    Picture found;
    attempt([&] {
        const StoredValue value = ValueHashes(mekTp::catalogue).valueOf(picture);
        found = LoadPreview(value.read(0, previewReach));
        if (found.isNull()) found = LoadPicture(value.read(0, value.size()), QString(), small);
    });
    return found.isNull() ? QImage() : found.image().scaled(small, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

}  // namespace

DamagedWindow::DamagedWindow(QWidget* parent) : QDialog(parent) {
    setUpDialog(*this, u"frmJy"_s, u" 有损坏的图片"_s, usualSize);
    makeControls();
    list();
}

void DamagedWindow::makeControls() {
    auto* lines = new QVBoxLayout(this);
    lblJy = addHead(*this, *lines, u"lblJy"_s);
    lstJy = addTable(*this, *lines, u"lstJy"_s, u"有损坏的图片"_s, {u"图片"_s, u"图册、序号"_s, u"情况"_s, u"备份"_s},
                     widths);
    lstJy->setIconSize(small);
    lstJy->verticalHeader()->setDefaultSectionSize(small.height() + 6);
    cmdXf = make<QPushButton>(this, u"cmdXf"_s, u"修 复"_s);
    cmdXf->setToolTip(u"从备份中取回所有能取回的，逐张核对"_s);
    cmdJs = make<QPushButton>(this, u"cmdJs"_s, u"保留现状"_s);
    cmdJs->setToolTip(u"选中的以后就以现在的样子为准，不再提示"_s);
    cmdGb = make<QPushButton>(this, u"cmdGb"_s, u"关 闭"_s);
    addButtons(*this, *lines, {cmdXf, cmdJs}, cmdGb);
    connect(cmdXf, &QPushButton::clicked, this, guarded(this, [this] { healAll(); }));
    connect(cmdJs, &QPushButton::clicked, this, guarded(this, [this] { acceptChosen(); }));
}

void DamagedWindow::list() {
    const Hourglass hourglass;
    damaged_ = proofState(mekTp::catalogue).damaged;
    remedies_ = remediesFor(mekTp::catalogue, damaged_, backups());
    lstJy->setRowCount(0);
    for (auto at = damaged_.begin(); at != damaged_.end(); ++at) addLine(at.key(), at.value());
    if (!damaged_.isEmpty()) lstJy->selectRow(0);
    cmdXf->setEnabled(!remedies_.isEmpty());
    cmdXf->setDefault(!remedies_.isEmpty());
    cmdJs->setEnabled(!damaged_.isEmpty());
    if (damaged_.isEmpty()) {
        lblJy->setText(u"没有损坏的图片了。"_s);
        return;
    }
    const QString healable = remedies_.isEmpty()
                                 ? u"备份中没有找到。放备份的磁盘如果没有接上，请接上以后再打开这个窗口。"_s
                                 : u"其中 %1 张备份中有，按《修 复》取回，逐张核对。"_s.arg(remedies_.size());
    lblJy->setText(u"有 %1 张图片损坏了。"_s.arg(damaged_.size()) + healable);
}

void DamagedWindow::addLine(qint64 picture, Fault fault) {
    const int row = lstJy->rowCount();
    lstJy->insertRow(row);
    auto* shown = new QTableWidgetItem;
    shown->setData(Qt::UserRole, picture);
    if (row < mostSmallPictures) shown->setData(Qt::DecorationRole, smallPicture(picture));
    lstJy->setItem(row, pictureOf, shown);
    lstJy->setItem(row, placeOfIt, new QTableWidgetItem(textOf(placeOf(mekTp::catalogue, picture))));
    lstJy->setItem(row, faultOfIt, new QTableWidgetItem(textOf(fault)));
    const auto remedy = remedies_.find(picture);
    const QString found =
        remedy == remedies_.end() ? u"没有"_s : u"备份中有："_s + QFileInfo(remedy->front().backup).fileName();
    lstJy->setItem(row, remedyOfIt, new QTableWidgetItem(found));
}

/// One that fails keeps none of the others from coming back.
void DamagedWindow::healAll() {
    int healed = 0;
    QString failure;
    {
        const Hourglass hourglass;
        for (auto at = remedies_.begin(); at != remedies_.end(); ++at) {
            try {
                heal(mekTp::catalogue, at.key(), at.value());
                ++healed;
            } catch (const Error& failed) {
                failure = failed.text();
            }
        }
    }
    list();
    Q_EMIT changed();
    const QString done = u"%1 张图片已经修复，与录入时相同。"_s.arg(healed);
    closeIfEmpty(failure.isEmpty() ? done : done + u"\n\n"_s + failure);
}

void DamagedWindow::acceptChosen() {
    QList<qint64> chosen;
    for (const QModelIndex& index : lstJy->selectionModel()->selectedRows(pictureOf))
        chosen << index.data(Qt::UserRole).toLongLong();
    if (chosen.isEmpty()) return;
    if (!askBeforeDeleting(this,
                           u"选中的 %1 张图片以后就以现在的样子为准，不再能用备份修复。\n\n"
                           "确实如此，请按“确定”；否则按“取消”。"_s.arg(chosen.size())))
        return;
    const auto lost = std::ranges::count_if(
        chosen, [](qint64 picture) { return !attempt([&] { takeAsIs(mekTp::catalogue, picture); }); });
    list();
    Q_EMIT changed();
    if (lost > 0)
        say(this, u"有 %1 张已经读不出来，没有现在的样子可以保留。请从备份取回，或者删除那条记录。"_s.arg(lost));
    closeIfEmpty({});
}

void DamagedWindow::closeIfEmpty(const QString& text) {
    if (!text.isEmpty()) say(this, text, BoxIcon::information);
    if (damaged_.isEmpty()) close();
}

DamagedWindow* showDamagedPictures(QWidget* parent) {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (qobject_cast<DamagedWindow*>(window) != nullptr && window->isVisible()) return nullptr;
    bool isAny = false;
    attempt([&] { isAny = !proofState(mekTp::catalogue).damaged.isEmpty(); });
    if (!isAny) return nullptr;
    auto* window = new DamagedWindow(parent);
    if (parent == nullptr) {
        window->setAttribute(Qt::WA_ShowWithoutActivating);  // somebody may be typing elsewhere
        QObject::connect(qApp, &QCoreApplication::aboutToQuit, window, &QObject::deleteLater);
    }
    window->show();
    return window;
}
