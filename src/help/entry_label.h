#pragma once

#include <QLabel>

/// A line of the contents that leads to a heading when it is clicked, by the mouse or by the keyboard. A caption too
/// long for its place ends in an ellipsis; `text()` is always whole.
class EntryLabel : public QLabel {
    Q_OBJECT

  public:
    explicit EntryLabel(QWidget* parent = nullptr);

    void setLook(const QColor& colour, bool underlined);
    /// Marked: the entry of what the reader has before him.
    void setMarked(bool on);
    bool isMarked() const { return isMarked_; }
    /// Whether the caption is longer than its place.
    bool isCut() const;

  Q_SIGNALS:
    void clicked();
    void mouseMoved();
    void gotFocus();   ///< By the keyboard.
    void lostFocus();  ///< Not sent when the whole window loses the focus.

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    bool isMarked_ = false;
};
