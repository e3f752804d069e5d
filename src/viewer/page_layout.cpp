#include "viewer/page_layout.h"

#include "platform/base/conversion.h"
#include "platform/base/twips.h"
#include "platform/base/typed_date.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr int gapAcross = 80;
constexpr int gapDown = 60;
constexpr int captionGapAcross = 100;
constexpr int marginsDown = 110;  // above and below the rows, with their frames
constexpr int viewMarginsAcross = 2130;
constexpr int viewMarginsDown = 1600;
constexpr int smallCell = 6000;
constexpr int mostColumns = 6;
constexpr double farthestIndex = 1e9;

int columnOf(const CellGrid& grid, int cell) {
    return cell % grid.columns;
}

int rowTop(const CellGrid& grid, int cell) {
    return cell / grid.columns * (grid.cellHeight + gapDown);
}

/// Distance of a picture from the upper left of its cell.
QPoint offsetIn(const CellGrid& grid, QSize fitted) {
    if (!grid.isLow) return {};
    return {(grid.cellWidth - fitted.width()) / 2, (grid.cellHeight - fitted.height()) / 2};
}
}  // namespace

bool isLowWindow(int width, int height) {
    return height * 4 < width * 3;
}

Room CellGrid::room() const {
    if (!isLow) return {cellWidth, cellHeight};
    return {cellWidth, cellHeight, double(cellWidth) / cellHeight};
}

CellGrid cellGrid(QSize pageArea, bool isLow, int picturesPerPage) {
    const int columns = std::max(1, roundHalfEven(std::sqrt(picturesPerPage)));
    const int width = roundHalfEven(double(pageArea.width() - 130 - gapAcross * (columns - 1)) / columns);
    const int height = roundHalfEven(width * 0.75);
    if (!isLow) return {columns, width, height};
    const int share = (pageArea.height() - marginsDown - gapDown * (columns - 1)) / columns;
    return {columns, width, std::max(twipsPerPixel, std::min(height, share)), true};
}

Room viewRoom(int windowWidth, int windowHeight) {
    const int height = std::max(twipsPerPixel, windowHeight - viewMarginsDown);
    const int width = windowWidth - viewMarginsAcross;
    const double ratio = double(width) / height;
    // In a high window a square picture of the full height would be too wide.
    return {width, height, isLowWindow(windowWidth, windowHeight) ? ratio : std::min(Room{}.wideRatio, ratio)};
}

QSize fittedSize(QSize pixels, const Room& room, bool originalSize) {
    const int width = pixels.width() * twipsPerPixel;
    const int height = pixels.height() * twipsPerPixel;
    const float ratio = float(width) / float(height);
    // Of the thinnest pictures a line is seen.
    if (double(ratio) >= room.wideRatio) {
        const int fitted = originalSize ? std::min(width, room.width) : room.width;
        return {fitted, std::max(twipsPerPixel, roundHalfEven(double(float(fitted) / ratio)))};
    }
    const int fitted = originalSize ? std::min(height, room.height) : room.height;
    return {std::max(twipsPerPixel, roundHalfEven(double(float(fitted) * ratio))), fitted};
}

Box pictureBox(const CellGrid& grid, int cell, QSize fitted) {
    const QPoint offset = offsetIn(grid, fitted);
    return {60 + columnOf(grid, cell) * (grid.cellWidth + gapAcross) + offset.x(), 80 + rowTop(grid, cell) + offset.y(),
            fitted.width(), fitted.height()};
}

Box frameBox(const CellGrid& grid, int cell, QSize fitted) {
    const Box picture = pictureBox(grid, cell, fitted);
    return {picture.left - 20, picture.top - 30, picture.width + 60, picture.height + 60};
}

Box captionBox(const CellGrid& grid, int cell) {
    const bool twoLines = grid.cellWidth < smallCell;
    const int strip = twoLines ? 480 : 300;
    return {70 + columnOf(grid, cell) * (grid.cellWidth + captionGapAcross),
            grid.cellHeight - strip + 100 + rowTop(grid, cell), grid.cellWidth - 10, twoLines ? 450 : 270};
}

int pagesFor(int pictures, int picturesPerPage) {
    return pictures / picturesPerPage + (pictures % picturesPerPage != 0 ? 1 : 0);
}

int columnsFromText(const QString& text) {
    const double columns = numericValue(inPlainWidth(text));
    return columns < 1 ? 0 : int(std::min<double>(columns, mostColumns));
}

QString pageText(double page) {
    return plainText(std::ceil(page) + 0.0);
}

int firstIndexOfPage(double page, int picturesPerPage) {
    return roundHalfEven(std::min((page - 1) * picturesPerPage, farthestIndex));
}
