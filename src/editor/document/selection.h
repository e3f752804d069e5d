#pragma once

#include <QColor>
#include <QRect>
#include <QSize>
#include <QString>

/// The rubber-band selection on the picture, as numbers and texts. Lengths are twips; a pixel is 15 of them.

enum class SelectionShape {
    free,
    ratio,  ///< 固定比例: four to three, by the width
    fixed   ///< 固定尺寸: 100 by 75 pixels
};

/// The size of a selection from `start` to the pointer. It ends with the picture, but for the fixed one: what of that
/// is outside moves in later (see `shiftedIn`).
QSize selectionSize(SelectionShape shape, QPoint start, QPoint pointer, QSize picture);
/// A part moved so far that it lies inside a picture, or begins with it where it is larger.
QRect shiftedIn(QRect part, QSize picture);

/// How far one move of the mouse scrolls along a side while a selection is drawn: forwards or backwards when the
/// pointer has left the visible part, as long as it is not near the picture's end.
int scrollOfDrag(int inView, int viewLength, int inPicture, int pictureLength);

/// The readout: "L：… T：… W：… H：… W/H：1.333".
QString selectionReadout(QPoint start, QSize size);
/// The place of the readout in the visible area; the pointer is given by its place there.
QPoint readoutPlace(QPoint pointer, int readoutWidth, QSize view);
/// Whether a selection is large enough for a readout.
bool readoutShows(QSize size);

/// "选中尺寸：120 * 90" and "缩放比例：1.2：1"
QString selectedSizeText(SelectionShape shape, QSize size);
QString zoomRatioText(SelectionShape shape, QSize size);

/// White on a dark pixel, red otherwise.
QColor selectionColour(QRgb under);
