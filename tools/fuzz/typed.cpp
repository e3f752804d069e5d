// What people type: numbers, dates, sizes, colours, and the filters that are made of them.

#include "catalogue/album_rules.h"
#include "catalogue/colour_text.h"
#include "fuzzing.h"
#include "platform/base/conversion.h"
#include "platform/base/typed_date.h"
#include "platform/database/dialect/sql_tokens.h"
#include "platform/database/records/database.h"
#include "viewer/filters.h"

#include <algorithm>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

void typedNumber(const QString& text) {
    const auto number = numberFromText(text);
    expect(isNumeric(text) == number.has_value(), "a number is what is numeric");
    expect(std::isfinite(numericValue(text)) && std::isfinite(number.value_or(0)), "numbers are finite");
    expect(!thousandsText(numericValue(text), 3).isEmpty(), "every number has a text");
    if (number) expect(numberFromText(plainText(*number)).has_value(), "the text of a number is a number");
}

QString digitsOf(const QString& text) {
    QString digits;
    std::ranges::copy_if(inPlainWidth(text), std::back_inserter(digits), isDigit);
    return digits;
}

void typedDate(const QString& text) {
    const int end = int(text.size());
    for (const int grown : {1, end}) {
        const TypedDate helped = helpTypedDate({text, end}, grown);
        expect(digitsOf(helped.text).endsWith(digitsOf(text)), "help takes no digit away");
        expect(helped.caret >= 0 && helped.caret <= helped.text.size(), "the caret stays in the text");
    }
    if (const auto condition = dayCondition(DateRelation::after, text)) {
        expect(dateFromText(condition->words).has_value(), "the page line shows a date");
        const QString sql = *selectionSql(u"tc01"_s, {allPicturesCode, condition, {}});
        const QString start = dateText(condition->day.startOfDay(), dateTimePattern);
        expect(engineSql(tokensOf(sql)).contains(u'\'' + start + u'\''), "a typed day is a day in the statement");
    }

    const auto date = dateFromText(text);
    if (!date) return;
    expect(date->date().isValid() && date->date().year() >= 0, "a date is in the calendar");
    const QString written = dateText(*date, dateTimePattern);
    expect(written.size() == 19 && dateText(*dateFromText(written), dateTimePattern) == written,
           "a date is read as it is written");
}

Tokens selectionOf(const QString& code) {
    return tokensOf(*selectionSql(u"tc01"_s, {code, {}, numberCondition(u"序号>"_s, u"5"_s)}));
}

void typedCode(const QString& code) {
    static const Tokens usual = selectionOf(u"a"_s);
    const Tokens tokens = selectionOf(code);
    expect(code == allPicturesCode ||
               (tokens.size() == usual.size() && std::ranges::count(tokens, quoted(code), &Token::text) == 1),
           "a code stays one text of the statement");
}

void storedTexts(const QString& text) {
    sizeFromSpec(text);
    goesThrough([&] { expect(colourFromText(text).isValid(), "a colour is one"); });
    expect(wzcd(text) >= 0, "texts have a width");
    zhjy(text);
    for (const QString& table : tablesOfButton(text)) expect(offersAlbum(text, table), "a button offers its albums");
    expect(withoutAlbum(text, tableOfLine(text)).size() <= text.size(), "taking out makes shorter");
    dateText(QDateTime(QDate(2003, 10, 1), QTime(12, 30)), text);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString text = QString::fromUtf8(bytesOf(data, size));
    typedNumber(text);
    typedDate(text);
    typedCode(text);
    storedTexts(text);
    return 0;
}
