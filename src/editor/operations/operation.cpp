#include "editor/operations/operation.h"

#include "editor/pixels/painting.h"
#include "platform/base/twips.h"
#include "platform/picture/picture.h"
#include "platform/picture/refusal.h"

using namespace Qt::Literals::StringLiterals;

namespace {
constexpr int mostTwips = longestPictureSide * twipsPerPixel;
}  // namespace

TooLarge::TooLarge() : Error(tooLargeText()) {}

QString tooLargeText() {
    return u"图片变得太大：边长不能超过 %1 像素。"_s.arg(longestPictureSide);
}

QSize inPixels(QSize twips) {
    return {pixelsFromTwips(twips.width()), pixelsFromTwips(twips.height())};
}

QRect inPixels(const QRect& twips) {
    return {QPoint(pixelsFromTwips(twips.x()), pixelsFromTwips(twips.y())), inPixels(twips.size())};
}

std::optional<QSize> possibleSize(double width, double height) {
    if (!(width <= mostTwips && height <= mostTwips)) return {};
    const QSize size(roundHalfEven(width), roundHalfEven(height));
    if (imageBytes(inPixels(size)) > pictureMemoryLimit()) return {};
    return size;
}

Operation::Outcome stretched(const Operation::Input& input, const QRect& part, double factor, const QString& tag) {
    const auto size = possibleSize(factor * part.width(), factor * part.height());
    if (!size) throw TooLarge();
    const QSize pixels = inPixels(*size);
    if (pixels.isEmpty()) throw Error(u"图片会变得太小，什么也看不见。"_s);
    const auto paint = [picture = input.picture, part, pixels](const Progress&) {
        return painted(picture, inPixels(part), pixels, Mirror::none, pictureBackground);
    };
    return {*size, part.topLeft(), tag, paint};
}
