#pragma once

#include "viewer/page.h"
#include "viewer/status_line.h"
#include "viewer/tool_strip.h"

/// Selects the pictures of the page: by the buttons of the album, by the number boxes of the tool bar and by a day.
class FilterControls : public QObject {
  public:
    FilterControls(Page& page, ToolStrip& strip, StatusLine& status);

    /// Selects anew by all conditions, counts, and shows the counts in the page line; the page begins at its first
    /// picture. Draws nothing.
    void tpsx();
    /// Selects and draws the pictures with the code of the button of that name. Throws when there is none.
    void chooseButton(const QString& name);
    /// Selects by a day, or by any day.
    void chooseDay(const std::optional<DayCondition>& day);

  private:
    Page& page_;
    Selection& selection_;
    ToolStrip& strip_;
    StatusLine& status_;
};
