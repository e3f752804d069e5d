#pragma once

#include <QString>

class QColor;
class QLabel;
class TabControl;

/// Text behind "操作提示：" of the numbered hint `number`; empty for a number without entry. `count`: selected files.
QString hintTail(int number, int count);

/// The hint line lblTs together with the text it goes back to.
class HintLine {
  public:
    explicit HintLine(TabControl* sstFz);

    void putOn(int page);

    /// Shows the numbered hint.
    void czts(int number, int count = 0);
    /// Shows a whole text and keeps it.
    void show(const QString& text);

    /// Shows a text, in another colour, as long as the mouse is over the caption of a page.
    void showForCaption(const QString& text);
    /// Shows the kept text again.
    void showKept();

  private:
    void paint(const QString& text, const QColor& colour);

    TabControl* sstFz_;
    QLabel* lblTs;
    QString kept_;
};
