#include "platform/base/conversion.h"

#include <QLocale>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Walks through a text from its start, taking what fits.
class Reader {
  public:
    explicit Reader(QStringView text) : text_(text) {}

    bool atEnd() const { return at_ == text_.size(); }
    QChar peek() const { return atEnd() ? QChar() : text_[at_]; }

    bool take(QChar c) {
        if (atEnd() || peek() != c) return false;
        ++at_;
        return true;
    }

    bool takeAnyCase(QChar c) { return take(c.toLower()) || take(c.toUpper()); }

    QStringView takeDigits(qsizetype atMost = std::numeric_limits<qsizetype>::max()) {
        const qsizetype start = at_;
        while (!atEnd() && isDigit(peek()) && at_ - start < atMost) ++at_;
        return text_.sliced(start, at_ - start);
    }

    /// A whole number of one or two digits, -1 when there is none.
    int takePair() {
        const QStringView digits = takeDigits(2);
        return digits.isEmpty() ? -1 : digits.toInt();
    }

    bool takeBlanks() {
        const qsizetype start = at_;
        while (!atEnd() && peek().isSpace()) ++at_;
        return at_ > start;
    }

    qsizetype place() const { return at_; }
    void goBack(qsizetype place) { at_ = place; }

  private:
    QStringView text_;
    qsizetype at_ = 0;
};

int digitValue(QChar c) {
    if (isDigit(c)) return c.unicode() - u'0';
    const QChar lower = c.toLower();
    return lower >= u'a' && lower <= u'f' ? lower.unicode() - u'a' + 10 : 99;
}

/// The number behind the `&` of `&H1F&` or `&O17`; nothing when no digit follows.
std::optional<double> takeRadixNumber(Reader& reader) {
    const int radix = reader.takeAnyCase(u'H') ? 16 : reader.takeAnyCase(u'O') ? 8 : 0;
    if (radix == 0 || digitValue(reader.peek()) >= radix) return std::nullopt;
    double value = 0;
    while (!reader.atEnd() && digitValue(reader.peek()) < radix) {
        value = value * radix + digitValue(reader.peek());
        reader.take(reader.peek());
    }
    reader.take(u'&');
    return value;
}

enum class Commas { end, allowed };

/// Digits, decimals and exponent; nothing when there is no digit.
std::optional<double> takeDecimalNumber(Reader& reader, Commas commas) {
    QString number = reader.takeDigits().toString();
    while (commas == Commas::allowed && !number.isEmpty() && reader.take(u',')) number += reader.takeDigits();
    bool digits = !number.isEmpty();
    if (reader.take(u'.')) {
        const QStringView decimals = reader.takeDigits();
        digits = digits || !decimals.isEmpty();
        number += u'.';
        number += decimals;
    }
    if (!digits) return std::nullopt;
    const qsizetype beforeExponent = reader.place();
    if (reader.takeAnyCase(u'E')) {
        const bool negative = reader.take(u'-');
        if (!negative) reader.take(u'+');
        const QStringView exponent = reader.takeDigits();
        if (exponent.isEmpty())
            reader.goBack(beforeExponent);
        else
            number += (negative ? u"e-"_s : u"e"_s) + exponent.toString();
    }
    const double value = number.toDouble();
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::optional<double> takeNumber(Reader& reader, Commas commas) {
    const bool negative = reader.take(u'-');
    if (!negative) reader.take(u'+');
    const auto value = reader.take(u'&') ? takeRadixNumber(reader) : takeDecimalNumber(reader, commas);
    return value && negative ? -*value : value;
}

std::optional<QDate> takeDate(Reader& reader) {
    const QStringView year = reader.takeDigits(4);
    if (year.size() != 4) return std::nullopt;
    const QChar first = reader.peek();
    const bool words = first == u'年';
    if (!words && first != u'-' && first != u'/') return std::nullopt;
    reader.take(first);
    const int month = reader.takePair();
    if (!reader.take(words ? QChar(u'月') : first)) return std::nullopt;
    const int day = reader.takePair();
    if (words && !reader.take(u'日')) return std::nullopt;
    const QDate date(year.toInt(), month, day);
    return date.isValid() ? std::optional(date) : std::nullopt;
}

std::optional<QTime> takeTime(Reader& reader) {
    const int hour = reader.takePair();
    if (!reader.take(u':')) return std::nullopt;
    const int minute = reader.takePair();
    const int second = reader.take(u':') ? reader.takePair() : 0;
    return QTime::isValid(hour, minute, second) ? std::optional(QTime(hour, minute, second)) : std::nullopt;
}

QString padded(int number, int width) {
    return QString::number(number).rightJustified(width, u'0');
}

}  // namespace

double numericValue(QStringView text) {
    QString dense;
    for (const QChar c : text) {
        if (!c.isSpace()) dense += c;
    }
    Reader reader(dense);
    return takeNumber(reader, Commas::end).value_or(0);
}

std::optional<double> numberFromText(QStringView text) {
    Reader reader(text);
    reader.takeBlanks();
    const auto value = takeNumber(reader, Commas::allowed);
    reader.takeBlanks();
    return reader.atEnd() ? value : std::nullopt;
}

bool isNumeric(QStringView text) {
    return numberFromText(text).has_value();
}

QString thousandsText(double number, int decimals) {
    const double scale = std::pow(10.0, decimals);
    // The detour over 15 digits rounds 2.0005 as it is written, not as its neighbour in binary.
    const double scaled = QString::number(number * scale, 'g', 15).toDouble();
    double rounded = std::round(scaled) / scale;
    if (rounded == 0) rounded = 0;  // no minus before a nought
    return QLocale(QLocale::English, QLocale::UnitedStates).toString(rounded, 'f', decimals);
}

QString plainText(double number) {
    return QString::number(number, 'g', 15);
}

QString plainText(float number) {
    return QString::number(double(number), 'g', 7);
}

QString dateText(const QDateTime& date, QStringView pattern) {
    const QDate day = date.date();
    const QTime time = date.time();
    QString text;
    bool behindHour = false;
    for (qsizetype i = 0; i < pattern.size();) {
        const QChar letter = pattern[i].toLower();
        qsizetype end = i;
        while (end < pattern.size() && pattern[end].toLower() == letter) ++end;
        const int width = int(end - i);
        if (letter == u'y')
            text += padded(day.year(), width);
        else if (letter == u'm')
            text += padded(behindHour ? time.minute() : day.month(), width);
        else if (letter == u'd')
            text += padded(day.day(), width);
        else if (letter == u'h')
            text += padded(time.hour(), width);
        else if (letter == u's')
            text += padded(time.second(), width);
        else
            text += pattern.sliced(i, width);
        if (letter.isLetter()) behindHour = letter == u'h';
        i = end;
    }
    return text;
}

std::optional<QDateTime> dateFromText(QStringView text) {
    Reader reader(text);
    reader.takeBlanks();
    const auto date = takeDate(reader);
    if (!date) return std::nullopt;
    const bool separated = reader.takeBlanks();
    if (reader.atEnd()) return QDateTime(*date, QTime(0, 0));
    const auto time = separated ? takeTime(reader) : std::nullopt;
    reader.takeBlanks();
    if (!time || !reader.atEnd()) return std::nullopt;
    return QDateTime(*date, *time);
}
