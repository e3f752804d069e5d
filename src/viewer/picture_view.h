#pragma once

#include "viewer/page.h"
#include "viewer/screen_panel.h"

/// One picture alone on the screen panel, and the switch between its original size and that of the window.
class PictureView : public QObject {
  public:
    PictureView(Page& page, ToolStrip& strip, ScreenPanel& screen);

    /// Shows the picture of a cell alone. Throws when its record is gone.
    void open(int cell);
    /// Fits the picture in view to the window anew. The page behind it may have changed meanwhile.
    void refit() { show(); }
    /// Key `yd`.
    void switchSize();

  private:
    void show();
    void load(Recordset& record, const QString& name);

    Page& page_;
    ToolStrip& strip_;
    ScreenPanel& screen_;
    int selectedCell_ = 0;           ///< The cell that was opened last.
    QString table_, number_, data_;  ///< The picture in view: its album, its 序号 and its data line.
};
