#include "editor/document/selection.h"

#include "platform/base/conversion.h"
#include "platform/base/twips.h"

#include <algorithm>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr QSize buttonPicture(1500, 1125);
constexpr int readoutHeight = 270;
constexpr int leastForReadout = 20;
constexpr int scrollStep = 200;
constexpr int darkBelow = 129;  ///< Sum of the three channels.

QString pixelsText(int twips) {
    return plainText(float(twips) / twipsPerPixel);
}

QString ratioText(QSize size) {
    if (size.height() == 0) return {};
    return thousandsText(double(size.width()) / size.height(), 3).remove(u',');
}

}  // namespace

QSize selectionSize(SelectionShape shape, QPoint start, QPoint pointer, QSize picture) {
    const int width = std::min(pointer.x(), picture.width()) - start.x();
    switch (shape) {
        case SelectionShape::ratio: {
            const int widest = (picture.height() - start.y()) * 4 / 3;
            return {std::min(width, widest), roundHalfEven(std::min(width, widest) / 4.0 * 3)};
        }
        case SelectionShape::fixed:
            return buttonPicture;
        case SelectionShape::free:
            break;
    }
    return {width, std::min(pointer.y(), picture.height()) - start.y()};
}

QRect shiftedIn(QRect part, QSize picture) {
    part.moveLeft(std::clamp(part.left(), 0, std::max(0, picture.width() - part.width())));
    part.moveTop(std::clamp(part.top(), 0, std::max(0, picture.height() - part.height())));
    return part;
}

int scrollOfDrag(int inView, int viewLength, int inPicture, int pictureLength) {
    if (inView > viewLength && inPicture < pictureLength - scrollStep) return scrollStep;
    return inView < 0 && inPicture > scrollStep ? -scrollStep : 0;
}

QString selectionReadout(QPoint start, QSize size) {
    return u"L：%1 T：%2 W：%3 H：%4 W/H：%5"_s.arg(pixelsText(start.x()), pixelsText(start.y()),
                                                    pixelsText(size.width()), pixelsText(size.height()),
                                                    ratioText(size));
}

QPoint readoutPlace(QPoint pointer, int readoutWidth, QSize view) {
    const int x = std::clamp(pointer.x(), 0, view.width());
    const bool fits = x <= view.width() - readoutWidth;
    return {std::max(0, fits ? x : x - readoutWidth),
            std::clamp(pointer.y(), 0, std::max(0, view.height() - readoutHeight))};
}

bool readoutShows(QSize size) {
    return size.width() > leastForReadout && size.height() > leastForReadout;
}

QString selectedSizeText(SelectionShape shape, QSize size) {
    if (shape == SelectionShape::fixed) return u"选中尺寸：100 * 75"_s;
    const double rows = std::floor(double(size.height()) / twipsPerPixel);
    return u"选中尺寸："_s + pixelsText(size.width()) + u" * "_s + plainText(rows);
}

QString zoomRatioText(SelectionShape shape, QSize size) {
    if (shape == SelectionShape::fixed) return u"缩放比例：1：1"_s;
    const double hundredths = roundHalfEven(double(size.width()) / twipsPerPixel);
    return u"缩放比例："_s + plainText(hundredths / 100) + u"：1"_s;
}

QColor selectionColour(QRgb under) {
    return qRed(under) + qGreen(under) + qBlue(under) < darkBelow ? Qt::white : Qt::red;
}
