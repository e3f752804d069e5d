#pragma once

#include <QListWidget>

/// A list box: lines of text, known by index from 0. It sends the mouse events that the forms listen to.
class ListBox : public QListWidget {
    Q_OBJECT

  public:
    explicit ListBox(QWidget* parent = nullptr);

    int ListCount() const { return count(); }
    int ListIndex() const { return currentRow(); }
    QString List(int index) const { return item(index)->text(); }
    void AddItem(const QString& text) { addItem(text); }
    /// Lays the lines out in that many columns of equal width; 1 is a plain list.
    void setColumns(int columns);
    int columns() const { return columns_; }

  Q_SIGNALS:
    void lineClicked(int index);    ///< By mouse or Enter.
    void lineActivated(int index);  ///< By a double click or Enter.
    void mouseMoved();

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

  private:
    void layOutColumns();
    int columns_ = 1;
    bool afterDoubleClick_ = false;
};
