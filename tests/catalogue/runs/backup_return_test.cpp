#include "catalogue/runs/backup_return.h"

#include "../../support/damage.h"
#include "../../support/sample_catalogue.h"
#include "catalogue/picture_proof.h"
#include "catalogue/runs/proof_run.h"
#include "platform/base/error.h"

using namespace Qt::Literals::StringLiterals;

class TestBackupReturn : public OpenedSampleTest {
    Q_OBJECT

    QString backup_;

    QString numbers(const QString& table) const {
        QStringList all;
        for (Recordset rows = mekTp::catalogue.OpenRecordset(u"SELECT * FROM %1 ORDER BY [序号]"_s.arg(table));
             !rows.Eof(); rows.MoveNext())
            all << rows.Fields(u"序号"_s).Value().textOr();
        return all.join(u',');
    }
    void makeBackup() {
        RunWatch watch;
        QVERIFY(proveCatalogue(mekTp::cataloguePath(), watch).cameToEnd);
        backup_ = sample_->file(u"backup.mdb"_s);
        QFile::remove(backup_);
        behindTheBack(mekTp::cataloguePath(), u"VACUUM INTO '%1'"_s.arg(backup_));
    }
    RunReport takeBack(const QList<Return>& returns) const {
        RunWatch watch;
        return ::takeBack(mekTp::catalogue, backup_, returns, watch);
    }

  private Q_SLOTS:
    void init() {
        OpenedSampleTest::init();
        makeBackup();
    }

    /// A number of their own where it is free, the next one where another picture has it by now; what is there stays.
    void singlePictures() {
        mekTp::catalogue.Execute(u"DELETE FROM tc01 WHERE 序号 > 3"_s);
        changeRow(u"SELECT * FROM tc01 WHERE 序号 = 2"_s, {{u"图片"_s, pictureBytes({20, 20}, Qt::white)}});
        const RunReport report = takeBack({{u"tc01"_s, {u"1"_s, u"2"_s, u"7"_s, u"5"_s}}});
        QCOMPARE(report.count, 3);
        QCOMPARE(report.namesOf({Fate::alreadyThere}), QStringList(u"1"_s));
        QCOMPARE(numbers(u"tc01"_s), u"1,2,3,4,5,7"_s);
        const Database backup = OpenDatabase(backup_);
        for (const auto& [now, before] : {std::pair{4, 2}, {7, 7}})
            for (const QString& column : {u"图片"_s, u"编号"_s, u"日期"_s, u"规格"_s, u"备注"_s})
                QCOMPARE(
                    fieldOf(u"SELECT * FROM tc01 WHERE 序号 = %1"_s.arg(now), column),
                    backup.OpenRecordset(u"SELECT * FROM tc01 WHERE 序号 = %1"_s.arg(before)).Fields(column).Value());
    }

    /// What has changed in the backup does not come back as if it were good.
    void rottenPictureStaysOut() {
        rot(backup_, u"tc01"_s, 5);
        mekTp::catalogue.Execute(u"DELETE FROM tc01 WHERE 序号 > 3"_s);
        const RunReport report = takeBack({{u"tc01"_s, {u"4"_s, u"5"_s, u"6"_s}}});
        QCOMPARE(report.namesOf({Fate::truncated}), QStringList(u"5"_s));
        QCOMPARE(numbers(u"tc01"_s), u"1,2,3,4,6"_s);
    }

    /// Its title says which album it is; its table may be another's by now.
    void albumThatIsGone() {
        const Return all = wholeAlbum(OpenDatabase(backup_), u"tc01"_s);
        QCOMPARE(all.numbers.size(), 10);
        for (const bool isTaken : {false, true}) {
            mekTp::catalogue.Execute(u"DELETE FROM tcbm WHERE 标题 = '旅行'"_s);
            mekTp::catalogue.Execute(u"DROP TABLE tc01"_s);
            if (isTaken) {
                mekTp::catalogue.Execute(
                    u"CREATE TABLE tc01 ([序号] LONG,[编号] TEXT(10),[大小] SINGLE,[规格] TEXT(12),"
                    "[日期] DATETIME,[图片] LONGBINARY,[备注] TEXT(50))"_s);
                addRow(u"tcbm"_s, {{u"序号"_s, 9}, {u"表名"_s, u"tc01"_s}, {u"标题"_s, u"别的"_s}});
            }
            const RunReport report = takeBack({all, {u"tc02"_s, {}}});
            QVERIFY2(report.failure.isEmpty() && report.count == 10, qPrintable(report.failure));
            const QString table = fieldOf(u"SELECT * FROM tcbm WHERE 标题 = '旅行'"_s, u"表名"_s).toText();
            QCOMPARE(table == u"tc01", !isTaken);
            QCOMPARE(numbers(table), u"1,2,3,4,5,6,7,8,9,10"_s);
        }
    }

    /// What came back before the run ended is told, and so is what it did not reach.
    void reportTellsAllAlbums() {
        mekTp::catalogue.Execute(u"DELETE FROM tc01 WHERE 序号 > 3"_s);
        mekTp::catalogue.Execute(u"DELETE FROM tcbm WHERE 表名 = 'tc02'"_s);
        behindTheBack(mekTp::cataloguePath(),
                      u"CREATE TRIGGER full BEFORE INSERT ON tcbm BEGIN SELECT RAISE(ABORT, '满'); END"_s);
        const RunReport report =
            takeBack({{u"tc01"_s, {u"4"_s, u"5"_s}}, {u"tc02"_s, {u"1"_s}}, {u"tc01"_s, {u"6"_s}}});
        QCOMPARE(report.count, 2);
        QCOMPARE(report.placesOf({Fate::left}), (QList<qsizetype>{2, 3}));
        QVERIFY(!report.failure.isEmpty() && !report.cameToEnd);
        QCOMPARE(numbers(u"tc01"_s), u"1,2,3,4,5"_s);
    }

    void preparedRestoreIsProved() {
        RunWatch watch;
        const QString prepared = sample_->file(u"prepared"_s);
        const RunReport good = prepareRestore(backup_, prepared, watch);
        QVERIFY(good.cameToEnd && good.count == 13);
        QVERIFY(QFile::remove(prepared));
        rot(backup_, u"tc01"_s, 3);
        QVERIFY_THROWS_EXCEPTION(Error, prepareRestore(backup_, prepared, watch));
        QVERIFY(!QFile::exists(prepared));
        QVERIFY_THROWS_EXCEPTION(Error, prepareRestore(sample_->file(u"gone"_s), prepared, watch));
        struct Stopping : RunWatch {
            bool progress(const RunProgress&) override { return false; }
        } stopping;
        QVERIFY(prepareRestore(backup_, prepared, stopping).stopped);
        QVERIFY(!QFile::exists(prepared));
    }
};

const Registered<TestBackupReturn> registered;

#include "backup_return_test.moc"
