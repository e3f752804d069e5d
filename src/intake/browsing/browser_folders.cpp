// The part of the browsing panel that makes and deletes folders.

#include "intake/browsing/browser_panel.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/desktop/file_lists.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/text_box.h"

#include <QLabel>
#include <QPushButton>

using namespace Qt::Literals::StringLiterals;

void BrowserPanel::cmdMjClick() {
    if (cmdMj_->text() == u"新建文件夹"_s) {
        lblJm_->show();
        txtJm_->show();
        txtJm_->setFocus();
        cmdMj_->setText(u"新建确定"_s);
        cmdMs_->setText(u"新建撤消"_s);
        frame_.hints.czts(10);
        flow_.goTo(5);
        return;
    }
    if (txtJm_->text().isEmpty()) {
        say(frame_.form, u"请填写文件夹名称！"_s);
        txtJm_->setFocus();
        return;
    }
    makeFolder(joinedPath(txtMl_->text(), txtJm_->text()));
    endNaming();
    frame_.hints.czts(4);
}

void BrowserPanel::makeFolder(const QString& path) {
    if (folderExists(path)) {
        say(frame_.form, u"[%1]文件夹已存在，不能建立！"_s.arg(path));
        return;
    }
    if (!ask(frame_.form, u"如果确认建立[%1]文件夹，\n\n请按“确定”按钮；否则按“取消”。"_s.arg(path))) return;
    MkDir(path);
    dir1_->refresh();
    cmdMj_->setText(u"新建文件夹"_s);
    say(frame_.form, u"[%1]文件夹已建立！"_s.arg(path));
}

void BrowserPanel::cmdMsClick() {
    if (cmdMs_->text() == u"删除文件夹"_s) {
        deleteFolder(txtMl_->text());
        return;
    }
    endNaming();
    frame_.hints.czts(4);
}

void BrowserPanel::deleteFolder(const QString& path) {
    const bool deleted = ask(frame_.form, u"如果要删除[%1]文件夹，\n\n   请按“确定”；否则按“取消”。"_s.arg(path),
                             BoxIcon::question, u"删除文件夹确认"_s) &&
                         attempt([&] { RmDir(path); });
    if (!deleted) {
        say(frame_.form, u"不能删除此文件夹（目录），可能其中有文件。"_s);
        return;
    }
    say(frame_.form, u"[%1]文件夹（目录）已删除。"_s.arg(path));
    dir1_->refresh();
}

void BrowserPanel::endNaming() {
    txtJm_->clear();
    txtJm_->hide();
    lblJm_->hide();
    cmdMj_->setText(u"新建文件夹"_s);
    cmdMs_->setText(u"删除文件夹"_s);
}
