#pragma once

#include <QRect>

/// Lengths of windows and controls are twips in `int`, 15 to the logical pixel. This is the one place that turns them
/// into pixels and back.
inline constexpr int twipsPerPixel = 15;

/// Rounds to the nearest whole number, halves to the even one: the rule of every conversion of a length.
int roundHalfEven(double value);

int pixelsFromTwips(int twips);
int twipsFromPixels(int pixels);

/// A rectangle in pixels from left, top, width and height in twips. Both edges are rounded, so that neighbours that
/// touch in twips touch in pixels.
QRect rectFromTwips(int left, int top, int width, int height);
