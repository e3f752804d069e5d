#pragma once

#include <QTableView>

class DataControl;
class GridModel;

/// A grid bound to a data control: one line a record of the current `RecordSource`, without the long-binary columns.
/// Rows are fetched as they come into view, so an album of 100,000 records opens at once.
class Grid : public QTableView {
    Q_OBJECT

  public:
    explicit Grid(QWidget* parent = nullptr);

    void bind(DataControl* source);

    /// Headings from left to right, separated by `|`. A leading `^` centres the column, `>` sets it right, `<` left;
    /// the width of a heading with its blanks is the width of its column.
    void setFormatString(const QString& format);
    QString FormatString() const { return format_; }

    /// Empties the grid until the data control refreshes again.
    void Clear();

    /// Text of a cell, as shown.
    QString cellText(int row, int column) const;

  Q_SIGNALS:
    void rowClicked(int row);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void follow();
    void applyWidths();
    int wantedWidth(int column) const;
    int contentWidth(int column) const;
    DataControl* data_ = nullptr;
    GridModel* model_;
    QString format_;
};
