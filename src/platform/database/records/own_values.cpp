#include "platform/database/records/own_values.h"

#include "platform/base/error.h"
#include "platform/database/file/connection.h"
#include "platform/database/records/value_hashes.h"

using namespace Qt::Literals::StringLiterals;

namespace {

const QString createTableSql =
    u"CREATE TABLE IF NOT EXISTS lunq_values (name TEXT PRIMARY KEY NOT NULL, value TEXT NOT NULL) WITHOUT ROWID"_s;

void bindAll(SQLite::Statement& statement, const QStringList& parameters) {
    for (int i = 0; i < parameters.size(); ++i) statement.bind(i + 1, parameters[i].toStdString());
}

}  // namespace

OwnValues::OwnValues(const Database& database) : connection_(database.connection_) {
    if (!connection_) throw Error(u"数据库没有打开。"_s);
}

bool OwnValues::isPrepared() const {
    return connection_->isOurs() && connection_->version() >= 2;
}

/// One of the tables may have been dropped by hand.
bool OwnValues::hasAll(const QStringList& names) const {
    QStringList quotedNames;
    for (const QString& name : names) quotedNames << quoted(name);
    SQLite::Statement found =
        connection_->prepare(u"SELECT count(*) FROM sqlite_schema WHERE name IN (%1)"_s.arg(quotedNames.join(u',')));
    return connection_->step(found) && found.getColumn(0).getInt() == names.size();
}

void OwnValues::prepare(const OwnTables& others) {
    const QStringList names =
        QStringList{u"lunq_values"_s, u"lunq_hashes"_s, u"lunq_hashes_length"_s, u"lunq_hashes_deleted"_s} +
        others.names;
    if (isPrepared() && hasAll(names)) return;
    if (!connection_->isOurs()) throw Error(u"数据库文件“%1”不是本软件的像册文件。"_s.arg(connection_->path()));
    Change change(*connection_);
    connection_->run(createTableSql);
    for (const QString& sql : ValueHashes::creation() + others.creation) connection_->run(sql);
    connection_->run(u"PRAGMA user_version = 2"_s);
    change.commit();
}

std::optional<QString> OwnValues::value(const QString& name) const {
    if (!isPrepared()) return {};
    SQLite::Statement statement = connection_->prepare(u"SELECT value FROM lunq_values WHERE name = ?"_s);
    connection_->checked([&] { bindAll(statement, {name}); });
    if (!connection_->step(statement)) return {};
    return QString::fromStdString(statement.getColumn(0).getString());
}

void OwnValues::setValue(const QString& name, const QString& value) {
    run(u"INSERT INTO lunq_values (name, value) VALUES (?, ?) ON CONFLICT (name) DO UPDATE SET value = excluded.value"_s,
        {name, value});
}

void OwnValues::remove(const QString& name) {
    run(u"DELETE FROM lunq_values WHERE name = ?"_s, {name});
}

void OwnValues::run(const QString& sql, const QStringList& parameters) {
    if (!isPrepared()) throw connection_->missingTable(u"lunq_values"_s);
    Change change(*connection_);
    SQLite::Statement statement = connection_->prepare(sql);
    connection_->checked([&] {
        bindAll(statement, parameters);
        statement.exec();
    });
    change.commit();
}
