#include "viewer/page_layout.h"

#include "platform/base/conversion.h"
#include "platform/base/twips.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr int gapAcross = 80;
constexpr int gapDown = 60;
constexpr int captionGapAcross = 100;
constexpr int smallCell = 6000;
constexpr int mostColumns = 6;
constexpr double wideRatio = 1.33;
constexpr double farthestIndex = 1e9;

int columnOf(const CellGrid& grid, int cell) {
    return cell % grid.columns;
}

int rowTop(const CellGrid& grid, int cell) {
    return cell / grid.columns * (grid.cellHeight + gapDown);
}
}  // namespace

CellGrid cellGrid(int pageAreaWidth, int picturesPerPage) {
    const int columns = std::max(1, roundHalfEven(std::sqrt(picturesPerPage)));
    const int width = roundHalfEven(double(pageAreaWidth - 130 - gapAcross * (columns - 1)) / columns);
    return {columns, width, roundHalfEven(width * 0.75)};
}

QSize fittedSize(QSize pixels, int maxWidth, int maxHeight, bool originalSize) {
    const int width = pixels.width() * twipsPerPixel;
    const int height = pixels.height() * twipsPerPixel;
    const float ratio = float(width) / float(height);
    // Of the thinnest pictures a line is seen.
    if (double(ratio) >= wideRatio) {
        const int fitted = originalSize ? std::min(width, maxWidth) : maxWidth;
        return {fitted, std::max(twipsPerPixel, roundHalfEven(double(float(fitted) / ratio)))};
    }
    const int fitted = originalSize ? std::min(height, maxHeight) : maxHeight;
    return {std::max(twipsPerPixel, roundHalfEven(double(float(fitted) * ratio))), fitted};
}

Box pictureBox(const CellGrid& grid, int cell, QSize fitted) {
    return {60 + columnOf(grid, cell) * (grid.cellWidth + gapAcross), 80 + rowTop(grid, cell), fitted.width(),
            fitted.height()};
}

Box frameBox(const CellGrid& grid, int cell, QSize fitted) {
    return {40 + columnOf(grid, cell) * (grid.cellWidth + gapAcross), 50 + rowTop(grid, cell), fitted.width() + 60,
            fitted.height() + 60};
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
    const double columns = numericValue(text);
    return columns < 1 ? 0 : int(std::min<double>(columns, mostColumns));
}

QString pageText(double page) {
    return plainText(std::ceil(page) + 0.0);
}

int firstIndexOfPage(double page, int picturesPerPage) {
    return roundHalfEven(std::min((page - 1) * picturesPerPage, farthestIndex));
}
