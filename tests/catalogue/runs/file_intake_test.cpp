#include "catalogue/runs/file_intake.h"

#include "../../support/disk_faults.h"
#include "../../support/stored_records.h"
#include "catalogue/bin_restoring.h"
#include "catalogue/fingerprint.h"
#include "file_source.h"
#include "platform/base/files.h"
#include "platform/database/records/own_values.h"
#include "platform/database/records/value_hashes.h"
#include "platform/picture/exif_library.h"

#include <thread>

using namespace Qt::Literals::StringLiterals;

namespace {

QString ofNumber(int number, const QString& column) {
    return fieldOf(u"SELECT * FROM tc01 WHERE 序号 = %1"_s.arg(number), column).textOr();
}

QByteArray noise(qsizetype count) {
    QByteArray bytes(count, 0);
    QRandomGenerator(1).fillRange(reinterpret_cast<quint32*>(bytes.data()), count / 4);
    return bytes;
}

/// A photograph that tells when it was taken, and its title.
QByteArray photograph(const QString& title) {
    const QByteArray bare = pictureBytes({60, 45}, Qt::darkGreen);
    const auto image = openedTags(bare);
    image->exifData()["Exif.Photo.DateTimeOriginal"] = "2003:10:02 12:30:59";
    image->xmpData()["Xmp.dc.title"] = title.toStdString();
    image->writeMetadata();
    image->io().open();
    const Exiv2::DataBuf bytes = image->io().read(long(image->io().size()));
    return {reinterpret_cast<const char*>(bytes.pData_), qsizetype(bytes.size_)};
}

class TestFileIntake : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void theListIsTheMeasureOfTheProgress() {
        Source source;
        for (int i = 1; i <= 5; ++i) source.add(QString::number(i));
        IntakeOrder order = source.order();
        order.selected = {1, 2, 4};
        const RunReport report = source.enter(u"tc02"_s, order);
        QVERIFY(report.cameToEnd && report.count == 3);
        QCOMPARE(report.placesOf({Fate::taken}), (QList<qsizetype>{0, 1, 2}));
        QCOMPARE(source.watch.percents, (QList<int>{25, 50, 100}));
        QCOMPARE(source.watch.last.done, qsizetype(3));
        QCOMPARE(source.watch.last.all, qsizetype(3));
        QCOMPARE(source.watch.last.bytes, qint64(3 * source.bytesOf(u"1"_s).size()));
    }

    void aWatchEndsTheRunAfterThePictureInHand() {
        Source source;
        for (const QString& name : {u"a"_s, u"b"_s, u"c"_s, u"d"_s}) source.add(name);
        Watching watch(2);
        const RunReport report = wjlr(mekTp::catalogue, u"tc02"_s, source.order(), watch);
        QVERIFY(!report.cameToEnd && report.failure.isEmpty());
        QCOMPARE(report.count, 2);
        QCOMPARE(report.namesOf({Fate::left}), (QStringList{u"c"_s, u"d"_s}));
        QCOMPARE(numbersOf(u"tc02"_s), (QStringList{u"1"_s, u"2"_s}));
    }

    void anyThreadRunsItWithAConnectionOfItsOwn() {
        Source source;
        for (const QString& name : {u"a"_s, u"b"_s, u"c"_s}) source.add(name);
        const Recordset open = mekTp::catalogue.OpenRecordset(u"tc02"_s);
        RunReport report;
        std::thread([&] {
            const Database album = OpenDatabase(mekTp::cataloguePath());
            report = wjlr(album, u"tc02"_s, source.order(), source.watch);
        }).join();
        QVERIFY(report.cameToEnd && report.count == 3);
        QCOMPARE(numbersOf(u"tc02"_s), (QStringList{u"1"_s, u"2"_s, u"3"_s}));
        QVERIFY(source.isStored(u"tc02"_s, 3, u"c"_s));
    }

