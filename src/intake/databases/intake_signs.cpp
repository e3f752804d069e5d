#include "intake/databases/intake_signs.h"

#include "platform/desktop/elided_label.h"
#include "platform/desktop/placing.h"
#include "settings/frame/columns.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr Growth overGrid = beside(intakeShare, 1), belowGrid = overGrid + movesDown;

QLabel* makeLine(TabControl* sstFz, const QString& name, const QRect& at, const Growth& growth) {
    auto* label = make<ElidedLabel>(sstFz->page(intakeTab), name);
    label->setTextFormat(Qt::PlainText);
    sstFz->putOn(intakeTab, label, at.x(), at.y(), at.width(), at.height());
    letGrow(label, growth);
    return label;
}

void tellWithTip(QLabel* line, const QString& caption, const QString& text) {
    line->setText(caption + text);
    line->setToolTip(text);
}

}  // namespace

IntakeSigns::IntakeSigns(const SettingsFrame& frame, BrowserPanel& browser)
    : sstFz_(frame.sstFz),
      browser_(browser),
      lblMk(makeLine(frame.sstFz, u"lblMk"_s, {5750, 735, 2400, 240}, overGrid)),
      lblJl(makeLine(frame.sstFz, u"lblJl"_s, {5435, 4880, 3750, 270}, belowGrid)),
      lbl11(makeLine(frame.sstFz, u"lbl11"_s, {5435, 5175, 1245, 225}, beside(intakeShare, intakeShare) + movesDown)),
      lbl13(makeLine(frame.sstFz, u"lbl13"_s, {2820, 6480, 1020, 225}, movesDown)),
      lbl14(makeLine(frame.sstFz, u"lbl14"_s, {3855, 6480, 1155, 225}, movesDown)) {
    headAlbum();
}

void IntakeSigns::headAlbum() {
    sstFz_->putOn(intakeTab, lblMk, 5750, 735, 2400, 240);
    lblMk->setText(u"目 标 数 据 库 表"_s);
}

void IntakeSigns::headSource() {
    sstFz_->putOn(intakeTab, lblMk, 5250, 735, 2950, 240);
    lblMk->setText(u"在下表选择源表中要复制的记录"_s);
}

void IntakeSigns::tell(const QString& text) {
    lblJl->setText(text);
}

void IntakeSigns::tellTarget(const QString& table) {
    lbl11->setText(table.isEmpty() ? QString() : u"目标表："_s + table);
}

void IntakeSigns::tellSourceFile(const QString& path) {
    browser_.setNote(u"源库："_s + path, path);
}

void IntakeSigns::tellSourceTable(const QString& table) {
    tellWithTip(lbl13, u"源表："_s, table);
}

void IntakeSigns::tellIndexField(const QString& field) {
    lbl14->setText(u"索引字段名："_s + field);
}

void IntakeSigns::clearSourceFile() {
    browser_.setNote({});
}

void IntakeSigns::clearSourceTable() {
    lbl13->clear();
}

void IntakeSigns::clearIndexField() {
    lbl14->clear();
}

void IntakeSigns::clearSource() {
    clearSourceFile();
    clearSourceTable();
    clearIndexField();
}

void IntakeSigns::placeSource(bool files) {
    if (files)
        placeBesideEcho();
    else
        placeBelowLists();
    raise();
}

/// Files as the source leave them empty.
void IntakeSigns::placeBesideEcho() {
    const Growth growth = movesRight * intakeShare + movesDown;
    browser_.placeNote(intakeTab, {4065, 5850, 945, 195}, growth);
    letGrow({lbl13, lbl14}, growth);
    sstFz_->putOn(intakeTab, lbl13, 4065, 6045, 945, 195);
    sstFz_->putOn(intakeTab, lbl14, 4065, 6240, 945, 195);
}

void IntakeSigns::placeBelowLists() {
    const double half = intakeShare / 2;
    browser_.placeNote(intakeTab, {555, 6480, 4500, 225}, movesDown + beside(0, intakeShare));
    letGrow(lbl13, movesDown + beside(0, half));
    letGrow(lbl14, movesDown + beside(half, intakeShare));
    sstFz_->putOn(intakeTab, lbl13, 555, 6225, 2100, 225);
    sstFz_->putOn(intakeTab, lbl14, 2700, 6225, 2400, 225);
}

void IntakeSigns::setVisible(bool on) {
    for (QLabel* line : {lbl11, lbl13, lbl14}) line->setVisible(on);
    if (on)
        browser_.showNote();
    else
        browser_.hideNote();
}

void IntakeSigns::raise() {
    for (QLabel* line : {lbl13, lbl14}) line->raise();
}
