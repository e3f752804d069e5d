#pragma once

#include <QColor>
#include <QPoint>
#include <QSize>
#include <QString>

/// The rubber-band selection on the picture, as numbers and texts. Lengths are twips; a pixel is 15 of them.

enum class SelectionShape {
    free,
    ratio,  ///< 固定比例: four to three, by the width
    fixed   ///< 固定尺寸: 100 by 75 pixels
};

/// The size of a selection from `start` to the pointer.
QSize selectionSize(SelectionShape shape, QPoint start, QPoint pointer);

/// The readout: "L：… T：… W：… H：… W/H：1.333".
QString selectionReadout(QPoint start, QSize size);
/// Where the readout stands in the visible area.
QPoint readoutPlace(QPoint pointer, int readoutWidth, QSize view);
/// Whether a selection is large enough for a readout.
bool readoutShows(QSize size);

/// "选中尺寸：120 * 90" and "缩放比例：1.2：1"
QString selectedSizeText(SelectionShape shape, QSize size);
QString zoomRatioText(SelectionShape shape, QSize size);

/// White on a dark pixel, red otherwise.
QColor selectionColor(QRgb under);
