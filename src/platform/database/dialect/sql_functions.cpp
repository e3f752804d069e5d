#include "platform/database/dialect/sql_functions.h"

#include "platform/base/conversion.h"

#include <sqlite3.h>

#include <QDate>
#include <algorithm>
#include <array>
#include <string_view>

using namespace Qt::Literals::StringLiterals;

namespace {

std::string_view textOf(sqlite3_value* value) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return text ? std::string_view(text, size_t(sqlite3_value_bytes(value))) : std::string_view();
}

bool isNull(sqlite3_value* value) {
    return sqlite3_value_type(value) == SQLITE_NULL;
}

void giveText(sqlite3_context* context, const QString& text) {
    const QByteArray utf8 = text.toUtf8();
    sqlite3_result_text(context, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
}

char lowered(char c) {
    return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c;
}

bool sameLetter(char a, char b) {
    return lowered(a) == lowered(b);
}

bool startsCharacter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
}

/// InStr(text, part): place of the first occurrence in characters from 1, 0 for none.
void inStr(sqlite3_context* context, int, sqlite3_value** arguments) {
    if (isNull(arguments[0]) || isNull(arguments[1])) return;
    const std::string_view text = textOf(arguments[0]);
    const std::string_view part = textOf(arguments[1]);
    const auto found = std::search(text.begin(), text.end(), part.begin(), part.end(), sameLetter);
    const bool none = text.empty() || (found == text.end() && !part.empty());
    const auto before = std::count_if(text.begin(), found, startsCharacter);
    sqlite3_result_int(context, none ? 0 : int(before) + 1);
}

void left(sqlite3_context* context, int, sqlite3_value** arguments) {
    if (isNull(arguments[0]) || isNull(arguments[1])) return;
    const std::string_view text = textOf(arguments[0]);
    qint64 wanted = std::max<qint64>(0, sqlite3_value_int64(arguments[1]));
    size_t end = 0;
    while (end < text.size() && (wanted > 0 || !startsCharacter(text[end]))) {
        if (startsCharacter(text[end])) --wanted;
        ++end;
    }
    sqlite3_result_text(context, text.data(), int(end), SQLITE_TRANSIENT);
}

void isNullFunction(sqlite3_context* context, int, sqlite3_value** arguments) {
    sqlite3_result_int(context, isNull(arguments[0]) ? 1 : 0);
}

void lCase(sqlite3_context* context, int, sqlite3_value** arguments) {
    if (isNull(arguments[0])) return;
    const std::string_view text = textOf(arguments[0]);
    giveText(context, QString::fromUtf8(text.data(), qsizetype(text.size())).toLower());
}

constexpr std::string_view storedForm = "0000-00-00 00:00:00";  // each zero is any digit
constexpr size_t dayLength = 10;

bool isInStoredForm(std::string_view text) {
    const auto fits = [](char c, char form) { return form == '0' ? c >= '0' && c <= '9' : c == form; };
    return std::ranges::equal(text, storedForm, fits);
}

int numberIn(std::string_view digits) {
    int number = 0;
    for (const char digit : digits) number = number * 10 + (digit - '0');
    return number;
}

/// A filter asks for the day of every record of an album, so a date in the stored form takes a short way.
bool isStoredDate(std::string_view text) {
    return isInStoredForm(text) && numberIn(text.substr(11, 2)) < 24 && numberIn(text.substr(14, 2)) < 60 &&
           numberIn(text.substr(17, 2)) < 60 &&
           QDate::isValid(numberIn(text.substr(0, 4)), numberIn(text.substr(5, 2)), numberIn(text.substr(8, 2)));
}

/// DateValue(x): the day of a date at midnight, in the form in which dates are stored; Null for what is no date.
void dateValue(sqlite3_context* context, int, sqlite3_value** arguments) {
    if (isNull(arguments[0])) return;
    const std::string_view text = textOf(arguments[0]);
    if (isStoredDate(text)) {
        std::array<char, storedForm.size()> day{};
        std::ranges::copy(storedForm, day.begin());
        std::ranges::copy(text.substr(0, dayLength), day.begin());
        sqlite3_result_text(context, day.data(), int(day.size()), SQLITE_TRANSIENT);
        return;
    }
    const auto date = dateFromText(QString::fromUtf8(text.data(), qsizetype(text.size())));
    if (date) giveText(context, dateText(*date, datePattern) + u" 00:00:00"_s);
}

}  // namespace

void setUpDialect(sqlite3* connection) {
    for (const int quotedTexts : {SQLITE_DBCONFIG_DQS_DML, SQLITE_DBCONFIG_DQS_DDL})
        sqlite3_db_config(connection, quotedTexts, 0, nullptr);
    const auto add = [connection](const char* name, int arguments, auto* function) {
        sqlite3_create_function_v2(connection, name, arguments, SQLITE_UTF8 | SQLITE_DETERMINISTIC, nullptr, function,
                                   nullptr, nullptr, nullptr);
    };
    add("InStr", 2, inStr);
    add("Left", 2, left);
    add("IsNull", 1, isNullFunction);
    add("LCase", 1, lCase);
    add("DateValue", 1, dateValue);
}
