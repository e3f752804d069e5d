#pragma once

#include "viewer/page.h"

/// One picture alone on the screen panel, and the switch between its original size and that of the window.
class PictureView : public QObject {
  public:
    PictureView(ViewerState& state, ToolStrip& strip, ScreenPanel& screen, Page& page, QWidget* window);

    /// Shows the picture of a cell alone. Throws when its record is there no longer.
    void open(int cell);
    void close();
    /// Fits the picture in view to the window anew.
    void refit() { open(state_.selectedCell); }

    /// Key `yd`.
    void switchSize();

  private:
    void showPicture(Recordset& record, const QString& name);

    ViewerState& state_;
    ToolStrip& strip_;
    ScreenPanel& screen_;
    Page& page_;
    QWidget* window_;
};
