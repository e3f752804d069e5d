#include "settings/album_entry.h"

#include "catalogue/album_rules.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/message_box.h"
#include "settings/album_lines.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace {

bool isEnter(const QEvent& event) {
    if (event.type() != QEvent::KeyPress) return false;
    const int key = static_cast<const QKeyEvent&>(event).key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

}  // namespace

AlbumEntry::AlbumEntry(QComboBox* chooser, FormState& state) : QObject(chooser), chooser_(chooser), state_(state) {
    // The box hands its keys on to the line in it.
    for (QWidget* part : {static_cast<QWidget*>(chooser), static_cast<QWidget*>(chooser->lineEdit())})
        part->installEventFilter(this);
    connect(chooser, &QComboBox::activated, this, guarded(chooser, [this] { choose(); }));
    connect(chooser->lineEdit(), &QLineEdit::textEdited, this, guarded(chooser, [this] { typed(); }));
}

bool AlbumEntry::eventFilter(QObject* watched, QEvent* event) {
    // The box itself takes what it completes for no choice, and a whole line for two.
    if (isEnter(*event)) {
        runHandler(chooser_, [this] { enter(); });
        return true;
    }
    if (event->type() == QEvent::FocusOut) showBeginning(*chooser_);
    return QObject::eventFilter(watched, event);
}

/// False when the album in hand is kept; its line stands in the box again then.
bool AlbumEntry::leaves() {
    if (!mayLeave || mayLeave()) return true;
    chooseAlbumLine(*chooser_, state_.albumTable);
    return false;
}

void AlbumEntry::choose() {
    if (leaves()) take();
}

void AlbumEntry::enter() {
    if (!leaves()) return;
    const QString table = offeredTable(*chooser_, chooser_->currentText());
    if (!table.isEmpty()) chooseAlbumLine(*chooser_, table);
    chooser_->setEditText(chooser_->currentText() + u' ');
    take();
}

void AlbumEntry::take() {
    const Hourglass hourglass(chooser_);
    // Only a table that the list offers is an album; any other table of the catalogue is not for pictures.
    const QString table = offeredTable(*chooser_, chooser_->currentText());
    showBeginning(*chooser_);
    if (table.isEmpty()) {
        Q_EMIT lost();
        return;
    }
    state_.albumTable = table;
    Q_EMIT chosen();
}

/// What is being typed is no choice before Enter, and the album chosen before no longer is one.
void AlbumEntry::typed() {
    const QString table = tableOfLine(chooser_->currentText());
    if (table.compare(state_.albumTable, Qt::CaseInsensitive) != 0 && leaves()) Q_EMIT lost();
}
