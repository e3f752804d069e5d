#pragma once

#include <QSize>
#include <QString>

/// Geometry of a page of thumbnails, without widgets. All lengths are twips.

struct Box {
    int left, top, width, height;
    bool operator==(const Box& other) const = default;
};

/// Whether a window is lower than 4 by 3: then its height bounds pictures, too.
bool isLowWindow(int width, int height);

/// Room for a picture. Wide pictures, from that ratio of width and height on, fill its width, others its height.
struct Room {
    int width, height;
    double wideRatio = 1.33;
};

/// Size in twips of a picture of that many pixels. With `originalSize` a smaller picture is not enlarged.
QSize fittedSize(QSize pixels, const Room& room, bool originalSize);

/// Room of a picture that is viewed alone in a window of that size.
Room viewRoom(int windowWidth, int windowHeight);

/// The square grid of a page. Cells are 4 by 3. In a low window they are lower where the page would not fit, and
/// pictures are in the middle of their cells instead of at the upper left.
struct CellGrid {
    int columns, cellWidth, cellHeight;
    bool isLow = false;

    Room room() const;
};
CellGrid cellGrid(QSize pageArea, bool isLow, int picturesPerPage);

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