    void aListOfOneFileCountsNothing() {
        Source source;
        source.add(u"a"_s);
        const RunReport report = source.enter(u"tc02"_s);
        QVERIFY(!report.cameToEnd && report.failure.isEmpty());
        QCOMPARE(report.count, 0);
        QCOMPARE(report.namesOf({Fate::taken}), QStringList{u"a"_s});
        QVERIFY(source.isStored(u"tc02"_s, 1, u"a"_s));
    }

    void storedValueIsLongerThanTheFile() {
        Source source;
        const QByteArray picture = pictureBytes({40, 30}, Qt::darkGreen);
        for (const qsizetype length : {qsizetype(16384), qsizetype(40000), picture.size()})
            source.add(QString::number(length), picture + QByteArray(length - picture.size(), 'x'));
        source.enter(u"tc02"_s);
        QCOMPARE(stored(u"tc02"_s, 1).size(), 16384 + 2);
        QCOMPARE(stored(u"tc02"_s, 2).size(), 40003);
        QCOMPARE(stored(u"tc02"_s, 3).size(), picture.size() + 1);
        QVERIFY(stored(u"tc02"_s, 2).endsWith(QByteArray(3, '\0')));
    }

    /// Whatever they are called; the person's files stay as they are.
    void otherFormatsAreKeptAsJpeg() {
        Source source;
        const QByteArray png = pictureBytes({60, 45}, Qt::darkGreen, "PNG");
        for (const QString& name : {u"1.png"_s, u"2.bmp"_s, u"3"_s}) source.add(name, png);
        source.add(u"4.jpg"_s);
        source.add(u"5.png"_s, png.first(png.size() / 2));
        IntakeOrder order = source.order();
        order.bmp = BmpFiles::toJpeg;
        source.watch.passes = true;
        QCOMPARE(source.enter(u"tc02"_s, order).namesOf({Fate::taken}), QStringList{u"4.jpg"_s});
        order.otherFormats = true;
        order.selected = {0, 1, 2, 4};
        const RunReport report = source.enter(u"tc02"_s, order);
        QCOMPARE(report.namesOf({Fate::taken}), (QStringList{u"1.png"_s, u"2.bmp"_s, u"3"_s}));
        QVERIFY(report.items.back().fate == Fate::failed && report.items.back().reason.contains(u"5.png"_s));
        for (int number = 2; number <= 4; ++number) {
            const QByteArray kept = stored(u"tc02"_s, number);
            QCOMPARE(QImage::fromData(kept, "JPG").size(), QSize(60, 45));
            const QString row = u"SELECT * FROM tc02 WHERE 序号 = %1"_s.arg(number);
            QCOMPARE(fieldOf(row, u"规格"_s).textOr(), u"60 * 45"_s);
            QCOMPARE(fieldOf(row, u"大小"_s).toText(), QString::number(double(kept.size() - 1) / 1000));
        }
        for (const QString& name : {u"1.png"_s, u"2.bmp"_s, u"3"_s}) QCOMPARE(source.bytesOf(name), png);
        order.skipKnown = true;
        QCOMPARE(source.enter(u"tc02"_s, order).namesOf({Fate::alreadyThere}).size(), 3);
    }

    void whatPhotographsTell() {
        Source source;
        const QString longTitle = QString(49, u'湖') + QString::fromUtf8("\xF0\xA0\x80\x80边");
        source.add(u"1.jpg"_s, photograph(u"湖 边"_s));
        source.add(u"2.jpg"_s, photograph(longTitle));
        source.add(u"3.jpg"_s);
        source.enter(u"tc02"_s);
        IntakeOrder order = source.order();
        order.exposureDates = order.titles = true;
        const RunReport report = source.enter(u"tc02"_s, order);
        QCOMPARE(report.count, 3);
        const auto columns = [](const QString& column) {
            QStringList values;
            for (int number = 1; number <= 6; ++number)
                values << fieldOf(u"SELECT * FROM tc02 WHERE 序号 = %1"_s.arg(number), column).textOr();
            return values;
        };
        const QString fileDate = columns(u"日期"_s).first(), taken = u"2003-10-02 12:30:59"_s;
        QCOMPARE(columns(u"日期"_s), (QStringList{fileDate, fileDate, fileDate, taken, taken, fileDate}));
        QCOMPARE(columns(u"备注"_s), (QStringList{{}, {}, {}, u"湖 边"_s, QString(49, u'湖'), {}}));
        for (const RunItem& item : report.items) QCOMPARE(!item.reason.isEmpty(), item.name == u"2.jpg"_s);
    }

