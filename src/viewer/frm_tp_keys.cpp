#include "platform/base/error.h"
#include "platform/desktop/message_box.h"
#include "viewer/frm_tp.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QPushButton>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

// The keys of the main window. It gets only keys that the control with the focus does not use: a box keeps what is
// typed into it.

namespace {

constexpr int mostColumns = 6;

/// As combo boxes do.
bool opensList(const QKeyEvent& event) {
    return event.key() == Qt::Key_F4 || (event.key() == Qt::Key_Down && event.modifiers().testFlag(Qt::AltModifier));
}

/// The first control that sets something: the closing button comes before it.
QWidget* firstStop(QWidget* dialog) {
    for (QWidget* next = dialog->nextInFocusChain(); next != dialog; next = next->nextInFocusChain())
        if (dialog->isAncestorOf(next) && qobject_cast<QPushButton*>(next) == nullptr && next->isEnabled() &&
            (next->focusPolicy() & Qt::TabFocus))
            return next;
    return dialog;
}

}  // namespace

void frmTp::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        escape();
    else if (event->key() == Qt::Key_F11 && !event->isAutoRepeat())
        runHandler(this, [this] { view_->switchAlone(); });
    else if (opensList(*event) && strip_->listFor(focusWidget()))
        lstLs->takeKeys();
    else if (qobject_cast<QLineEdit*>(focusWidget()) != nullptr ||
             !(viewByKey(*event) || pageByKey(event->key()) || (!event->isAutoRepeat() && workByKey(event->key()))))
        QMainWindow::keyPressEvent(event);
}

void frmTp::escape() {
    if (!lstLs->isHidden())
        lstLs->hide();
    else if (SmallDialog* open = openDialog())
        open->hide();
    else if (screen_->isViewing())
        runHandler(this, [this] { view_->leave(); });
}

SmallDialog* frmTp::openDialog() const {
    for (SmallDialog* dialog : dialogs())
        if (!dialog->isHidden()) return dialog;
    return nullptr;
}

bool frmTp::viewByKey(const QKeyEvent& event) {
    bool isTaken = false;
    if (screen_->isViewing() && !isInDialog(focusWidget())) runHandler(this, [&] { isTaken = view_->takeKey(event); });
    return isTaken;
}

bool frmTp::pageByKey(int key) {
    static const QHash<int, QString> keys{
        {Qt::Key_Home, u"ty"_s}, {Qt::Key_PageUp, u"sy"_s}, {Qt::Key_PageDown, u"xy"_s}, {Qt::Key_End, u"hy"_s}};
    if (!keys.contains(key)) return false;
    if (strip_->offers(keys[key])) runHandler(this, [&] { toolClicked(keys[key]); });
    return true;
}

bool frmTp::workByKey(int key) {
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        runHandler(this, [this] { enter(); });
    else if (isInDialog(focusWidget()))
        return false;
    else if (key == Qt::Key_Space)
        runHandler(this, [this] { space(); });
    else if (key == Qt::Key_Left || key == Qt::Key_Right)
        moveFocus(key == Qt::Key_Left ? -1 : 1);
    else if (key >= Qt::Key_1 && key < Qt::Key_1 + mostColumns)
        runHandler(this, [&] { chooseColumns(key - Qt::Key_0); });
    else
        return false;
    return true;
}

/// Opens the picture that has the focus, or the first one of the page, alone. A cover gives way to the page.
void frmTp::enter() {
    if (auto* button = qobject_cast<QAbstractButton*>(focusWidget()))
        button->click();
    else if (isInDialog(focusWidget()) || screen_->isViewing())
        return;
    else if (screen_->isCovering())
        clickScreen();
    else
        view_->open(std::max(0, page_->focusedCell()));
}

/// Stops the slide show and goes on with it. Where there is none, texts over pictures come and go.
void frmTp::space() {
    if (screen_->isViewing())
        screen_->toggleStrip();
    else if (strip_->offers(u"hd"_s))
        toolClicked(u"hd"_s);
    else
        page_->toggleCaption(page_->focusedCell());
}

void frmTp::moveFocus(int step) {
    if (screen_->isCovering()) return;
    const int from = page_->focusedCell();
    page_->focusCell(from < 0 ? 0 : from + step);
}

void frmTp::chooseColumns(int columns) {
    strip_->chooseColumns(QString::number(columns) + u"列"_s);
    if (page_->isShown()) page_->xstp();
}

bool frmTp::isInDialog(const QWidget* control) const {
    return std::ranges::any_of(dialogs(), [&](const SmallDialog* each) { return each->isAncestorOf(control); });
}

void frmTp::moveFocusWith(QWidget* dialog, QEvent::Type event) {
    if (event == QEvent::Show) firstStop(dialog)->setFocus(Qt::PopupFocusReason);
    if (event == QEvent::Hide && dialog->isAncestorOf(focusWidget())) form_->setFocus();
}
