#pragma once

#include "viewer/page.h"
#include "viewer/status_line.h"
#include "viewer/tool_strip.h"

/// Paging by the tool bar, by page number and by the number of columns.
class Paging : public QObject {
  public:
    Paging(Page& page, ToolStrip& strip, StatusLine& status);

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

    Page& page_;
    ToolStrip& strip_;
    StatusLine& status_;
};
