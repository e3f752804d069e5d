#include "viewer/filters.h"

#include "platform/base/conversion.h"
#include "platform/base/typed_date.h"
#include "platform/database/records/database.h"

#include <algorithm>
#include <array>

using namespace Qt::Literals::StringLiterals;

namespace {
// Places in a date that the help has begun: behind the year's dash, behind the month, behind the month's dash.
constexpr int atMonth = 5;
constexpr int behindMonth = 7;
constexpr int atDay = 8;

const QString byNumber = u" ORDER BY [序号]"_s;

QString carriesCode(const QString& code) {
    return u"InStr(编号,"_s + quoted(code) + u") > 0"_s;
}

struct RelationTexts {
    QString word, sign;
};

const RelationTexts& textsOf(DateRelation relation) {
    static const std::array<RelationTexts, 3> texts{{{u"早于"_s, u"<"_s}, {u"晚于"_s, u">"_s}, {u"等于"_s, u"="_s}}};
    return texts.at(size_t(relation));
}

QString daySql(const DayCondition& condition) {
    return u" DateValue(日期) %1 #%2#"_s.arg(textsOf(condition.relation).sign, condition.day.toString(Qt::ISODate));
}

bool isNumber(QStringView text) {
    return !text.isEmpty() && std::ranges::all_of(text, isDigit);
}

/// The help completes 03 to 2003 and 98 to 1998; between 10 and 20 it waits for more.
int helpedYear(int year) {
    return year <= 20 ? 2000 + year : 1900 + year;
}

TypedDate beginningWith(const QString& year) {
    return {year + u"--"_s, atMonth};
}

/// A separator in front of the caret: next to another one it is swallowed, behind two digits it ends the year.
TypedDate afterSeparator(const TypedDate& typed) {
    const auto& [text, caret] = typed;
    const int at = caret - 1;
    const bool behindOne = at > 0 && isDateSeparator(text[at - 1]);
    const bool beforeOne = caret < text.size() && isDateSeparator(text[caret]);
    if (behindOne || beforeOne) return {text.left(at) + text.mid(caret), behindOne ? at : caret};
    if (text.size() == 3 && caret == 3 && isNumber(text.left(2)))
        return beginningWith(QString::number(helpedYear(text.left(2).toInt())));
    return typed;
}
}  // namespace

QString numberCondition(const QString& choice, const QString& number) {
    if (choice.size() != 3) return {};
    return u"序号 "_s + choice.at(2) + u' ' + number;
}

std::optional<QString> selectionSql(const QString& table, const Conditions& conditions) {
    QStringList wanted;
    if (conditions.code != allPicturesCode) wanted << carriesCode(conditions.code);
    if (conditions.day) wanted << daySql(*conditions.day);
    if (!conditions.number.isEmpty()) wanted << conditions.number;
    if (wanted.isEmpty()) return std::nullopt;
    return u"SELECT * FROM "_s + table + u" WHERE "_s + wanted.join(u" And "_s) + byNumber;
}

QString buttonSql(const QString& table, const QString& code) {
    const QString from = u"SELECT * FROM "_s + table;
    if (code == allPicturesCode) return from + byNumber;
    return from + u" WHERE  "_s + carriesCode(code) + byNumber;
}

QString pageStatus(const Conditions& conditions, bool isLeftOver, int pictures, int pages) {
    QString what;
    if (conditions.day) what = u"日期"_s + textsOf(conditions.day->relation).word + conditions.day->words;
    if (!conditions.number.isEmpty()) what += u" 序号"_s + conditions.number.mid(3);
    if (what.isEmpty()) what = isLeftOver ? u"全部（待重新选择）"_s : u"全部"_s;
    return what + u" 共%1张 共%2页"_s.arg(pictures).arg(pages);
}

QString placeInSelection(int place) {
    return u" 第 %1 张"_s.arg(place);
}

std::optional<DayCondition> dayCondition(DateRelation relation, const QString& typed) {
    const auto date = dateFromTyping(typed);
    if (!date) return std::nullopt;
    const QDate day = date->date();
    const bool isDayForTheEngine = dateFromText(typed) == day.startOfDay();
    return DayCondition{relation, day, isDayForTheEngine ? typed.trimmed() : day.toString(Qt::ISODate)};
}

TypedDate helpTypedDate(const TypedDate& typed, int grown) {
    const QString text = inPlainWidth(typed.text);
    const int caret = typed.caret;
    if (grown == 1 && caret > 0 && isDateSeparator(text[caret - 1])) return afterSeparator({text, caret});
    if (text.size() == 2 && isNumber(text) && (text.toInt() < 10 || text.toInt() > 20))
        return beginningWith(QString::number(helpedYear(text.toInt())));
    if (text.size() == 4 && isNumber(text)) return beginningWith(text);
    const bool hasYear = text.indexOf(u'-') == atMonth - 1;
    const bool monthIsWhole = hasYear && text.size() == atDay && caret == behindMonth;
    const bool monthHasOneDigit = hasYear && caret == atMonth + 1 && numericValue(text.mid(atMonth, 1)) > 1;
    return {text, monthIsWhole || monthHasOneDigit ? std::min(atDay, int(text.size())) : caret};
}
