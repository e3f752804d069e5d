#pragma once

#include "viewer/caption.h"
#include "viewer/cell_pictures.h"
#include "viewer/page_layout.h"
#include "viewer/screen_panel.h"
#include "viewer/status_line.h"
#include "viewer/tool_strip.h"
#include "viewer/viewer_state.h"
#include "viewer/wheel_scroll.h"

#include <deque>
#include <memory>
#include <optional>
#include <vector>

/// The page of thumbnails on `pic1`. It is drawn from nothing each time, with pictures that are decoded ahead while the
/// window rests; the catalogue is only read.
class Page : public QObject {
    Q_OBJECT

  public:
    Page(ViewerState& state, ToolStrip& strip, StatusLine& status, ScreenPanel& screen, QWidget* window, QWidget* form);

    /// Draws the page that begins at `firstPictureIndex`. What fails leaves its cell empty.
    void xstp();

    /// Another selection, number of columns or place has been chosen: what a draw would show gets ready in the
    /// background.
    void prepare() { pictures_.rest(); }
    /// The album is closed: nothing of it is decoded any more.
    void leave() { pictures_.leave(); }

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
        CellBox* imgXs;
        Caption* txtBq;
    };

    Cell makeCell();
    void addCell();
    void setCellCount(int count);
    CellGrid grid() const { return cellGrid(state_.pageAreaWidth, state_.picturesPerPage); }
    QSize fitted(const QString& sizeText, QSize& pixels) const;
    void goToFirstPicture();
    void drawCell(int index, QSize& pixels);
    CellPictures::Requests upcoming();
    void keepRoom();
    void addPage(int firstIndex, CellPictures::Requests& requests) const;
    std::optional<PictureRequest> requestOf(int row, int cell, QSize& pixels) const;
    void drawCaption(int index);
    void showCaption(int index);

    ViewerState& state_;
    ToolStrip& strip_;
    StatusLine& status_;
    ScreenPanel& screen_;
    QWidget* window_;
    std::unique_ptr<WheelScroll> scroll_;
    std::vector<Cell> cells_;
    std::deque<Cell> spare_;  ///< Made while the window rests; without names, for nobody to find.
    QString table_;
    CellPictures pictures_;
};
