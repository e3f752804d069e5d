#include "catalogue/runs/record_copy.h"

#include "../../support/sample_catalogue.h"
#include "../../support/stored_records.h"
#include "catalogue/album_rules.h"
#include "platform/database/records/own_values.h"
#include "platform/database/records/value_hashes.h"
#include "watching.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// A catalogue, and another one with an album tc01 to copy from.
class Source {
  public:
    Source() : database(createDatabase(catalogue_.file(u"源库.mdb"_s))) { database.Execute(createAlbumSql(u"tc01"_s)); }

    void add(const RowValues& values) const {
        Recordset rows = database.OpenRecordset(u"tc01"_s);
        addRow(rows, values);
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

    /// Each replaces the first record of its key; a key that the album has not is no failure.
    void recordsAreReplaced() {
        Source source;
        for (int i = 1; i <= 3; ++i) source.add({{u"序号"_s, i * 3}, {u"备注"_s, u"new %1"_s.arg(i)}});
        addRow(u"tc01"_s, {{u"序号"_s, 6}, {u"备注"_s, u"second"_s}});
        const RunReport report = source.copy(u"tc01"_s, source.order({u"6"_s, u"9"_s, u"3"_s, u"77"_s}, true));
        QCOMPARE(report.namesOf({Fate::withoutPicture}), (QStringList{u"6"_s, u"9"_s, u"3"_s}));
        QCOMPARE(report.namesOf({Fate::notFound}), QStringList{u"77"_s});
        const QStringList remarks = remarksOf(u"tc01"_s);
        QCOMPARE((QStringList{remarks[2], remarks[5], remarks[8], remarks[10]}),
                 (QStringList{u"new 1"_s, u"new 2"_s, u"new 3"_s, u"second"_s}));
    }

    /// Keys that are no whole numbers are looked for one by one, but for those that no criteria can have.
    void keysOfOtherKinds() {
        Source source;
        source.database.Execute(u"CREATE TABLE keys ([r] DOUBLE,[t] TEXT(5),[s] SHORT,[备注] TEXT(50))"_s);
        Recordset rows = source.database.OpenRecordset(u"keys"_s);
        for (const double key : {1.5, 2.5, 1.5}) {
            addRow(rows, {{u"r"_s, key}, {u"备注"_s, u"row %1"_s.arg(rows.rowCount())}});
        }
        CopyOrder order = source.order({u"1.5"_s, u"2.5"_s, u"1.5"_s});
        order.sourceTable = u"keys"_s;
        order.mapping = {{u"备注"_s, u"备注"_s}};
        order.indexField = u"r"_s;
        QCOMPARE(source.copy(u"tc02"_s, order).count, 3);
        QCOMPARE(remarksOf(u"tc02"_s), (QStringList{u"row 0"_s, u"row 1"_s, u"row 2"_s}));
        for (const QString& field : {u"t"_s, u"s"_s}) {
            order.indexField = field;
            const RunReport report = source.copy(u"tc02"_s, order);
            QVERIFY(report.count == 0 && report.failure.contains(u"字段“%1”是文本或短整数"_s.arg(field)));
            QCOMPARE(report.namesOf({Fate::failed}).size(), 1);
        }
    }

    void fromAnotherAlbumOfTheCatalogue() {
        Source source;
        CopyOrder order = source.order({u"3"_s, u"4"_s});
        order.sourcePath = mekTp::cataloguePath();
        QCOMPARE(source.copy(u"tc02"_s, order).count, 2);
        QCOMPARE(stored(u"tc02"_s, 2), stored(u"tc01"_s, 4));
    }

    void whatTheAlbumHasStaysOut() {
        Source source;
        for (const int i : {1, 2}) source.add({{u"序号"_s, i}, {u"图片"_s, pictureBytes({40 * i, 30}, Qt::red)}});
        OwnValues(mekTp::catalogue).prepare();
        CopyOrder order = source.order({u"1"_s});
        order.skipKnown = true;
        QCOMPARE(source.copy(u"tc02"_s, order).count, 1);
        QVERIFY(ValueHashes(mekTp::catalogue).without(u"tc02"_s, u"图片"_s).empty());
        order.records = recordsOfKeys({u"1"_s, u"2"_s});
        const RunReport report = source.copy(u"tc02"_s, order);
        QCOMPARE(report.namesOf({Fate::alreadyThere}), QStringList{u"1"_s});
        QCOMPARE(report.namesOf({Fate::taken}), QStringList{u"2"_s});
    }

    /// The last records, out of the same catalogue: behind them there is nothing.
    void aRunThatIsEndedWhileAPictureOfTheAlbumIsRead() {
        Source source;
        CopyOrder order = source.order({u"4"_s});
        order.sourcePath = mekTp::cataloguePath();
        QCOMPARE(source.copy(u"tc02"_s, order).count, 1);
        order.records = recordsOfKeys({u"3"_s, u"4"_s});
        order.skipKnown = true;
        Watching watch(1);
        watch.timesMore = 1;
        const RunReport report = sklr(mekTp::catalogue, u"tc02"_s, order, watch);
        QVERIFY(report.stopped && report.failure.isEmpty());
        QCOMPARE(report.namesOf({Fate::left}), QStringList{u"4"_s});
        QCOMPARE(numbersOf(u"tc02"_s), (QStringList{u"1"_s, u"2"_s}));
    }

    void aRecordThatIsGoneIsAskedAbout() {
        Source source;
        for (const int i : {1, 3}) source.add({{u"序号"_s, i}});
        source.watch.passes = true;
        const RunReport report = source.copy(u"tc02"_s, source.order({u"1"_s, u"1"_s, u"2"_s, u"3"_s}));
        QCOMPARE(source.watch.asked, QStringList{u"1"_s});
        QCOMPARE(report.namesOf({Fate::failed}), (QStringList{u"1"_s, u"2"_s}));
        QVERIFY(report.cameToEnd && report.count == 2);
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
