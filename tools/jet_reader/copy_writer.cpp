#include "copy_writer.h"

#include "helper/limits.h"
#include "platform/database/file/literal_paths.h"
#include "platform/database/file/storage_format.h"
#include "platform/database/foreign/reading_notes_table.h"
#include "value_hash.h"

#include <sqlite3.h>
#include <strings.h>

#include <algorithm>
#include <cerrno>

namespace {

/// A file that is thrown away when it is not finished needs no way back and no flushing.
SQLite::Database emptyFile(const std::string& path) {
    SQLite::Database database(path, SQLite::OPEN_READWRITE, 0, literalPaths());
    for (const char* setting : {"PRAGMA page_size = 16384", "PRAGMA journal_mode = OFF", "PRAGMA synchronous = OFF",
                                "PRAGMA temp_store = MEMORY", "PRAGMA cache_size = -16000"}) {
        database.tryExec(setting);
    }
    database.exec("BEGIN");
    database.exec(createLongBinarySql);
    database.exec(std::string("CREATE TABLE ") + readingNotesTable +
                  " (kind TEXT(10), name MEMO TEXT, field MEMO TEXT, number LONG)");
    database.exec(std::string("CREATE VIEW ") + readingNotesView + " AS SELECT * FROM " + readingNotesTable);
    return database;
}

std::string quoted(const std::string& name) {
    std::string text = "\"";
    for (const char letter : name) {
        if (letter == '"') text += '"';
        text += letter;
    }
    return text + '"';
}

/// The names that the side table and the engine have for themselves.
std::string freeName(const std::string& name) {
    const bool taken = strcasecmp(name.c_str(), "long_binary") == 0 || strncasecmp(name.c_str(), "sqlite_", 7) == 0 ||
                       strncasecmp(name.c_str(), "lunq_", 5) == 0 || strcasecmp(name.c_str(), readingNotesView) == 0;
    return taken ? '_' + name : name;
}

/// Two names of columns must differ in more than case; in a damaged file they may not.
std::vector<std::string> uniqueNames(const std::vector<JetColumn>& columns) {
    std::vector<std::string> names;
    const auto isTaken = [&](const std::string& name) {
        return std::ranges::any_of(names,
                                   [&](const auto& other) { return strcasecmp(other.c_str(), name.c_str()) == 0; });
    };
    for (const JetColumn& column : columns) {
        std::string name = column.name;
        for (int number = 2; isTaken(name); ++number) name = column.name + '_' + std::to_string(number);
        names.push_back(std::move(name));
    }
    return names;
}

std::string declaration(const JetColumn& column) {
    const std::string length = '(' + std::to_string(column.size) + ')';
    switch (column.type) {
        case MDB_BOOL:
            return "YESNO";
        case MDB_BYTE:
            return "BYTE";
        case MDB_INT:
            return "SHORT";
        case MDB_LONGINT:
            return "LONG";
        case MDB_MONEY:
            return "CURRENCY";
        case MDB_FLOAT:
            return "SINGLE";
        case MDB_DOUBLE:
            return "DOUBLE";
        case MDB_DATETIME:
            return "DATETIME";
        case MDB_BINARY:
            return "BINARY" + length;
        case MDB_TEXT:
            return "TEXT" + length + " COLLATE NOCASE";
        case MDB_OLE:
            return "LONGBINARY";
        case MDB_MEMO:
            return "MEMO TEXT COLLATE NOCASE";
        case MDB_REPID:
            return "GUID TEXT COLLATE NOCASE";
        case MDB_NUMERIC:
            return "DECIMAL";
        default:
            throw JetFailure{JetOutcome::damaged};
    }
}

/// Digits that are too many for a number are kept as bytes.
bool isExact(int type) {
    return type == MDB_MONEY || type == MDB_NUMERIC;
}

constexpr int64_t lostKey = -1;

void bindBytes(SQLite::Statement& statement, int place, const std::vector<unsigned char>& bytes) {
    const void* start = bytes.empty() ? static_cast<const void*>("") : bytes.data();
    statement.bindNoCopy(place, start, int(bytes.size()));
}

}  // namespace

CopyWriter::CopyWriter(const std::string& path, LongValues longValues)
    : longValues_(longValues),
      database_(emptyFile(path)),
      insertBytes_(database_, "INSERT INTO long_binary (bytes) VALUES (?)"),
      insertNote_(database_, std::string("INSERT INTO ") + readingNotesTable + " VALUES (?, ?, ?, ?)") {}

