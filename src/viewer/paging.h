#pragma once

#include "viewer/filter_controls.h"

/// Paging by the tool bar, by page number and by the number of columns.
class Paging : public QObject {
  public:
    Paging(Selection& selection, ToolStrip& strip, StatusLine& status, Page& page, FilterControls& filters,
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
    void changeColumns(int columns);

    Selection& selection_;
    ToolStrip& strip_;
    StatusLine& status_;
    Page& page_;
    FilterControls& filters_;
};
