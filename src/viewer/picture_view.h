#pragma once

#include "viewer/page.h"

/// One picture alone on the screen panel, and the switch between its original size and that of the window.
class PictureView : public QObject {
  public:
    PictureView(ToolStrip& strip, ScreenPanel& screen, Page& page, QWidget* window);

    /// Shows the picture of a cell alone. Throws when its record is there no longer.
    void open(int cell);
    /// Fits the picture in view to the window anew, also when the page behind it has become another one.
    void refit() { show(); }
    /// Key `yd`.
    void switchSize();

  private:
    void show();
    void load(Recordset& record, const QString& name);

    ToolStrip& strip_;
    ScreenPanel& screen_;
    Page& page_;
    QWidget* window_;
    int selectedCell_ = 0;           ///< The cell that was opened last.
    QString table_, number_, data_;  ///< The picture in view: its album, its 序号 and what is said of it.
};
