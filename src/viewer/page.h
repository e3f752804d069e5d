#pragma once

#include "viewer/page_layout.h"
#include "viewer/screen_panel.h"
#include "viewer/status_line.h"
#include "viewer/tool_strip.h"
#include "viewer/viewer_state.h"
#include "viewer/wheel_scroll.h"

#include <memory>
#include <vector>

/// The page of thumbnails on `pic1`. It is drawn from nothing each time and holds no pictures but those it shows; the
/// catalogue is only read.
class Page : public QObject {
    Q_OBJECT

  public:
    Page(ViewerState& state, ToolStrip& strip, StatusLine& status, ScreenPanel& screen, QWidget* window, QWidget* form);

    /// Draws the page that begins at `firstPictureIndex`. What fails leaves its cell empty.
    void xstp();

    /// Table that the page was drawn from; another album may have been opened since.
    const QString& table() const { return table_; }
    /// Nothing when there is no such cell.
    const ImageBox* picture(int cell) const;
    /// Cells of the page as it was drawn; another number may have been chosen since.
    int cellCount() const { return int(cells_.size()); }

    /// The cell that has the keyboard's focus, -1 for none. Empty cells take no focus.
    int focusedCell() const;
    void focusCell(int cell);
    /// Lets the caption over a cell's picture come and go, as clicks on both do.
    void toggleCaption(int cell);

    void scrollBy(int pixels) { scroll_->scrollBy(pixels); }

    Surface* pic1;

  Q_SIGNALS:
    void cellClicked();
    void cellDoubleClicked(int cell);

  private:
    struct Cell {
        ShapeBox* shpXs;
        ImageBox* imgXs;
        CaptionBox* txtBq;
    };

    Cell makeCell(int index);
    void setCellCount(int count);
    void goToFirstPicture();
    void drawCell(int index, const CellGrid& grid, QSize& pixels);
    void drawCaption(int index, const CellGrid& grid);
    void showCaption(int index);

    ViewerState& state_;
    ToolStrip& strip_;
    StatusLine& status_;
    ScreenPanel& screen_;
    QWidget* window_;
    std::unique_ptr<WheelScroll> scroll_;
    std::vector<Cell> cells_;
    QString table_;
};
