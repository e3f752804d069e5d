#pragma once

#include <QRect>
#include <QSize>
#include <QString>

/// Rules of the preview panel. Picture sizes are in HiMetric, sizes of controls in twips.

/// Size of the image that shows a picture: within the usual box, or in its own size when `ownSize` is on and it is not
/// larger than the box.
QSize previewSize(QSize hiMetric, bool ownSize);

/// Whether the own size of a picture can be asked for.
bool offersOwnSize(QSize hiMetric);

/// Where the panel opens: at its own place, or beside all controls on a page that is so much wider.
QRect previewPlace(const QRect& own, int pageWidth);

/// "640*480"
QString pixelsText(QSize hiMetric, const QString& star);

/// Why a picture does not suit a selection button; empty when it does.
QString buttonPictureWarning(QSize hiMetric);
