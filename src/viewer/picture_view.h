#pragma once

#include "viewer/page.h"

/// One picture alone on the screen panel, and the switch between its original size and that of the window.
class PictureView : public QObject {
  public:
    PictureView(ToolStrip& strip, ScreenPanel& screen, Page& page, QWidget* window);

    /// Shows the picture of a cell alone. Throws when its record is there no longer.
    void open(int cell);
    /// Fits the picture in view to the window anew.
    void refit() { open(selectedCell_); }
    /// Key `yd`.
    void switchSize();

  private:
    void showPicture(Recordset& record, const QString& name);

    ToolStrip& strip_;
    ScreenPanel& screen_;
    Page& page_;
    QWidget* window_;
    int selectedCell_ = 0;  ///< The cell that was opened last.
};
