#pragma once

#include "platform/base/error.h"

#include <sqlite3.h>

#include <QFile>
#include <QProcess>
#include <QStringList>

// What the benchmarks of runs stand beside: the system's own tools, and the engine without the program.

inline void requireRun(const QString& program, const QStringList& arguments) {
    using namespace Qt::Literals::StringLiterals;
    if (QProcess::execute(program, arguments) != 0) throw Error(u"“%1”没有运行成功"_s.arg(program));
}

inline void copyAndSync(const QString& from, const QString& to) {
    requireRun(QStringLiteral("cp"), {QStringLiteral("-r"), from, to});
    requireRun(QStringLiteral("sync"), {});
}

/// The engine alone, with the settings of the program's own files.
class BareStore {
  public:
    explicit BareStore(const QString& path) {
        sqlite3_open(path.toUtf8().constData(), &handle_);
        for (const char* setting :
             {"PRAGMA page_size = 16384", "PRAGMA auto_vacuum = INCREMENTAL", "PRAGMA journal_mode = TRUNCATE",
              "PRAGMA synchronous = FULL", "PRAGMA cache_size = -16000", "PRAGMA secure_delete = OFF"})
            run(setting);
    }
    ~BareStore() { sqlite3_close(handle_); }
    BareStore(const BareStore&) = delete;
    BareStore& operator=(const BareStore&) = delete;

    void run(const QByteArray& sql) const {
        if (sqlite3_exec(handle_, sql.constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
            throw Error(QString::fromUtf8(sqlite3_errmsg(handle_)));
    }

    /// The bytes of each file as a value, so many in a change.
    void storeFiles(const QStringList& paths, int inChange) const {
        run("CREATE TABLE long_binary (id INTEGER PRIMARY KEY AUTOINCREMENT, bytes BLOB NOT NULL)");
        sqlite3_stmt* insert = nullptr;
        sqlite3_prepare_v2(handle_, "INSERT INTO long_binary (bytes) VALUES (?)", -1, &insert, nullptr);
        for (qsizetype i = 0; i < paths.size(); ++i) {
            if (i % inChange == 0) run("BEGIN IMMEDIATE");
            QFile file(paths[i]);
            if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) throw Error(file.errorString());
            const QByteArray bytes = file.readAll();
            sqlite3_bind_blob64(insert, 1, bytes.constData(), sqlite3_uint64(bytes.size()), SQLITE_STATIC);
            if (sqlite3_step(insert) != SQLITE_DONE) throw Error(QString::fromUtf8(sqlite3_errmsg(handle_)));
            sqlite3_reset(insert);
            if (i % inChange == inChange - 1 || i == paths.size() - 1) run("COMMIT");
        }
        sqlite3_finalize(insert);
    }

    /// The rows of an album and their values out of another file, so many in a change.
    void copyRows(const QString& source, const QByteArray& table, int rows, int inChange) const {
        run("ATTACH '" + source.toUtf8() + "' AS source");
        run("CREATE TABLE long_binary (id INTEGER PRIMARY KEY AUTOINCREMENT, bytes BLOB NOT NULL)");
        run("CREATE TABLE album AS SELECT * FROM source." + table + " WHERE 0");
        for (int first = 1; first <= rows; first += inChange) {
            const QByteArray these = " WHERE _rowid_ BETWEEN " + QByteArray::number(first) + " AND " +
                                     QByteArray::number(first + inChange - 1);
            run("BEGIN IMMEDIATE");
            run("INSERT INTO long_binary SELECT * FROM source.long_binary" + these);
            run("INSERT INTO album SELECT * FROM source." + table + these);
            run("COMMIT");
        }
    }

  private:
    sqlite3* handle_ = nullptr;
};
