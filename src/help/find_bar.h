#pragma once

#include "help/rich_text_box.h"
#include "platform/desktop/text_box.h"

#include <QLabel>

/// The line below the manual in which the reader types words to look for. A search goes on behind the last hit, and
/// from the end of the text back to its beginning.
class FindBar : public QWidget {
    Q_OBJECT

  public:
    FindBar(RichTextBox* text, QWidget* parent);

    void takeFocus();

  private:
    void findNext();

    RichTextBox* text_;  ///< The manual.
    TextBox* txtCz;      ///< Words to look for.
    QLabel* lblCz;       ///< Says when nothing is found.
};
