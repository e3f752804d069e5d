#pragma once

#include "viewer/button_panel.h"

#include <QAction>

/// Menu items that follow the state of the album.
struct AlbumMenu {
    QMenu* mnuDk;
    QList<QAction*> mnuCd;
    QAction *mnuTg, *mnuXs;
};

/// Opening and closing of albums. Writes `当前像册`.
class AlbumOpening : public QObject {
  public:
    AlbumOpening(ViewerState& state, ToolStrip& strip, StatusLine& status, ScreenPanel& screen, ButtonPanel& buttons,
                 Page& page, AlbumMenu& menu);

    /// Opens the album at that place of the menu; a place behind the last one stands for the preset album.
    void dkxc(int index);

    /// Opens the album of a table, or the first one where no album has it.
    void openTable(const QString& table);

    /// Closes the album. Throws where the catalogue does not take the change, once the window shows the closed state.
    void close();

  private:
    QString tableAt(int index) const;
    void uncheckAll();
    void openSelection();

    ViewerState& state_;
    ToolStrip& strip_;
    StatusLine& status_;
    ScreenPanel& screen_;
    ButtonPanel& buttons_;
    Page& page_;
    AlbumMenu& menu_;
};
