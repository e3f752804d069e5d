#include "editor/album_chooser.h"

#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "catalogue/picture_field.h"
#include "editor/chooser_places.h"
#include "editor/floating_panel.h"
#include "platform/base/error.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/message_box.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using namespace chooserPlaces;

namespace {

constexpr int panelLeft = 30, panelWidth = 9430;
constexpr int panelHeight = 6360;  ///< Without the tool bar; the grid ends inside it.
constexpr int topAlone = 200;      ///< Without the tool bar.
constexpr int gridTop = 690, gridHeight = 5610;

const auto recordHeadings = u"序号|编号|^  大  小  |^  规  格  |^    日      期    |^    备        注    "_s;

QString recordsOf(const QString& table) {
    return u"SELECT * FROM "_s + table + u" ORDER BY [序号]"_s;
}

}  // namespace

AlbumChooser::AlbumChooser(const Workplace& at, Grid* msgBm, std::function<bool()> mayGo)
    : Chapter(at), mayGo_(std::move(mayGo)), msgBm_(msgBm) {
    datBj_ = make<DataControl>(form_, u"datBj"_s);
    datBj_->hide();
    datBj_->useDatabase(mekTp::catalogue);
    datBj_->setDatabaseName(mekTp::cataloguePath());
    picCs_ = make<Surface>(form_, u"picCs"_s);
    dressAsPanel(picCs_);
    makeChoice();
    buttons_ = new ChooserButtons(picCs_);
    preview_ = new ChooserPreview(picCs_);
    makeEnd();
    connectControls();
    connectCommands();
}

void AlbumChooser::makeChoice() {
    QLabel* lblXc = makeLabel(picCs_, u"lblXc"_s, u"选择图册："_s, 150, 300, 975);
    cboBm_ = make<QComboBox>(picCs_, u"cboBm"_s);
    cboBm_->setAccessibleName(u"图册"_s);
    cboBm_->setPlaceholderText(u"（请选择）"_s);
    place(cboBm_, 1125, 285, 2880, 330);
    lblXc->setBuddy(cboBm_);
    msgBm_->setParent(picCs_);
    msgBm_->setAccessibleName(u"图册的图片"_s);
}

void AlbumChooser::makeEnd() {
    const int bottom = previewTop + previewHeight + 330;
    lblJ1_ = makeLabel(picCs_, u"lblJ1"_s, {}, rightColumn, bottom + 15, 2700);
    cmdQd_ = make<QPushButton>(picCs_, u"cmdQd"_s);
    cmdQd_->setText(u"确 定"_s);
    cmdQd_->setEnabled(false);
    place(cmdQd_, rightColumn + 2880, bottom, 1020, 345);
    cmdQx_ = make<QPushButton>(picCs_, u"cmdQx"_s);
    cmdQx_->setText(u"取 消"_s);
    place(cmdQx_, rightColumn + 3990, bottom, 1020, 345);
}

void AlbumChooser::connectControls() {
    connect(cboBm_, &QComboBox::activated, this, guarded(picCs_, [this] { cboBmClick(); }));
    connect(msgBm_, &Grid::rowActivated, this, guarded(picCs_, [this] {
                if (msgBm_->parent() == picCs_) cmdQdClick();
            }));
    connect(datBj_, &DataControl::repositioned, this, guarded(picCs_, [this] { showRecord(); }));
    connect(buttons_, &ChooserButtons::chosen, this, &AlbumChooser::filter);
    connect(cmdQd_, &QPushButton::clicked, this, guarded(picCs_, [this] { cmdQdClick(); }));
    connect(cmdQx_, &QPushButton::clicked, this, guarded(picCs_, [this] { cmdQxClick(); }));
}

void AlbumChooser::connectCommands() {
    commands_.onCommand(u"sk"_s, [this] { mnuCsClick(); });
    for (const auto& [key, step] :
         {std::pair(u"ty"_s, Step::first), {u"sy"_s, Step::previous}, {u"xy"_s, Step::next}, {u"hy"_s, Step::last}})
        commands_.onCommand(key, [this, step = step] { tpqh(step); });
}

