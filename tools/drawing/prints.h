#pragma once

#include "drawing/canvas.h"

/// Parts of the program's own pictures: cloth, and photographs on it.

/// Covers the picture with woven cloth.
void woven(QImage& image, const QColor& dark, const QColor& light, quint32 seed);

/// A print with a white border, turned a little, with its shadow.
void photograph(QPainter& painter, QPointF centre, double width, double turn, const QImage& scene);
