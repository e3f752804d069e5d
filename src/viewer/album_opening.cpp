#include "viewer/album_opening.h"

#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "catalogue/picture_field.h"
#include "platform/base/error.h"
#include "viewer/filters.h"
#include "viewer/page_layout.h"
#include "viewer/settings_row.h"

using namespace Qt::Literals::StringLiterals;

namespace {
const QString presetTitle = u"演示"_s;
}  // namespace

AlbumOpening::AlbumOpening(ViewerState& state, ToolStrip& strip, StatusLine& status, ScreenPanel& screen,
                           ButtonPanel& buttons, Page& page, AlbumMenu& menu)
    : state_(state), strip_(strip), status_(status), screen_(screen), buttons_(buttons), page_(page), menu_(menu) {}

/// Opens an album: table, selection and buttons. Draws no page.
void AlbumOpening::dkxc(int index) {
    const bool isListed = index < menu_.mnuCd.size();
    state_.albumTitle = index == 0 || !isListed ? presetTitle : menu_.mnuCd[index]->text().replace(u"&&"_s, u"&"_s);
    uncheckAll();
    mekTp::currentTable = isListed ? tableAt(index) : demoTable;
    state_.forgetSelection();  // an album that does not open shows nothing of the one before
    if (isListed) menu_.mnuCd[index]->setChecked(true);
    buttons_.rewind();
    strip_.txtYh->setText(u"0"_s);
    buttons_.hideCursor();
    openSelection();
    buttons_.anxs();
    buttons_.putCursorOn(0);
    menu_.mnuXs->setEnabled(true);
    menu_.mnuTg->setEnabled(true);
    strip_.tlb1->setImage(u"dk"_s, u"hs"_s);
    strip_.tlb1->setToolTip(u"dk"_s, u"关闭像册"_s);
    storeSetting(u"当前像册"_s, mekTp::currentTable.mid(2));
}

// The row in the album's place counts when it bears the title: two albums may be called the same.
QString AlbumOpening::tableAt(int index) const {
    Recordset albums = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tcbm"_s);
    if (index < albums.rowCount()) {
        albums.moveToRow(index);
        if (albums.Fields(u"标题"_s).Value().textOr() == state_.albumTitle)
            return albums.Fields(u"表名"_s).Value().toText();
    }
    const Recordset titled =
        mekTp::catalogue.OpenRecordset(u"SELECT * FROM tcbm WHERE 标题 = "_s + quoted(state_.albumTitle));
    return titled.RecordCount() > 0 ? titled.Fields(u"表名"_s).Value().toText() : demoTable;
}

void AlbumOpening::uncheckAll() {
    for (QAction* item : menu_.mnuCd) item->setChecked(false);
}

void AlbumOpening::openSelection() {
    Recordset& album = state_.albumRecordset;
    album = mekTp::catalogue.OpenRecordset(u"SELECT * FROM "_s + mekTp::currentTable + u" ORDER BY [序号]"_s);
    state_.pictureCount = visitAll(album);
    state_.pageCount = pagesFor(state_.pictureCount, state_.picturesPerPage);
    state_.pageStatusText = u"全部"_s;
    status_.setPanel(
        2, u"%1(%2) 共 %3 张"_s.arg(state_.albumTitle, mekTp::currentTable, QString::number(state_.pictureCount)));
    status_.setPanel(3, state_.pageStatusText);
    page_.prepare();
}

void AlbumOpening::openTable(const QString& table) {
    Recordset albums = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tcbm"_s);
    albums.FindFirst(u"表名 = "_s + quoted(table));
    dkxc(albums.NoMatch() ? 0 : albums.row());
}

void AlbumOpening::close() {
    state_.forgetSelection();
    page_.leave();
    state_.albumTitle = presetTitle;
    mekTp::currentTable = demoTable;
    attempt([&] { buttons_.rewind(); });
    attempt([&] { buttons_.anxs(); });
    if (screen_.isViewing()) screen_.endView();
    screen_.cover();
    attempt([&] {
        Recordset settings = settingsRow();
        readPictureField(settings, u"封面"_s, *screen_.img0);
    });
    uncheckAll();
    menu_.mnuXs->setEnabled(false);
    menu_.mnuTg->setEnabled(false);
    strip_.tlb1->setImage(u"dk"_s, u"dk"_s);
    strip_.tlb1->setToolTip(u"dk"_s, u"打开像册"_s);
    status_.setPanel(2, u"未打开图册"_s);
    status_.setPanel(3, {});
    storeSetting(u"当前像册"_s, QString());
}
