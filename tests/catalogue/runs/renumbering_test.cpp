#include "catalogue/runs/renumbering.h"

#include "../../support/sample_catalogue.h"
#include "../../support/stored_records.h"
#include "watching.h"

using namespace Qt::Literals::StringLiterals;

class TestRenumbering : public SampleTest {
    Q_OBJECT

  private Q_SLOTS:
    void progressGrowsToTheEnd() {
        Watching watch;
        QCOMPARE(renumberAlbum(mekTp::catalogue, u"tc01"_s, u"日期"_s, watch).count, 10);
        QCOMPARE(watch.percents, (QList<int>{10, 20, 30, 40, 50, 60, 70, 80, 90, 100}));
        const RunReport failed = renumberAlbum(mekTp::catalogue, u"tc99"_s, u"日期"_s, watch);
        QVERIFY(!failed.cameToEnd && failed.failure.contains(u"tc99"_s));
    }

    void whatIsEndedEarlyChangesNothing() {
        changeRow(u"SELECT * FROM tc01 WHERE 序号 = 1"_s, {{u"序号"_s, 40}});
        const QStringList before = numbersOf(u"tc01"_s);
        Watching watch(7);
        const RunReport report = renumberAlbum(mekTp::catalogue, u"tc01"_s, u"日期"_s, watch);
        QVERIFY(report.stopped && !report.cameToEnd && report.failure.isEmpty());
        QCOMPARE(numbersOf(u"tc01"_s), before);
        RunWatch unwatched;
        QVERIFY(renumberAlbum(mekTp::catalogue, u"tc01"_s, u"日期"_s, unwatched).cameToEnd);
    }
};

const Registered<TestRenumbering> registered;

#include "renumbering_test.moc"
