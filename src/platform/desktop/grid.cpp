#include "platform/desktop/grid.h"

#include "platform/base/error.h"
#include "platform/desktop/grid_model.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>
#include <QSignalBlocker>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int lineHeight = 20;
constexpr int headingPadding = 12;
constexpr int cellPadding = 16;
/// So many records tell how wide the contents of a column are; a column grows no wider for them than that.
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
    connect(this, &QTableView::clicked, this, [this](const QModelIndex& index) { Q_EMIT rowClicked(index.row()); });
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
}

QString Grid::cellText(int row, int column) const {
    return model_->index(row, column).data().toString();
}

void Grid::follow() {
    model_->dropRows();
    int row = -1;
    attempt([&] { row = data_->Recordset().row(); });
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

int Grid::wantedWidth(int column) const {
    const QFontMetrics metrics = fontMetrics();
    QString heading = model_->spacedHeading(column);
    const auto blanks = static_cast<int>(heading.count(u' '));
    // A blank counts as half a Chinese character; in a proportional font it would be much narrower.
    const int headingWidth =
        metrics.horizontalAdvance(heading.remove(u' ')) + blanks * metrics.horizontalAdvance(u'中') / 2;
    return std::max(headingWidth + headingPadding, contentWidth(column) + cellPadding);
}

int Grid::contentWidth(int column) const {
    const QFontMetrics metrics = fontMetrics();
    int width = model_->isNumeric(column) ? metrics.horizontalAdvance(u"00000"_s) : 0;
    const int rows = std::min(model_->rowCount(), sampledRows);
    for (int row = 0; row < rows; ++row) width = std::max(width, metrics.horizontalAdvance(cellText(row, column)));
    return std::min(width, widestByContent);
}

void Grid::applyWidths() {
    const int columns = model_->columnCount();
    int used = 0;
    for (int column = 0; column < columns; ++column) {
        const bool last = column == columns - 1;
        const int width = wantedWidth(column);
        setColumnWidth(column, last ? std::max(width, viewport()->width() - used) : width);
        used += width;
    }
}

void Grid::keyPressEvent(QKeyEvent* event) {
    QTableView::keyPressEvent(event);
    if ((event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) || !currentIndex().isValid()) return;
    event->accept();
    Q_EMIT rowClicked(currentIndex().row());
}

void Grid::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    applyWidths();
}