void AlbumChooser::load() {
    cboBm_->clear();
    attempt([&] {
        Recordset albums = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tcbm WHERE LCase(表名) <> 'tc00'"_s);
        for (; !albums.Eof(); albums.MoveNext())
            cboBm_->addItem(
                albumLine(albums.Fields(u"表名"_s).Value().textOr(), albums.Fields(u"标题"_s).Value().textOr()));
    });
    cboBm_->setCurrentIndex(-1);
    datBj_->setRecordSource(recordsOf(mekTp::currentTable));
    attempt([&] { datBj_->Refresh(); });
}

// ----------------------------------------------------------------------------------------------- opening, leaving

/// What is behind the chooser cannot be worked on.
void AlbumChooser::mnuCsClick() {
    if (!mayGo_()) return;
    document_.keep();
    const int toolbar = view_.toolbarHeight();
    place(picCs_, panelLeft, toolbar == 0 ? topAlone : toolbar + 60, panelWidth, panelHeight - toolbar);
    view_.makeWayForChooser();
    takeGrid();
    view_.hint().tscz(u"k0"_s);
    Q_EMIT opens();
    picCs_->show();
    commands_.showNothingOpen();
    attempt([&] { document_.clearSteps(); });
    showPresent();
}

void AlbumChooser::takeGrid() {
    msgBm_->setParent(picCs_);
    msgBm_->bind(datBj_);
    msgBm_->setFormatString(recordHeadings);
    place(msgBm_, 150, gridTop, 3855, gridHeight - view_.toolbarHeight() - mekTp::titleBarExtra);
    msgBm_->setEnabled(!cboBm_->currentText().isEmpty());
    msgBm_->show();
}

/// The list as it was left.
void AlbumChooser::showPresent() {
    if (datBj_->total() > 0) attempt([&] { datBj_->moveToRow(std::max(datBj_->Recordset().row(), 0)); });
    if (cboBm_->count() == 0)
        preview_->explain(
            u"还没有自己的图册。\n\n请先“返回”主窗口，用菜单“录入设置”打开设置窗口，在“图册设置”页的“建立新图册”里新建一本，再录入图片。"_s);
    (msgBm_->isEnabled() ? static_cast<QWidget*>(msgBm_) : cboBm_)->setFocus();
}

/// The window is the chooser's now, whatever picture is behind it.
void AlbumChooser::followToolBar() {
    const int toolbar = view_.toolbarHeight();
    place(picCs_, leftOf(picCs_), toolbar == 0 ? topAlone : toolbar);
    view_.showBar();
}

void AlbumChooser::hide() {
    if (isOpen()) form_->setFocus();
    picCs_->hide();
}

void AlbumChooser::cmdQxClick() {
    hide();
    document_.close();
}

// ------------------------------------------------------------------------------------------------ records and preview

void AlbumChooser::cboBmClick() {
    const Hourglass hourglass(cboBm_);
    albumTable_ = tableOfLine(cboBm_->currentText());
    lblJ1_->clear();
    list(recordsOf(albumTable_));
    if (datBj_->total() > 0) attempt([&] { buttons_->bhan(albumTable_); });
    msgBm_->setEnabled(true);
    msgBm_->setFormatString(recordHeadings);
}

void AlbumChooser::filter(const QString& code, const QString& name) {
    QString source = u"SELECT * FROM "_s + albumTable_;
    if (code != allPicturesCode) source += whereCode(code) + u" ORDER BY [序号]"_s;
    list(source);
    lblJ1_->setText(u"编号=["_s + code + u"]("_s + name + u") 共有"_s + QString::number(datBj_->total()) + u"张"_s);
}

/// Lists records; of the first one the preview shows.
void AlbumChooser::list(const QString& source) {
    datBj_->setRecordSource(source);
    attempt([&] { datBj_->Refresh(); });
    cmdQd_->setEnabled(datBj_->total() > 0);
    if (datBj_->total() == 0) explainEmptyList();
}

