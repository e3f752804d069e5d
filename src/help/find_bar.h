#pragma once

#include "help/rich_text_box.h"
#include "platform/desktop/text_box.h"

#include <QLabel>

/// The line below the manual in which the reader looks for words of his own. From the last hit on, and at the end of
/// the text from its beginning again.
class FindBar : public QWidget {
    Q_OBJECT

  public:
    FindBar(RichTextBox* text, QWidget* parent);

    void takeFocus();

  private:
    void findNext();

    RichTextBox* text_;
    TextBox* txtCz;
    QLabel* lblCz;
};
