#include "editor/operations/typed_numbers.h"

#include "platform/base/conversion.h"
#include "platform/base/typed_date.h"

double numberFromText(const QString& text) {
    return numericValue(inPlainWidth(text));
}

double factorFromText(const QString& text) {
    const QString plain = inPlainWidth(text).trimmed();
    return numericValue(plain) / (plain.endsWith(u'%') ? 100 : 1);
}
