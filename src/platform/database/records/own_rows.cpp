#include "platform/database/records/own_rows.h"

#include "platform/database/file/connection.h"
#include "platform/database/records/own_values.h"
#include "platform/database/records/value_hashes.h"

using namespace Qt::Literals::StringLiterals;

namespace {

void bind(SQLite::Statement& statement, int place, const QVariant& value) {
    switch (value.typeId()) {
        case QMetaType::UnknownType:
            statement.bind(place);
            break;
        case QMetaType::Double:
            statement.bind(place, value.toDouble());
            break;
        case QMetaType::QString:
            statement.bind(place, value.toString().toStdString());
            break;
        case QMetaType::QByteArray: {
            const QByteArray bytes = value.toByteArray();
            statement.bind(place, bytes.constData(), int(bytes.size()));
            break;
        }
        default:
            statement.bind(place, int64_t(value.toLongLong()));
    }
}

void bindAll(SQLite::Statement& statement, const OwnRows::Values& values) {
    for (int i = 0; i < values.size(); ++i) bind(statement, i + 1, values[i]);
}

QVariant read(const SQLite::Column& column) {
    if (column.isNull()) return {};
    if (column.isInteger()) return qlonglong(column.getInt64());
    if (column.isFloat()) return column.getDouble();
    if (column.isText()) return QString::fromStdString(column.getString());
    return QByteArray(static_cast<const char*>(column.getBlob()), column.getBytes());
}

}  // namespace

OwnRows::OwnRows(const Database& database) : database_(database), connection_(OwnValues(database).connection()) {}

bool OwnRows::has(const QString& table) const {
    return connection_->isOurs() &&
           number(u"SELECT count(*) FROM sqlite_schema WHERE type = 'table' AND name = ?"_s, {table}) > 0;
}

qint64 OwnRows::runEach(const QString& sql, const std::vector<Values>& lists) const {
    Change change(*connection_);
    SQLite::Statement statement = connection_->prepare(sql);
    qint64 changed = 0;
    for (const Values& values : lists) {
        connection_->checked([&] {
            statement.reset();
            bindAll(statement, values);
            changed += statement.exec();
        });
    }
    change.commit();
    connection_->giveBackSpaceLater();
    return changed;
}

void OwnRows::eachOf(const QString& sql, const std::vector<Values>& lists, const Use& use) const {
    SQLite::Statement list = connection_->prepare(sql);
    for (const Values& values : lists) {
        connection_->checked([&] {
            list.reset();
            bindAll(list, values);
        });
        while (connection_->step(list)) {
            Values row;
            for (int i = 0; i < list.getColumnCount(); ++i) row << read(list.getColumn(i));
            use(row);
        }
    }
}

qint64 OwnRows::number(const QString& sql, const Values& values) const {
    SQLite::Statement statement = connection_->prepare(sql);
    connection_->checked([&] { bindAll(statement, values); });
    return connection_->step(statement) ? statement.getColumn(0).getInt64() : 0;
}

qint64 OwnRows::newRowId(const QString& table) const {
    return connection_->newRowId(table);
}

StoredValue OwnRows::value(qint64 id) const {
    return id == 0 ? StoredValue() : ValueHashes(database_).valueOf(id);
}
