#include "editor/pixels/painting.h"

#include "editor/pixels/resampling.h"
#include "editor/pixels/row_blocks.h"
#include "platform/base/error.h"

#include <QPainter>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The part of a picture as a picture of its own, every pixel as it is.
QImage copied(const QImage& picture, const QRect& part, QRgb background) {
    QImage result = blankPicture(part.size());
    if (!picture.rect().contains(part)) result.fill(background);
    QPainter(&result).drawImage(-part.topLeft(), picture);
    return result;
}

void mirrorInPlace(QImage& picture, Mirror mirror) {
    const PixelRows rows(picture);
    const int width = picture.width();
    const int height = picture.height();
    if (mirror == Mirror::horizontal)
        for (int j = 0; j < height; ++j) std::reverse(rows[j], rows[j] + width);
    else if (mirror == Mirror::vertical)
        for (int j = 0; j < height / 2; ++j) std::swap_ranges(rows[j], rows[j] + width, rows[height - 1 - j]);
}

}  // namespace

QImage painted(const QImage& picture, const QRect& source, QSize target, Mirror mirror, QRgb background) {
    if (source.isEmpty()) throw Error(u"选择的范围没有面积。"_s);
    const QImage from = inEditorFormat(picture);
    const bool whole = source == from.rect();
    QImage result;
    if (source.size() == target)
        result = copied(from, source, background);
    else
        result = resampled(whole ? from : copied(from, source, background), target);
    mirrorInPlace(result, mirror);
    return result;
}
