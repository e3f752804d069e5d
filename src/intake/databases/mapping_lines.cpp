// The part of the mapping panel that fills the lines of fields: the list of source fields, and 全部对应.

#include "catalogue/mektp.h"
#include "intake/databases/known_sources.h"
#include "intake/databases/mapping_panel.h"
#include "intake/databases/mapping_proposal.h"
#include "platform/base/error.h"
#include "platform/desktop/elided_label.h"
#include "platform/desktop/list_box.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/text_box.h"
#include "platform/desktop/theme.h"

#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int linePitch = 250, lineHeight = 240, captionWidth = 1050, boxWidth = 885;
constexpr int listLineHeight = 180, listFrame = 60;
constexpr int groupsBottom = 2610;

void setInk(TextBox* box, const QColor& colour) {
    QPalette palette = box->palette();
    palette.setColor(QPalette::Text, theme::adapted(colour));
    box->setPalette(palette);
}

}  // namespace

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
    letGrow(txtYb, widens);
    // The message that may come first must not stand in the middle of the press of the mouse.
    connect(txtYb, &TextBox::gotFocus, this,
            guarded(frame_.form,
                    [this, index] {
                        if (index < lines_.size()) openFieldList(index);
                    }),
            Qt::QueuedConnection);
    lines_.push_back({lblMb, txtYb, false});
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
    area_->widget()->setMinimumSize(smallestPlace(area_).width(),
                                    pixelsFromTwips(static_cast<int>(target.size()) * linePitch));
    area_->ensureVisible(0, 0);
    for (QWidget* part : {static_cast<QWidget*>(lbl8_), static_cast<QWidget*>(lbl9_), static_cast<QWidget*>(area_)})
        part->show();
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
    lines_[0].isProposed = false;
    Q_EMIT cleared();
}

/// Only fields that are still there, of the same type.
void MappingPanel::propose(const QString& table) {
    const std::vector<SourceField> source = sourceFields(sourceDatabase_, table);
    TableShape shape;
    for (const SourceField& field : source) shape.push_back(field.shape);
    FieldMapping mapping = knownSources::mapping(flow_.sourceDatabase(), table);
    if (mapping.empty() && !areAlike(target_, shape)) mapping = proposedMapping(target_, source);
    for (std::size_t i = 0; i < target_.size(); ++i) {
        const auto field = fieldNamed(shape, sourceOf(mapping, target_[i].name));
        if (field && field->type == target_[i].type) proposeField(i, field->name);
    }
    if (!txtYb(0)->text().isEmpty()) markIndexField();
}

void MappingPanel::proposeField(std::size_t index, const QString& field) {
    lines_[index].isProposed = true;
    txtYb(index)->setText(field);
    txtYb(index)->setCursorPosition(0);
    txtYb(index)->setToolTip(field + u"（建议的对应，可以改选）"_s);
    cmdLr_->setEnabled(true);
}

void MappingPanel::dropProposals() {
    const bool isIndexDropped = lines_[0].isProposed;
    for (Line& line : lines_)
        if (std::exchange(line.isProposed, false)) line.txtYb->clear();
    if (isIndexDropped) markIndexField();
}

/// Asks about fields that are too long as if they had been picked one by one. One that is refused is to be picked anew.
bool MappingPanel::proposalsAreAccepted() {
    bool areAll = true;
    for (std::size_t i = 0; i < target_.size(); ++i) {
        if (!std::exchange(lines_[i].isProposed, false) || isAccepted(txtYb(i)->text(), target_[i].name)) continue;
        txtYb(i)->clear();
        if (i == 0) markIndexField();
        areAll = false;
    }
    return areAll;
}

void MappingPanel::openFieldList(std::size_t index) {
    if (mappingDone_ || target_.empty()) return;
    lineInHand_ = index;
    mappedFieldCount_ = static_cast<int>(index);
    const TableShape source = shapeOf(sourceDatabase_, flow_.sourceTable());
    lstDy_->clear();
    for (const FieldShape& field : source) lstDy_->AddItem(field.name);
    area_->ensureWidgetVisible(txtYb(index), 0, 0);
    placeFieldList(txtYb(index), static_cast<int>(source.size()));
    if (index == 0 && !forTransfer() && replaces && replaces())
        say(frame_.form,
            u"替换操作时，必须以目标表“序号”为索引字段，\n索引字段“序号”在该记录集中具有唯一的值。\n\n"
            "所以其对应字段也必须在该记录集中具有唯一值。"_s,
            BoxIcon::information);
    lstDy_->show();
    lstDy_->raise();
}

