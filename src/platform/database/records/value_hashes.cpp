#include "platform/database/records/value_hashes.h"

#include "platform/base/error.h"
#include "platform/database/dialect/sql_tokens.h"
#include "platform/database/file/connection.h"

using namespace Qt::Literals::StringLiterals;

namespace {

std::string textOf(const QDate& day) {
    return day.toString(Qt::ISODate).toStdString();
}

QByteArray bytesOf(const SQLite::Column& column) {
    return {static_cast<const char*>(column.getBlob()), column.getBytes()};
}

}  // namespace

ValueHashes::ValueHashes(const Database& database) : connection_(database.connection_) {
    if (!connection_) throw Error(u"数据库没有打开。"_s);
    if (!connection_->isOurs()) return;
    auto find = connection_->kept(u"SELECT 1 FROM sqlite_schema WHERE type = 'table' AND name = 'lunq_hashes'"_s);
    areKept_ = connection_->step(*find);
}

Database ValueHashes::ofForeign(const QString& path, std::unique_ptr<ForeignCopy> hashes) {
    return Database(Connection::toCopy(path, std::move(hashes)));
}

QStringList ValueHashes::creation() {
    return {
        u"CREATE TABLE IF NOT EXISTS lunq_hashes (id INTEGER PRIMARY KEY, length INTEGER NOT NULL, "
        "sha256 BLOB NOT NULL, checked TEXT NOT NULL)"_s,
        u"CREATE INDEX IF NOT EXISTS lunq_hashes_length ON lunq_hashes (length)"_s,
        u"CREATE TRIGGER IF NOT EXISTS lunq_hashes_deleted AFTER DELETE ON long_binary "
        "BEGIN DELETE FROM lunq_hashes WHERE id = OLD.id; END"_s};
}

void ValueHashes::note(qint64 value, qint64 length, const QByteArray& sha256) {
    if (!areKept_) return;
    std::optional<Change> change;  // one statement needs none within another change
    if (!connection_->isInChange()) change.emplace(*connection_);
    auto insert = connection_->kept(
        u"INSERT OR REPLACE INTO lunq_hashes (id, length, sha256, checked) "
        "SELECT ?1, ?2, ?3, ?4 WHERE EXISTS (SELECT 1 FROM long_binary WHERE id = ?1)"_s);
    connection_->checked([&] {
        insert->bind(1, int64_t(value));
        insert->bind(2, int64_t(length));
        insert->bind(3, sha256.constData(), int(sha256.size()));
        insert->bind(4, textOf(QDate::currentDate()));
        insert->exec();
    });
    if (change) change->commit();
}

std::optional<ValueHashes::Kept> ValueHashes::of(qint64 value) const {
    if (!areKept_) return {};
    auto find = connection_->kept(u"SELECT length, sha256 FROM lunq_hashes WHERE id = ?"_s);
    connection_->checked([&] { find->bind(1, int64_t(value)); });
    if (!connection_->step(*find)) return {};
    return Kept{find->getColumn(0).getInt64(), bytesOf(find->getColumn(1))};
}

std::vector<StoredValue> ValueHashes::like(const Kept& hash) const {
    std::vector<StoredValue> values;
    if (!areKept_) return values;
    SQLite::Statement find = connection_->prepare(u"SELECT id FROM lunq_hashes WHERE length = ? AND sha256 = ?"_s);
    connection_->checked([&] {
        find.bind(1, int64_t(hash.length));
        find.bind(2, hash.sha256.constData(), int(hash.sha256.size()));
    });
    while (connection_->step(find)) values.push_back(valueOf(find.getColumn(0).getInt64()));
    return values;
}

std::vector<ValueHashes::Known> ValueHashes::lastChecked(const QDate& before, qint64 above) const {
    std::vector<Known> values;
    if (!areKept_) return values;
    SQLite::Statement list = connection_->prepare(
        u"SELECT id, length, sha256 FROM lunq_hashes WHERE checked < ? OR checked > ? OR id > ? ORDER BY id"_s);
    connection_->checked([&] {
        list.bind(1, textOf(before));
        list.bind(2, textOf(QDate::currentDate()));
        list.bind(3, int64_t(above));
    });
    while (connection_->step(list))
        values.push_back({list.getColumn(0).getInt64(), {list.getColumn(1).getInt64(), bytesOf(list.getColumn(2))}});
    return values;
}

void ValueHashes::setChecked(const std::vector<qint64>& values) {
    if (!areKept_ || values.empty()) return;
    Change change(*connection_);
    SQLite::Statement set = connection_->prepare(u"UPDATE lunq_hashes SET checked = ? WHERE id = ?"_s);
    connection_->checked([&] {
        set.bind(1, textOf(QDate::currentDate()));
        for (const qint64 value : values) {
            set.bind(2, int64_t(value));
            set.exec();
            set.reset();
        }
    });
    change.commit();
}

ValueHashes::Extent ValueHashes::extent() const {
    if (!areKept_) return {};
    SQLite::Statement all = connection_->prepare(u"SELECT count(*), min(checked) FROM lunq_hashes"_s);
    connection_->step(all);
    return {all.getColumn(0).getInt64(),
            QDate::fromString(QString::fromStdString(all.getColumn(1).getString()), Qt::ISODate)};
}

std::vector<qint64> ValueHashes::rowsWith(const QString& table, const QString& column, qint64 value) const {
    std::vector<qint64> rows;
    SQLite::Statement list =
        connection_->prepare(u"SELECT rowid FROM %2 WHERE %1 = ?"_s.arg(quotedName(column), quotedName(table)), table);
    connection_->checked([&] { list.bind(1, int64_t(value)); });
    while (connection_->step(list)) rows.push_back(list.getColumn(0).getInt64());
    return rows;
}

void ValueHashes::mend(qint64 value, const QByteArray& bytes) {
    Change change(*connection_);
    SQLite::Statement write = connection_->prepare(u"UPDATE long_binary SET bytes = ? WHERE id = ?"_s);
    connection_->checked([&] {
        write.bindNoCopy(1, bytes.constData(), int(bytes.size()));
        write.bind(2, int64_t(value));
        write.exec();
    });
    change.commit();
}

std::vector<StoredValue> ValueHashes::without(const QString& table, const QString& column) const {
    std::vector<StoredValue> values;
    const QString hashed =
        areKept_ ? u" AND NOT EXISTS (SELECT 1 FROM lunq_hashes WHERE lunq_hashes.id = %2.%1)"_s : QString();
    SQLite::Statement list = connection_->prepare(
        (u"SELECT %1 FROM %2 WHERE %1 IS NOT NULL"_s + hashed).arg(quotedName(column), quotedName(table)), table);
    while (connection_->step(list)) values.push_back({connection_, list.getColumn(0).getInt64()});
    return values;
}

void ValueHashes::each(const QString& table, const QString& column, const Each& use) const {
    if (!areKept_) return;
    SQLite::Statement list = connection_->prepare(
        u"SELECT lunq_hashes.length, lunq_hashes.sha256 FROM %2 JOIN lunq_hashes "
        "ON lunq_hashes.id = %2.%1"_s.arg(quotedName(column), quotedName(table)),
        table);
    while (connection_->step(list)) {
        use(list.getColumn(0).getInt64(), bytesOf(list.getColumn(1)));
    }
}
