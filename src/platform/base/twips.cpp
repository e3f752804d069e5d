#include "platform/base/twips.h"

#include <cmath>

int roundHalfEven(double value) {
    return int(std::nearbyint(value));  // the default rounding mode is to nearest, ties to even
}

int pixelsFromTwips(int twips) {
    return roundHalfEven(double(twips) / twipsPerPixel);
}

int twipsFromPixels(int pixels) {
    return pixels * twipsPerPixel;
}

QRect rectFromTwips(int left, int top, int width, int height) {
    const int x = pixelsFromTwips(left);
    const int y = pixelsFromTwips(top);
    return {x, y, pixelsFromTwips(left + width) - x, pixelsFromTwips(top + height) - y};
}
