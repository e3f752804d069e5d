#include "platform/desktop/habits.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDialog>
#include <QKeyEvent>

namespace {

bool isEnter(const QKeyEvent& event) {
    const bool isKey = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    return isKey && (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

/// Null when the object is no button, or is in a dialog.
QAbstractButton* buttonOfWindow(QObject* watched) {
    auto* button = qobject_cast<QAbstractButton*>(watched);
    return button != nullptr && qobject_cast<QDialog*>(button->window()) == nullptr ? button : nullptr;
}

}  // namespace

bool Habits::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Wheel && qobject_cast<QComboBox*>(watched) != nullptr) {
        // The open list is a window of its own and scrolls. The surface under the box may scroll too.
        event->ignore();
        return true;
    }
    if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        QAbstractButton* button = isEnter(*key) ? buttonOfWindow(watched) : nullptr;
        if (button != nullptr) {
            event->accept();
            if (!key->isAutoRepeat()) button->click();
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}
