#pragma once

#include <QLineEdit>
#include <QPlainTextEdit>

/// A one-line text box with the events that the forms listen to.
class TextBox : public QLineEdit {
    Q_OBJECT

  public:
    explicit TextBox(QWidget* parent = nullptr);

    void setLocked(bool on);  ///< Locked: shows its text in a muted way and takes no typing; can still have the focus.
    bool isLocked() const { return isReadOnly(); }

    /// Typing stops at so many characters; 0: no limit. A pasted text stays whole, so that nobody loses its end without
    /// a word: check `isTooLong` before you store it.
    void setTypingLimit(int characters) { typingLimit_ = characters; }
    int typingLimit() const { return typingLimit_; }
    bool isTooLong() const { return typingLimit_ > 0 && text().size() > typingLimit_; }

  Q_SIGNALS:
    void gotFocus();
    void lostFocus();  ///< Not sent when the whole window loses the focus.
    void enterPressed();
    void clicked();  ///< By the mouse.

  protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    qsizetype room() const;
    bool holdsFocus_ = false;
    int typingLimit_ = 0;
};

/// A text box of several lines that only shows its text: captions over pictures, the data strip. Takes no focus.
class CaptionBox : public QPlainTextEdit {
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText)

  public:
    explicit CaptionBox(QWidget* parent = nullptr);
    void setText(const QString& text) { setPlainText(text); }
    QString text() const { return toPlainText(); }

  Q_SIGNALS:
    void clicked();

  protected:
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    void wearGround();
};
