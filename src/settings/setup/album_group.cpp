#include "settings/setup/album_group.h"

#include "catalogue/album_directory.h"
#include "catalogue/album_rules.h"
#include "catalogue/album_tables.h"
#include "catalogue/mektp.h"
#include "platform/base/error.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/text_box.h"
#include "settings/frame/album_lines.h"
#include "settings/frame/form_parts.h"

#include <QPushButton>

using namespace Qt::Literals::StringLiterals;

namespace {
const QString atRest = u"编 辑"_s;
const QString pending = u"确 定"_s;
const QString deletes = u"删 除"_s;
const QString cancels = u"撤 消"_s;
}  // namespace

AlbumGroup::AlbumGroup(const SettingsFrame& frame) : frame_(frame) {
    auto* fra3 = makeGroup(frame.sstFz, setupTab, u"fra3"_s, u"分图册设置"_s, {5070, 2355, 4350, 1920}, rightColumn);
    cboFc = makeLabelled<QComboBox>(fra3, u"cboFc"_s, u"分图册选择："_s, {150, rowTop(0)}, 1100, 2950, widens);
    txtXc = makeLabelled<TextBox>(fra3, u"txtXc"_s, u"序号："_s, {150, rowTop(1)}, 600, 650);
    txtBc = makeLabelled<TextBox>(fra3, u"txtBc"_s, u"表名："_s, {1500, rowTop(1)}, 600, 950);
    txtTc = makeLabelled<TextBox>(fra3, u"txtTc"_s, u"标题："_s, {150, rowTop(2)}, 600, 2300, widens);
    txt1c = makeLabelled<TextBox>(fra3, u"txt1c"_s, u"备注："_s, {150, rowTop(3)}, 600, 2300, widens);
    cmdFc = makeButton(fra3, u"cmdFc"_s, atRest, 3200, rowTop(2));
    cmdFs = makeButton(fra3, u"cmdFs"_s, deletes, 3200, rowTop(3));

    for (TextBox* box : {txtXc, txtBc, txtTc}) makeDisplayOnly(box);
    showNone();

    connect(cboFc, &QComboBox::activated, this, [this] { cboFcClick(); });
    connect(cmdFc, &QPushButton::clicked, this, guarded(frame.form, [this] { cmdFcClick(); }));
    connect(cmdFs, &QPushButton::clicked, this, guarded(frame.form, [this] { cmdFsClick(); }));
}

void AlbumGroup::reset() {
    endEditing();
    showNone();
    limitTyping(txt1c, mekTp::catalogue.OpenRecordset(u"tcbm"_s), u"备注"_s);
    fillAlbumLines(*cboFc, mekTp::catalogue);
}

void AlbumGroup::addLine(const QString& line) {
    addAlbumLine(*cboFc, line);
}

void AlbumGroup::addMissing() {
    addMissingAlbumLines(*cboFc, mekTp::catalogue);
}

void AlbumGroup::removeLine(const QString& table) {
    removeAlbumLine(*cboFc, table);
    if (txtBc->text() != table) return;
    leaveEditing();
    showNone();
}

QString AlbumGroup::chosenTable() const {
    return tableOfLine(cboFc->currentText());
}

bool AlbumGroup::isEditing() const {
    return cmdFs->text() == cancels;
}

void AlbumGroup::show(const Album& album) {
    remark_ = album.remark;
    txtXc->setText(album.number);
    txtBc->setText(album.table);
    txtTc->setText(album.title);
    txt1c->setText(album.remark);
}

void AlbumGroup::showNone() {
    for (TextBox* box : {txtXc, txtBc, txtTc, txt1c}) box->clear();
    cmdFc->setEnabled(false);
    cmdFs->setEnabled(false);
}

void AlbumGroup::cboFcClick() {
    const QString table = txtBc->text();
    if (chosenTable() == table || mayLeave())
        attempt([&] { showRowOf(chosenTable()); });
    else
        chooseAlbumLine(*cboFc, table);
}

bool AlbumGroup::mayLeave() {
    if (!isEditing() || txt1c->text() == remark_) return true;
    return mayBeLeft(frame_.form, u"图册 %1 的备注改过，还没有保存。"_s.arg(txtBc->text()),
                     [this] { return storeEdited(); });
}

/// Shows an album's row of the directory; without one there is nothing to edit.
void AlbumGroup::showRowOf(const QString& table) {
    const auto album = findAlbum(mekTp::catalogue, table);
    if (!album) {
        leaveEditing();
        showNone();
        return;
    }
    show(*album);
    enableButtons();
}

void AlbumGroup::enableButtons() {
    // While the remark is edited, both ways out stay open whichever album is looked at.
    const bool changeable = isEditing() || (!txtBc->text().isEmpty() && !isDemo(txtBc->text()));
    cmdFc->setEnabled(changeable);
    cmdFs->setEnabled(changeable);
}

void AlbumGroup::cmdFcClick() {
    if (isEditing())
        storeEdited();
    else
        startEditing();
}

void AlbumGroup::startEditing() {
    txt1c->setLocked(false);
    txt1c->setFocus();
    cmdFc->setText(pending);
    cmdFs->setText(cancels);
    frame_.work.begin();
}

/// False when the remark was refused; it stays in its box.
bool AlbumGroup::storeEdited() {
    if (isDemo(txtBc->text())) {
        say(frame_.form, onlyForShow);
        return false;
    }
    if (const QString fault = lengthFault(u"备注"_s, *txt1c); !fault.isEmpty()) {
        say(frame_.form, fault);
        txt1c->setFocus();
        return false;
    }
    storeRemark(mekTp::catalogue, txtBc->text(), txt1c->text());
    leaveEditing();
    return true;
}

void AlbumGroup::leaveEditing() {
    if (!isEditing()) return;
    endEditing();
    frame_.work.end();
}

void AlbumGroup::endEditing() {
    txt1c->setLocked(true);
    cmdFc->setText(atRest);
    cmdFs->setText(deletes);
    enableButtons();
}

void AlbumGroup::cmdFsClick() {
    if (isEditing())
        cancelEditing();
    else
        deleteShown();
}

void AlbumGroup::cancelEditing() {
    showRowOf(txtBc->text());
    leaveEditing();
}

void AlbumGroup::deleteShown() {
    const QString table = txtBc->text();
    const Album album{txtXc->text(), table, txtTc->text(), txt1c->text()};
    if (!askBeforeDeleting(frame_.form, u"    删除["_s + table +
                                            u"]像册数据表吗？\n\n如果“是”，按《确定》；否则按《取消》。\n\n"_s +
                                            albumContents(mekTp::catalogue, album)))
        return;
    deleteAlbum(mekTp::catalogue, table);
    removeLine(table);
    frame_.grid.listAgain();
    say(frame_.form, u"当前["_s + table + u"]像册数据表已经删除！"_s);
    frame_.bin.look();
}
