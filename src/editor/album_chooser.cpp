#include "editor/album_chooser.h"

#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "catalogue/picture_field.h"
#include "editor/chooser_places.h"
#include "editor/editor_layout.h"
#include "editor/editor_texts.h"
#include "platform/base/error.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/caption.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"

#include <QEvent>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;
using namespace chooserPlaces;

namespace {

constexpr int leastWindowWidth = 9600;
constexpr int panelLeft = 30, panelWidth = 9430;
constexpr int panelHeight = 6360;  ///< Without the tool bar; the grid ends inside it.
constexpr int gridTop = 690, gridHeight = 5610;

constexpr int buttonsPerRow = 14, buttonRows = 4;
constexpr int firstButtonTop = 495;
constexpr int columnPitch = 280, rowPitch = 250;
constexpr int buttonWidth = 270, buttonHeight = 240;

constexpr int nameLeft = rightColumn + 1560, nameTop = 225, nameWidth = 2350, nameHeight = 270;
constexpr int besideName = 180;  ///< Frame and margins of its box.

const auto recordHeadings = u"序号|编号|^  大  小  |^  规  格  |^    日      期    |^    备        注    "_s;

QString recordsOf(const QString& table) {
    return u"SELECT * FROM "_s + table + u" ORDER BY [序号]"_s;
}

QLabel* makeLabel(QWidget* parent, const QString& name, const QString& text, int left, int top, int width) {
    auto* label = make<QLabel>(parent, name);
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    place(label, left, top, width, 300);
    return label;
}

}  // namespace

AlbumChooser::AlbumChooser(EditorState& state, Commands& commands, EditorView& view, UndoHistory& history,
                           Loading& loading, QWidget* form)
    : QObject(form), state_(state), commands_(commands), view_(view), history_(history), loading_(loading) {
    datBj = make<DataControl>(form, u"datBj"_s);
    datBj->hide();
    datBj->useDatabase(mekTp::catalogue);
    datBj->setDatabaseName(mekTp::cataloguePath());
    makeChoice();
    preview_ = new ChooserPreview(view_.picCs);
    makeEnd();
    connectControls();
    view_.picCs->hide();
}

void AlbumChooser::makeChoice() {
    Surface* picCs = view_.picCs;
    QLabel* lblXc = makeLabel(picCs, u"lblXc"_s, u"选择图册："_s, 150, 300, 975);
    cboBm = make<QComboBox>(picCs, u"cboBm"_s);
    cboBm->setAccessibleName(u"图册"_s);
    cboBm->setPlaceholderText(u"（请选择）"_s);
    place(cboBm, 1125, 285, 2880, 330);
    lblXc->setBuddy(cboBm);
    msgBm = make<Grid>(picCs, u"msgBm"_s);
    msgBm->setAccessibleName(u"图册的图片"_s);

    lbl1_ = makeLabel(picCs, u"lbl1"_s, u"请先选择图册"_s, rightColumn, 210, 1500);
    txtB0_ = make<TextBox>(picCs, u"txtB0"_s);
    txtB0_->setLocked(true);
    txtB0_->setFocusPolicy(Qt::NoFocus);
    txtB0_->setStyleSheet(u"padding: 0px 2px;"_s);
    showName(u"编号  名称"_s);
    img0_ = make<ImageBox>(picCs, u"img0"_s);
    img0_->setPicture(Picture(QImage(u":/pictures/nobuttons.png"_s)));
    img0_->setToolTip(u"这个图册没有筛选按钮"_s);
    place(img0_, rightColumn, firstButtonTop, buttonsPerRow * columnPitch, 3 * rowPitch);
    img0_->hide();
    button(0)->setText(u"全"_s);
    button(0)->show();
}

void AlbumChooser::makeEnd() {
    Surface* picCs = view_.picCs;
    const int bottom = previewTop + previewHeight + 330;
    lblJ1_ = makeLabel(picCs, u"lblJ1"_s, {}, rightColumn, bottom + 15, 2700);
    cmdQd_ = make<QPushButton>(picCs, u"cmdQd"_s);
    cmdQd_->setText(u"确 定"_s);
    cmdQd_->setEnabled(false);
    place(cmdQd_, rightColumn + 2880, bottom, 1020, 345);
    cmdQx_ = make<QPushButton>(picCs, u"cmdQx"_s);
    cmdQx_->setText(u"取 消"_s);
    place(cmdQx_, rightColumn + 3990, bottom, 1020, 345);
}