void CopyWriter::note(const Note& note) {
    insertNote_.bindNoCopy(1, note.kind);
    insertNote_.bindNoCopy(2, note.name);
    insertNote_.bindNoCopy(3, note.field);
    insertNote_.bind(4, note.number);
    insertNote_.exec();
    insertNote_.reset();
}

void CopyWriter::copy(const std::string& name, JetTable& table) {
    if (table.columns().empty()) return;
    std::string definitions;
    std::string places;
    const std::vector<std::string> names = uniqueNames(table.columns());
    for (size_t i = 0; i < names.size(); ++i) {
        definitions += (definitions.empty() ? "" : ", ") + quoted(names[i]) + ' ' + declaration(table.columns()[i]);
        places += places.empty() ? "?" : ", ?";
    }
    const std::string target = quoted(freeName(name));
    database_.exec("CREATE TABLE " + target + " (" + definitions + ')');
    SQLite::Statement insertRow(database_, "INSERT INTO " + target + " VALUES (" + places + ')');
    while (table.next()) {
        copyRow(freeName(name), table, insertRow);
        tellProgress(int(JetOutcome::wrongCall));
    }
    if (const int64_t missing = table.missingRows(); missing != 0)
        note({.kind = "table", .name = freeName(name), .number = missing});
}

JetValue CopyWriter::valueOrNothing(const JetTable& table, size_t column, std::vector<size_t>& lost) const {
    try {
        return table.value(column);
    } catch (const JetFailure& failure) {
        if (failure.outcome != JetOutcome::damaged && failure.outcome != JetOutcome::incomplete) throw;
        lost.push_back(column);
        // A key that no value has: who reads it is told that it is lost, as with any damaged catalogue.
        return table.columns()[column].type == MDB_OLE ? JetValue(lostKey) : JetValue();
    }
}

void CopyWriter::copyRow(const std::string& name, const JetTable& table, SQLite::Statement& insertRow) {
    std::vector<size_t> lost;
    std::vector<JetValue> values;
    for (size_t i = 0; i < table.columns().size(); ++i) values.push_back(valueOrNothing(table, i, lost));
    for (size_t i = 0; i < values.size(); ++i) {
        const int place = int(i) + 1;
        if (const auto* whole = std::get_if<int64_t>(&values[i]))
            insertRow.bind(place, *whole);
        else if (const auto* real = std::get_if<double>(&values[i]))
            insertRow.bind(place, *real);
        else if (const auto* text = std::get_if<std::string>(&values[i]))
            isExact(table.columns()[i].type) ? insertRow.bindNoCopy(place, text->data(), int(text->size()))
                                             : insertRow.bindNoCopy(place, *text);
        else if (const auto* bytes = std::get_if<std::vector<unsigned char>>(&values[i]))
            table.columns()[i].type == MDB_OLE ? insertRow.bind(place, store(*bytes))
                                               : bindBytes(insertRow, place, *bytes);
        else
            insertRow.bind(place);
    }
    insertRow.exec();
    insertRow.reset();
    const int64_t row = database_.getLastInsertRowid();
    for (const size_t column : lost)
        note({.kind = "value", .name = name, .field = table.columns()[column].name, .number = row});
}

int64_t CopyWriter::store(const std::vector<unsigned char>& bytes) {
    const std::vector<unsigned char> hash =
        longValues_ == LongValues::hashes ? hashOfValue(bytes) : std::vector<unsigned char>();
    bindBytes(insertBytes_, 1, longValues_ == LongValues::hashes ? hash : bytes);
    insertBytes_.exec();
    insertBytes_.reset();
    return database_.getLastInsertRowid();
}

void CopyWriter::finish() {
    database_.exec("COMMIT");
}

JetOutcome CopyWriter::outcomeOf(const SQLite::Exception& failure) const {
    switch (failure.getErrorCode()) {
        case SQLITE_NOMEM:
        case SQLITE_TOOBIG:
            return JetOutcome::limitExceeded;
        case SQLITE_FULL:
        case SQLITE_CANTOPEN:
            return JetOutcome::diskFull;
        case SQLITE_IOERR:
            return sqlite3_system_errno(database_.getHandle()) == EFBIG ? JetOutcome::limitExceeded
                                                                        : JetOutcome::diskFull;
        default:
            return JetOutcome::damaged;  // names and columns that make no table
    }
}
