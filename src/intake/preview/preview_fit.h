#pragma once

#include <QSize>
#include <QString>

/// Rules of the preview panel. Picture sizes are in HiMetric, sizes of controls in twips.

/// The room for the picture while neither the window nor the panel has grown.
inline constexpr QSize usualBox(4000, 3000);

/// Size of the image that shows a picture: within the box, or in its own size when `ownSize` is on and it is not larger
/// than the box.
QSize previewSize(QSize hiMetric, bool ownSize, QSize box = usualBox);

/// Whether the own size of a picture can be asked for.
bool offersOwnSize(QSize hiMetric, QSize box = usualBox);

/// "640*480"
QString pixelsText(QSize hiMetric, const QString& star);

/// Why a picture does not suit a selection button; empty when it does.
QString buttonPictureWarning(QSize hiMetric);
