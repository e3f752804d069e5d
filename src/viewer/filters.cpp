#include "viewer/filters.h"

#include "platform/base/conversion.h"
#include "platform/database/database.h"

using namespace Qt::Literals::StringLiterals;

namespace {
const QString byNumber = u" ORDER BY [序号]"_s;

QString carriesCode(const QString& code) {
    return u"InStr(编号,"_s + quoted(code) + u") > 0"_s;
}

QString operatorWord(int dateOperator) {
    switch (dateOperator) {
        case 0:
            return u"早于"_s;
        case 1:
            return u"晚于"_s;
        default:
            return u"等于"_s;
    }
}

QString operatorSign(int dateOperator) {
    switch (dateOperator) {
        case 0:
            return u" < #"_s;
        case 1:
            return u" > #"_s;
        default:
            return u" = #"_s;
    }
}
}  // namespace

QString numberCondition(const QString& choice, const QString& number) {
    if (choice.size() != 3) return {};
    return u"序号 "_s + choice.at(2) + u' ' + number;
}

QString dateConditionFor(int dateOperator, const QString& typedDate) {
    return u" DateValue(日期)"_s + operatorSign(dateOperator) + typedDate + u'#';
}

QString selectionSql(const QString& table, const QString& code, const QString& dateCondition,
                     const QString& numberCondition) {
    const QString from = u"SELECT * FROM "_s + table;
    const QString andNumber = numberCondition.isEmpty() ? QString() : u" And "_s + numberCondition;
    if (code != allPicturesCode) {
        const QString andDate = dateCondition.isEmpty() ? QString() : u" And "_s + dateCondition;
        return from + u" WHERE "_s + carriesCode(code) + andDate + andNumber + byNumber;
    }
    if (dateCondition.isEmpty()) return from + u" WHERE "_s + numberCondition + byNumber;
    return from + u" WHERE "_s + dateCondition + andNumber + byNumber;
}

QString buttonSql(const QString& table, const QString& code) {
    const QString from = u"SELECT * FROM "_s + table;
    if (code == allPicturesCode) return from + byNumber;
    return from + u" WHERE  "_s + carriesCode(code) + byNumber;
}

QString pageStatus(const FilterTexts& filter, int pictures, int pages) {
    QString what;
    if (!filter.dateCondition.isEmpty()) what = u"日期"_s + operatorWord(filter.dateOperator) + filter.typedDate;
    if (!filter.numberCondition.isEmpty()) what += u" 序号"_s + filter.numberCondition.mid(3);
    if (what.isEmpty()) what = u"全部"_s;
    return what + u" 共%1张 共%2页"_s.arg(pictures).arg(pages);
}

QString placeInSelection(int place) {
    return u" 第 %1 张"_s.arg(place);
}

TypedDate helpTypedDate(const QString& text) {
    constexpr int betweenDashes = 5;
    constexpr int behindMonth = 8;
    const double value = numericValue(text);
    const auto length = text.size();
    if (length == 2 && value < 10) return {u"20"_s + text + u"--"_s, betweenDashes};
    if (length == 2 && value > 20) return {u"19"_s + text + u"--"_s, betweenDashes};
    if (length == 4) return {text + u"--"_s, betweenDashes};
    const bool dayIsNext = length == 8 && text.indexOf(u'-') == 4;
    const bool monthOfOneDigit = length > 5 && numericValue(text.mid(5, 1)) > 1;
    return {text, dayIsNext || monthOfOneDigit ? behindMonth : -1};
}