void AlbumChooser::connectControls() {
    connect(cboBm, &QComboBox::activated, this, guarded(view_.picCs, [this] { cboBmClick(); }));
    connect(msgBm, &Grid::rowActivated, this, guarded(view_.picCs, [this] {
                if (msgBm->parent() == view_.picCs) cmdQdClick();
            }));
    connect(datBj, &DataControl::repositioned, this, guarded(view_.picCs, [this] { showRecord(); }));
    connect(cmdQd_, &QPushButton::clicked, this, guarded(view_.picCs, [this] { cmdQdClick(); }));
    connect(cmdQx_, &QPushButton::clicked, this, guarded(view_.picCs, [this] { cmdQxClick(); }));
}

void AlbumChooser::load() {
    cboBm->clear();
    attempt([&] {
        Recordset albums = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tcbm WHERE LCase(表名) <> 'tc00'"_s);
        for (; !albums.Eof(); albums.MoveNext())
            cboBm->addItem(
                albumLine(albums.Fields(u"表名"_s).Value().textOr(), albums.Fields(u"标题"_s).Value().textOr()));
    });
    cboBm->setCurrentIndex(-1);
    datBj->setRecordSource(recordsOf(mekTp::currentTable));
    attempt([&] { datBj->Refresh(); });
}

void AlbumChooser::takeGrid() {
    msgBm->setParent(view_.picCs);
    msgBm->bind(datBj);
    msgBm->setFormatString(recordHeadings);
    place(msgBm, 150, gridTop, 3855, gridHeight - state_.toolbarHeight - mekTp::titleBarExtra);
    msgBm->setEnabled(!cboBm->currentText().isEmpty());
    msgBm->show();
}

void AlbumChooser::mnuCsClick() {
    if (!loading_.mayReplace()) return;
    state_.forgetChanges();
    const int toolbar = state_.toolbarHeight;
    view_.centreWindow(leastWindowWidth, leastWindowHeight);
    place(view_.picCs, panelLeft, toolbar == 0 ? 200 : toolbar + 60, panelWidth, panelHeight - toolbar);
    place(view_.shpBj, 0, toolbar, 9515, 6530 - toolbar - mekTp::titleBarExtra);
    takeGrid();
    view_.tscz(u"k0"_s);
    for (QWidget* covered : {view_.picGd, view_.picCq, view_.picAn}) covered->hide();
    view_.hsc1->hide();
    view_.vsc1->hide();
    view_.picCs->show();
    // What is behind the chooser cannot be worked on.
    commands_.szan(false);
    commands_.setEnabled(commands_.mnuBc, u"bc"_s, false);
    commands_.mnuQh->setVisible(false);
    for (const QString& key : {u"lc"_s, u"cx"_s, u"ty"_s, u"sy"_s, u"xy"_s, u"hy"_s})
        commands_.tlb1->setEnabled(key, false);
    attempt([&] { history_.clear(); });
    if (datBj->total() > 0) attempt([&] { datBj->moveToRow(std::max(datBj->Recordset().row(), 0)); });
    if (cboBm->count() == 0)
        preview_->explain(
            u"还没有自己的图册。\n\n请先“返回”主窗口，用菜单“录入设置”打开设置窗口，在“图册设置”页的“建立新图册”里新建一本，再录入图片。"_s);
    (msgBm->isEnabled() ? static_cast<QWidget*>(msgBm) : cboBm)->setFocus();
}

void AlbumChooser::cboBmClick() {
    const Hourglass hourglass(cboBm);
    state_.albumTable = tableOfLine(cboBm->currentText());
    lblJ1_->clear();
    list(recordsOf(state_.albumTable));
    if (datBj->total() > 0) attempt([&] { bhan(); });
    msgBm->setEnabled(true);
    msgBm->setFormatString(recordHeadings);
}

