#include "editor/pixels/painting.h"

#include "editor/pixels/resampling.h"
#include "editor/pixels/row_blocks.h"
#include "platform/base/error.h"

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The part of a picture as a picture of its own, every pixel as it is.
QImage copied(const QImage& picture, const QRect& part, Mirror mirror, QRgb background) {
    QImage result = blankPicture(part.size());
    const PixelRows to(result);
    const ConstPixelRows from(picture);
    const QRect covered = part.intersected(picture.rect());
    const int left = covered.left() - part.left();
    const int right = left + covered.width();

    forRowBlocks(part.size(), [&](int first, int end) {
        for (int j = first; j < end; ++j) {
            const int y = part.top() + (mirror == Mirror::vertical ? part.height() - 1 - j : j);
            QRgb* row = to[j];
            QRgb* const rowEnd = row + part.width();
            if (covered.isEmpty() || y < covered.top() || y > covered.bottom()) {
                std::fill(row, rowEnd, background);
                continue;
            }
            const QRgb* source = from[y] + covered.left();
            if (mirror == Mirror::horizontal) {
                std::fill(row, rowEnd - right, background);
                std::reverse_copy(source, source + covered.width(), rowEnd - right);
                std::fill(rowEnd - left, rowEnd, background);
            } else {
                std::fill(row, row + left, background);
                std::copy_n(source, covered.width(), row + left);
                std::fill(row + right, rowEnd, background);
            }
        }
    });
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
    if (source.size() == target) return copied(from, source, mirror, background);
    const bool whole = source == from.rect();
    QImage result = resampled(whole ? from : copied(from, source, Mirror::none, background), target);
    mirrorInPlace(result, mirror);
    return result;
}
