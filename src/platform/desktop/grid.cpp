#include "platform/desktop/grid.h"

#include "platform/base/error.h"
#include "platform/desktop/busy.h"
#include "platform/desktop/grid_model.h"
#include "platform/desktop/message_box.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <algorithm>
#include <numeric>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int lineHeight = 20;
constexpr int headingPadding = 12;
constexpr int cellPadding = 16;
/// So many records are measured for the width of a column, and it grows no wider for them than this.
constexpr int sampledRows = 20;
constexpr int widestByContent = 132;
}  // namespace

Grid::Grid(QWidget* parent) : QTableView(parent), model_(new GridModel(this)) {
    setModel(model_);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(lineHeight);
    verticalHeader()->setDefaultSectionSize(lineHeight);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setMinimumSectionSize(16);
    horizontalHeader()->setFixedHeight(lineHeight + 2);
    horizontalHeader()->viewport()->installEventFilter(this);
    connect(horizontalHeader(), &QHeaderView::sectionResized, this,
            [this](int column, int, int width) { takeWidth(column, width); });
    connect(this, &QTableView::clicked, this, [this](const QModelIndex& index) {
        if (isOnCurrentRecord(index)) Q_EMIT rowClicked(index.row());
    });
    connect(this, &QTableView::doubleClicked, this, [this](const QModelIndex& index) {
        if (isOnCurrentRecord(index)) Q_EMIT rowActivated(index.row());
    });
}

void Grid::bind(DataControl* source) {
    if (data_ != nullptr) data_->disconnect(this);
    data_ = source;
    model_->bind(source);
    connect(source, &DataControl::refreshed, this, [this] {
        model_->reload();
        applyWidths();
    });
    connect(source, &DataControl::repositioned, this, &Grid::follow);
    connect(source, &QObject::destroyed, this, [this] { data_ = nullptr; });
    model_->reload();
    applyWidths();
}

void Grid::setFormatString(const QString& format) {
    format_ = format;
    model_->setHeadings(gridHeadings(format));
    applyWidths();
}

void Grid::Clear() {
    model_->clear();
    applyWidths();
}

void Grid::hold() {
    model_->hold();
}

void Grid::release() {
    model_->release();
}

QString Grid::cellText(int row, int column) const {
    return model_->index(row, column).data().toString();
}

int Grid::currentRecord() const {
    int row = -1;
    attempt([&] {
        if (data_ != nullptr) row = data_->Recordset().row();
    });
    return row;
}

bool Grid::isOnCurrentRecord(const QModelIndex& index) const {
    return index.isValid() && index.row() == currentRecord();
}

void Grid::follow() {
    const QScopedValueRollback held(held_, true);
    model_->dropRows();
    const int row = currentRecord();
    if (row < 0 || row >= model_->rowCount()) {
        clearSelection();
        return;
    }
    const int column = std::max(0, currentIndex().column());
    const QModelIndex index = model_->index(row, column);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    const int sideways = horizontalScrollBar()->value();
    scrollTo(index);
    horizontalScrollBar()->setValue(sideways);
}

// Widths of columns -------------------------------------------------------------------------------------------------

QString Grid::headingOf(int column) const {
    return model_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
}

/// A person's widths, and for the other columns those of their headings and texts, as far as these are not too wide.
std::vector<int> Grid::wantedWidths(int widestContent) const {
    const QFontMetrics metrics = fontMetrics();
    std::vector<int> widths;
    for (int column = 0; column < model_->columnCount(); ++column) {
        QString heading = model_->spacedHeading(column);
        const auto blanks = int(heading.count(u' '));
        // A blank counts as half a Chinese character; in a proportional font it would be much narrower.
        const int headingWidth =
            metrics.horizontalAdvance(heading.remove(u' ')) + blanks * metrics.horizontalAdvance(u'中') / 2;
        const bool last = column == model_->columnCount() - 1;
        const int content = contentWidth(column, last ? widestByContent : widestContent);
        widths.push_back(
            widths_.value(headingOf(column), std::max(headingWidth + headingPadding, content + cellPadding)));
    }
    return widths;
}

int Grid::contentWidth(int column, int widest) const {
    const QFontMetrics metrics = fontMetrics();
    int width = model_->isNumeric(column) ? metrics.horizontalAdvance(u"00000"_s) : 0;
    const int rows = std::min(model_->rowCount(), sampledRows);
    for (int row = 0; row < rows; ++row) width = std::max(width, metrics.horizontalAdvance(cellText(row, column)));
    return std::min(width, widest);
}

