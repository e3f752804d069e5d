#include "platform/database/records/value_conversion.h"

#include "platform/base/conversion.h"
#include "platform/base/error.h"
#include "platform/database/file/storage_format.h"

#include <sqlite3.h>

#include <QRegularExpression>
#include <cmath>
#include <limits>
#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace {

QString shown(const FieldValue& value) {
    if (std::holds_alternative<QByteArray>(value.storage())) return u"二进制数据"_s;
    const QString text = value.toText();
    return text.size() > 40 ? text.left(40) + u'…' : text;
}

[[noreturn]] void refuse(const Column& column, const FieldValue& value, const QString& why) {
    throw Error(u"列“%1”不能存入“%2”：%3。"_s.arg(column.name, shown(value), why));
}

double fittedNumber(const Column& column, const FieldValue& value) {
    double number = 0;
    if (!attempt([&] { number = value.toDouble(); }) || std::isnan(number)) refuse(column, value, u"它不是数字"_s);
    return number;
}

qint32 fittedInteger(const Column& column, const FieldValue& value, qint32 lowest, qint32 highest) {
    const double number = std::nearbyint(fittedNumber(column, value));
    if (number < lowest || number > highest) {
        refuse(column, value, u"超出范围（%1 至 %2）"_s.arg(lowest).arg(highest));
    }
    return qint32(number);
}

float fittedSingle(const Column& column, const FieldValue& value) {
    const double number = fittedNumber(column, value);
    if (std::abs(number) > double(std::numeric_limits<float>::max())) refuse(column, value, u"数字过大"_s);
    return float(number);
}

QDateTime fittedDate(const Column& column, const FieldValue& value) {
    QDateTime date;
    const bool read = attempt([&] { date = value.toDate(); });
    // Dates are stored and compared as texts with four digits for the year.
    if (!read || !date.isValid() || date.date().year() < 1 || date.date().year() > 9999) {
        refuse(column, value, u"它不是日期"_s);
    }
    return date;
}

QString fittedText(const Column& column, const FieldValue& value) {
    if (std::holds_alternative<QByteArray>(value.storage())) refuse(column, value, u"它不是文本"_s);
    const QString text = value.toText();
    if (column.size > 0 && text.size() > column.size) {
        refuse(column, value, u"共 %1 个字符，最多 %2 个"_s.arg(text.size()).arg(column.size));
    }
    return text;
}

QByteArray fittedBytes(const Column& column, const FieldValue& value) {
    if (!std::holds_alternative<QByteArray>(value.storage())) refuse(column, value, u"它不是二进制数据"_s);
    const QByteArray bytes = value.toBytes();
    if (column.size > 0 && bytes.size() > column.size) {
        refuse(column, value, u"共 %1 个字节，最多 %2 个"_s.arg(bytes.size()).arg(column.size));
    }
    return bytes;
}

bool isExact(FieldType type) {
    return type == FieldType::currency || type == FieldType::decimal;
}

/// Digits, decimals and sign of a number that is written out.
struct Written {
    bool negative;
    QString whole;  ///< Without zeros in front.
    QString decimals;

    QString text() const {
        QString all = (negative ? u"-"_s : QString()) + (whole.isEmpty() ? u"0"_s : whole);
        return decimals.isEmpty() ? all : all + u'.' + decimals;
    }
};

/// Nothing for a number that the engine's own keep all digits of, or that is written in another way.
std::optional<Written> writtenInManyDigits(const FieldValue& value) {
    static const QRegularExpression number(u"^([+-]?)0*([0-9]*)(?:\\.([0-9]*?)0*)?$"_s);
    const auto* given = std::get_if<QString>(&value.storage());
    if (given == nullptr) return {};
    const auto match = number.match(QString(*given).remove(u',').trimmed());
    const Written written{match.captured(1) == u"-", match.captured(2), match.captured(3)};
    if (!match.hasMatch() || !hasMoreDigitsThanNumber(written.text().toStdString())) return {};
    return written;
}

/// Four decimals, halves to the even digit.
FieldValue fittedAmount(const Column& column, const FieldValue& value, const Written& written) {
    constexpr int places = 4;
    const QString kept = written.decimals.left(places).leftJustified(places, u'0'), rest = written.decimals.mid(places);
    bool fits = false;
    const qint64 parts = ((written.negative ? u"-"_s : QString()) + written.whole + kept).toLongLong(&fits);
    if (!fits) refuse(column, value, u"超出范围（-922337203685477.5808 至 922337203685477.5807）"_s);
    const bool up = rest > u"5" || (rest == u"5" && parts % 2 != 0);
    const quint64 amount = (parts < 0 ? 0 - quint64(parts) : quint64(parts)) + (up ? 1 : 0);
    QString decimals = QString::number(amount % 10000).rightJustified(places, u'0');
    while (decimals.endsWith(u'0')) decimals.chop(1);
    const QString text = Written{written.negative, QString::number(amount / 10000), decimals}.text();
    return hasMoreDigitsThanNumber(text.toStdString()) ? FieldValue(text) : FieldValue(text.toDouble());
}

