#pragma once

#include "viewer/date_dialog.h"
#include "viewer/page.h"

/// Selects the pictures of the page: by the buttons of the album, by the number boxes of the tool bar and by the date
/// dialog.
class FilterControls : public QObject {
  public:
    FilterControls(Selection& selection, ToolStrip& strip, StatusLine& status, Page& page, QWidget* window,
                   QWidget* form);

    /// Selects anew by all conditions, counts, and shows the counts in the page line; the page begins at its first
    /// picture. Draws nothing.
    void tpsx();
    /// Selects and draws the pictures with the code of the button of that name. Throws when there is none.
    void chooseButton(const QString& name);

    DateDialog& dateDialog() { return *picRq; }

  private:
    Selection& selection_;
    ToolStrip& strip_;
    StatusLine& status_;
    Page& page_;
    DateDialog* picRq;  ///< Date dialog.
};
