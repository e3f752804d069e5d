#include "platform/database/records/database.h"

#include "platform/base/error.h"
#include "platform/database/file/connection.h"
#include "platform/database/records/recordset_state.h"

using namespace Qt::Literals::StringLiterals;

namespace {

Connection& required(const std::shared_ptr<Connection>& connection) {
    if (!connection) throw Error(u"数据库没有打开。"_s);
    return *connection;
}

[[noreturn]] void refuseStatement(const QString& sql) {
    throw Error(u"不能执行这样的语句：%1"_s.arg(sql));
}

void requireTable(Connection& connection, const QString& table) {
    if (connection.columnsOf(table).empty()) throw connection.missingTable(table);
}

void createTable(Connection& connection, const Tokens& tokens) {
    const TableCreation creation = tableCreation(tokens);
    if (isReservedTable(creation.table)) throw Error(u"表名“%1”是保留的，不能使用。"_s.arg(creation.table));
    Change change(connection);
    connection.run(creation.sql);
    if (!creation.longBinaryColumns.isEmpty()) connection.run(LongBinaries::createTableSql());
    for (const QString& column : creation.longBinaryColumns) {
        for (const QString& trigger : longBinaryTriggers(creation.table, column)) connection.run(trigger);
    }
    change.commit();
}

/// The engine removes a table without looking at its rows: their long-binary values go first.
void dropTable(Connection& connection, const QString& table) {
    requireTable(connection, table);
    Change change(connection);
    for (const Column& column : connection.columnsOf(table)) {
        if (column.type != FieldType::longBinary) continue;
        connection.run(u"DELETE FROM long_binary WHERE id IN (SELECT %1 FROM %2)"_s.arg(quotedName(column.name),
                                                                                        quotedName(table)));
    }
    connection.run(u"DROP TABLE "_s + quotedName(table));
    connection.noteChange();
    change.commit();
}

void deleteRows(Connection& connection, const Tokens& tokens) {
    requireTable(connection, tokens[2].text);
    Change change(connection);
    connection.run(engineSql(tokens), tokens[2].text);
    change.commit();
}

}  // namespace

QString Database::Name() const {
    return required(connection_).path();
}

bool Database::isForeign() const {
    return required(connection_).isForeign();
}

bool Database::isOurs() const {
    return required(connection_).isOurs();
}

Recordset Database::OpenRecordset(const QString& source) const {
    required(connection_);
    return Recordset(std::make_unique<RecordsetState>(connection_, source));
}

void Database::Execute(const QString& sql) const {
    Connection& connection = required(connection_);
    const Tokens tokens = tokensOf(sql);
    if (tokens.empty()) throw Error(u"语句是空的。"_s);
    const auto begins = [&](QStringView verb, QStringView noun) {
        return tokens.size() >= 3 && isToken(tokens[0], verb) && isToken(tokens[1], noun) && isName(tokens[2]);
    };
    if (isToken(tokens[0], u"CREATE"))
        createTable(connection, tokens);
    else if (begins(u"DROP", u"TABLE") && tokens.size() == 3)
        dropTable(connection, tokens[2].text);
    else if (begins(u"DELETE", u"FROM"))
        deleteRows(connection, tokens);
    else
        refuseStatement(sql);
    attempt([&] { connection.giveBackSpace(); });
}

QStringList Database::TableDefs() const {
    Connection& connection = required(connection_);
    SQLite::Statement list =
        connection.prepare(u"SELECT name FROM sqlite_schema WHERE type = 'table' ORDER BY rowid"_s);
    QStringList names;
    while (connection.step(list)) {
        const QString name = QString::fromStdString(list.getColumn(0).getString());
        if (!isReservedTable(name)) names << name;
    }
    return names;
}

Database OpenDatabase(const QString& path) {
    return Database(Connection::open(path));
}

Database openForOnePass(const QString& path) {
    const auto connection = Connection::open(path);
    connection->keepFewPages();
    return Database(connection);
}

bool isJetDatabase(const QString& path) {
    return Connection::isJetFile(path);
}

Database createDatabase(const QString& path) {
    return Database(Connection::create(path));
}

Transaction::Transaction(const Database& database)
    : connection_(database.connection_), change_(std::make_unique<Change>(required(connection_))) {}

Transaction::~Transaction() = default;

void Transaction::commit() {
    change_->commit();
}

QString quoted(const QString& text) {
    return u'\'' + QString(text).replace(u"'"_s, u"''"_s) + u'\'';
}
