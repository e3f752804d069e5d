#pragma once

#include "platform/desktop/text_box.h"

/// The hint box over the upper edge of the picture: what can be done next, or why something was not done.
class HintBox : public QObject {
    Q_OBJECT

  public:
    /// The box lies over the upper edge of `viewport`.
    HintBox(QWidget* form, const QWidget* viewport);

    QString text() const { return txtTs_->text(); }
    /// Changes the text; nothing shows for that.
    void setText(const QString& text) { txtTs_->setText(text); }
    /// Shows the hint for a code. A code without hint leaves the text and lays the box out anew.
    void tscz(const QString& code);
    /// Shows a text even where hints are off: why an operation was not carried out.
    void notice(const QString& text);
    /// Whether the person wants to see hints.
    void setOn(bool on) { isOn_ = on; }

    void hide() { txtTs_->hide(); }
    /// Shows the box once, also where hints are off.
    void reveal();
    /// Puts it in the middle of the window.
    void lay();

    /// While something is drawn on the picture, it can be seen and reached through the box.
    void letThrough(bool on) { txtTs_->setAttribute(Qt::WA_TransparentForMouseEvents, on); }
    void goBehind() { txtTs_->lower(); }
    void comeForward() { txtTs_->raise(); }
    /// A click that went through the box hides it as one on it does.
    void clickedThrough(QPoint global);

  Q_SIGNALS:
    /// The box lies above everything: what has to be worked with meanwhile comes forward.
    void raised();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    QWidget* form_;
    const QWidget* viewport_;
    TextBox* txtTs_;  ///< The box.
    bool isOn_ = true;
};

/// Makes a box one that shows a sentence measured in half-character cells.
void dressHint(TextBox* box);

/// Puts a text into such a box, and gives it the width of its half cells, at most so many twips. What does not fit is
/// written smaller, and is whole in the tool tip where that is not enough.
void setHint(TextBox* box, const QString& text, int mostWidth);
