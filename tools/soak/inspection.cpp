#include "soak/inspection.h"

#include "soak/fingerprints.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <QBuffer>
#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QImageReader>

using namespace Qt::Literals::StringLiterals;

namespace {

QString textOf(const SQLite::Column& column) {
    return QString::fromStdString(column.getString());
}

QByteArray bytesOf(const SQLite::Column& column) {
    return {static_cast<const char*>(column.getBlob()), column.getBytes()};
}

std::string utf8(const QString& text) {
    return text.toStdString();
}

class Catalogue {
  public:
    Catalogue(const QString& file, QStringList& faults)
        : database_(utf8(file), SQLite::OPEN_READWRITE), faults_(faults) {}

    Found look(const QString& prefix) {
        SQLite::Statement check(database_, "PRAGMA integrity_check");
        while (check.executeStep())
            if (textOf(check.getColumn(0)) != u"ok") faults_ << u"integrity: "_s + textOf(check.getColumn(0));

        Found found;
        const QStringList albums = tables("SELECT 表名 FROM tcbm");
        for (const QString& album : albums) found[prefix + album] = lookAt(album, true);
        for (const QString& table : tables("SELECT name FROM sqlite_schema WHERE type = 'table' AND sql LIKE '%图片%' "
                                           "AND name NOT IN (SELECT 表名 FROM tcbm)")) {
            // Background pictures, corners and steps of the editor: nobody tells about them, but they have to be whole.
            const PlaceFound place = lookAt(table, false);
            if (table == u"tcan" || table == Ledger::bin) found[prefix + table] = place;
            if (table == Ledger::steps && prefix.isEmpty()) found[table].numbers = stepsWithSource();
            if (table.size() == 4 && table.startsWith(u"tc") && table[2].isDigit())
                faults_ << table + u" is in no directory"_s;
        }
        lookAtColumn(u"tcsz"_s, u"封面"_s);
        lookAtColumn(u"tcys"_s, u"主窗口"_s);
        countValues();
        lookAtHashes();
        return found;
    }

  private:
    QStringList tables(const char* sql) {
        SQLite::Statement list(database_, sql);
        QStringList names;
        while (list.executeStep()) names << textOf(list.getColumn(0));
        return names;
    }

    PlaceFound lookAt(const QString& table, bool isAlbum) {
        PlaceFound place;
        const QString columns = isAlbum ? u"t.规格, t.序号"_s : u"NULL, NULL"_s;
        SQLite::Statement rows(database_,
                               utf8(u"SELECT t.图片, b.bytes, %1, t._rowid_ FROM %2 AS t LEFT JOIN long_binary AS b "
                                    "ON b.id = t.图片 ORDER BY t._rowid_"_s.arg(columns, table)));
        QStringList numbers;
        while (rows.executeStep()) {
            numbers << textOf(rows.getColumn(3));
            const QString row = u"%1, row %2"_s.arg(table, textOf(rows.getColumn(4)));
            if (rows.getColumn(0).isNull()) {
                if (isAlbum) faults_ << row + u" has no picture"_s;
                continue;
            }
            if (!refersRightly(rows.getColumn(0).getInt64(), rows.getColumn(1).isNull(), row)) continue;
            const QByteArray bytes = bytesOf(rows.getColumn(1));
            place.pictures << fingerprintOf(bytes);
            if (const QString fault = faultOfPicture(bytes); !fault.isEmpty()) faults_ << row + u" has "_s + fault;
            if (isAlbum) compareSize(bytes, textOf(rows.getColumn(2)), row);
        }
        place.numbers = fingerprintOf(numbers.join(u' ').toUtf8());
        return place;
    }

    QString stepsWithSource() {
        const int steps = database_.execAndGet("SELECT count(*) FROM tccx").getInt();
        const bool isKept = !tables("SELECT name FROM sqlite_schema WHERE name = 'lunq_values'").isEmpty() &&
                            !tables("SELECT value FROM lunq_values WHERE name = 'editor.source'").join(u' ').isEmpty();
        return QString::number(steps) + (isKept ? u'+' : u'-');
    }

    void lookAtColumn(const QString& table, const QString& column) {
        SQLite::Statement rows(database_, utf8(u"SELECT %1, b.id FROM %2 LEFT JOIN long_binary AS b ON b.id = %1 "
                                               "WHERE %1 NOTNULL"_s.arg(column, table)));
        while (rows.executeStep()) refersRightly(rows.getColumn(0).getInt64(), rows.getColumn(1).isNull(), table);
    }

    bool refersRightly(qint64 key, bool dangling, const QString& who) {
        if (keys_.contains(key)) faults_ << u"%1 shares the value %2"_s.arg(who).arg(key);
        keys_ << key;
        if (dangling) faults_ << u"%1 refers to the value %2, which is not there"_s.arg(who).arg(key);
        return !dangling;
    }

    void compareSize(const QByteArray& bytes, const QString& stored, const QString& row) {
        QBuffer buffer;
        buffer.setData(bytes);
        const QSize size = QImageReader(&buffer).size();
        if (stored != u"%1 * %2"_s.arg(size.width()).arg(size.height()))
            faults_ << u"%1 says %2 of a picture of %3 x %4"_s.arg(row, stored).arg(size.width()).arg(size.height());
    }

    void countValues() {
        const int all = database_.execAndGet("SELECT count(*) FROM long_binary").getInt();
        if (all != keys_.size()) faults_ << u"%1 values for %2 that are referred to"_s.arg(all).arg(keys_.size());
    }

    /// Each is that of a value that is there, without the zeros at its end.
    void lookAtHashes() {
        if (tables("SELECT name FROM sqlite_schema WHERE name = 'lunq_hashes'").isEmpty()) return;
        SQLite::Statement rows(database_,
                               "SELECT h.id, h.length, h.sha256, b.bytes FROM lunq_hashes AS h "
                               "LEFT JOIN long_binary AS b ON b.id = h.id");
        while (rows.executeStep()) {
            QByteArray bytes = bytesOf(rows.getColumn(3));
            while (bytes.endsWith('\0')) bytes.chop(1);
            const QByteArray hash = QCryptographicHash::hash(bytes, QCryptographicHash::Sha256);
            if (rows.getColumn(1).getInt64() != bytes.size() || bytesOf(rows.getColumn(2)) != hash)
                faults_ << u"the hash of value %1 is of other bytes"_s.arg(rows.getColumn(0).getInt64());
        }
    }

    SQLite::Database database_;
    QStringList& faults_;
    QSet<qint64> keys_;
};

}  // namespace

Found lookIntoCatalogue(const QString& file, const QString& prefix, QStringList& faults) {
    try {
        return Catalogue(file, faults).look(prefix);
    } catch (const SQLite::Exception& failure) {
        faults << u"%1: %2"_s.arg(file, QString::fromUtf8(failure.what()));
        return {};
    }
}

Found lookIntoFolder(const QString& folder, const QString& name, QStringList& faults) {
    PlaceFound place;
    for (const QString& entry : QDir(folder).entryList({u"*.jpg"_s, u"*.bmp"_s}, QDir::Files)) {
        QFile file(QDir(folder).filePath(entry));
        const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        place.pictures << fingerprintOf(bytes);
        if (const QString fault = faultOfPicture(bytes); !fault.isEmpty())
            faults << u"%1/%2 is %3"_s.arg(name, entry, fault);
    }
    return {{name, place}};
}
