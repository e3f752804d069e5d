#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "catalogue/settings_row.h"
#include "platform/base/error.h"
#include "viewer/frm_tp.h"

using namespace Qt::Literals::StringLiterals;

// Opening and closing of albums. Writes `当前像册`.

void frmTp::dkxc(int index) {
    const bool isListed = index < menu_->count();
    const QString title = index == 0 || !isListed ? presetTitle : menu_->title(index);
    screen_->drawCurtain();
    showNothingOpen();  // if the album does not open, nothing of the one before may stay
    Recordset albums = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tcbm"_s);
    albums.FindFirst(isListed ? u"标题 = "_s + quoted(title) : u"表名 = "_s + quoted(demoTable));
    const bool isFound = !albums.NoMatch();
    buttons_->rewind();
    strip_->showPage(u"0"_s);
    buttons_->hideCursor();
    openSelection(isFound ? albums.Fields(u"表名"_s).Value().toText() : demoTable, title);
    buttons_->anxs();
    buttons_->putCursorOn(0);
    // Of two albums with the same title the first opens, whichever was chosen.
    menu_->showOpen(isFound ? albums.row() : index);
    mnuXs->setEnabled(true);
    albumIsOpen_ = true;
    strip_->showAlbumKey(true, u"关闭像册"_s);
    storeSetting(u"当前像册"_s, mekTp::currentTable.mid(2));
}

void frmTp::openSelection(const QString& table, const QString& title) {
    selection_.open(table, title);
    status_->showAlbum(title, u"(%1) 共 %2 张"_s.arg(table, QString::number(selection_.count())));
    status_->showPage(selection_.line());
    page_->prepare();
}

void frmTp::openTable(const QString& table) {
    Recordset albums = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tcbm"_s);
    albums.FindFirst(u"表名 = "_s + quoted(table));
    dkxc(albums.NoMatch() ? 0 : albums.row());
}

void frmTp::showNothingOpen() {
    selection_.close();
    page_->leave();
    menu_->showOpen(-1);
    mnuXs->setEnabled(false);
    albumIsOpen_ = false;
    strip_->showAlbumKey(false, u"打开像册"_s);
    status_->showAlbum(u"未打开图册"_s, {});
    status_->showPage({});
}

void frmTp::closeAlbum() {
    showNothingOpen();
    attempt([&] { buttons_->rewind(); });
    attempt([&] { buttons_->anxs(); });
    if (screen_->isViewing()) screen_->endView();
    screen_->cover();
    attempt([&] { screen_->loadCover(); });
    storeSetting(u"当前像册"_s, QString());
}

/// The open album may hold more pictures now, and there may be more albums and buttons.
void frmTp::showRestored() {
    const bool wasShown = page_->isShown();
    fillAlbumMenu();
    if (!albumIsOpen_) return;
    openTable(QString(mekTp::currentTable));
    if (wasShown) page_->xstp();
}

void frmTp::listAlbums() {
    QStringList lines;
    attempt([&] {
        Recordset albums = mekTp::catalogue.OpenRecordset(u"tcbm"_s);
        for (; !albums.Eof(); albums.MoveNext()) lines << u' ' + albums.Fields(u"标题"_s).Value().textOr();
    });
    const int rows = int(lines.size());
    lines << u" 演 示"_s;
    lstLs->open(u"图册"_s, lines, 150, 1500, rows * 180 + 270, [this](int index) {
        dkxc(index);
        strip_->showAlbumKey(true, u"合上像册"_s);
    });
    lstLs->takeKeys();
    selection_.setDay({});
}
