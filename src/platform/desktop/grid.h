#pragma once

#include <QMap>
#include <QTableView>
#include <vector>

class DataControl;
class GridModel;

/// A grid bound to a data control: one line a record of the current `RecordSource`, without the long-binary columns.
/// Rows are fetched as they come into view, so an album of 100,000 records opens at once.
///
/// The highlighted row is the data control's current record. When the person highlights a row, by mouse or keys, the
/// data control goes there first, and then the signals are sent. If it does not go there, the highlight returns.
class Grid : public QTableView {
    Q_OBJECT

  public:
    explicit Grid(QWidget* parent = nullptr);

    void bind(DataControl* source);

    /// Headings from left to right, separated by `|`. A leading `^` centres the column, `>` sets it right, `<` left;
    /// the width of a heading with its blanks is the width of its column.
    void setFormatString(const QString& format);
    QString FormatString() const { return format_; }

    /// Widths of columns, in pixels by heading, that a person has given them.
    using Widths = QMap<QString, int>;
    /// The other columns are as wide as their headings and texts, and the last one takes what is left.
    void setWidths(const Widths& widths);
    const Widths& widths() const { return widths_; }

    /// Empties the grid, but for its headings, until the data control refreshes again.
    void Clear();

    /// Reads no records until `release`, which shows those that have come into view meanwhile.
    void hold();
    void release();

    /// Text of a cell, as shown.
    QString cellText(int row, int column) const;

  Q_SIGNALS:
    /// The person has made a row the current record, or has chosen the current one again by a click or Enter.
    void rowSelected(int row);
    /// A row was clicked, or Enter pressed on it: for those who do more with a click than select. Comes after
    /// `rowSelected`.
    void rowClicked(int row);
    /// A row was taken, by a double click or Enter. Comes after the other two.
    void rowActivated(int row);
    /// The person has given a column another width.
    void widthGiven();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index, const QEvent* event) const override;

  private:
    void follow();
    int currentRecord() const;
    bool isOnCurrentRecord(const QModelIndex& index) const;
    bool select();
    void applyWidths();
    QString headingOf(int column) const;
    std::vector<int> wantedWidths(int widestContent) const;
    int contentWidth(int column, int widest) const;
    void takeWidth(int column, int width);
    bool eventFilter(QObject* watched, QEvent* event) override;

    DataControl* data_ = nullptr;  ///< Whose records are shown.
    GridModel* model_;             ///< Reads them for the view.
    QString format_;
    Widths widths_;
    bool inHeader_ = false;      ///< A mouse button went down in the headings, and is down.
    bool widthChanged_ = false;  ///< By the drag that is under way.
    bool held_ = false;          ///< The highlight moves without the record: it follows it, or has not arrived yet.
    bool mouseDown_ = false;     ///< A mouse button is down: the highlight may be drawn over the rows.
    int rowBefore_ = -1;         ///< The highlighted row when the mouse went down beside all rows, otherwise -1.
};
