#include "intake/databases/mapping_panel.h"

#include "catalogue/album_tables.h"
#include "catalogue/mektp.h"
#include "intake/databases/known_sources.h"
#include "platform/base/error.h"
#include "platform/database/records/reading_notes.h"
#include "platform/desktop/list_box.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/text_box.h"
#include "settings/frame/columns.h"

#include <QAction>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int headingTop = 3390, areaTop = 3645, areaHeight = 1785;
constexpr int tablesLeft = 105, tablesWidth = 1440;
constexpr int linesLeft = 1605, linesWidth = 2145;
constexpr int lineHeight = 240, captionWidth = 1050, boxWidth = 885;

/// Of cmdQx on the page 图片录入, and in picMl on the page 图片转存.
constexpr int buttonLeft = 3960, buttonTop = 4260, buttonWidth = 1050, buttonHeight = 345;
constexpr int enterButtonBelow = 810;
constexpr int panelLeft = 150, panelTop = 750;
constexpr Growth lowerHalf = movesDown * 0.5 + heightens * 0.5;
constexpr double tablesShare = 1.0 / 3;

const QString mapAllCaption = u"全部对应"_s;
const QString finishCaption = u"对应完成"_s;
const QString closeCaption = u"关闭本框"_s;
const QString enterCaption = u"录入图册"_s;

}  // namespace

MappingPanel::MappingPanel(const SettingsFrame& frame, GuidedFlow& flow, BrowserPanel& browser)
    : frame_(frame), flow_(flow), browser_(browser) {
    makeControls();
    makeButtons();
    connect(&browser_, &BrowserPanel::laidOut, this, guarded(frame_.form, [this] { arrange(); }));
    arrange();
}

void MappingPanel::makeControls() {
    QWidget* picMl = browser_.ground();
    const auto heading = [picMl](const QString& name, const QString& caption, int left, int width) {
        auto* label = make<QLabel>(picMl, name, caption);
        label->setTextFormat(Qt::PlainText);
        place(label, left, headingTop, width, lineHeight);
        letGrow(label, (name == u"lbl10" ? Growth{} : movesRight * tablesShare) + movesDown * 0.5);
        label->hide();
        return label;
    };
    lbl10_ = heading(u"lbl10"_s, {}, tablesLeft, linesLeft - tablesLeft);
    lbl8_ = heading(u"lbl8"_s, u"目标字段"_s, linesLeft, captionWidth);
    lbl9_ = heading(u"lbl9"_s, u"源字段"_s, linesLeft + captionWidth, boxWidth);

    lstSb_ = make<ListBox>(picMl, u"lstSb"_s);
    place(lstSb_, tablesLeft, areaTop, tablesWidth, areaHeight);
    letGrow(lstSb_, lowerHalf + beside(0, tablesShare));
    connect(lstSb_, &ListBox::lineClicked, this, guarded(frame_.form, [this] { lstSbClick(); }));

    area_ = make<QScrollArea>(picMl, u"fieldLines"_s);
    area_->setFrameShape(QFrame::NoFrame);
    area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area_->setFocusPolicy(Qt::NoFocus);
    place(area_, linesLeft, areaTop, linesWidth, areaHeight);
    letGrow(area_, lowerHalf + beside(tablesShare, 1));
    area_->setWidgetResizable(true);
    area_->setWidget(new QWidget);
    addLine();

    lstDy_ = make<ListBox>(picMl, u"lstDy"_s);
    lstDy_->setAccessibleName(u"来源的列"_s);
    for (QWidget* part : {static_cast<QWidget*>(lstDy_), static_cast<QWidget*>(area_)}) part->installEventFilter(this);
    connect(lstDy_, &ListBox::lineClicked, this, guarded(frame_.form, [this] { lstDyClick(); }));
}

void MappingPanel::makeButtons() {
    cmdQx_ = make<QPushButton>(frame_.sstFz->page(intakeTab), u"cmdQx"_s);
    cmdLr_ = make<QPushButton>(frame_.sstFz->page(intakeTab), u"cmdLr"_s);
    for (QPushButton* button : {cmdQx_, cmdLr_})
        button->resize(pixelsFromTwips(buttonWidth), pixelsFromTwips(buttonHeight));
    connect(cmdQx_, &QPushButton::clicked, this, guarded(frame_.form, [this] { cmdQxClick(); }));
    connect(cmdLr_, &QPushButton::clicked, this, guarded(frame_.form, [this] { cmdLrClick(); }));
}