    void withoutFillingIn() {
        Source source;
        for (const QString& name : {u"5.jpg"_s, u"6.jpg"_s}) source.add(name);
        IntakeOrder order = source.order();
        order.fillFields = false;
        source.enter(u"tc02"_s, order);
        for (const QString& column : {u"编号"_s, u"大小"_s, u"规格"_s, u"日期"_s})
            QVERIFY(fieldOf(u"tc02"_s, column).isNull());
        QVERIFY(source.isStored(u"tc02"_s, 1, u"5.jpg"_s));

        const QString size = ofNumber(5, u"规格"_s), date = ofNumber(5, u"日期"_s);
        order.replace = true;
        source.enter(u"tc01"_s, order);
        QCOMPARE(ofNumber(5, u"规格"_s), size);
        QCOMPARE(ofNumber(5, u"日期"_s), date);
        QVERIFY(source.isStored(u"tc01"_s, 5, u"5.jpg"_s));
    }

    void replacesByNumber() {
        Source source;
        changeRow(u"SELECT * FROM tc01 WHERE 序号 = 3"_s, {{u"备注"_s, u"湖边"_s}});
        for (const QString& name : {u"3.jpg"_s, u"1,234.jpg"_s, u"1.5.jpg"_s, u"123.jpg"_s}) source.add(name);
        const RunReport report = source.enter(u"tc01"_s, true);
        QVERIFY(report.cameToEnd && report.count == 2);
        QCOMPARE(report.namesOf({Fate::notFound}), (QStringList{u"1,234.jpg"_s, u"123.jpg"_s}));
        QCOMPARE(numbersOf(u"tc01"_s).size(), 10);
        QCOMPARE(ofNumber(3, u"备注"_s), u"湖边"_s);
        QCOMPARE(ofNumber(3, u"编号"_s), u" "_s);
        QCOMPARE(ofNumber(3, u"日期"_s), FieldValue(FileDateTime(source.path(u"3.jpg"_s))).toText());
        for (const auto& [number, size] : {std::pair{1, u"60 * 45"_s}, {2, u"40 * 30"_s}, {3, u"60 * 45"_s}})
            QCOMPARE(ofNumber(number, u"规格"_s), size);
        QVERIFY(source.isStored(u"tc01"_s, 3, u"3.jpg"_s));
    }

    void whatWasReplacedChangesPlaces() {
        Source source;
        mekTp::openCatalogue();
        for (const QString& name : {u"3.jpg"_s, u"4.jpg"_s}) source.add(name);
        QCOMPARE(source.enter(u"tc01"_s, true).count, 2);
        QCOMPARE(binTotals(mekTp::catalogue).pictures(), 2);
        QCOMPARE(restoreFromBin(mekTp::catalogue, binItems(mekTp::catalogue)).pictures, 2);
        QCOMPARE(ofNumber(4, u"规格"_s) + ofNumber(4, u"编号"_s), u"100 * 502"_s);
        QCOMPARE(numbersOf(u"tc01"_s).size(), 10);
    }

    void ofSeveralRecordsWithANumberTheFirstIsReplaced() {
        Source source;
        const QString second = u"SELECT * FROM tc01 WHERE 备注 = '又一'"_s;
        addRow(u"tc01"_s, {{u"序号"_s, 3}, {u"备注"_s, u"又一"_s}});
        source.add(u"3.jpg"_s);
        source.add(u"03.bmp"_s, pictureBytes({20, 10}, Qt::red, "BMP"));  // the same record once more
        QCOMPARE(source.enter(u"tc01"_s, true).count, 2);
        QCOMPARE(ofNumber(3, u"规格"_s), u"20 * 10"_s);
        QVERIFY(fieldOf(second, u"规格"_s).isNull());
    }

