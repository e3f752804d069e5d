#include "platform/base/typed_date.h"

#include "platform/base/conversion.h"

#include <QRegularExpression>

using namespace Qt::Literals::StringLiterals;

namespace {
// What an input method gives for the keys `!` to `~` in full width, and the full stop that it gives for the point.
constexpr char16_t firstWide = u'！', lastWide = u'～';
constexpr char16_t firstPlain = u'!';
constexpr char16_t chineseStop = u'。';

const QRegularExpression& dateForm() {
    static const QRegularExpression form(
        u"^(\\d{4}|\\d{2})"
        "(?:\\s*[-/.年]+\\s*(\\d{1,2})\\s*[-/.月]+\\s*(\\d{1,2})|(\\d\\d)(\\d\\d))"
        "(?:\\s*日[-/.]*\\s*|[-/.]*(?:\\s+|$))(.*)$"_s);
    return form;
}
}  // namespace

bool isDateSeparator(QChar c) {
    return u"-/.年月日"_s.contains(inPlainWidth(c));
}

int yearOfTwoDigits(int year) {
    const int present = QDate::currentDate().year();
    const int century = present - present % 100;
    return century + year <= present ? century + year : century - 100 + year;
}

QString inPlainWidth(QString text) {
    for (QChar& c : text) {
        if (c >= firstWide && c <= lastWide) c = QChar(c.unicode() - firstWide + firstPlain);
        if (c == chineseStop) c = u'.';
    }
    return text;
}

std::optional<QDateTime> dateFromTyping(const QString& text) {
    const auto parts = dateForm().match(inPlainWidth(text).simplified());
    if (!parts.hasMatch()) return std::nullopt;
    const QString year = parts.captured(1);
    const bool isInARow = parts.captured(2).isEmpty();
    const QString day = u"%1-%2-%3"_s.arg(year.size() == 2 ? QString::number(yearOfTwoDigits(year.toInt())) : year,
                                          parts.captured(isInARow ? 4 : 2), parts.captured(isInARow ? 5 : 3));
    const QString time = parts.captured(6);
    return dateFromText(time.isEmpty() ? day : day + u' ' + time);
}