/// Long texts are shown whole where all columns have room.
void Grid::applyWidths() {
    const int room = viewport()->width();
    const auto sum = [](const std::vector<int>& widths) { return std::accumulate(widths.begin(), widths.end(), 0); };
    std::vector<int> widths = wantedWidths(room);
    if (sum(widths) > room) widths = wantedWidths(widestByContent);
    if (widths.empty()) return;
    const int last = int(widths.size()) - 1;
    for (int column = 0; column < last; ++column) setColumnWidth(column, widths[std::size_t(column)]);
    // Scroll bars may have come or gone meanwhile.
    setColumnWidth(last, std::max(widths.back(), viewport()->width() - (sum(widths) - widths.back())));
}

void Grid::setWidths(const Widths& widths) {
    widths_ = widths;
    applyWidths();
}

void Grid::takeWidth(int column, int width) {
    if (!inHeader_) return;
    widths_[headingOf(column)] = width;
    widthChanged_ = true;
}

/// The end of a drag: the other columns do not move under the mouse.
bool Grid::eventFilter(QObject* watched, QEvent* event) {
    const bool isHeader = watched == horizontalHeader()->viewport();
    if (isHeader && (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick))
        inHeader_ = true;
    if (isHeader && event->type() == QEvent::MouseButtonRelease && std::exchange(inHeader_, false) &&
        std::exchange(widthChanged_, false))
        QMetaObject::invokeMethod(
            this,
            [this] {
                applyWidths();
                Q_EMIT widthGiven();
            },
            Qt::QueuedConnection);
    return QTableView::eventFilter(watched, event);
}

// The person's choice ----------------------------------------------------------------------------------------------

/// Makes the highlighted row the current record; false when the data control stays where it is.
bool Grid::select() {
    const int row = currentIndex().row();
    if (data_ == nullptr || row < 0) return false;
    bool selected = false;
    runHandler(window(), [&] {
        const Hourglass hourglass(this);
        selected = data_->goTo(row);
        if (selected) Q_EMIT rowSelected(row);
    });
    if (!selected) follow();
    return selected;
}

void Grid::keyPressEvent(QKeyEvent* event) {
    const int before = currentIndex().row();
    {
        // Not from within the toolkit's own work: a question may be asked.
        const QScopedValueRollback held(held_, true);
        QTableView::keyPressEvent(event);
    }
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const int row = currentIndex().row();
    if (row < 0 || (!enter && row == before)) return;
    if (enter) event->accept();
    if (!select() || !enter) return;
    Q_EMIT rowClicked(row);
    if (row == currentRecord()) Q_EMIT rowActivated(row);
}

void Grid::mousePressEvent(QMouseEvent* event) {
    mouseDown_ = true;
    rowBefore_ = indexAt(event->position().toPoint()).isValid() ? -1 : currentIndex().row();
    QTableView::mousePressEvent(event);
}

void Grid::mouseReleaseEvent(QMouseEvent* event) {
    const bool wasDown = std::exchange(mouseDown_, false);
    if (wasDown && currentIndex().row() != rowBefore_) select();
    QTableView::mouseReleaseEvent(event);
}

/// A double click can take the grid away: then the button's release never comes, and the toolkit would go on scrolling.
void Grid::hideEvent(QHideEvent* event) {
    mouseDown_ = false;
    setState(NoState);
    stopAutoScroll();
    QTableView::hideEvent(event);
}

void Grid::focusInEvent(QFocusEvent* event) {
    // The toolkit makes the first row the current one as soon as the grid has the focus; nobody has chosen it.
    const bool hadNone = !currentIndex().isValid();
    const QScopedValueRollback held(held_, true);
    QTableView::focusInEvent(event);
    if (hadNone) selectionModel()->clearCurrentIndex();
}

/// Other ways to move the highlight, such as a screen reader, move the record too.
void Grid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    if (!held_ && !mouseDown_ && current.isValid() && !isOnCurrentRecord(current)) select();
}

/// Home and End lead to the first and the last record, with or without Ctrl.
QModelIndex Grid::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    if (action != MoveHome && action != MoveEnd) return QTableView::moveCursor(action, modifiers);
    return model()->index(action == MoveHome ? 0 : model()->rowCount() - 1, std::max(0, currentIndex().column()));
}

/// No key takes the highlight away from the current record.
QItemSelectionModel::SelectionFlags Grid::selectionCommand(const QModelIndex& index, const QEvent*) const {
    if (!index.isValid()) return QItemSelectionModel::NoUpdate;
    return QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
}

void Grid::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    applyWidths();
}
