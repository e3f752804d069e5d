#include "catalogue/remembered.h"

#include "../support/sample_catalogue.h"
#include "platform/base/error.h"
#include "platform/database/records/own_values.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// Asks the file itself, in a process of its own.
QString shell(const QString& path, const QString& sql) {
    QProcess sqlite;
    sqlite.start(u"sqlite3"_s, {path, sql});
    sqlite.waitForFinished();
    return QString::fromUtf8(sqlite.readAllStandardOutput() + sqlite.readAllStandardError()).trimmed();
}

}  // namespace

class TestRemembered : public OpenedSampleTest {
    Q_OBJECT

  private Q_SLOTS:
    void valuesOutliveTheProgram() {
        QVERIFY(!remembered::flag(u"a.flag"_s));
        QCOMPARE(remembered::text(u"a.text"_s, u"else"_s), u"else"_s);
        remembered::setFlag(u"a.flag"_s, true);
        remembered::setText(u"a.text"_s, u"it's “引号”"_s);
        mekTp::catalogue = {};
        mekTp::openCatalogue();
        QVERIFY(remembered::flag(u"a.flag"_s));
        QCOMPARE(remembered::text(u"a.text"_s), u"it's “引号”"_s);

        remembered::setFlag(u"a.flag"_s, false);
        remembered::setText(u"a.text"_s, {});
        QCOMPARE(shell(mekTp::cataloguePath(), u"SELECT count(*) FROM lunq_values"_s), u"0"_s);
    }

    void onlyTheProgramsOwnFileIsRaised() {
        QCOMPARE(shell(mekTp::cataloguePath(), u"PRAGMA user_version"_s), u"2"_s);
        const QString path = sample_->file(u"别的.mdb"_s);
        createDatabase(path).Execute(u"CREATE TABLE tc01 ([序号] LONG)"_s);
        const Database other = OpenDatabase(path);
        other.Execute(u"DELETE FROM tc01"_s);
        QVERIFY(!OwnValues(other).value(u"a.text"_s));
        QCOMPARE(shell(path, u"PRAGMA user_version"_s), u"1"_s);
    }

    void noListShowsTheTable() {
        remembered::setFlag(u"a.flag"_s, true);
        for (const QString& table : mekTp::catalogue.TableDefs()) QVERIFY(!table.startsWith(u"lunq"));
        for (const QString& sql : {u"lunq_values"_s, u"SELECT * FROM lunq_values"_s})
            QVERIFY(!attempt([&] { mekTp::catalogue.OpenRecordset(sql); }));
        QVERIFY(!attempt([&] { mekTp::catalogue.Execute(u"DROP TABLE LUNQ_values"_s); }));
        QVERIFY(remembered::flag(u"a.flag"_s));
    }

    void aClosedCatalogueRemembersNothing() {
        mekTp::catalogue = {};
        remembered::setFlag(u"a.flag"_s, true);
        QVERIFY(!remembered::flag(u"a.flag"_s));
    }
};

const Registered<TestRemembered> registered;

#include "remembered_test.moc"