    void knownPicturesAreSkipped_data() {
        QTest::addColumn<bool>("kept");
        QTest::newRow("fingerprints are kept") << true;
        QTest::newRow("none are") << false;
    }
    void knownPicturesAreSkipped() {
        QFETCH(bool, kept);
        Source source;
        if (kept) OwnValues(mekTp::catalogue).prepare();
        source.add(u"a"_s, pictureBytes({10, 10}, Qt::red));
        source.add(u"b.bmp"_s, pictureBytes({20, 10}, Qt::red, "BMP"));
        QCOMPARE(source.enter(u"tc02"_s).count, 2);
        source.add(u"c"_s, pictureBytes({30, 10}, Qt::red));
        source.add(u"d"_s, source.bytesOf(u"c"_s));  // the album has not had it before
        source.add(u"e"_s, {});
        source.add(u"f"_s, source.bytesOf(u"a"_s) + QByteArray(9, '\0'));
        IntakeOrder order = source.order();
        order.skipKnown = true;
        const RunReport report = source.enter(u"tc02"_s, order);
        QVERIFY(report.cameToEnd && report.count == 3);
        QCOMPARE(report.namesOf({Fate::alreadyThere}), (QStringList{u"a"_s, u"b.bmp"_s, u"f"_s}));
        QCOMPARE(numbersOf(u"tc02"_s), (QStringList{u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s}));
        QVERIFY(source.isStored(u"tc02"_s, 4, u"d"_s));
    }

    /// Nobody knows then whether the album has that picture: it stays out, and so does the rest.
    void aRunThatIsEndedWhileAPictureOfTheAlbumIsRead() {
        Source source;
        source.add(u"known"_s, pictureBytes({10, 10}, Qt::red));
        source.enter(u"tc02"_s);
        for (const QString& name : {u"new"_s, u"next"_s}) source.add(name);
        IntakeOrder order = source.order();
        order.names = {u"new"_s, u"known"_s, u"next"_s};
        order.skipKnown = true;
        Watching watch(1);
        watch.timesMore = 1;
        const RunReport report = wjlr(mekTp::catalogue, u"tc02"_s, order, watch);
        QVERIFY(report.stopped && report.failure.isEmpty());
        QCOMPARE(report.namesOf({Fate::taken}), QStringList{u"new"_s});
        QCOMPARE(report.namesOf({Fate::left}), (QStringList{u"known"_s, u"next"_s}));
        QCOMPARE(numbersOf(u"tc02"_s), (QStringList{u"1"_s, u"2"_s}));
    }

    /// Of pictures that are held, streamed, turned into JPEGs, and that replace others.
    void fingerprintsAreNoted() {
        Source source;
        OwnValues(mekTp::catalogue).prepare();
        source.add(u"1.jpg"_s);
        source.add(u"2.jpg"_s, pictureBytes({60, 45}, Qt::darkGreen) + noise(17 << 20));
        source.add(u"3.bmp"_s, pictureBytes({60, 45}, Qt::red, "BMP"));
        source.add(u"4.jpg"_s, {});
        for (const bool replace : {true, false}) QCOMPARE(source.enter(u"tc01"_s, replace).count, 4);
        QSet<QByteArray> noted;
        ValueHashes(mekTp::catalogue).each(u"tc01"_s, u"图片"_s, [&](qint64, const QByteArray& sha256) {
            noted << sha256;
        });
        QSet<QByteArray> expected;
        for (const int number : {1, 2, 3, 11, 12, 13}) expected << fingerprintOf(stored(u"tc01"_s, number)).sha256;
        QCOMPARE(noted, expected);
    }

