#include "catalogue/runs/readable_rows.h"

#include "../../support/sample_catalogue.h"
#include "catalogue/album_rules.h"
#include "catalogue/picture_hashes.h"
#include "catalogue/runs/record_copy.h"
#include "platform/database/records/own_values.h"
#include "watching.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int records = 600;
constexpr qsizetype pageSize = 16384;

QString remark(int number) {
    return u"remark of record %1 with as many letters as fit"_s.arg(number, 4, 10, QChar(u'0'));
}

/// An album of several pages, with 序号 from 1 and a picture for every hundredth record.
QString makeAlbum(const QString& path) {
    const Database made = createDatabase(path);
    made.Execute(createAlbumSql(u"tc01"_s));
    Transaction together(made);
    Recordset rows = made.OpenRecordset(u"tc01"_s);
    for (int i = 1; i <= records; ++i) {
        rows.AddNew();
        rows.Fields(u"序号"_s).SetValue(i);
        rows.Fields(u"备注"_s).SetValue(remark(i));
        if (i % 100 == 0) rows.Fields(u"图片"_s).SetValue(QByteArray(40000, char('a' + i / 100)));
        rows.Update();
    }
    together.commit();
    return path;
}

/// Spoils the page with those bytes, or what they are the beginning of.
void spoil(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    const qsizetype at = file.readAll().indexOf(bytes);
    QVERIFY(at > pageSize);
    file.seek(at / pageSize * pageSize);
    file.write(QByteArray(pageSize, '\xEE'));
}

class TestReadableRows : public SampleTest {
    Q_OBJECT

  private Q_SLOTS:
    void pagesCostWhatTheyHold_data() {
        QTest::addColumn<QList<int>>("spoilt");
        QTest::addColumn<int>("parts");
        QTest::newRow("whole") << QList<int>{} << 0;
        QTest::newRow("first") << QList<int>{1} << 1;
        QTest::newRow("middle") << QList<int>{300} << 1;
        QTest::newRow("last") << QList<int>{records} << 1;
        QTest::newRow("first and last") << QList<int>{1, records} << 2;
    }

    void pagesCostWhatTheyHold() {
        QFETCH(QList<int>, spoilt);
        QFETCH(int, parts);
        const QString path = makeAlbum(sample_->file(u"damaged.mdb"_s));
        for (const int number : spoilt) spoil(path, remark(number).toLatin1());

        const Database source = OpenDatabase(path);
        const ReadableRows readable(source, u"tc01"_s, u"序号"_s);
        QCOMPARE(readable.areAll(), parts == 0);
        QCOMPARE(readable.missing().size(), parts);
        CopyOrder order{
            .sourcePath = path, .sourceTable = u"tc01"_s, .indexField = u"序号"_s, .records = {}, .fillFields = false};
        order.mapping = {{u"备注"_s, u"备注"_s}};
        QStringList keys;
        for (Recordset rows = source.OpenRecordset(readable.sql(u"序号"_s)); !rows.Eof(); rows.MoveNext()) {
            keys << rows.Fields(u"序号"_s).Value().toText();
            QCOMPARE(rows.Fields(u"备注"_s).Value().toText(), remark(keys.last().toInt()));
        }
        QVERIFY(parts == 0 ? keys.size() == records : keys.size() > records / 4 && keys.size() < records);
        for (const int number : spoilt) QVERIFY(!keys.contains(QString::number(number)));

        order.records = recordsOfKeys(keys);
        Watching watch;
        const RunReport report = sklr(mekTp::catalogue, u"tc02"_s, order, watch);
        QCOMPARE(report.count, int(keys.size()));
        QCOMPARE(report.missing, readable.missing());
        QCOMPARE(watch.asked, QStringList());
    }

    void gapsAreNamedByTheirNeighbours() {
        const QString path = makeAlbum(sample_->file(u"damaged.mdb"_s));
        spoil(path, remark(300).toLatin1());
        const Database source = OpenDatabase(path);
        const ReadableRows readable(source, u"tc01"_s, u"序号"_s);
        const QRegularExpression form(u"^“序号＝(\\d+)”与“序号＝(\\d+)”之间的记录已损坏，不能读取$"_s);
        const auto match = form.match(readable.missing().value(0));
        QVERIFY2(match.hasMatch(), qPrintable(readable.missing().value(0)));
        const int before = match.captured(1).toInt(), behind = match.captured(2).toInt();
        QVERIFY(before < 300 && behind > 300);
        QCOMPARE(source.OpenRecordset(readable.sql(u"序号"_s)).rowCount(), records - (behind - before - 1));
    }

    /// Bytes that are a picture, but not the one that was stored.
    void aChangedPictureIsLeftOut() {
        const QString path = makeAlbum(sample_->file(u"changed.mdb"_s));
        const Database source = OpenDatabase(path);
        OwnValues(source).prepare();
        const QByteArray picture = pictureBytes({60, 45}, Qt::green);
        for (const auto& [number, stored] : {std::pair{1, picture}, {2, pictureBytes({60, 45}, Qt::red)}}) {
            Recordset row = source.OpenRecordset(u"SELECT * FROM tc01 WHERE 序号 = %1"_s.arg(number));
            changeRow(row, {{u"图片"_s, picture}});
            PictureHashes(source).note(row.storedAt(0, u"图片"_s), fingerprintOf(stored));
        }
        CopyOrder order{.sourcePath = path, .sourceTable = u"tc01"_s, .indexField = u"序号"_s};
        order.mapping = {{u"图片"_s, u"图片"_s}};
        order.records = recordsOfKeys({u"1"_s, u"2"_s});
        Watching watch;
        const RunReport report = sklr(mekTp::catalogue, u"tc02"_s, order, watch);
        QCOMPARE(report.count, 1);
        QCOMPARE(report.namesOf({Fate::truncated}), QStringList{u"2"_s});
    }

    /// The picture is lost, and asked about; the others come in.
    void aLostPictureIsAFailureOfItsRecord() {
        const QString path = makeAlbum(sample_->file(u"damaged.mdb"_s));
        QProcess::execute(u"sqlite3"_s, {path, u"DELETE FROM long_binary WHERE id = 3"_s});
        CopyOrder order{.sourcePath = path,
                        .sourceTable = u"tc01"_s,
                        .indexField = u"序号"_s,
                        .records = {},
                        .takesDoubtful = true};
        order.mapping = {{u"图片"_s, u"图片"_s}};
        order.records = recordsOfKeys({u"200"_s, u"300"_s, u"400"_s});
        Watching watch;
        watch.passes = true;
        const RunReport report = sklr(mekTp::catalogue, u"tc02"_s, order, watch);
        QCOMPARE(report.count, 2);
        QCOMPARE(report.namesOf({Fate::failed}), QStringList{u"300"_s});
        QCOMPARE(watch.asked, QStringList{u"300"_s});
    }
};

const Registered<TestReadableRows> registered;

}  // namespace

#include "readable_rows_test.moc"