bool MappingPanel::forTransfer() const {
    return frame_.isInFront(transferTab);
}

void MappingPanel::allowAll(bool on) {
    cmdQx_->setEnabled(on);
}

void MappingPanel::allowEnter(bool on) {
    cmdLr_->setEnabled(on);
}

bool MappingPanel::mayEnter() const {
    return cmdLr_->isEnabled();
}

void MappingPanel::nameAllForFiles() {
    cmdQx_->setText(u"选择全部"_s);
}

void MappingPanel::nameEnterForFiles() {
    cmdLr_->setText(enterCaption);
}

void MappingPanel::hideButtons() {
    for (QPushButton* button : {cmdQx_, cmdLr_}) button->hide();
}

void MappingPanel::raiseButtons() {
    for (QPushButton* button : {cmdQx_, cmdLr_}) button->raise();
}

/// The panel was laid out for another use: nothing is chosen, and the buttons stand where the page in front has them.
void MappingPanel::arrange() {
    reset();
    const bool files = browser_.isPictureMode();
    cmdQx_->setText(files ? u"选择全部"_s : mapAllCaption);
    cmdLr_->setText(files ? enterCaption : finishCaption);
    int top = buttonTop;
    for (QPushButton* button : {cmdQx_, cmdLr_}) {
        button->setEnabled(false);
        button->setVisible(files && !forTransfer());
        const double across = forTransfer() ? 1 : intakeShare;
        letGrow(button, movesRight * across + movesDown * 0.5);
        if (forTransfer()) {
            button->setParent(browser_.ground());
            place(button, buttonLeft - panelLeft, top - panelTop);
        } else {
            frame_.sstFz->putOn(intakeTab, button, buttonLeft, top);
        }
        top += enterButtonBelow;
    }
}

void MappingPanel::reset() {
    cxdy();
    lstSb_->clear();
    for (QWidget* part : {static_cast<QWidget*>(lstSb_), static_cast<QWidget*>(lbl10_)}) part->hide();
    sourceDatabase_ = {};
    indexFieldName_.clear();
    mappedFieldCount_ = -1;
}

void MappingPanel::chooseDatabase(const QString& heading) {
    reset();
    hideButtons();
    sourceDatabase_ = OpenDatabase(flow_.sourceDatabase());
    listTables();
    frame_.hints.czts(3);
    frame_.work.begin();
    browser_.showFileParts(true);
    browser_.showFolderHint(false);
    lbl10_->setText(heading);
    lbl10_->show();
    lstSb_->show();
    flow_.goTo(forTransfer() ? 13 : 3);
}

/// The program's own catalogue holds more than albums.
QStringList MappingPanel::offeredTables() const {
    if (forTransfer()) return changeableAlbums(sourceDatabase_);
    if (isSameFile(sourceDatabase_.Name(), mekTp::cataloguePath())) return albumTables(sourceDatabase_);
    return withoutSystemTables(sourceDatabase_.TableDefs());
}

/// Damaged tables are marked.
void MappingPanel::listTables() {
    const ReadingNotes notes(sourceDatabase_);
    const auto list = [this](const QString& table, const QString& mark) {
        lstSb_->AddItem(table + mark);
        QListWidgetItem* line = lstSb_->item(lstSb_->count() - 1);
        line->setData(Qt::UserRole, table);
        line->setToolTip(line->text());
    };
    for (const QString& table : offeredTables()) list(table, notes.isDamaged(table) ? u"（有损坏）"_s : QString());
    for (const QString& table : notes.unreadableTables()) list(table, u"（不能读取）"_s);
}

QString MappingPanel::tableInLine(const QListWidgetItem* line) const {
    return line->data(Qt::UserRole).toString();
}

void MappingPanel::offerForTables(QAction* action) {
    lstSb_->setContextMenuPolicy(Qt::ActionsContextMenu);
    lstSb_->addAction(action);
}

