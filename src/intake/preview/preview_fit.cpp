#include "intake/preview/preview_fit.h"

#include "catalogue/album_rules.h"
#include "platform/base/conversion.h"
#include "platform/base/twips.h"

#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int widestButton = 105, highestButton = 80;

double side(int hiMetric, bool ownSize, int box, int limit) {
    const double own = hiMetric / hiMetricPerPixel * twipsPerPixel;
    return ownSize && own < limit + 1 ? own : box;
}

double ratio(QSize hiMetric) {
    return static_cast<double>(hiMetric.width()) / hiMetric.height();
}

int whole(double length) {
    return static_cast<int>(std::lround(length));
}

}  // namespace

QSize previewSize(QSize hiMetric, bool ownSize, QSize box) {
    const double width = side(hiMetric.width(), ownSize, box.width(), box.width());
    // In the usual panel there is room below the box.
    const int highest = box == usualBox ? box.width() : box.height();
    const double height = side(hiMetric.height(), ownSize, box.height(), highest);
    const double shape = ratio(hiMetric);
    const float shapeOfBox = static_cast<float>(box.width()) / static_cast<float>(box.height());
    if (!(static_cast<double>(shapeOfBox) < shape)) return {whole(height * shape), whole(height)};
    return {whole(width), whole(width / shape)};
}

bool offersOwnSize(QSize hiMetric, QSize box) {
    return hiMetric.width() <= box.width() && hiMetric.height() <= box.height();
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
