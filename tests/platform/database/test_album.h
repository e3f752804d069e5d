#pragma once

#include "../../support/failure_of.h"
#include "../../support/rows.h"
#include "../../support/run_all.h"
#include "../../support/test_files.h"

/// A database in a temporary folder with one album table, `tc01`.
class TestAlbum {
  public:
    TestAlbum() : database(createDatabase(path())) { database.Execute(createSql(QStringLiteral("tc01"))); }

    static QString createSql(const QString& table) {
        return QStringLiteral(
                   "CREATE TABLE %1 ([序号] LONG,[编号] TEXT(10),[大小] SINGLE,[规格] TEXT(12),"
                   "[日期] DATETIME,[图片] LONGBINARY,[备注] TEXT(50))")
            .arg(table);
    }

    QString remark(int number) const {
        return shell(QStringLiteral("SELECT 备注 FROM tc01 WHERE 序号 = %1").arg(number));
    }
    QString keptPictures() const { return shell(QStringLiteral("SELECT count(*) FROM long_binary")); }

    QString path() const { return folder.filePath(QStringLiteral("lunq.mdb")); }
    Recordset open(const QString& source) const { return database.OpenRecordset(source); }

    void add(int number, const QString& codes, const QString& date, const QByteArray& picture = {}) const {
        Recordset set = open(QStringLiteral("tc01"));
        set.AddNew();
        set.Fields(QStringLiteral("序号")).SetValue(number);
        set.Fields(QStringLiteral("编号")).SetValue(codes);
        set.Fields(QStringLiteral("日期")).SetValue(date);
        if (!picture.isEmpty()) set.Fields(QStringLiteral("图片")).SetValue(picture);
        set.Update();
    }

    /// What the sqlite3 shell answers: the file must make sense to it without this program.
    QString shell(const QString& sql) const {
        QProcess process;
        process.start(QStringLiteral("sqlite3"), {path(), sql});
        if (!process.waitForFinished()) return process.errorString();
        return QString::fromUtf8(process.readAllStandardOutput() + process.readAllStandardError()).trimmed();
    }

    QTemporaryDir folder;
    Database database;
};

inline bool fails(const std::function<void()>& step) {
    return !attempt(step);
}

/// Whether a step fails with an error that contains all these texts; prints the error otherwise.
inline bool failsSaying(const std::function<void()>& step, const QStringList& words) {
    const QString failure = failureOf(step);
    const bool said = !failure.isEmpty() && std::all_of(words.begin(), words.end(),
                                                        [&](const QString& word) { return failure.contains(word); });
    if (!said) qWarning("%s", qPrintable(QStringLiteral("“%1”: %2").arg(words.join(QLatin1Char(' ')), failure)));
    return said;
}

/// Changes one column of the current record of a set.
inline void change(Recordset& set, const QString& column, const FieldValue& value) {
    changeRow(set, {{column, value}});
}

/// The numbers of a set's records in their order, without moving in it.
inline QList<int> numbersOf(const Recordset& set) {
    QList<int> numbers;
    for (int row = 0; row < set.rowCount(); ++row) {
        const FieldValue number = set.valuesAt(row).at(0);
        numbers << (number.isNull() ? -1 : number.toInteger());
    }
    return numbers;
}
