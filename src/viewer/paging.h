#pragma once

#include "viewer/filter_controls.h"
#include "viewer/page.h"

/// Paging by the tool bar, by page number and by the number of columns.
class Paging : public QObject {
  public:
    Paging(ViewerState& state, ToolStrip& strip, StatusLine& status, Page& page, FilterControls& filters,
           QWidget* window);

    void firstPage();
    void previousPage();
    void nextPage();
    void lastPage();
    void redraw();          ///< Key `xs`.
    void redrawFromMenu();  ///< `mnuXs`.

  private:
    void drawAt(int firstIndex, const QString& pageText);
    void takePageNumber();
    void changeColumns();

    ViewerState& state_;
    ToolStrip& strip_;
    StatusLine& status_;
    Page& page_;
    FilterControls& filters_;
    bool justEntered_ = false;
};
