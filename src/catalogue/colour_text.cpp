#include "catalogue/colour_text.h"

#include "platform/base/conversion.h"
#include "platform/base/error.h"

#include <cmath>

using namespace Qt::Literals::StringLiterals;

QColor colourFromText(const QString& text) {
    const double number = std::nearbyint(numericValue(text));
    if (!(number >= 0 && number <= 0xffffff)) throw Error(u"“%1”不是颜色。"_s.arg(text));
    const auto value = unsigned(number);
    return QColor(int(value & 0xff), int(value >> 8 & 0xff), int(value >> 16 & 0xff));
}

QString colourText(const QColor& colour) {
    const int value = colour.blue() << 16 | colour.green() << 8 | colour.red();
    return u"&H00"_s + QString::number(value, 16).toUpper() + u'&';
}