void MappingPanel::undoDatabase() {
    browser_.selectQuietly(false);
    browser_.setEcho({});
    browser_.showFileParts(false);
    browser_.showFolderHint(true);
    browser_.enableFiles();
    reset();
    flow_.goTo(forTransfer() ? 12 : 2);
    frame_.hints.czts(forTransfer() ? 3 : 11);
}

void MappingPanel::undoTable() {
    lstSb_->setCurrentRow(-1);
    cxdy();
    hideButtons();
    browser_.enableFiles(true);
    flow_.goTo(forTransfer() ? 13 : 3);
    frame_.hints.czts(forTransfer() ? 3 : 11);
    Q_EMIT tableDropped();
}

void MappingPanel::undoMapping() {
    indexFieldName_.clear();
    const QString table = chosenTable();
    for (int i = 0; i < lstSb_->count(); ++i)
        if (tableInLine(lstSb_->item(i)) == table) lstSb_->setCurrentRow(i);
    openTable(table);
}

void MappingPanel::lstSbClick() {
    if (lstSb_->currentItem() != nullptr) openTable(tableInLine(lstSb_->currentItem()));
}

/// A table that cannot serve is not chosen.
void MappingPanel::openTable(const QString& table) {
    cxdy();
    lbl10_->show();
    try {
        showTable(table);
    } catch (const std::exception&) {
        undoTable();
        say(frame_.form, u"本数据表不能用于提供图片数据，请重新选择！"_s, BoxIcon::exclamation, u"错误提示"_s);
    }
}

/// The structure of a table is that of the catalogue's table of this name, when there is one.
void MappingPanel::showTable(const QString& chosen) {
    if (forTransfer())
        flow_.setTargetTable(chosen);
    else
        flow_.setSourceTable(chosen);
    if (!forTransfer()) shapeOf(sourceDatabase_, chosen);  // throws where it cannot be read
    const TableShape target = shapeByName(mekTp::catalogue, sourceDatabase_, flow_.targetTable());
    const TableShape source = shapeByName(mekTp::catalogue, sourceDatabase_, flow_.sourceTable());
    showFields(target);
    cmdQx_->setEnabled(target.size() == source.size());
    cmdQx_->setText(mapAllCaption);
    cmdLr_->setText(finishCaption);
    cmdLr_->setEnabled(false);
    for (QPushButton* button : {cmdQx_, cmdLr_}) button->show();
    flow_.goTo(forTransfer() ? 14 : 4);
    frame_.hints.czts(5);
    Q_EMIT tableChosen(chosen);
    if (!forTransfer()) propose(chosen);
}

void MappingPanel::cmdQxClick() {
    if (cmdQx_->text() == mapAllCaption)
        mapAll();
    else
        Q_EMIT otherAllClicked();
}

void MappingPanel::cmdLrClick() {
    if (!forTransfer() && targetIsFit && !targetIsFit()) return;
    if (cmdLr_->text() == finishCaption)
        finishMapping();
    else if (cmdLr_->text() == closeCaption)
        Q_EMIT closed();
    else
        Q_EMIT otherEnterClicked();
}

void MappingPanel::finishMapping() {
    if (txtYb(0)->text().isEmpty()) {
        say(frame_.form, u"如果由数据库以“替换”方式录入图片，必须设置“序号”的对应字段。"_s);
        return;
    }
    if (!forTransfer() && replaces && replaces()) requireKeyColumn(target_, flow_.targetTable(), txtYb(0)->text());
    hideFieldList();
    if (!proposalsAreAccepted()) return;
    if (!forTransfer()) browser_.enableFiles(false);
    readMapping();
    if (mappedFieldCount_ == 0 &&
        !ask(frame_.form, u"只选择了一个对应字段，可能会造成数据不全。\n\n如果继续，请按《确定》；否则按《取消》。"_s))
        return;
    mappingDone_ = true;
    if (forTransfer()) {
        cmdLr_->setText(closeCaption);
        cmdLr_->setEnabled(true);
        cmdQx_->setEnabled(false);
    } else {
        cmdQx_->setText(u"全部记录"_s);
        cmdQx_->setEnabled(true);
        cmdLr_->setText(enterCaption);
        cmdLr_->setEnabled(false);
    }
    flow_.goTo(forTransfer() ? 15 : 5);
    frame_.hints.czts(forTransfer() ? 7 : 6);
    Q_EMIT mapped();
}
