#include "settings/setup/new_album_group.h"

#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "platform/base/error.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/text_box.h"
#include "settings/frame/form_parts.h"
#include "settings/setup/all_pictures_button.h"

#include <QPushButton>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {
const QString atRest = u"开 始"_s;
const QString pending = u"确 定"_s;
}  // namespace

NewAlbumGroup::NewAlbumGroup(const SettingsFrame& frame) : frame_(frame) {
    auto* Frame2 = makeGroup(frame.sstFz, setupTab, u"Frame2"_s, u"建立新图册"_s, {5070, 780, 4350, 1530}, rightColumn);
    lblXh = makeLabelled<QLabel>(Frame2, u"lblXh"_s, u"序号："_s, {150, rowTop(0)}, 600, 700);
    txtBa = makeLabelled<TextBox>(Frame2, u"txtBa"_s, u"表名："_s, {1500, rowTop(0)}, 600, 950);
    txtBb = makeLabelled<TextBox>(Frame2, u"txtBb"_s, u"标题："_s, {150, rowTop(1)}, 600, 2300, widens);
    txtBz = makeLabelled<TextBox>(Frame2, u"txtBz"_s, u"备注："_s, {150, rowTop(2)}, 600, 2300, widens);
    cmdJl = makeButton(Frame2, u"cmdJl"_s, atRest, 3200, rowTop(1));
    cmdSx = makeButton(Frame2, u"cmdSx"_s, u"撤 消"_s, 3200, rowTop(2));

    txtBa->setAttribute(Qt::WA_InputMethodEnabled, false);
    txtBz->setLocked(true);
    cmdSx->setEnabled(false);

    connect(cmdJl, &QPushButton::clicked, this, guarded(frame.form, [this] { cmdJlClick(); }));
    connect(cmdSx, &QPushButton::clicked, this, guarded(frame.form, [this] { cmdSxClick(); }));
    connect(txtBa, &TextBox::lostFocus, this, [this] {
        // The focus is still on its way; a box opened now would swallow the click that moved it.
        nameToCheck_ = true;
        QMetaObject::invokeMethod(this, guarded(frame_.form, [this] { nameLeft(); }), Qt::QueuedConnection);
    });
}

void NewAlbumGroup::reset() {
    emptyBoxes();
    txtBz->clear();
    txtBz->setLocked(true);
    cmdJl->setText(atRest);
    attempt([&] {
        const Recordset albums = mekTp::catalogue.OpenRecordset(u"tcbm"_s);
        limitTyping(txtBa, albums, u"表名"_s);
        limitTyping(txtBb, albums, u"标题"_s);
        limitTyping(txtBz, albums, u"备注"_s);
    });
}

bool NewAlbumGroup::hasProposal() const {
    return cmdJl->text() == pending;
}

void NewAlbumGroup::emptyBoxes() {
    lblXh->clear();
    for (TextBox* box : {txtBa, txtBb}) box->clear();
    createdTable_.clear();
    nameToCheck_ = false;
}

void NewAlbumGroup::cmdJlClick() {
    if (hasProposal())
        create();
    else
        propose();
}

void NewAlbumGroup::propose() {
    proposed_ = proposedAlbum(mekTp::catalogue);
    createdTable_.clear();
    lblXh->setText(proposed_.number);
    txtBa->setText(proposed_.table);
    txtBb->setText(proposed_.title);
    txtBz->setLocked(false);
    txtBz->setFocus();
    cmdJl->setText(pending);
    cmdSx->setEnabled(true);
    frame_.work.begin();
}

Album NewAlbumGroup::typed() const {
    return {lblXh->text(), txtBa->text(), txtBb->text(), txtBz->text()};
}

bool NewAlbumGroup::mayLeave() {
    const Album album = typed();
    if (!hasProposal() || (album.table == proposed_.table && album.title == proposed_.title && album.remark.isEmpty()))
        return true;
    return mayBeLeft(frame_.form, u"新图册“%1”还没有建立。"_s.arg(album.title), [this] { return create(); });
}

std::pair<QString, TextBox*> NewAlbumGroup::faultOf(const Album& album) const {
    if (const QString fault = tableNameFault(album.table); !fault.isEmpty()) return {fault, txtBa};
    if (!titleFits(album.title)) return {titleFault(album.title), txtBb};
    if (const auto owner = findTitle(mekTp::catalogue, album.title)) return {titleInUse(*owner), txtBb};
    return {lengthFault(u"备注"_s, *txtBz), txtBz};
}

/// False when the album was not made; the proposal stands.
bool NewAlbumGroup::create() {
    const Album album = typed();
    if (!nameIsFree()) return false;
    if (const auto [fault, box] = faultOf(album); !fault.isEmpty()) {
        say(frame_.form, fault);
        box->setFocus();
        return false;
    }
    if (!hasAllPicturesButton(mekTp::catalogue)) {
        if (!ask(frame_.form, allPicturesMissing)) return false;
        putBackAllPicturesButton(mekTp::catalogue);
    }
    createAlbum(mekTp::catalogue, album);
    createdTable_ = album.table;
    cmdJl->setText(atRest);
    txtBz->setLocked(true);
    frame_.work.end();
    Q_EMIT created(albumLine(album.table, album.title));
    frame_.grid.listAgain();
    say(frame_.form, u"新的像册数据表建立完成！"_s);
    return true;
}

void NewAlbumGroup::cmdSxClick() {
    if (hasProposal())
        dropProposal();
    else
        undoCreation();
}

void NewAlbumGroup::dropProposal() {
    reset();
    frame_.work.end();
}

void NewAlbumGroup::undoCreation() {
    // The boxes can be written over, and several albums may bear the same number: only the album made here goes.
    const QString table = createdTable_;
    const auto album = table.isEmpty() ? std::nullopt : findAlbum(mekTp::catalogue, table);
    if (album) {
        const QString question = u"撤消（删除）刚才建立的图册数据表吗？\n\n如果是按《确定》；否则按《取消》。"_s;
        if (!askBeforeDeleting(frame_.form, question + u"\n\n"_s + albumContents(mekTp::catalogue, *album))) return;
        undoAlbum(mekTp::catalogue, table);
        Q_EMIT undone(table);
        say(frame_.form, u"刚才建立的图册数据表已经删除！"_s);
        frame_.bin.look();
    }
    emptyBoxes();
    cmdJl->setText(atRest);
    cmdSx->setEnabled(false);
}

// The name is tested when the focus leaves it. An album just created keeps its name in the box, and whoever takes the
// whole proposal back need not mend its name first.
void NewAlbumGroup::nameLeft() {
    const bool stillToCheck = std::exchange(nameToCheck_, false);
    if (!stillToCheck || !txtBa->isVisible() || txtBa->hasFocus() || cmdSx->hasFocus()) return;
    if (!createdTable_.isEmpty() && txtBa->text() == createdTable_) return;
    nameIsFree();
}

bool NewAlbumGroup::nameIsFree() {
    nameToCheck_ = false;
    if (!findAlbum(mekTp::catalogue, txtBa->text())) return true;
    say(frame_.form, u"表名重复，请重新输入！"_s);
    txtBa->setFocus();
    return false;
}