/// Lists records; of the first one the preview shows.
void AlbumChooser::list(const QString& source) {
    datBj->setRecordSource(source);
    attempt([&] { datBj->Refresh(); });
    cmdQd_->setEnabled(datBj->total() > 0);
    if (datBj->total() == 0) explainEmptyList();
}

void AlbumChooser::explainEmptyList() {
    const QString album = u"图册“"_s + titleOfLine(cboBm->currentText()) + u"”"_s;
    if (datBj->Recordset().isNothing())
        preview_->explain(album + u"不能打开：它的表已经不在像册里，或者损坏了。"_s);
    else if (datBj->RecordSource().contains(u" WHERE "_s))
        preview_->explain(album + u"里没有带这个编号的图片。"_s);
    else
        preview_->explain(album + u"里还没有图片。\n\n请另选一本，或者先在“录入设置”里录入图片。"_s);
}

// ---------------------------------------------------------------------------------------------------- filter buttons

QPushButton* AlbumChooser::button(int index) {
    while (int(cmdBh_.size()) <= index) {
        const int next = int(cmdBh_.size());
        auto* made = make<QPushButton>(view_.picCs, element(u"cmdBh"_s, next));
        made->setStyleSheet(u"padding: 0px;"_s);
        made->installEventFilter(this);
        made->hide();
        connect(made, &QPushButton::clicked, this, guarded(view_.picCs, [this, next] { cmdBhClick(next); }));
        cmdBh_.push_back(made);
        if (next == 0) place(made, rightColumn, firstButtonTop, buttonWidth, buttonHeight);
    }
    return cmdBh_[size_t(index)];
}

// Builds the button panel for the chosen album.
void AlbumChooser::bhan() {
    codes_.clear();
    Recordset rows = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tcan WHERE InStr(图册,"_s +
                                                    quoted(state_.albumTable) + u") > 0 ORDER BY [序号]"_s);
    for (; !rows.Eof(); rows.MoveNext())
        codes_.push_back({rows.Fields(u"编号"_s).Value().textOr(), rows.Fields(u"名称"_s).Value().textOr()});
    for (size_t i = 1; i < cmdBh_.size(); ++i) cmdBh_[i]->hide();
    txtB0_->setVisible(!codes_.empty());
    img0_->setVisible(codes_.empty());
    img0_->raise();
    if (codes_.empty()) return;
    lbl1_->setText(u"按编号筛选"_s);
    // More buttons than the rows hold stand closer together.
    const int count = int(codes_.size());
    const int columns = std::max(buttonsPerRow, (count + buttonRows - 1) / buttonRows);
    const int pitch = std::min(columnPitch, rightWidth / columns);
    for (int i = 0; i < count; ++i) {
        QPushButton* made = button(i);
        place(made, rightColumn + i % columns * pitch, firstButtonTop + i / columns * rowPitch + 1,
              std::min(buttonWidth, pitch), buttonHeight);
        made->setText(plainCaption(codes_[size_t(i)].code));
        made->setToolTip(codes_[size_t(i)].name);
        made->show();
    }
    showCode(0);
}

void AlbumChooser::showCode(int index) {
    if (index < int(codes_.size())) showName(codes_[size_t(index)].code + u"："_s + codes_[size_t(index)].name);
}

/// For a long name the box takes the room on its right, and then that on its left.
void AlbumChooser::showName(const QString& text) {
    txtB0_->setText(text);
    txtB0_->setCursorPosition(0);
    const int wanted = twipsFromPixels(txtB0_->fontMetrics().horizontalAdvance(text)) + besideName;
    const int width = std::max(nameWidth, wanted);
    place(txtB0_, std::min(nameLeft, rightColumn + rightWidth - width), nameTop, width, nameHeight);
}

bool AlbumChooser::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Enter || event->type() == QEvent::MouseMove) {
        const auto found = std::find(cmdBh_.begin(), cmdBh_.end(), watched);
        if (found != cmdBh_.end()) showCode(int(found - cmdBh_.begin()));
    }
    return QObject::eventFilter(watched, event);
}