void MappingPanel::hideFieldList() {
    lstDy_->hide();
}

/// Below the box, or above it when there is no room below. A list that is too long for either stands where there is
/// more room, and never covers the groups of option buttons of the page 图片录入.
void MappingPanel::placeFieldList(const QWidget* box, int fields) {
    const QPoint at = box->mapTo(browser_.ground(), QPoint(0, 0));
    const int left = twipsFromPixels(at.x()), top = twipsFromPixels(at.y()), below = top + 270;
    const int lowest = topOf(area_) + heightOf(area_);
    const int above = top - (forTransfer() ? 0 : groupsBottom), under = lowest - below;
    int height = fields * listLineHeight + listFrame;
    bool upward = top + height > lowest - 30;
    if (upward && height > above) {
        upward = above > under;
        height = std::min(height, upward ? above : under);
    }
    place(lstDy_, left, upward ? top - height : below, leftOf(area_) + widthOf(area_) - left, height);
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
    lines_[index].isProposed = false;
    txtYb(index)->clear();
    if (field.isEmpty()) return;
    cmdLr_->setEnabled(true);
    if (!isAccepted(field, target_[index].name)) return;
    txtYb(index)->setText(field);
    txtYb(index)->setCursorPosition(0);
    txtYb(index)->setToolTip(field);
    browser_.enableFiles(false);
}

bool MappingPanel::isAccepted(const QString& field, const QString& targetField) {
    const auto source = fieldNamed(shapeOf(sourceDatabase_, flow_.sourceTable()), field);
    if (!source) throw Error(u"源表“%1”中没有字段“%2”。"_s.arg(flow_.sourceTable(), field));
    const auto target = fieldNamed(target_, targetField);
    if (const QString warning = typeWarning(*source, *target); !warning.isEmpty()) {
        say(frame_.form, warning, BoxIcon::information);
        return false;
    }
    const QString question = lengthQuestion(*source, *target);
    return question.isEmpty() || ask(frame_.form, question);
}

void MappingPanel::markIndexField() {
    for (const Line& line : lines_) setInk(line.txtYb, Qt::black);
    setInk(txtYb(0), Qt::red);
    indexFieldName_ = txtYb(0)->text();
    Q_EMIT indexChosen(indexFieldName_);
}

/// Field by field, by position only.
void MappingPanel::mapAll() {
    hideFieldList();
    dropProposals();
    const TableShape opened = shapeByName(mekTp::catalogue, sourceDatabase_, chosenTable());
    const TableShape album = shapeOf(mekTp::catalogue, frame_.albums.table());
    const int mismatch = firstTypeMismatch(opened, album);
    const std::size_t agreeing =
        mismatch >= 0 ? static_cast<std::size_t>(mismatch) : std::min(opened.size(), target_.size());
    for (std::size_t i = 0; i < agreeing; ++i) {
        setInk(txtYb(i), Qt::black);
        setField(i, opened[i].name);
    }
    if (mismatch >= 0) {
        say(frame_.form, u"字段类型不对应，无法继续！"_s);
        return;
    }
    markIndexField();
    cmdLrClick();
}

void MappingPanel::readMapping() {
    fieldMapping_.clear();
    for (std::size_t i = 0; i < target_.size(); ++i) fieldMapping_.push_back({target_[i].name, txtYb(i)->text()});
    mappedFieldCount_ = mappedFields(fieldMapping_);
}

/// A line is emptied by the keys that delete; the list is closed by Escape, and when its line goes elsewhere.
bool MappingPanel::eventFilter(QObject* watched, QEvent* event) {
    if (watched == area_ && event->type() == QEvent::Resize) hideFieldList();
    if (event->type() != QEvent::KeyPress || mappingDone_) return QObject::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Escape) {
        hideFieldList();
    } else if (key == Qt::Key_Delete || key == Qt::Key_Backspace) {
        for (std::size_t i = 0; i < lines_.size(); ++i) {
            if (watched != txtYb(i)) continue;
            lines_[i].isProposed = false;
            txtYb(i)->clear();
            if (i == 0) markIndexField();
        }
    }
    return QObject::eventFilter(watched, event);
}
