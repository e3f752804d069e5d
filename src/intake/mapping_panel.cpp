#include "intake/mapping_panel.h"

#include "catalogue/album_tables.h"
#include "catalogue/mektp.h"
#include "intake/preview_parts.h"
#include "intake/settings_tab.h"
#include "platform/base/error.h"
#include "platform/desktop/file_lists.h"
#include "platform/desktop/list_box.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/surface.h"
#include "platform/desktop/tab_control.h"
#include "platform/desktop/text_box.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int headingTop = 3390, areaTop = 3645, areaHeight = 1785;
constexpr int tablesLeft = 105, tablesWidth = 1440;
constexpr int linesLeft = 1605, linesWidth = 2145;
constexpr int linePitch = 250, lineHeight = 240, captionWidth = 1050, boxWidth = 885;

constexpr int listLineHeight = 180, listFrame = 60, lowestListBottom = 5400;
constexpr int groupsBottom = 2610;

/// Of cmdQx on the page 图片录入, and in picMl on the page 图片转存.
constexpr int buttonLeft = 3960, buttonTop = 4260, buttonWidth = 1050, buttonHeight = 345;
constexpr int enterButtonBelow = 810;
constexpr int panelLeft = 150, panelTop = 750;

const QString mapAllCaption = u"全部对应"_s;
const QString finishCaption = u"对应完成"_s;
const QString closeCaption = u"关闭本框"_s;

void setInk(TextBox* box, const QColor& colour) {
    QPalette palette = box->palette();
    palette.setColor(QPalette::Text, colour);
    box->setPalette(palette);
}

}  // namespace

MappingPanel::MappingPanel(SharedControls& controls, FormState& state, HintLine& hints, BrowserPanel& browser)
    : controls_(controls), state_(state), hints_(hints), browser_(browser) {
    makeControls();
    makeButtons();
    connect(&browser_, &BrowserPanel::laidOut, this, guarded(controls_.form, [this] { arrange(); }));
    arrange();
}

void MappingPanel::makeControls() {
    QWidget* picMl = browser_.picMl();
    const auto heading = [picMl](const QString& name, const QString& caption, int left, int width) {
        auto* label = make<QLabel>(picMl, name, caption);
        label->setTextFormat(Qt::PlainText);
        place(label, left, headingTop, width, lineHeight);
        label->hide();
        return label;
    };
    lbl10_ = heading(u"lbl10"_s, {}, tablesLeft, linesLeft - tablesLeft);
    lbl8_ = heading(u"lbl8"_s, u"目标字段"_s, linesLeft, captionWidth);
    lbl9_ = heading(u"lbl9"_s, u"源字段"_s, linesLeft + captionWidth, boxWidth);

    lstSb_ = make<ListBox>(picMl, u"lstSb"_s);
    place(lstSb_, tablesLeft, areaTop, tablesWidth, areaHeight);
    connect(lstSb_, &ListBox::lineClicked, this, guarded(controls_.form, [this] { lstSbClick(); }));

    area_ = make<QScrollArea>(picMl, u"fieldLines"_s);
    area_->setFrameShape(QFrame::NoFrame);
    area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area_->setFocusPolicy(Qt::NoFocus);
    place(area_, linesLeft, areaTop, linesWidth, areaHeight);
    area_->setWidget(new QWidget);
    addLine();

    lstDy_ = make<ListBox>(picMl, u"lstDy"_s);
    lstDy_->setAccessibleName(u"来源的列"_s);
    lstDy_->installEventFilter(this);
    connect(lstDy_, &ListBox::lineClicked, this, guarded(controls_.form, [this] { lstDyClick(); }));
}

void MappingPanel::makeButtons() {
    cmdQx_ = make<QPushButton>(controls_.sstFz->page(intakeTab), u"cmdQx"_s);
    cmdLr_ = make<QPushButton>(controls_.sstFz->page(intakeTab), u"cmdLr"_s);
    for (QPushButton* button : {cmdQx_, cmdLr_})
        button->resize(pixelsFromTwips(buttonWidth), pixelsFromTwips(buttonHeight));
    connect(cmdQx_, &QPushButton::clicked, this, guarded(controls_.form, [this] { cmdQxClick(); }));
    connect(cmdLr_, &QPushButton::clicked, this, guarded(controls_.form, [this] { cmdLrClick(); }));
}

bool MappingPanel::forTransfer() const {
    return controls_.sstFz->currentIndex() == transferTab;
}

