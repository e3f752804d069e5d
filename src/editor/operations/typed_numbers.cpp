#include "editor/operations/typed_numbers.h"

#include "platform/base/conversion.h"

namespace {

constexpr char16_t fullWidthForms = 0xff01, lastFullWidthForm = 0xff5e;
constexpr int fullWidthOffset = fullWidthForms - u'!';

/// As a Chinese keyboard gives them, signs and digits can be as wide as a Chinese character.
QString withPlainSigns(QString text) {
    for (QChar& sign : text) {
        if (sign >= fullWidthForms && sign <= lastFullWidthForm) sign = QChar(sign.unicode() - fullWidthOffset);
        if (sign == u'。') sign = u'.';
    }
    return text;
}

}  // namespace

double numberFromText(const QString& text) {
    return numericValue(withPlainSigns(text));
}

double factorFromText(const QString& text) {
    const QString plain = withPlainSigns(text).trimmed();
    return numericValue(plain) / (plain.endsWith(u'%') ? 100 : 1);
}
