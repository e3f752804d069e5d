#pragma once

#include "intake/browsing/browser_panel.h"

class QLabel;

/// The lines of text on the page 图片录入 that tell of source, target and grid. That of the source file is the note of
/// the browser.
class IntakeSigns {
  public:
    IntakeSigns(const SettingsFrame& frame, BrowserPanel& browser);

    /// Heading and place of the grid: the album's records, or those of a source from which some are chosen.
    void headAlbum();
    void headSource();
    void tell(const QString& text);  ///< Below the grid.

    void tellTarget(const QString& table);  ///< Empty for none.
    void tellSourceFile(const QString& path);
    void tellSourceTable(const QString& table);
    void tellIndexField(const QString& field);
    void clearSourceFile();
    void clearSourceTable();
    void clearIndexField();
    void clearSource();

    /// The lines of the source as files need them, or a database.
    void placeSource(bool files);
    void setVisible(bool on);
    void raise();

  private:
    void placeBesideEcho();
    void placeBelowLists();

    TabControl* sstFz_;
    BrowserPanel& browser_;
    QLabel* lblMk;  ///< Heading of the grid.
    QLabel* lblJl;  ///< What the lines below the grid are.
    QLabel* lbl11;  ///< The target table.
    QLabel* lbl13;  ///< The source table.
    QLabel* lbl14;  ///< The index field.
};
