#include "platform/database/sql_functions.h"

#include "platform/base/conversion.h"

#include <sqlite3.h>

#include <algorithm>
#include <string_view>

namespace {

std::string_view textOf(sqlite3_value* value) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return text ? std::string_view(text, static_cast<size_t>(sqlite3_value_bytes(value))) : std::string_view();
}

bool isNull(sqlite3_value* value) {
    return sqlite3_value_type(value) == SQLITE_NULL;
}

void giveText(sqlite3_context* context, const QString& text) {
    const QByteArray utf8 = text.toUtf8();
    sqlite3_result_text(context, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
}

char lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
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
    sqlite3_result_int(context, none ? 0 : static_cast<int>(before) + 1);
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
    sqlite3_result_text(context, text.data(), static_cast<int>(end), SQLITE_TRANSIENT);
}

void isNullFunction(sqlite3_context* context, int, sqlite3_value** arguments) {
    sqlite3_result_int(context, isNull(arguments[0]) ? 1 : 0);
}

void lCase(sqlite3_context* context, int, sqlite3_value** arguments) {
    if (isNull(arguments[0])) return;
    const std::string_view text = textOf(arguments[0]);
    giveText(context, QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).toLower());
}

/// DateValue(x): the day of a date at midnight, in the form in which dates are stored; Null for what is no date.
void dateValue(sqlite3_context* context, int, sqlite3_value** arguments) {
    if (isNull(arguments[0])) return;
    const std::string_view text = textOf(arguments[0]);
    const auto date = dateFromText(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())));
    if (date) giveText(context, dateText(*date, u"yyyy-mm-dd 00:00:00"));
}

}  // namespace

void registerFunctions(sqlite3* connection) {
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
