#include "settings/backup/backup_group.h"

#include "catalogue/backup_file.h"
#include "catalogue/mektp.h"
#include "catalogue/picture_proof.h"
#include "catalogue/settings_row.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/desktop/elided_label.h"
#include "platform/desktop/file_dialogs.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/text_box.h"
#include "settings/backup/backup_files.h"
#include "settings/backup/backup_reminder.h"
#include "settings/backup/backup_run.h"
#include "settings/frame/form_parts.h"

#include <QPushButton>

using namespace Qt::Literals::StringLiterals;

namespace {
const QString atRest = u"编 辑"_s;
const QString pending = u"保 存"_s;
const QString starts = u"开始备份"_s;
const QString cancels = u"撤 消"_s;
const QString pathColumn = u"备份路径"_s;

// Three rows where other groups of the page have two: how the last copy has ended stands below the path.
constexpr QRect groupPlace{5070, 5430, 4350, 1230};
constexpr int pathTop = 240, resultTop = 570, resultHeight = 225, buttonTop = 810;

QString storedPath() {
    return setting(pathColumn).textOr();
}

/// Path and scripts go together: scripts that cannot be written leave the stored path as it was.
void storeWithScripts(const QString& path) {
    Transaction transaction(mekTp::catalogue);
    storeSetting(pathColumn, path);
    if (!path.isEmpty()) {
        makeBackupFolders(path);
        writeBackupScripts(placesOfBackup(path));
    } else if (fileExists(backupScriptPath())) {
        Kill(backupScriptPath());
    }
    transaction.commit();
}
}  // namespace

BackupGroup::BackupGroup(const SettingsFrame& frame) : frame_(frame) {
    auto* Frame3 = makeGroup(frame.sstFz, setupTab, u"Frame3"_s, u"图册备份设置"_s, groupPlace, rightColumn);
    txtBf = makeLabelled<TextBox>(Frame3, u"txtBf"_s, u"备份路径："_s, {150, pathTop}, 900, 2075, widens);
    auto* result = make<ElidedLabel>(Frame3, u"lblBf"_s);
    result->setElideMode(Qt::ElideRight);  // when the copy was made stands in front
    lblBf = result;
    place(lblBf, 150, resultTop, 4050, resultHeight);
    letGrow(lblBf, widens);
    cmdBb = makeButton(Frame3, u"cmdBb"_s, atRest, 1050, buttonTop);
    cmdBk = makeButton(Frame3, u"cmdBk"_s, starts, 2125, buttonTop);
    cmdBl = makeButton(Frame3, u"cmdBl"_s, u"浏 览"_s, 3200, buttonTop);
    keeping_ = std::make_unique<KeepingButtons>(frame, Frame3);
    txtBf->setLocked(true);
    cmdBl->setEnabled(false);

    const auto run = [&](auto slot) { return guarded(frame.form, [this, slot] { (this->*slot)(); }); };
    connect(cmdBb, &QPushButton::clicked, this, run(&BackupGroup::cmdBbClick));
    connect(cmdBk, &QPushButton::clicked, this, run(&BackupGroup::cmdBkClick));
    connect(cmdBl, &QPushButton::clicked, this, run(&BackupGroup::cmdBlClick));
    connect(keeping_.get(), &KeepingButtons::stateChanged, this, &BackupGroup::showResult);
    connect(keeping_.get(), &KeepingButtons::albumsChanged, this, &BackupGroup::albumsChanged);
    connect(txtBf, &TextBox::lostFocus, this, [this] { pathLeft(); });
    connect(txtBf, &QLineEdit::textChanged, txtBf, &QWidget::setToolTip);
}

void BackupGroup::reset() {
    attempt([&] { txtBf->setText(storedPath()); });
    cmdBk->setEnabled(canStart());
    showResult();
}

