#pragma once

#include "viewer/caption.h"
#include "viewer/cell_pictures.h"
#include "viewer/page_layout.h"
#include "viewer/screen_panel.h"
#include "viewer/selection.h"
#include "viewer/status_line.h"
#include "viewer/tool_strip.h"
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
    Page(Selection& selection, ToolStrip& strip, StatusLine& status, ScreenPanel& screen, QWidget* window,
         QWidget* form);

    void layOut(const Box& area);
    void setGround(const QColor& ground);

    /// Draws the page. What fails leaves its cell empty.
    void xstp();
    /// Something else will be drawn next: it is decoded in the background.
    void prepare() { pictures_.rest(); }
    /// The album is left: the page is that of no album, and nothing of it is decoded any more.
    void leave();
    /// A page of the open album has been drawn.
    bool isShown() const { return isShown_; }

    /// What the next draw shows.
    void setColumns(int columns) { picturesPerPage_ = columns * columns; }
    int picturesPerPage() const { return picturesPerPage_; }
    /// Records before the first cell. May be negative after a step back, and beyond the end.
    void setFirstIndex(int index) { firstIndex_ = index; }
    int firstIndex() const { return firstIndex_; }
    /// A picture alone on its page is not enlarged.
    void setOriginalSize(bool on) { originalSize_ = on; }
    bool isOriginalSize() const { return originalSize_; }

    // The page as it was drawn; another album or number of columns may have been chosen since.
    const QString& table() const { return table_; }
    int cellCount() const { return int(cells_.size()); }
    /// 序号 of the picture in a cell; empty where there is none.
    QString numberIn(int cell) const { return has(cell) ? cells_[size_t(cell)].number : QString(); }
    /// What is said of the picture in a cell; empty where there is none.
    QString dataIn(int cell) const { return has(cell) ? cells_[size_t(cell)].imgXs->tag() : QString(); }

    /// The cell that has the keyboard's focus, -1 for none. Empty cells take no focus.
    int focusedCell() const;
    void focusCell(int cell);
    /// Lets the caption over a cell's picture come and go, as clicks on both do.
    void toggleCaption(int cell);

    void scrollBy(int pixels) { scroll_->scrollBy(pixels); }

  Q_SIGNALS:
    void cellClicked();
    void cellDoubleClicked(int cell);
    void mousePressed();  ///< Between the cells.
    void mouseMoved();    ///< Between the cells.

  private:
    struct Cell {
        ShapeBox* shpXs;  ///< Frame.
        CellBox* imgXs;   ///< Picture.
        Caption* txtBq;   ///< Caption over the picture.
        QString number;   ///< 序号 of the picture.
    };

    Cell makeCell();
    void addCell();
    void setCellCount(int count);
    bool has(int cell) const { return cell >= 0 && cell < cellCount(); }
    CellGrid grid() const { return cellGrid(areaWidth_, picturesPerPage_); }
    bool wantsCaptions() const;
    QSize fitted(const QString& sizeText, QSize& pixels) const;
    void goToFirstPicture();
    void drawCells();
    void drawCell(int index, QSize& pixels);
    CellPictures::Requests upcoming();
    void keepRoom();
    void addPage(int firstIndex, CellPictures::Requests& requests) const;
    std::optional<PictureRequest> requestOf(int row, int cell, QSize& pixels) const;
    void drawCaption(int index);
    void showCaption(int index);

    Selection& selection_;
    ToolStrip& strip_;
    StatusLine& status_;
    ScreenPanel& screen_;
    QWidget* window_;
    Surface* pic1;  ///< Ground of the page.
    std::unique_ptr<WheelScroll> scroll_;
    int areaWidth_ = 0;  ///< Twips.
    int picturesPerPage_ = 1;
    int firstIndex_ = 0;
    bool originalSize_ = false;
    bool isShown_ = false;
    std::vector<Cell> cells_;
    std::deque<Cell> spare_;  ///< Made while the window rests; without names, for nobody to find.
    QString table_;
    CellPictures pictures_;
};