/// The panel was laid out for another use: nothing is chosen, and the buttons stand where the page in front has them.
void MappingPanel::arrange() {
    reset();
    const bool files = browser_.isPictureMode();
    cmdQx_->setText(files ? u"选择全部"_s : mapAllCaption);
    cmdLr_->setText(files ? u"录入图册"_s : finishCaption);
    int top = buttonTop;
    for (QPushButton* button : {cmdQx_, cmdLr_}) {
        button->setEnabled(false);
        button->setVisible(files && !forTransfer());
        if (forTransfer()) {
            button->setParent(browser_.picMl());
            place(button, buttonLeft - panelLeft, top - panelTop);
        } else {
            controls_.sstFz->putOn(intakeTab, button, buttonLeft, top);
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

// Clears the lines of fields.
void MappingPanel::cxdy() {
    for (std::size_t i = 1; i < lines_.size(); ++i) {
        delete lines_[i].lblMb;
        delete lines_[i].txtYb;
    }
    lines_.resize(1);
    txtYb(0)->clear();
    setInk(txtYb(0), Qt::black);
    for (QWidget* part : {static_cast<QWidget*>(lbl8_), static_cast<QWidget*>(lbl9_), static_cast<QWidget*>(area_),
                          static_cast<QWidget*>(lines_[0].lblMb), static_cast<QWidget*>(txtYb(0))})
        part->hide();
    hideFieldList();
    target_.clear();
    fieldMapping_.clear();
    mappingDone_ = false;
}

void MappingPanel::hideFieldList() {
    lstDy_->hide();
}

void MappingPanel::addLine() {
    const auto index = lines_.size();
    const int number = static_cast<int>(index), top = number * linePitch;
    QWidget* ground = area_->widget();
    auto* lblMb = make<ElidedLabel>(ground, element(u"lblMb"_s, number));
    lblMb->setTextFormat(Qt::PlainText);
    place(lblMb, 0, top, captionWidth, lineHeight);
    auto* txtYb = make<TextBox>(ground, element(u"txtYb"_s, number));
    txtYb->setAccessibleName(u"来源的列"_s);
    txtYb->setLocked(true);
    // The list opens where the user has clicked, not where the focus falls when another control is disabled.
    txtYb->setFocusPolicy(Qt::ClickFocus);
    txtYb->installEventFilter(this);
    place(txtYb, captionWidth, top, boxWidth, lineHeight);
    // The message that may come first must not stand in the middle of the press of the mouse.
    connect(txtYb, &TextBox::gotFocus, this,
            guarded(controls_.form,
                    [this, index] {
                        if (index < lines_.size()) openFieldList(index);
                    }),
            Qt::QueuedConnection);
    lines_.push_back({lblMb, txtYb});
}

void MappingPanel::chooseDatabase(const QString& heading) {
    reset();
    for (QPushButton* button : {cmdQx_, cmdLr_}) button->hide();
    sourceDatabase_ = OpenDatabase(state_.sourceDatabasePath);
    const QStringList tables = offeredTables();
    hints_.czts(3);
    state_.pageFree = false;
    browser_.showFileParts(true);
    browser_.showFolderHint(false);
    lbl10_->setText(heading);
    lbl10_->show();
    for (const QString& table : tables) lstSb_->AddItem(table);
    lstSb_->show();
    state_.intakeStep = forTransfer() ? 13 : 3;
}

/// The program's own catalogue holds more than albums.
QStringList MappingPanel::offeredTables() const {
    if (forTransfer()) return changeableAlbums(sourceDatabase_);
    if (isSameFile(sourceDatabase_.Name(), mekTp::cataloguePath())) return albumTables(sourceDatabase_);
    return withoutSystemTables(sourceDatabase_.TableDefs());
}

void MappingPanel::undoDatabase() {
    browser_.selectQuietly(false);
    browser_.setEcho({});
    browser_.showFileParts(false);
    browser_.showFolderHint(true);
    browser_.enableFiles();
    reset();
    state_.intakeStep = forTransfer() ? 12 : 2;
    hints_.czts(forTransfer() ? 3 : 11);
}

void MappingPanel::undoTable() {
    lstSb_->setCurrentRow(-1);
    cxdy();
    for (QPushButton* button : {cmdQx_, cmdLr_}) button->hide();
    browser_.fil1()->setEnabled(true);
    state_.intakeStep = forTransfer() ? 13 : 3;
    hints_.czts(forTransfer() ? 3 : 11);
    Q_EMIT tableDropped();
}

void MappingPanel::undoMapping() {
    indexFieldName_.clear();
    const QString table = chosenTable();
    const auto lines = lstSb_->findItems(table, Qt::MatchExactly);
    if (!lines.isEmpty()) lstSb_->setCurrentItem(lines.front());
    openTable(table);
}

void MappingPanel::lstSbClick() {
    if (lstSb_->currentItem() != nullptr) openTable(lstSb_->currentItem()->text());
}

/// A table that cannot serve is not chosen.
void MappingPanel::openTable(const QString& table) {
    cxdy();
    lbl10_->show();
    try {
        showTable(table);
    } catch (const std::exception&) {
        undoTable();
        say(controls_.form, u"本数据表不能用于提供图片数据，请重新选择！"_s, BoxIcon::exclamation, u"错误提示"_s);
    }
}

/// The structure of a table is that of the catalogue's table of this name, when there is one.
void MappingPanel::showTable(const QString& chosen) {
    chosenTable() = chosen;
    const TableShape target = shapeByName(mekTp::catalogue, sourceDatabase_, state_.targetTable);
    const TableShape source = shapeByName(mekTp::catalogue, sourceDatabase_, state_.sourceTable);
    showFields(target);
    cmdQx_->setEnabled(target.size() == source.size());
    cmdQx_->setText(mapAllCaption);
    cmdLr_->setText(finishCaption);
    cmdLr_->setEnabled(false);
    for (QPushButton* button : {cmdQx_, cmdLr_}) button->show();
    state_.intakeStep = forTransfer() ? 14 : 4;
    hints_.czts(5);
    Q_EMIT tableChosen(chosen);
}

void MappingPanel::showFields(const TableShape& target) {
    target_ = target;
    while (lines_.size() < target.size()) addLine();
    for (std::size_t i = 0; i < target.size(); ++i) {
        lines_[i].lblMb->setText(mappingCaption(target[i].name));
        lines_[i].lblMb->setToolTip(target[i].name);
        lines_[i].lblMb->show();
        lines_[i].txtYb->show();
    }
    area_->widget()->resize(pixelsFromTwips(captionWidth + boxWidth),
                            pixelsFromTwips(static_cast<int>(target.size()) * linePitch));
    area_->ensureVisible(0, 0);
    for (QWidget* part : {static_cast<QWidget*>(lbl8_), static_cast<QWidget*>(lbl9_), static_cast<QWidget*>(area_)})
        part->show();
}

void MappingPanel::openFieldList(std::size_t index) {
    if (mappingDone_ || target_.empty()) return;
    lineInHand_ = index;
    mappedFieldCount_ = static_cast<int>(index);
    const TableShape source = shapeOf(sourceDatabase_, state_.sourceTable);
    lstDy_->clear();
    for (const FieldShape& field : source) lstDy_->AddItem(field.name);
    area_->ensureWidgetVisible(txtYb(index), 0, 0);
    placeFieldList(txtYb(index), static_cast<int>(source.size()));
    if (index == 0 && !forTransfer() && replaces && replaces())
        say(controls_.form,
            u"替换操作时，必须以目标表“序号”为索引字段，\n索引字段“序号”在该记录集中具有唯一的值。\n\n"
            "所以其对应字段也必须在该记录集中具有唯一值。"_s,
            BoxIcon::information);
    lstDy_->show();
    lstDy_->raise();
}

/// Below the box, or above it when there is no room below. A list that is too long for either stands where there is
/// more room, and never covers the groups of option buttons of the page 图片录入.
void MappingPanel::placeFieldList(const QWidget* box, int fields) {
    const QPoint at = box->mapTo(browser_.picMl(), QPoint(0, 0));
    const int left = twipsFromPixels(at.x()), top = twipsFromPixels(at.y()), below = top + 270;
    const int above = top - (forTransfer() ? 0 : groupsBottom), under = areaTop + areaHeight - below;
    int height = fields * listLineHeight + listFrame;
    bool upward = top + height > lowestListBottom;
    if (upward && height > above) {
        upward = above > under;
        height = std::min(height, upward ? above : under);
    }
    place(lstDy_, left, upward ? top - height : below, linesLeft + linesWidth - left, height);
}

void MappingPanel::lstDyClick() {
    const std::size_t index = lineInHand_;
    if (lstDy_->currentItem() == nullptr || index >= target_.size()) return;
    const QString field = lstDy_->currentItem()->text();
    hideFieldList();
    setField(index, field);
    if (index == 0) markIndexField();
}

/// Puts a source field on a line when it suits the target field; otherwise the line is empty.
void MappingPanel::setField(std::size_t index, const QString& field) {
    txtYb(index)->clear();
    if (field.isEmpty()) return;
    cmdLr_->setEnabled(true);
    if (!isAccepted(field, target_[index].name)) return;
    txtYb(index)->setText(field);
    txtYb(index)->setCursorPosition(0);
    txtYb(index)->setToolTip(field);
    browser_.fil1()->setEnabled(false);
}

bool MappingPanel::isAccepted(const QString& field, const QString& targetField) {
    const auto source = fieldNamed(shapeOf(sourceDatabase_, state_.sourceTable), field);
    if (!source) throw Error(u"源表“%1”中没有字段“%2”。"_s.arg(state_.sourceTable, field));
    const auto target = fieldNamed(target_, targetField);
    if (const QString warning = typeWarning(*source, *target); !warning.isEmpty()) {
        say(controls_.form, warning, BoxIcon::information);
        return false;
    }
    const QString question = lengthQuestion(*source, *target);
    return question.isEmpty() || ask(controls_.form, question);
}

void MappingPanel::markIndexField() {
    for (const Line& line : lines_) setInk(line.txtYb, Qt::black);
    setInk(txtYb(0), Qt::red);
    indexFieldName_ = txtYb(0)->text();
    Q_EMIT indexChosen(indexFieldName_);
}

void MappingPanel::cmdQxClick() {
    if (cmdQx_->text() == mapAllCaption)
        mapAll();
    else
        Q_EMIT otherAllClicked();
}

/// Field by field, by position only.
void MappingPanel::mapAll() {
    hideFieldList();
    const TableShape opened = shapeByName(mekTp::catalogue, sourceDatabase_, chosenTable());
    const TableShape album = shapeOf(mekTp::catalogue, state_.albumTable);
    const int mismatch = firstTypeMismatch(opened, album);
    const std::size_t agreeing =
        mismatch >= 0 ? static_cast<std::size_t>(mismatch) : std::min(opened.size(), target_.size());
    for (std::size_t i = 0; i < agreeing; ++i) {
        setInk(txtYb(i), Qt::black);
        setField(i, opened[i].name);
    }
    if (mismatch >= 0) {
        say(controls_.form, u"字段类型不对应，无法继续！"_s);
        return;
    }
    markIndexField();
    cmdLrClick();
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
        say(controls_.form, u"如果由数据库以“替换”方式录入图片，必须设置“序号”的对应字段。"_s);
        return;
    }
    if (!forTransfer() && replaces && replaces()) requireKeyColumn(target_, state_.targetTable, txtYb(0)->text());
    hideFieldList();
    readMapping();
    if (mappedFieldCount_ == 0 &&
        !ask(controls_.form,
             u"只选择了一个对应字段，可能会造成数据不全。\n\n如果继续，请按《确定》；否则按《取消》。"_s))
        return;
    mappingDone_ = true;
    if (forTransfer()) {
        cmdLr_->setText(closeCaption);
        cmdLr_->setEnabled(true);
        cmdQx_->setEnabled(false);
    } else {
        cmdQx_->setText(u"全部记录"_s);
        cmdQx_->setEnabled(true);
        cmdLr_->setText(u"录入图册"_s);
        cmdLr_->setEnabled(false);
    }
    state_.intakeStep = forTransfer() ? 15 : 5;
    hints_.czts(forTransfer() ? 7 : 6);
    Q_EMIT mapped();
}

void MappingPanel::readMapping() {
    fieldMapping_.clear();
    for (std::size_t i = 0; i < target_.size(); ++i) fieldMapping_.push_back({target_[i].name, txtYb(i)->text()});
    mappedFieldCount_ = mappedFields(fieldMapping_);
}

/// A line is emptied by the keys that delete; the list is closed by Escape.
bool MappingPanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || mappingDone_) return QObject::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Escape) {
        hideFieldList();
    } else if (key == Qt::Key_Delete || key == Qt::Key_Backspace) {
        for (std::size_t i = 0; i < lines_.size(); ++i) {
            if (watched != txtYb(i)) continue;
            txtYb(i)->clear();
            if (i == 0) markIndexField();
        }
    }
    return QObject::eventFilter(watched, event);
}
