#pragma once

#include <QTextBrowser>

/// A box that shows rich text and finds places in it. Read only; its text can be selected and copied.
class RichTextBox : public QTextBrowser {
    Q_OBJECT

  public:
    explicit RichTextBox(QWidget* parent = nullptr);

    /// Looks for `text` from the character at `start` on, ignoring case; a hit does not span two paragraphs. Selects
    /// the hit, brings its paragraph to the top of the view and returns its position. -1 when there is none: then
    /// selection and view stay as they are.
    int Find(const QString& text, int start);

    int SelStart() const;
    int SelLength() const;
    void setSelLength(int characters);

  protected:
    void resizeEvent(QResizeEvent* event) override;
};
