#include "settings/frame/album_entry.h"

#include "catalogue/album_rules.h"
#include "catalogue/mektp.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/message_box.h"
#include "platform/desktop/placing.h"
#include "platform/desktop/tab_control.h"
#include "settings/frame/album_lines.h"
#include "settings/frame/settings_tab.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int chooserHeight = 285;

bool isEnter(const QEvent& event) {
    if (event.type() != QEvent::KeyPress) return false;
    const int key = static_cast<const QKeyEvent&>(event).key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

}  // namespace

AlbumEntry::AlbumEntry(TabControl* sstFz)
    : sstFz_(sstFz),
      lblXc(make<QLabel>(sstFz->page(intakeTab), u"lblXc"_s)),
      cboBm(make<QComboBox>(sstFz->page(intakeTab), u"cboBm"_s)) {
    cboBm->setAccessibleName(u"图册"_s);
    cboBm->setEditable(true);
    cboBm->setInsertPolicy(QComboBox::NoInsert);
    // The box hands its keys on to the line in it.
    for (QWidget* part : {static_cast<QWidget*>(cboBm), static_cast<QWidget*>(cboBm->lineEdit())})
        part->installEventFilter(this);
    connect(cboBm, &QComboBox::activated, this, guarded(cboBm, [this] { choose(); }));
    connect(cboBm->lineEdit(), &QLineEdit::textEdited, this, guarded(cboBm, [this] { typed(); }));
}

void AlbumEntry::fill() {
    fillAlbumLines(*cboBm, mekTp::catalogue);
}

void AlbumEntry::addLine(const QString& albumLine) {
    addAlbumLine(*cboBm, albumLine);
}

void AlbumEntry::removeLine(const QString& table) {
    removeAlbumLine(*cboBm, table);
}

bool AlbumEntry::hasLines() const {
    return cboBm->count() > 0;
}

void AlbumEntry::putOn(int page, const std::optional<PageLayout::Chooser>& place) {
    for (QWidget* part : {static_cast<QWidget*>(lblXc), static_cast<QWidget*>(cboBm)})
        part->setVisible(place.has_value());
    if (!place) return;
    lblXc->setText(place->caption);
    const Growth& growth = place->growth;
    letGrow(cboBm, growth);
    letGrow(lblXc, beside(growth.left, growth.left));
    sstFz_->putOn(page, lblXc, place->label.x(), place->label.y(), place->box.x() - place->label.x(), 225);
    sstFz_->putOn(page, cboBm, place->box.x(), place->box.y(), place->width, chooserHeight);
}

void AlbumEntry::setEnabled(bool on) {
    cboBm->setEnabled(on);
}

QString AlbumEntry::line() const {
    return cboBm->currentText();
}

bool AlbumEntry::eventFilter(QObject* watched, QEvent* event) {
    // The box itself takes what it completes for no choice, and a whole line for two.
    if (isEnter(*event)) {
        runHandler(cboBm, [this] { enter(); });
        return true;
    }
    if (event->type() == QEvent::FocusOut) showBeginning(*cboBm);
    return QObject::eventFilter(watched, event);
}

/// False when the album in hand is kept; its line stands in the box again then.
bool AlbumEntry::leaves() {
    if (!mayLeave || mayLeave()) return true;
    chooseAlbumLine(*cboBm, table_);
    return false;
}

void AlbumEntry::choose() {
    if (leaves()) take();
}

void AlbumEntry::enter() {
    if (!leaves()) return;
    const QString table = offeredTable(*cboBm, cboBm->currentText());
    if (!table.isEmpty()) chooseAlbumLine(*cboBm, table);
    cboBm->setEditText(cboBm->currentText() + u' ');
    take();
}

void AlbumEntry::take() {
    const Hourglass hourglass(cboBm);
    // Only a table that the list offers is an album; any other table of the catalogue is not for pictures.
    const QString table = offeredTable(*cboBm, cboBm->currentText());
    showBeginning(*cboBm);
    if (table.isEmpty()) {
        lose();
        return;
    }
    table_ = table;
    Q_EMIT chosen();
}

void AlbumEntry::choose(const QString& table) {
    chooseAlbumLine(*cboBm, table);
    take();
}

/// What is being typed is no choice before Enter, and the album chosen before no longer is one.
void AlbumEntry::typed() {
    const QString table = tableOfLine(cboBm->currentText());
    if (table.compare(table_, Qt::CaseInsensitive) != 0 && leaves()) lose();
}

void AlbumEntry::lose() {
    table_.clear();
    Q_EMIT lost();
}
