#include "catalogue/runs/record_copy.h"

#include "../../support/run_all.h"
#include "../../support/sample_catalogue.h"
#include "../../support/stored_records.h"
#include "catalogue/album_rules.h"
#include "watching.h"

#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A catalogue, and another one with an album tc01 to copy from.
class Source {
  public:
    Source() : database(createDatabase(catalogue_.file(u"源库.mdb"_s))) { database.Execute(createAlbumSql(u"tc01"_s)); }

    void add(const RowValues& values) const {
        Recordset rows = database.OpenRecordset(u"tc01"_s);
        rows.AddNew();
        for (const auto& [column, value] : values) rows.Fields(column).SetValue(value);
        rows.Update();
    }
    CopyOrder order(const QStringList& keys, bool replace = false) const {
        CopyOrder order{.sourcePath = database.Name(),
                        .sourceTable = u"tc01"_s,
                        .indexField = u"序号"_s,
                        .records = recordsOfKeys(keys),
                        .replace = replace};
        for (const QString& column : albumColumns()) order.mapping.push_back({column, column});
        return order;
    }
    RunReport copy(const QString& table, const CopyOrder& order) { return sklr(mekTp::catalogue, table, order, watch); }

  private:
    SampleCatalogue catalogue_;

  public:
    Database database;
    Watching watch;
};

QStringList remarksOf(const QString& table) {
    QStringList remarks;
    for (Recordset rows = mekTp::catalogue.OpenRecordset(table); !rows.Eof(); rows.MoveNext())
        remarks << rows.Fields(u"备注"_s).Value().textOr();
    return remarks;
}

class TestRecordCopy : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void keysThatComeAgain() {
        QCOMPARE(recordsOfKeys({u"1"_s, u"2"_s, u"1"_s}), (QList<SourceRecord>{{u"1"_s, 0}, {u"2"_s, 0}, {u"1"_s, 1}}));
        Source source;
        for (const auto& [number, remark] : {std::pair{1, u"a"_s}, {2, u"b"_s}, {1, u"c"_s}})
            source.add({{u"序号"_s, number}, {u"备注"_s, remark}});
        QCOMPARE(source.copy(u"tc02"_s, source.order({u"1"_s, u"1"_s, u"2"_s})).count, 3);
        QCOMPARE(remarksOf(u"tc02"_s), (QStringList{u"a"_s, u"c"_s, u"b"_s}));
        QCOMPARE(source.watch.percents, (QList<int>{33, 66, 100}));
    }

    void aWatchEndsTheRunAfterTheRecordInHand() {
        Source source;
        for (int i = 1; i <= 3; ++i) source.add({{u"序号"_s, i}});
        Watching watch(1);
        const RunReport report = sklr(mekTp::catalogue, u"tc02"_s, source.order({u"1"_s, u"2"_s, u"3"_s}), watch);
        QVERIFY(!report.cameToEnd && report.count == 1);
        QCOMPARE(report.namesOf({Fate::left}), (QStringList{u"2"_s, u"3"_s}));
        QCOMPARE(numbersOf(u"tc02"_s), QStringList{u"1"_s});
    }

    void doubtfulValuesStayOut() {
        Source source;
        const QByteArray picture = pictureBytes({60, 45}, Qt::darkGreen);
        source.add({{u"序号"_s, 1}, {u"图片"_s, picture.chopped(20)}});
        source.add({{u"序号"_s, 2}, {u"图片"_s, picture}});
        source.add({{u"序号"_s, 3}, {u"图片"_s, QByteArray("no picture")}});
        CopyOrder order = source.order({u"1"_s, u"2"_s, u"3"_s});
        RunReport report = source.copy(u"tc02"_s, order);
        QCOMPARE(report.namesOf({Fate::truncated}), QStringList{u"1"_s});
        QCOMPARE(report.namesOf({Fate::notAPicture}), QStringList{u"3"_s});
        QCOMPARE(source.watch.last.bytes, qint64(picture.size()));
        order.records = recordsOfKeys({u"1"_s, u"3"_s});
        order.takesDoubtful = true;
        report.add(source.copy(u"tc02"_s, order));
        QCOMPARE(report.placesOf({Fate::taken}), (QList<qsizetype>{1, 0, 2}));
        QCOMPARE(report.count, 3);
        QCOMPARE(stored(u"tc02"_s, 3), QByteArray("no picture"));
    }

    void aValueThatDoesNotFitEndsTheRun() {
        Source source;
        for (int i = 1; i <= 3; ++i) source.add({{u"序号"_s, i}, {u"备注"_s, QString(i == 2 ? 11 : 3, u'x')}});
        CopyOrder order = source.order({u"1"_s, u"2"_s, u"3"_s});
        for (FieldPair& pair : order.mapping)
            if (pair.target == u"编号") pair.source = u"备注"_s;
        const RunReport report = source.copy(u"tc02"_s, order);
        QCOMPARE(report.count, 0);
        QCOMPARE(report.namesOf({Fate::taken}), QStringList{u"1"_s});
        QCOMPARE(report.namesOf({Fate::failed}), QStringList{u"2"_s});
        QCOMPARE(report.namesOf({Fate::left}), QStringList{u"3"_s});
        QVERIFY2(report.failure.contains(u"编号"_s), qPrintable(report.failure));
        QCOMPARE(numbersOf(u"tc02"_s), QStringList{u"1"_s});
    }

    void whatKeepsARunFromBeginning() {
        Source source;
        CopyOrder order = source.order({u"1"_s});
        order.indexField = u"没有"_s;
        QVERIFY(source.copy(u"tc02"_s, order).failure.contains(u"没有"_s));
        order = source.order({u"1"_s});
        order.sourcePath += u'x';
        const RunReport report = source.copy(u"tc02"_s, order);
        QVERIFY(report.failure.contains(order.sourcePath) && !report.has(Fate::failed));
        QCOMPARE(report.namesOf({Fate::left}), QStringList{u"1"_s});
    }
};

const Registered<TestRecordCopy> registered;

}  // namespace

#include "record_copy_test.moc"
