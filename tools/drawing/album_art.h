#pragma once

#include <QImage>
#include <QSize>

/// The pictures that belong to the program itself.

/// The closed album: cloth, gold and three photographs. Carries the title.
QImage albumCover(QSize size);

/// What the main window shows at start: the opened album on a table.
QImage startPicture(QSize size);

/// What the picture editor shows while nothing is open: photographs that are being cut, turned and mirrored.
QImage editorPicture(QSize size);

/// The button of a selection code, 100 x 75: "v" or "1" to "6".
QImage selectionButton(QChar code);

/// Corner of a closed book (nothing to page back to) and of a turned page.
QImage bookCorner();
QImage turnedPageCorner();
