#pragma once

#include "intake/form_state.h"

class QLabel;

/// Text behind "操作提示：" of the numbered hint `number`; empty for a number without entry.
QString hintTail(int number, int selectedFileCount);

/// The hint line lblTs together with the text it goes back to.
class HintLine {
  public:
    HintLine(QLabel* lblTs, FormState& state) : lblTs_(lblTs), state_(state) {}

    /// Shows the numbered hint.
    void czts(int number);
    /// Shows a whole text and keeps it.
    void show(const QString& text);

  private:
    QLabel* lblTs_;
    FormState& state_;
};
