#include "platform/desktop/list_box.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <algorithm>

namespace {
constexpr int lineHeight = 18;
}

ListBox::ListBox(QWidget* parent) : QListWidget(parent) {
    setUniformItemSizes(true);
    setMovement(QListView::Static);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    // Not the frame: its events go up to the form, which would think that the mouse is beside the list.
    viewport()->setMouseTracking(true);
    connect(this, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* line) {
        afterDoubleClick_ = true;
        Q_EMIT lineActivated(row(line));
    });
    connect(this, &QListWidget::itemClicked, this, [this](QListWidgetItem* line) {
        if (!std::exchange(afterDoubleClick_, false)) Q_EMIT lineClicked(row(line));
    });
}

void ListBox::setColumns(int columns) {
    columns_ = std::max(columns, 1);
    setFlow(QListView::TopToBottom);
    setWrapping(columns_ > 1);
    setResizeMode(columns_ > 1 ? QListView::Adjust : QListView::Fixed);
    setVerticalScrollBarPolicy(columns_ > 1 ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
    layOutColumns();
}

void ListBox::layOutColumns() {
    setGridSize(columns_ > 1 ? QSize(viewport()->width() / columns_, lineHeight) : QSize());
}

void ListBox::mousePressEvent(QMouseEvent* event) {
    afterDoubleClick_ = false;
    QListWidget::mousePressEvent(event);
}

void ListBox::mouseMoveEvent(QMouseEvent* event) {
    QListWidget::mouseMoveEvent(event);
    Q_EMIT mouseMoved();
}

void ListBox::keyPressEvent(QKeyEvent* event) {
    QListWidget::keyPressEvent(event);
    if ((event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) || currentRow() < 0) return;
    event->accept();
    const int line = currentRow();
    Q_EMIT lineClicked(line);
    if (line == currentRow()) Q_EMIT lineActivated(line);
}

void ListBox::resizeEvent(QResizeEvent* event) {
    if (columns_ > 1) layOutColumns();
    QListWidget::resizeEvent(event);
}

void ListBox::focusInEvent(QFocusEvent* event) {
    // The toolkit makes the first line the current one as soon as the list has the focus, though nobody has chosen it.
    const bool hadNone = currentRow() < 0;
    const QSignalBlocker silence(this);
    QListWidget::focusInEvent(event);
    if (hadNone) setCurrentRow(-1, QItemSelectionModel::NoUpdate);
}