FieldValue fittedExact(const Column& column, const FieldValue& value) {
    constexpr int mostDigits = 28;
    const double number = fittedNumber(column, value);
    const auto written = writtenInManyDigits(value);
    const bool isAmount = column.type == FieldType::currency;
    if (!written) return isAmount ? std::nearbyint(number * 10000) / 10000 : number;
    if (isAmount) return fittedAmount(column, value, *written);
    const auto digits = written->whole.size() + written->decimals.size();
    if (digits > mostDigits) refuse(column, value, u"共 %1 位数字，最多 %2 位"_s.arg(digits).arg(mostDigits));
    return written->text();
}

FieldValue integerValue(qint64 number, FieldType type) {
    if (type == FieldType::boolean) return number != 0;
    if (const QString text = QString::number(number); isExact(type) && hasMoreDigitsThanNumber(text.toStdString()))
        return text;
    if (type == FieldType::single) return float(number);
    const bool fits = number >= std::numeric_limits<qint32>::min() && number <= std::numeric_limits<qint32>::max();
    const bool whole = type != FieldType::real && type != FieldType::currency && type != FieldType::decimal;
    if (!whole || !fits) return double(number);
    return qint32(number);
}

}  // namespace

FieldValue fitted(const Column& column, const FieldValue& value) {
    constexpr auto lowest = std::numeric_limits<qint32>::min();
    constexpr auto highest = std::numeric_limits<qint32>::max();
    if (value.isNull()) return column.type == FieldType::boolean ? FieldValue(false) : value;
    switch (column.type) {
        case FieldType::boolean: {
            bool truth = false;
            if (!attempt([&] { truth = value.toBool(); })) refuse(column, value, u"它不是真假值"_s);
            return truth;
        }
        case FieldType::byte:
            return fittedInteger(column, value, 0, 255);
        case FieldType::integer:
            return fittedInteger(column, value, -32768, 32767);
        case FieldType::longInteger:
            return fittedInteger(column, value, lowest, highest);
        case FieldType::single:
            return fittedSingle(column, value);
        case FieldType::real:
            return fittedNumber(column, value);
        case FieldType::currency:
        case FieldType::decimal:
            return fittedExact(column, value);
        case FieldType::date:
            return fittedDate(column, value);
        case FieldType::text:
        case FieldType::memo:
        case FieldType::guid:
            return fittedText(column, value);
        case FieldType::binary:
        case FieldType::longBinary:
            return fittedBytes(column, value);
    }
    return value;
}

void bindValue(SQLite::Statement& statement, int index, const FieldValue& value, FieldType type) {
    const auto bindText = [&](const QString& text) {
        const std::string bytes = text.toStdString();
        isExact(type) ? statement.bind(index, bytes.data(), int(bytes.size())) : statement.bind(index, bytes);
    };
    const auto& storage = value.storage();
    if (const auto* truth = std::get_if<bool>(&storage))
        statement.bind(index, *truth ? 1 : 0);
    else if (const auto* integer = std::get_if<qint32>(&storage))
        statement.bind(index, *integer);
    else if (const auto* single = std::get_if<float>(&storage))
        statement.bind(index, shortestDecimal(*single));
    else if (const auto* real = std::get_if<double>(&storage))
        statement.bind(index, *real);
    else if (const auto* text = std::get_if<QString>(&storage))
        bindText(*text);
    else if (const auto* date = std::get_if<QDateTime>(&storage))
        bindText(dateText(*date, dateTimePattern));
    else if (const auto* bytes = std::get_if<QByteArray>(&storage))
        statement.bind(index, bytes->constData(), int(bytes->size()));
    else
        statement.bind(index);
}

FieldValue storedValue(SQLite::Statement& statement, int index, FieldType type) {
    const SQLite::Column value = statement.getColumn(index);
    if (value.isNull()) return type == FieldType::boolean ? FieldValue(false) : FieldValue();
    const auto text = [&] { return QString::fromUtf8(value.getText(), value.getBytes()); };
    if (type == FieldType::text || type == FieldType::memo) {
        return value.isBlob() ? FieldValue(QByteArray(static_cast<const char*>(value.getBlob()), value.getBytes()))
                              : FieldValue(text());
    }
    if (value.isInteger()) return integerValue(value.getInt64(), type);
    if (value.isFloat()) {
        return type == FieldType::single ? FieldValue(float(value.getDouble())) : FieldValue(value.getDouble());
    }
    if (value.isBlob() && !isExact(type))
        return QByteArray(static_cast<const char*>(value.getBlob()), value.getBytes());
    if (type == FieldType::date) {
        if (const auto date = dateFromText(text())) return *date;
    }
    return text();
}

Row storedRow(SQLite::Statement& statement, const std::vector<Column>& columns) {
    Row cells(columns.size());
    for (size_t i = 0; i < columns.size(); ++i) {
        const int place = int(i);
        if (columns[i].type == FieldType::longBinary)
            cells[i].longBinaryKey = statement.getColumn(place).getInt64();
        else
            cells[i].value = storedValue(statement, place, columns[i].type);
    }
    return cells;
}
