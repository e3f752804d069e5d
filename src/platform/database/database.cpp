#include "platform/database/database.h"

#include "platform/base/error.h"
#include "platform/database/connection.h"
#include "platform/database/recordset_state.h"

using namespace Qt::Literals::StringLiterals;

namespace {

Connection& required(const std::shared_ptr<Connection>& connection) {
    if (!connection) throw Error(u"数据库没有打开。"_s);
    return *connection;
}

bool isReserved(const QString& table) {
    return table.compare(u"long_binary", Qt::CaseInsensitive) == 0 || table.startsWith(u"sqlite_", Qt::CaseInsensitive);
}

void createTable(Connection& connection, const Tokens& tokens) {
    const TableCreation creation = tableCreation(tokens);
    if (isReserved(creation.table)) throw Error(u"表名“%1”是保留的，不能使用。"_s.arg(creation.table));
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
    const std::vector<Column> columns = connection.columnsOf(table);
    if (isReserved(table) || columns.empty()) {
        throw Error(u"数据库文件“%1”：表“%2”不存在。"_s.arg(connection.path(), table));
    }
    Change change(connection);
    for (const Column& column : columns) {
        if (column.type != FieldType::longBinary) continue;
        connection.run(u"DELETE FROM long_binary WHERE id IN (SELECT %1 FROM %2)"_s.arg(quotedName(column.name),
                                                                                        quotedName(table)));
    }
    connection.run(u"DROP TABLE "_s + quotedName(table));
    connection.noteChange();
    change.commit();
}

}  // namespace

QString Database::Name() const {
    return required(connection_).path();
}

Recordset Database::OpenRecordset(const QString& source) const {
    required(connection_);
    return Recordset(std::make_unique<RecordsetState>(connection_, source));
}

void Database::Execute(const QString& sql) const {
    Connection& connection = required(connection_);
    const Tokens tokens = tokensOf(sql);
    if (tokens.empty()) throw Error(u"语句是空的。"_s);
    if (isToken(tokens[0], u"SELECT")) throw Error(u"查询不能这样执行：%1"_s.arg(sql));
    const bool drop = tokens.size() == 3 && isToken(tokens[0], u"DROP") && isToken(tokens[1], u"TABLE");
    if (isToken(tokens[0], u"CREATE")) {
        createTable(connection, tokens);
    } else if (drop && isName(tokens[2])) {
        dropTable(connection, tokens[2].text);
    } else {
        Change change(connection);
        connection.run(engineSql(tokens));
        change.commit();
    }
    attempt([&] { connection.giveBackSpace(); });
}

QStringList Database::TableDefs() const {
    Connection& connection = required(connection_);
    SQLite::Statement list =
        connection.prepare(u"SELECT name FROM sqlite_schema WHERE type = 'table' ORDER BY rowid"_s);
    QStringList names;
    while (connection.step(list)) {
        const QString name = QString::fromStdString(list.getColumn(0).getString());
        if (!isReserved(name)) names << name;
    }
    return names;
}

Database OpenDatabase(const QString& path) {
    return Database(Connection::open(path));
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
