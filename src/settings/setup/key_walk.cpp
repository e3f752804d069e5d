#include "settings/setup/key_walk.h"

#include <QKeyEvent>
#include <QWidget>

namespace {
int stepOf(int key) {
    switch (key) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Down:
            return 1;
        case Qt::Key_Up:
            return -1;
        default:
            return 0;
    }
}
}  // namespace

KeyWalk::KeyWalk(const QList<QWidget*>& ring, QObject* parent) : QObject(parent), ring_(ring) {
    for (QWidget* box : ring) box->installEventFilter(this);
}

bool KeyWalk::eventFilter(QObject* watched, QEvent* event) {
    const int step = event->type() == QEvent::KeyPress ? stepOf(static_cast<QKeyEvent*>(event)->key()) : 0;
    const auto at = ring_.indexOf(static_cast<QWidget*>(watched));
    if (step == 0 || at < 0) return QObject::eventFilter(watched, event);
    ring_.at((at + step + ring_.size()) % ring_.size())->setFocus(Qt::TabFocusReason);
    return true;
}