    /// What happened between the choice and the intake. Damage inside a picture is not looked for.
    void doubtfulFiles() {
        Source source;
        const QByteArray whole = pictureBytes({400, 300}, Qt::darkGreen);
        source.add(u"1.jpg"_s, QByteArray(whole).replace(whole.size() - 40, 20, QByteArray(20, '\0')));
        for (const QString& name : {u"2.jpg"_s, u"3.jpg"_s, u"4.jpg"_s}) source.add(name);
        const IntakeOrder order = source.order();
        QVERIFY(QFile::remove(source.path(u"2.jpg"_s)));
        QVERIFY(QFile::remove(source.path(u"3.jpg"_s)) && QDir().mkdir(source.path(u"3.jpg"_s)));
        source.watch.passes = true;
        const RunReport report = source.enter(u"tc02"_s, order);
        QVERIFY(report.cameToEnd && report.count == 2);
        QCOMPARE(report.namesOf({Fate::taken}), (QStringList{u"1.jpg"_s, u"4.jpg"_s}));
        for (const RunItem& item : report.items)
            QVERIFY(item.fate == Fate::taken || item.reason == u"文件“%1”不存在。"_s.arg(source.path(item.name)));
    }

    void failedReplacementLeavesTheRecord() {
        Source source;
        source.add(u"3.jpg"_s, pictureBytes({60, 45}, Qt::darkGreen) + noise(300'000));
        source.add(u"4.jpg"_s);
        const QByteArray old = stored(u"tc01"_s, 3);
        const QString size = ofNumber(3, u"规格"_s), date = ofNumber(3, u"日期"_s);
        {
            const FullDisk full(QFileInfo(mekTp::cataloguePath()).size() + 100'000);
            const RunReport report = source.enter(u"tc01"_s, true);
            QCOMPARE(report.count, 0);
            QCOMPARE(report.namesOf({Fate::failed}), QStringList{u"3.jpg"_s});
            QVERIFY(!report.has(Fate::taken));
        }
        QCOMPARE(stored(u"tc01"_s, 3), old);
        QCOMPARE(ofNumber(3, u"规格"_s), size);
        QCOMPARE(ofNumber(3, u"日期"_s), date);
    }

    /// What is reported stored is there byte for byte, of the others nothing; they are taken in when there is room.
    void fullDiskStopsBetweenTwoPictures() {
        Source source;
        for (const QString& name : {u"1.jpg"_s, u"2.jpg"_s, u"3.jpg"_s})
            source.add(name, pictureBytes({60, 45}, Qt::darkGreen) + noise(200'000));
        {
            const FullDisk full(QFileInfo(mekTp::cataloguePath()).size() + 300'000);
            const RunReport report = source.enter(u"tc02"_s);
            QCOMPARE(report.count, 0);
            QCOMPARE(report.namesOf({Fate::taken}), QStringList{u"1.jpg"_s});
            QCOMPARE(report.namesOf({Fate::failed}), QStringList{u"2.jpg"_s});
            QCOMPARE(report.namesOf({Fate::left}), QStringList{u"3.jpg"_s});
            QVERIFY2(report.failure.contains(mekTp::cataloguePath()), qPrintable(report.failure));
        }
        QCOMPARE(numbersOf(u"tc02"_s), QStringList{u"1"_s});
        QVERIFY(source.isStored(u"tc02"_s, 1, u"1.jpg"_s));
        QCOMPARE(source.enter(u"tc02"_s).count, 3);
        QVERIFY(source.isStored(u"tc02"_s, 4, u"3.jpg"_s));
    }

    void ways_data() {
        QTest::addColumn<bool>("replace");
        QTest::newRow("replace") << true;
        QTest::newRow("append") << false;
    }

    void emptyFile_data() { ways_data(); }
    void emptyFile() {
        QFETCH(bool, replace);
        Source source;
        source.add(u"3.jpg"_s, {});
        source.add(u"4.jpg"_s);
        const QByteArray old = stored(u"tc01"_s, 3);
        const QString size = ofNumber(3, u"规格"_s);
        const RunReport report = source.enter(u"tc01"_s, replace);
        QCOMPARE(report.count, 2);
        QCOMPARE(report.namesOf({Fate::withoutPicture}), QStringList{u"3.jpg"_s});
        QCOMPARE(stored(u"tc01"_s, 3), old);
        QCOMPARE(ofNumber(3, u"规格"_s), size);
        QVERIFY(replace || stored(u"tc01"_s, 11).isEmpty());
        QVERIFY(source.isStored(u"tc01"_s, replace ? 4 : 12, u"4.jpg"_s));
    }

    void damagedFile_data() { ways_data(); }
    void damagedFile() {
        QFETCH(bool, replace);
        Source source;
        source.add(u"1.jpg"_s);
        source.add(u"2.jpg"_s, "no picture");
        source.add(u"3.jpg"_s);
        const QByteArray old = stored(u"tc01"_s, 2);
        const RunReport report = source.enter(u"tc01"_s, replace);
        QCOMPARE(report.count, 0);
        QVERIFY2(report.failure.contains(source.path(u"2.jpg"_s)), qPrintable(report.failure));
        QCOMPARE(report.namesOf({Fate::failed}), QStringList{u"2.jpg"_s});
        QCOMPARE(report.namesOf({Fate::left}), QStringList{u"3.jpg"_s});
        QCOMPARE(numbersOf(u"tc01"_s).size(), replace ? 10 : 11);
        QVERIFY(source.isStored(u"tc01"_s, replace ? 1 : 11, u"1.jpg"_s));
        QCOMPARE(stored(u"tc01"_s, 2), old);
        QCOMPARE(ofNumber(2, u"规格"_s), u"40 * 30"_s);
    }

    /// They wait for an answer, and then come behind all others; no number is spent on them before.
    void truncatedPicturesStayOut() {
        Source source;
        for (const QString& name : {u"a"_s, u"b"_s, u"c"_s, u"d"_s})
            name == u"b" || name == u"d" ? source.addTruncated(name) : source.add(name);
        IntakeOrder order = source.order();
        RunReport report = source.enter(u"tc02"_s, order);
        QVERIFY(report.cameToEnd && report.count == 2);
        QCOMPARE(report.leftOut(), (QList<qsizetype>{1, 3}));
        QCOMPARE(numbersOf(u"tc02"_s), (QStringList{u"1"_s, u"2"_s}));
        order.selected = {1, 3};
        order.takesTruncated = true;
        report.add(source.enter(u"tc02"_s, order));
        QVERIFY(report.cameToEnd && report.leftOut().isEmpty());
        QCOMPARE(report.count, 4);
        QCOMPARE(report.placesOf({Fate::taken}), (QList<qsizetype>{0, 2, 1, 3}));
        QVERIFY(source.isStored(u"tc02"_s, 2, u"c"_s) && source.isStored(u"tc02"_s, 4, u"d"_s));
    }

    void aSecondRunThatIsStopped() {
        RunReport report{.count = 1,
                         .items = {{0, u"a"_s}, {1, u"b"_s, Fate::truncated}, {2, u"c"_s, Fate::truncated}},
                         .cameToEnd = true,
                         .verified = 1};
        report.add({.items = {{0, u"b"_s}, {1, u"c"_s, Fate::left}}, .stopped = true, .verified = 1});
        QVERIFY(report.stopped && !report.cameToEnd);
        QVERIFY(report.count == 2 && report.verified == 2);
        QCOMPARE(report.placesOf({Fate::left}), QList<qsizetype>{2});
    }

    // Nothing tells beforehand that no scratch file fits beside the longest name that a file can have.
    void bitmapsThatTurnOutNotToBeWritable() {
        Source source;
        const QString name = u"3."_s + QString(249, u'x') + u".bmp"_s;
        source.add(name, pictureBytes({60, 45}, Qt::darkGreen, "BMP"));
        source.add(u"4.jpg"_s);
        QCOMPARE(source.enter(u"tc01"_s, true).count, 2);
        QVERIFY(stored(u"tc01"_s, 3).startsWith("\xff\xd8"));
    }

    void withoutATableNothingIsTaken() {
        Source source;
        source.add(u"a"_s);
        source.add(u"b"_s);
        const RunReport report = source.enter(u"tc99"_s);
        QVERIFY(report.failure.contains(u"tc99"_s) && !report.has(Fate::failed));
        QCOMPARE(report.namesOf({Fate::left}), (QStringList{u"a"_s, u"b"_s}));
    }
};

const Registered<TestFileIntake> registered;

}  // namespace

#include "file_intake_test.moc"
