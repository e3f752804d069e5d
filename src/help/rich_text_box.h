#pragma once

#include <QTextBrowser>

/// A box that shows rich text and finds places in it. Read only; its text can be selected and copied.
class RichTextBox : public QTextBrowser {
    Q_OBJECT

  public:
    explicit RichTextBox(QWidget* parent = nullptr);

    /// Looks for `text` from the character at `start` on, whatever the case of its letters; a hit does not span two
    /// paragraphs. The hit is selected and its paragraph comes to the top of the view. Position of the hit, or -1,
    /// which leaves selection and view alone.
    int Find(const QString& text, int start);

    int SelStart() const;
    int SelLength() const;
    void setSelLength(int characters);

  protected:
    void resizeEvent(QResizeEvent* event) override;
};