void AlbumChooser::explainEmptyList() {
    const QString album = u"图册“"_s + titleOfLine(cboBm_->currentText()) + u"”"_s;
    if (datBj_->Recordset().isNothing())
        preview_->explain(album + u"不能打开：它的表已经不在像册里，或者损坏了。"_s);
    else if (datBj_->RecordSource().contains(u" WHERE "_s))
        preview_->explain(album + u"里没有带这个编号的图片。"_s);
    else
        preview_->explain(album + u"里还没有图片。\n\n请另选一本，或者先在“录入设置”里录入图片。"_s);
}

void AlbumChooser::showRecord() {
    if (!isOpen() || cboBm_->currentText().isEmpty() || datBj_->total() == 0) return;
    Recordset& record = datBj_->Recordset();
    if (record.row() < 0) return;
    attempt([&] { preview_->show(record, titleOfLine(cboBm_->currentText())); });
    cmdQd_->setEnabled(true);
}

/// Takes the picture of the current record.
void AlbumChooser::cmdQdClick() {
    Recordset& record = datBj_->Recordset();
    const auto picture = pictureFromField(record, u"图片"_s, {}, Colours::ofFile);
    if (!picture) {
        say(picCs_, u"这条记录没有可以显示的图片，请另选一条。"_s, BoxIcon::information);
        return;
    }
    loadedRow_ = record.row();
    hide();
    document_.open(albumRecord(albumTable_, record), *picture, view_.hint().text());
}

// ---------------------------------------------------------------------------------------------------------- stepping

bool AlbumChooser::canStep(Step step) {
    const Recordset& records = datBj_->Recordset();
    const int last = datBj_->total() - 1;
    if (step == Step::next) return last >= 0 && !records.Eof() && records.row() != last;
    if (step == Step::previous) return last >= 0 && !records.Bof() && records.row() != 0;
    return last >= 0;
}

/// Moves to another record; false when there is none that way.
bool AlbumChooser::moveBy(Step step) {
    Recordset& records = datBj_->Recordset();
    switch (step) {
        case Step::first:
            records.MoveFirst();
            return true;
        case Step::last:
            records.MoveLast();
            return true;
        case Step::next:
            if (!records.Eof()) records.MoveNext();
            return !records.Eof();
        case Step::previous:
            if (!records.Bof()) records.MovePrevious();
            return !records.Bof();
    }
    return false;
}

/// Steps through the album.
void AlbumChooser::tpqh(Step step) {
    if (canStep(step) && !mayGo_()) return;
    commands_.enableItem(u"sy"_s, true);
    commands_.enableItem(u"xy"_s, true);
    if (moveBy(step))
        cmdQdClick();
    else
        commands_.enable(step == Step::next ? u"xy"_s : u"sy"_s, false);
}

Recordset& AlbumChooser::recordOfPicture() {
    if (loadedRow_ < 0) throw Error(u"图片原来的记录已经不在列表中，不能保存。"_s);
    datBj_->Recordset().moveToRow(loadedRow_);
    return datBj_->Recordset();
}

void AlbumChooser::findRecord(const AlbumRecord& record) {
    loadedRow_ = -1;
    for (int line = 0; line < cboBm_->count(); ++line)
        if (tableOfLine(cboBm_->itemText(line)) == record.table) cboBm_->setCurrentIndex(line);
    if (tableOfLine(cboBm_->currentText()) != record.table) return;
    cboBmClick();
    attempt([&] {
        if (datBj_->findFirst(u"图片 = "_s + QString::number(record.picture))) loadedRow_ = datBj_->Recordset().row();
    });
}

void AlbumChooser::listAnew() {
    // The whole line serves as table and alias: a title with a blank in it makes the statement fail, and the list
    // stays. So it does where the number does not tell the record.
    const QString line = cboBm_->currentText();
    attempt([&] {
        const QString own = u"序号 = "_s + datBj_->Recordset().Fields(u"序号"_s).Value().toText();
        if (mekTp::catalogue.OpenRecordset(u"SELECT * FROM "_s + line + u" WHERE "_s + own).rowCount() != 1) return;
        loadedRow_ = -1;
        datBj_->setRecordSource(recordsOf(line));
        datBj_->Refresh();
        if (datBj_->findFirst(own)) loadedRow_ = datBj_->Recordset().row();
    });
}
