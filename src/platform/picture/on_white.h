#pragma once

#include <QImage>

/// The image in RGB32, with white behind what is transparent.
QImage onWhite(const QImage& image);
