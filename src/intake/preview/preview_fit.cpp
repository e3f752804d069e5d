#include "intake/preview/preview_fit.h"

#include "catalogue/album_rules.h"
#include "platform/base/conversion.h"
#include "platform/base/twips.h"

#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int boxWidth = 4000, boxHeight = 3000;
constexpr int widthOutOfBox = boxWidth + 1, heightOutOfBox = boxHeight + 1;
constexpr int controlsRight = 9500, margin = 100;
constexpr int widestButton = 105, highestButton = 80;

double side(int hiMetric, bool ownSize, int box) {
    const double own = hiMetric / hiMetricPerPixel * twipsPerPixel;
    return ownSize && own < widthOutOfBox ? own : box;
}

double ratio(QSize hiMetric) {
    return static_cast<double>(hiMetric.width()) / hiMetric.height();
}

int whole(double length) {
    return static_cast<int>(std::lround(length));
}

}  // namespace

QSize previewSize(QSize hiMetric, bool ownSize) {
    const double width = side(hiMetric.width(), ownSize, boxWidth);
    const double height = side(hiMetric.height(), ownSize, boxHeight);
    const double shape = ratio(hiMetric);
    if (!(static_cast<double>(4.0f / 3.0f) < shape)) return {whole(height * shape), whole(height)};
    return {whole(width), whole(width / shape)};
}

bool offersOwnSize(QSize hiMetric) {
    return hiMetric.width() < widthOutOfBox && hiMetric.height() < heightOutOfBox;
}

QRect previewPlace(const QRect& own, int pageWidth) {
    const bool fitsBeside = pageWidth >= controlsRight + margin + own.width() + margin;
    return fitsBeside ? QRect(QPoint(controlsRight + margin, own.top()), own.size()) : own;
}

QString pixelsText(QSize hiMetric, const QString& star) {
    return QString::number(pixelsFromHiMetric(hiMetric.width())) + star +
           QString::number(pixelsFromHiMetric(hiMetric.height()));
}

QString buttonPictureWarning(QSize hiMetric) {
    const int width = whole(hiMetric.width() / hiMetricPerPixel);
    const int height = whole(hiMetric.height() / hiMetricPerPixel);
    QString text;
    if (width > widestButton || height > highestButton) text = u"规格%1*%2"_s.arg(width).arg(height);
    const auto shape = static_cast<float>(ratio(hiMetric));
    if (!(shape >= 1.3f && shape <= 1.4f)) text += u" 宽高比"_s + plainText(std::round(shape * 100.0) / 100.0);
    return text;
}
