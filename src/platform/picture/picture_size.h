#pragma once

#include <QIODevice>
#include <QSize>
#include <QString>

/// Size of the whole upright picture in pixels, by what comes before its pixels: much quicker than loading it. Throws
/// the `Error` with which `LoadPicture` refuses such a beginning, with the same `name`. Damage further inside is not
/// looked for. The device stands behind what was read afterwards.
QSize pictureSize(QIODevice& device, const QString& name);
