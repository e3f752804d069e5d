#pragma once

#include "platform/desktop/shapes.h"
#include "platform/desktop/surface.h"
#include "viewer/caption.h"
#include "viewer/cell_pictures.h"
#include "viewer/page_layout.h"
#include "viewer/selection.h"

#include <deque>
#include <optional>
#include <vector>

/// The page of thumbnails on `pic1`: pictures of the selection, from one index on. Each draw makes it anew, with
/// pictures that were decoded ahead while the window rested. Only reads the catalogue.
class Page : public QObject {
    Q_OBJECT

  public:
    Page(Selection& selection, QWidget* form);

    Selection& selection() const { return selection_; }
    QWidget* window() const { return pic1->window(); }
    void layOut(const Box& area, bool isLowWindow);
    void setGround(const QColor& ground);

    /// Draws the page. A picture that cannot be read leaves its cell empty.
    void xstp();
    /// Draws the page for another size of the window without a wait: pictures are stretched until the size rests.
    void followSize();
    /// Decodes in the background what the next draw will show.
    void prepare() { pictures_.rest(); }
    /// Leaves the album: nothing of it is decoded any more.
    void leave();
    /// Whether a page of the open album has been drawn.
    bool isShown() const { return isShown_; }

    /// What the next draw shows.
    void setColumns(int columns);
    int picturesPerPage() const { return picturesPerPage_; }
    /// Records before the first cell. May be negative after a step back, and beyond the end.
    void setFirstIndex(int index) { firstIndex_ = index; }
    int firstIndex() const { return firstIndex_; }
    /// The page line of the status bar: counts of the selection, and the place of the page in it.
    QString line() const;
    /// A picture alone on its page is not enlarged.
    void setOriginalSize(bool on) { originalSize_ = on; }
    bool isOriginalSize() const { return originalSize_; }
    /// Captions over the pictures, where the columns are wide enough for them.
    void setCaptions(bool on) { captions_ = on; }

    // The page as it was drawn; another album or number of columns may have been chosen since.
    const QString& table() const { return table_; }
    int cellCount() const { return int(cells_.size()); }
    int firstRow() const { return firstRow_; }  ///< Of the selection, from 0: the record in the first cell.
    /// 序号 of the picture in a cell; empty where there is none.
    QString numberIn(int cell) const { return has(cell) ? cells_[size_t(cell)].number : QString(); }
    /// Data line of the picture in a cell (see `tagOfRecord`); empty where there is none.
    QString dataIn(int cell) const { return has(cell) ? cells_[size_t(cell)].imgXs->tag() : QString(); }

    /// The cell that has the keyboard's focus, -1 for none. Empty cells take no focus.
    int focusedCell() const;
    void focusCell(int cell);
    /// Lets the caption over a cell's picture come and go, as clicks on both do.
    void toggleCaption(int cell);

  Q_SIGNALS:
    void drawing(bool isSeveral);  ///< A draw begins, of one picture or of several.
    void progressed(int percent);  ///< Of several pictures.
    void drawn();
    void columnsChanged();
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

    static constexpr int mostColumnsWithCaptions = 2;

    Cell makeCell();
    void addCell();
    void setCellCount(int count);
    bool has(int cell) const { return cell >= 0 && cell < cellCount(); }
    CellGrid grid() const { return cellGrid(area_, isLowWindow_, picturesPerPage_); }
    bool hasCaptions() const { return captions_ && grid().columns <= mostColumnsWithCaptions; }
    QSize fitted(const QString& sizeText, QSize& pixels) const;
    void goToFirstPicture();
    void draw(void (CellPictures::*bringPictures)());
    void drawCells();
    void drawCell(int index, QSize& pixels);
    CellPictures::Requests upcoming();
    void keepRoom();
    void addPage(int firstIndex, CellPictures::Requests& requests) const;
    std::optional<PictureRequest> requestOf(int row, int cell, QSize& pixels) const;
    void drawCaption(int index);
    void showCaption(int index);

    Selection& selection_;
    Surface* pic1;      ///< Ground of the page.
    QSize area_{0, 0};  ///< Twips.
    bool isLowWindow_ = false;
    int picturesPerPage_ = 1;
    int firstIndex_ = 0;
    bool originalSize_ = false;
    bool captions_ = false;
    bool isShown_ = false;
    std::vector<Cell> cells_;
    std::deque<Cell> spare_;  ///< Made while the window rests; hidden and without names until they are used.
    int firstRow_ = 0;
    QString table_;
    CellPictures pictures_;
};