void AlbumChooser::cmdBhClick(int index) {
    if (index >= int(codes_.size())) return;
    const QString code = codes_[size_t(index)].code;
    QString name;
    attempt([&] {
        name =
            mekTp::catalogue.OpenRecordset(u"SELECT * FROM tcan WHERE 编号 = "_s + quoted(code) + u" ORDER BY [序号]"_s)
                .Fields(u"名称"_s)
                .Value()
                .textOr();
    });
    QString source = u"SELECT * FROM "_s + state_.albumTable;
    if (code != u"v") source += u" WHERE InStr(编号,"_s + quoted(code) + u") > 0 ORDER BY [序号]"_s;
    list(source);
    lblJ1_->setText(u"编号=["_s + code + u"]("_s + name + u") 共有"_s + QString::number(datBj->total()) + u"张"_s);
}

// ------------------------------------------------------------------------------------------------ records and preview

void AlbumChooser::showRecord() {
    if (view_.picCs->isHidden() || cboBm->currentText().isEmpty() || datBj->total() == 0) return;
    Recordset& record = datBj->Recordset();
    if (record.row() < 0) return;
    attempt([&] { preview_->show(record, titleOfLine(cboBm->currentText())); });
    cmdQd_->setEnabled(true);
}

void AlbumChooser::cmdQdClick() {
    Recordset& record = datBj->Recordset();
    const auto picture = pictureFromField(record, u"图片"_s);
    if (!picture) {
        say(view_.picCs, u"这条记录没有可以显示的图片，请另选一条。"_s, BoxIcon::information);
        return;
    }
    loadedRow_ = record.row();
    view_.picCs->hide();
    loading_.openFromAlbum(*picture, albumSourceLine(state_.albumTable, record));
}

void AlbumChooser::cmdQxClick() {
    view_.picCs->hide();
    view_.picGd->show();
    loading_.pmfy();
    view_.pmsz();
}

// -------------------------------------------------------------------------------------------------------- stepping

bool AlbumChooser::canStep(QChar direction) {
    const Recordset& records = datBj->Recordset();
    const int last = datBj->total() - 1;
    if (direction == u'x') return last >= 0 && !records.Eof() && records.row() != last;
    if (direction == u's') return last >= 0 && !records.Bof() && records.row() != 0;
    return last >= 0;
}

// Steps through the album.
void AlbumChooser::tpqh(QChar direction) {
    if (canStep(direction) && !loading_.mayReplace()) return;
    commands_.mnuSy->setEnabled(true);
    commands_.mnuXy->setEnabled(true);
    Recordset& records = datBj->Recordset();
    if (direction == u't') records.MoveFirst();
    if (direction == u'h') records.MoveLast();
    if (direction == u'x' && !records.Eof()) records.MoveNext();
    if (direction == u's' && !records.Bof()) records.MovePrevious();
    if (direction == u'x' && records.Eof()) {
        commands_.setEnabled(commands_.mnuXy, u"xy"_s, false);
        return;
    }
    if (direction == u's' && records.Bof()) {
        commands_.setEnabled(commands_.mnuSy, u"sy"_s, false);
        return;
    }
    cmdQdClick();
}

void AlbumChooser::returnToLoaded() {
    if (loadedRow_ < 0) throw Error(u"图片原来的记录已经不在列表中，不能保存。"_s);
    datBj->Recordset().moveToRow(loadedRow_);
}

void AlbumChooser::listAnew() {
    // The whole line serves as table and alias: a title with a blank in it makes the statement fail, and the list
    // stays. So it does where the number does not tell the record.
    const QString line = cboBm->currentText();
    attempt([&] {
        const QString own = u"序号 = "_s + datBj->Recordset().Fields(u"序号"_s).Value().toText();
        if (mekTp::catalogue.OpenRecordset(u"SELECT * FROM "_s + line + u" WHERE "_s + own).rowCount() != 1) return;
        loadedRow_ = -1;
        datBj->setRecordSource(recordsOf(line));
        datBj->Refresh();
        if (datBj->findFirst(own)) loadedRow_ = datBj->Recordset().row();
    });
}
