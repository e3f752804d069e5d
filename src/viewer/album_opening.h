#pragma once

#include "viewer/button_panel.h"

#include <QAction>

/// Tool tips of albums in a menu. Of those that bear one title the first opens: each is told apart by its table. Empty
/// for any other title.
QStringList tipsOfEqualTitles(const QStringList& titles, const QStringList& tables);

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

    /// Opens the album at that place of the menu, or the first one with its title; a place behind the last one stands
    /// for the preset album. Throws where the album does not open: then none is open.
    void dkxc(int index);

    /// Opens the album of a table, or the first one where no album has it.
    void openTable(const QString& table);

    /// Closes the album. Throws where the catalogue does not take the change, once the window shows the closed state.
    void close();

  private:
    void showNothingOpen();
    void uncheckAll();
    void openSelection(const QString& table, const QString& title);

    ViewerState& state_;
    ToolStrip& strip_;
    StatusLine& status_;
    ScreenPanel& screen_;
    ButtonPanel& buttons_;
    Page& page_;
    AlbumMenu& menu_;
};
