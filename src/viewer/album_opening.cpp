#include "viewer/album_opening.h"

#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "catalogue/picture_field.h"
#include "platform/base/error.h"
#include "viewer/filters.h"
#include "viewer/page_layout.h"
#include "viewer/settings_row.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {
const QString presetTitle = u"演示"_s;
}  // namespace

QStringList tipsOfEqualTitles(const QStringList& titles, const QStringList& tables) {
    QStringList tips;
    for (qsizetype i = 0; i < titles.size(); ++i) {
        const auto isEqual = [&](const QString& other) { return other.compare(titles[i], Qt::CaseInsensitive) == 0; };
        const auto first = std::ranges::find_if(titles, isEqual) - titles.begin();
        if (std::ranges::count_if(titles, isEqual) == 1)
            tips << QString();
        else
            tips << (first == i ? tables[i] : u"%1（标题与 %2 相同，打开的是 %2）"_s.arg(tables[i], tables[first]));
    }
    return tips;
}

AlbumOpening::AlbumOpening(ViewerState& state, ToolStrip& strip, StatusLine& status, ScreenPanel& screen,
                           ButtonPanel& buttons, Page& page, AlbumMenu& menu)
    : state_(state), strip_(strip), status_(status), screen_(screen), buttons_(buttons), page_(page), menu_(menu) {}

/// Opens an album: table, selection and buttons. Draws no page: the curtain lies over that of the album before.
void AlbumOpening::dkxc(int index) {
    const bool isListed = index < menu_.mnuCd.size();
    const QString title = index == 0 || !isListed ? presetTitle : menu_.mnuCd[index]->text().replace(u"&&"_s, u"&"_s);
    screen_.drawCurtain();
    showNothingOpen();  // an album that does not open leaves nothing of the one before
    Recordset albums = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tcbm"_s);
    albums.FindFirst(isListed ? u"标题 = "_s + quoted(title) : u"表名 = "_s + quoted(demoTable));
    const bool isFound = !albums.NoMatch();
    buttons_.rewind();
    strip_.txtYh->setText(u"0"_s);
    buttons_.hideCursor();
    openSelection(isFound ? albums.Fields(u"表名"_s).Value().toText() : demoTable, title);
    // Of two albums with one title the first opens, whichever was chosen.
    const int opened = isFound ? albums.row() : index;
    if (opened < menu_.mnuCd.size()) menu_.mnuCd[opened]->setChecked(true);
    buttons_.anxs();
    buttons_.putCursorOn(0);
    menu_.mnuXs->setEnabled(true);
    menu_.mnuTg->setEnabled(true);
    strip_.tlb1->setImage(u"dk"_s, u"hs"_s);
    strip_.tlb1->setToolTip(u"dk"_s, u"关闭像册"_s);
    storeSetting(u"当前像册"_s, mekTp::currentTable.mid(2));
}

void AlbumOpening::uncheckAll() {
    for (QAction* item : menu_.mnuCd) item->setChecked(false);
}

void AlbumOpening::openSelection(const QString& table, const QString& title) {
    Recordset album = mekTp::catalogue.OpenRecordset(u"SELECT * FROM "_s + table + u" ORDER BY [序号]"_s);
    mekTp::currentTable = table;
    state_.albumTitle = title;
    state_.pictureCount = visitAll(album);
    state_.albumRecordset = std::move(album);
    state_.pageCount = pagesFor(state_.pictureCount, state_.picturesPerPage);
    state_.pageStatusText = u"全部"_s;
    status_.setAlbumLine(title, u"(%1) 共 %2 张"_s.arg(table, QString::number(state_.pictureCount)));
    status_.setPanel(3, state_.pageStatusText);
    page_.prepare();
}

void AlbumOpening::openTable(const QString& table) {
    Recordset albums = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tcbm"_s);
    albums.FindFirst(u"表名 = "_s + quoted(table));
    dkxc(albums.NoMatch() ? 0 : albums.row());
}

void AlbumOpening::showNothingOpen() {
    state_.forgetSelection();
    page_.leave();
    state_.albumTitle = presetTitle;
    mekTp::currentTable = demoTable;
    uncheckAll();
    menu_.mnuXs->setEnabled(false);
    menu_.mnuTg->setEnabled(false);
    strip_.tlb1->setImage(u"dk"_s, u"dk"_s);
    strip_.tlb1->setToolTip(u"dk"_s, u"打开像册"_s);
    status_.setPanel(2, u"未打开图册"_s);
    status_.setPanel(3, {});
}

void AlbumOpening::close() {
    showNothingOpen();
    attempt([&] { buttons_.rewind(); });
    attempt([&] { buttons_.anxs(); });
    if (screen_.isViewing()) screen_.endView();
    screen_.cover();
    attempt([&] {
        Recordset settings = settingsRow();
        readPictureField(settings, u"封面"_s, *screen_.img0);
    });
    storeSetting(u"当前像册"_s, QString());
}
