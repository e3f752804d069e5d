#include "settings/backup_group.h"

#include "catalogue/mektp.h"
#include "intake/settings_tab.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/base/processes.h"
#include "platform/desktop/file_dialogs.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/tab_control.h"
#include "platform/desktop/text_box.h"
#include "settings/backup_files.h"
#include "settings/form_parts.h"

#include <QPushButton>

using namespace Qt::Literals::StringLiterals;

namespace {
const QString atRest = u"编 辑"_s;
const QString pending = u"保 存"_s;
const QString starts = u"开始备份"_s;
const QString cancels = u"撤 消"_s;
const QString pathColumn = u"备份路径"_s;

void storePath(const QString& path) {
    Recordset settings = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tcsz"_s);
    settings.MoveFirst();
    settings.Edit();
    settings.Fields(pathColumn).SetValue(path);
    settings.Update();
}

/// Path and scripts go together: scripts that cannot be written leave the stored path as it was.
void storeWithScripts(const QString& path) {
    Transaction transaction(mekTp::catalogue);
    storePath(path);
    if (!path.isEmpty())
        writeBackupScripts(placesOfBackup(path));
    else if (fileExists(backupScriptPath()))
        Kill(backupScriptPath());
    transaction.commit();
}
}  // namespace

BackupGroup::BackupGroup(SharedControls& controls) : controls_(controls) {
    auto* Frame3 = makeGroup(controls.sstFz, setupTab, u"Frame3"_s, u"图册备份设置"_s, {5070, 5520, 4350, 1140});
    txtBf = makeLabelled<TextBox>(Frame3, u"txtBf"_s, u"备份路径："_s, {150, rowTop(0)}, 900, 3150);
    cmdBb = makeButton(Frame3, u"cmdBb"_s, atRest, 1050, rowTop(1));
    cmdBk = makeButton(Frame3, u"cmdBk"_s, starts, 2125, rowTop(1));
    cmdBl = makeButton(Frame3, u"cmdBl"_s, u"浏 览"_s, 3200, rowTop(1));
    txtBf->setLocked(true);
    cmdBl->setEnabled(false);

    const auto run = [&](auto slot) { return guarded(controls.form, [this, slot] { (this->*slot)(); }); };
    connect(cmdBb, &QPushButton::clicked, this, run(&BackupGroup::cmdBbClick));
    connect(cmdBk, &QPushButton::clicked, this, run(&BackupGroup::cmdBkClick));
    connect(cmdBl, &QPushButton::clicked, this, run(&BackupGroup::cmdBlClick));
    connect(txtBf, &TextBox::lostFocus, this, [this] { pathLeft(); });
    connect(txtBf, &QLineEdit::textChanged, txtBf, &QWidget::setToolTip);
}

void BackupGroup::reset() {
    attempt([&] {
        const Recordset settings = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tcsz"_s);
        txtBf->setText(settings.Fields(pathColumn).Value().textOr());
    });
    cmdBk->setEnabled(canStart());
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
        say(controls_.form, fault);
        txtBf->setFocus();
        return;
    }
    storeWithScripts(path);
    leaveEditing();
    cmdBl->setEnabled(false);
}

void BackupGroup::leaveEditing() {
    txtBf->setLocked(true);
    cmdBb->setText(atRest);
    cmdBk->setText(starts);
    cmdBk->setEnabled(canStart());
}

void BackupGroup::cmdBlClick() {
    const QString chosen = askFilePath(controls_.form, u"设置数据库备份路径"_s, u"MDB文件|*.mdb"_s, txtBf->text());
    if (!chosen.isEmpty()) txtBf->setText(chosen);
}

void BackupGroup::cmdBkClick() {
    if (isEditing())
        leaveEditing();
    else
        startBackup();
}

void BackupGroup::startBackup() {
    if (!ask(controls_.form, u"如确实要备份数据库，请按“确定”按钮；否则按“取消”。"_s, BoxIcon::question,
             u"备份数据库？"_s))
        return;
    const QString script = backupScriptPath();
    if (!fileExists(script)) throw Error(u"备份脚本“%1”不存在，请重新编辑并保存备份路径。"_s.arg(script));
    Shell(u"/bin/sh"_s, {script});
}
