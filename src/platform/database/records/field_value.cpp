#include "platform/database/records/field_value.h"

#include "platform/base/conversion.h"
#include "platform/base/error.h"

#include <cmath>
#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace {

template <typename... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <typename... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;  // which not every compiler finds by itself

[[noreturn]] void refuseNull() {
    throw Error(u"值为空（Null），不能使用。"_s);
}

[[noreturn]] void refuse(const QString& value, QStringView wanted) {
    throw Error(u"“%1”不是%2。"_s.arg(value, wanted));
}

}  // namespace

QString FieldValue::toText() const {
    return std::visit(
        Overloaded{[](std::monostate) -> QString { refuseNull(); },
                   [](bool value) { return value ? u"True"_s : u"False"_s; },
                   [](qint32 value) { return QString::number(value); }, [](float value) { return plainText(value); },
                   [](double value) { return plainText(value); }, [](const QString& value) { return value; },
                   [](const QDateTime& value) {
                       const bool midnight = value.time() == QTime(0, 0);
                       return dateText(value, midnight ? datePattern : dateTimePattern);
                   },
                   [](const QByteArray&) -> QString { refuse(u"二进制数据"_s, u"文本"); }},
        storage_);
}

QString FieldValue::textOr(const QString& fallback) const {
    return isNull() ? fallback : toText();
}

double FieldValue::toDouble() const {
    return std::visit(
        Overloaded{[](std::monostate) -> double { refuseNull(); }, [](bool value) -> double { return value ? 1 : 0; },
                   [](qint32 value) -> double { return value; }, [](float value) -> double { return double(value); },
                   [](double value) { return value; },
                   [](const QString& value) {
                       const auto number = numberFromText(value);
                       if (!number) refuse(value, u"数字");
                       return *number;
                   },
                   [](const QDateTime& value) -> double { refuse(dateText(value, dateTimePattern), u"数字"); },
                   [](const QByteArray&) -> double { refuse(u"二进制数据"_s, u"数字"); }},
        storage_);
}

qint32 FieldValue::toInteger() const {
    const double number = std::nearbyint(toDouble());
    if (!(number >= std::numeric_limits<qint32>::min() && number <= std::numeric_limits<qint32>::max())) {
        refuse(plainText(number), u"32 位整数：超出范围");
    }
    return qint32(number);
}

bool FieldValue::toBool() const {
    if (const auto* text = std::get_if<QString>(&storage_)) {
        if (text->trimmed().compare(u"True", Qt::CaseInsensitive) == 0) return true;
        if (text->trimmed().compare(u"False", Qt::CaseInsensitive) == 0) return false;
    }
    return toDouble() != 0;
}

QDateTime FieldValue::toDate() const {
    if (isNull()) refuseNull();
    if (const auto* date = std::get_if<QDateTime>(&storage_)) return *date;
    if (const auto* text = std::get_if<QString>(&storage_)) {
        if (const auto date = dateFromText(*text)) return *date;
        refuse(*text, u"日期");
    }
    refuse(std::holds_alternative<QByteArray>(storage_) ? u"二进制数据"_s : toText(), u"日期");
}

QByteArray FieldValue::toBytes() const {
    if (isNull()) refuseNull();
    if (const auto* bytes = std::get_if<QByteArray>(&storage_)) return *bytes;
    refuse(toText(), u"二进制数据");
}