/// Of the copy that is under way, or of the last one to the stored path; then of the pictures.
void BackupGroup::showResult() {
    if (frame_.runBar.isAtWork()) return;  // the page is not in front; its next visit shows it
    BackupRun* const run = BackupRun::current();
    if (run != nullptr) connect(run, &BackupRun::ended, this, &BackupGroup::showResult, Qt::UniqueConnection);
    const QString script = textOfScript(backupScriptPath());
    QString path;
    attempt([&] { path = storedPath(); });
    const bool isItsScript = !path.isEmpty() && targetOfScript(script) == path;
    const QString copy = run != nullptr ? u"正在备份…"_s : isItsScript ? resultInScript(script) : QString();
    QString pictures;
    attempt([&] { pictures = proofText(proofState(mekTp::catalogue)); });
    lblBf->setText(copy.isEmpty() || pictures.isEmpty() ? copy + pictures : copy + u" · "_s + pictures);
    lblBf->setToolTip(lblBf->text());
}

bool BackupGroup::isEditing() const {
    return cmdBb->text() == pending;
}

bool BackupGroup::canStart() const {
    return isEditing() || (!txtBf->text().isEmpty() && fileExists(backupScriptPath()));
}

void BackupGroup::pathLeft() {
    if (isEditing()) txtBf->setText(completedBackupPath(txtBf->text()));
}

void BackupGroup::cmdBbClick() {
    if (isEditing())
        store();
    else
        startEditing();
}

void BackupGroup::startEditing() {
    txtBf->setLocked(false);
    txtBf->setFocus();
    cmdBb->setText(pending);
    cmdBk->setText(cancels);
    cmdBk->setEnabled(true);
    cmdBl->setEnabled(true);
}

void BackupGroup::store() {
    const QString path = txtBf->text();
    const QString fault = path.isEmpty() ? QString() : backupPathFault(path, mekTp::cataloguePath());
    if (!fault.isEmpty()) {
        say(frame_.form, fault);
        txtBf->setFocus();
        return;
    }
    if (!path.isEmpty() && !mayReplaceRestoreScript(path)) return;
    storeWithScripts(path);
    leaveEditing();
    cmdBl->setEnabled(false);
    showResult();
}

void BackupGroup::leaveEditing() {
    txtBf->setLocked(true);
    cmdBb->setText(atRest);
    cmdBk->setText(starts);
    cmdBk->setEnabled(canStart());
}

void BackupGroup::cmdBlClick() {
    const QString chosen = askFilePath(frame_.form, u"设置数据库备份路径"_s, u"MDB文件|*.mdb"_s, txtBf->text());
    if (!chosen.isEmpty()) txtBf->setText(chosen);
}

void BackupGroup::cmdBkClick() {
    if (isEditing())
        leaveEditing();
    else
        startBackup();
}

/// A backup that another copy of the program makes is not taken over without a word: its way back leads elsewhere.
bool BackupGroup::mayReplaceRestoreScript(const QString& path) {
    const QString other = foreignFolder(textOfScript(restoreScriptPath(path)), mekTp::cataloguePath());
    if (other.isEmpty()) return true;
    const int answer =
        choose(frame_.form,
               u"“%1”是“%2”中的图册数据库的备份。\n\n按“覆盖”，以后它是现在这个图册数据库的备份；按“另选路径”，另选一个"
               "备份路径；否则按“取消”。"_s.arg(path, other),
               {u"覆盖"_s, u"另选路径"_s, u"取消"_s}, 2, 2);
    if (answer == 1) {
        if (!isEditing()) startEditing();
        txtBf->setFocus();
        txtBf->selectAll();
    }
    return answer == 0;
}

void BackupGroup::startBackup() {
    if (!ask(frame_.form, u"如确实要备份数据库，请按“确定”按钮；否则按“取消”。"_s, BoxIcon::question,
             u"备份数据库？"_s))
        return;
    const QString path = storedPath(), fault = backupPathFault(path, mekTp::cataloguePath());
    if (!fault.isEmpty()) throw Error(fault);
    if (!mayReplaceRestoreScript(path)) return;
    if (BackupRun::current() != nullptr) throw Error(u"上一次备份还在进行，请等它完成。"_s);
    attempt([] { giveIdentity(mekTp::catalogue); });
    lastGoodBackup();  // what the script tells of it now, it forgets
    writeBackupScripts(placesOfBackup(path));
    BackupRun::start();
    showResult();
}
