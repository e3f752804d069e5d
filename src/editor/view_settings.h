#pragma once

#include "editor/chapter.h"

/// The two settings of how the editor looks: tool bar and hint box. They are kept in `tcsz` and outlive the session.
class ViewSettings : public Chapter {
    Q_OBJECT

  public:
    explicit ViewSettings(const Workplace& at);

    /// Brings menu items, buttons and the view in line with `tcsz`.
    void read();

  Q_SIGNALS:
    void toolBarChanged();

  private:
    void mnuGxClick();
    void mnuTgClick();
    void applyToolBar(bool shown);
    void applyHints(bool shown);

    bool hintsOn_ = true;
};
