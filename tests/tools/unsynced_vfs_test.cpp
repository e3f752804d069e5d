#include "soak/unsynced_vfs.h"

#include "../support/run_all.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

using namespace Qt::Literals::StringLiterals;

class TestUnsyncedWrites : public QObject {
    Q_OBJECT

    sqlite3_vfs* disk_ = nullptr;
    QTemporaryDir folder_;

    /// The rows that a power cut at this moment leaves.
    int rowsOnDisk(const QString& name) {
        const QString copy = folder_.filePath(u"copy-"_s + name);
        for (const QString& ending : {u""_s, u"-journal"_s}) {
            QFile::remove(copy + ending);
            QFile::copy(folder_.filePath(name) + ending, copy + ending);
        }
        SQLite::Database left(copy.toStdString(), SQLite::OPEN_READWRITE, 0, disk_->zName);
        return left.execAndGet("SELECT count(*) FROM t").getInt();
    }

  private Q_SLOTS:
    void initTestCase() {
        disk_ = sqlite3_vfs_find(nullptr);
        loseUnsyncedWrites(1);
    }
    void cleanupTestCase() { sqlite3_vfs_register(disk_, 1); }

    /// Also while some of it comes through before its time: the journal takes it back.
    void whatWasNotSyncedIsLost() {
        for (const char* mode : {"DELETE", "TRUNCATE", "PERSIST"}) {
            const QString name = QString::fromLatin1(mode) + u".db"_s;
            SQLite::Database database(folder_.filePath(name).toStdString(),
                                      SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
            database.exec(std::string("PRAGMA synchronous = FULL; PRAGMA cache_size = 4; PRAGMA journal_mode = ") +
                          mode);
            database.exec("CREATE TABLE t (a, b)");
            for (int row = 0; row < 40; ++row) {
                SQLite::Transaction change(database);
                database.exec("INSERT INTO t VALUES (1, randomblob(9000))");
                QCOMPARE(rowsOnDisk(name), row);
                change.commit();
                if (mode != QByteArray("DELETE")) QCOMPARE(rowsOnDisk(name), row + 1);
            }
            database.exec("DELETE FROM t; VACUUM");
            QCOMPARE(database.execAndGet("SELECT count(*) FROM t").getInt(), 0);
            QCOMPARE(QString::fromStdString(database.execAndGet("PRAGMA integrity_check").getString()), u"ok"_s);
        }
    }

    void whatIsHeldIsReadAsIfItWereThere() {
        const std::string path = folder_.filePath(u"held.db"_s).toStdString();
        SQLite::Database database(path, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        database.exec(
            "PRAGMA synchronous = OFF; PRAGMA cache_size = 2; PRAGMA journal_mode = TRUNCATE;"
            "CREATE TABLE t (a, b)");
        for (int row = 0; row < 90; ++row) database.exec("INSERT INTO t VALUES (1, randomblob(3000))");
        database.exec("DELETE FROM t WHERE rowid % 3 > 0; VACUUM");
        SQLite::Database other(path, SQLite::OPEN_READWRITE);
        QCOMPARE(other.execAndGet("SELECT count(*) FROM t").getInt(), 30);
        QCOMPARE(QString::fromStdString(other.execAndGet("PRAGMA integrity_check").getString()), u"ok"_s);
    }
};

const Registered<TestUnsyncedWrites> registered;

#include "unsynced_vfs_test.moc"
