#include "editor/floating_panel.h"

#include <QApplication>
#include <QMouseEvent>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {
/// As much of a dragged panel stays within reach of the mouse, in pixels.
constexpr int panelHandle = 24;
}  // namespace

void dressAsPanel(Surface* surface) {
    surface->setAutoFillBackground(true);
    surface->beDialog();
    surface->hide();
}

FloatingPanel::FloatingPanel(const QString& name, const QWidget* viewport, QWidget* form)
    : Surface(form), viewport_(viewport) {
    setObjectName(name);
    dressAsPanel(this);
    setToolTip(u"本对话框可用鼠标拖动移动位置"_s);
}

void FloatingPanel::mousePressEvent(QMouseEvent* event) {
    dragFrom_ = event->globalPosition().toPoint();
    Surface::mousePressEvent(event);
}

/// The panel is held a little below its upper edge.
void FloatingPanel::mouseMoveEvent(QMouseEvent* event) {
    Surface::mouseMoveEvent(event);
    const QPoint pointer = event->globalPosition().toPoint();
    if (!(event->buttons() & Qt::LeftButton) ||
        (pointer - dragFrom_).manhattanLength() < QApplication::startDragDistance())
        return;
    const QPoint wanted = viewport_->mapFromGlobal(pointer);
    const QSize room = parentWidget()->size();
    move(std::clamp(wanted.x(), panelHandle - width(), room.width() - panelHandle),
         std::clamp(wanted.y(), 0, std::max(0, room.height() - panelHandle)));
}

void FloatingPanel::showEvent(QShowEvent* event) {
    Surface::showEvent(event);
    Q_EMIT toggled();
}

void FloatingPanel::hideEvent(QHideEvent* event) {
    Surface::hideEvent(event);
    Q_EMIT toggled();
}

/// A hidden panel gives the keys back to the picture, not to the first button of the window.
bool FloatingPanel::focusNextPrevChild(bool next) {
    if (isVisible()) return Surface::focusNextPrevChild(next);
    parentWidget()->setFocus();
    return true;
}
