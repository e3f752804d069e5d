#pragma once

#include <QSize>
#include <QString>

/// Geometry of a page of thumbnails, without widgets. All lengths are twips.

struct Box {
    int left, top, width, height;
    bool operator==(const Box& other) const = default;
};

/// The square grid of a page. Cells are 4 by 3 whatever the height of the window.
struct CellGrid {
    int columns, cellWidth, cellHeight;
};
CellGrid cellGrid(int pageAreaWidth, int picturesPerPage);

/// Size in twips of a picture of that many pixels in a box: wide pictures (1.33 and above) fill its width, others its
/// height. With `originalSize` a smaller picture is not enlarged.
QSize fittedSize(QSize pixels, int maxWidth, int maxHeight, bool originalSize);

Box pictureBox(const CellGrid& grid, int cell, QSize fitted);
Box frameBox(const CellGrid& grid, int cell, QSize fitted);
Box captionBox(const CellGrid& grid, int cell);

/// Number of pages, the last one perhaps not full.
int pagesFor(int pictures, int picturesPerPage);

/// "3列" means 9 pictures: 1 to 6 columns; 0 where the text begins with no such number.
int columnsFromText(const QString& text);

/// The number of a page as text. A view that begins within a page has the number of the next one.
QString pageText(double page);

/// Index of the first picture of a page as typed ("2", or "2.5" between two pages); limited to what an index can hold.
int firstIndexOfPage(double page, int picturesPerPage);
