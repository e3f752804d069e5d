#include "catalogue/runs/table_transfer.h"

#include "../../support/disk_faults.h"
#include "../../support/failure_of.h"
#include "../../support/sample_catalogue.h"
#include "../../support/stored_records.h"
#include "catalogue/album_rules.h"
#include "catalogue/bin_restoring.h"
#include "catalogue/picture_hashes.h"
#include "watching.h"

#include <semaphore>
#include <thread>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A catalogue, and another one with an album tc02 for its records.
class Target {
  public:
    explicit Target(int first = 1, int count = 0) : database(createDatabase(sample.file(u"目标.mdb"_s))) {
        database.Execute(createAlbumSql(u"tc02"_s));
        Recordset rows = database.OpenRecordset(u"tc02"_s);
        for (int i = 0; i < count; ++i) {
            addRow(rows, {{u"序号"_s, first + i}});
        }
    }

    RunReport take(const QString& from, const QStringList& numbers, bool move,
                   const QStringList& fields = albumColumns(), const QString& into = u"tc02"_s) {
        FieldMapping mapping;
        for (const QString& field : fields) mapping.push_back({field, field});
        return transferToTable(mekTp::catalogue, from, numbers, {database, into, mapping}, move, watch);
    }
    QStringList arrived() const { return numbersOf(u"tc02"_s, database); }
    QString remarkOf(int number) const {
        const QString source = u"SELECT * FROM tc02 WHERE 序号 = %1"_s.arg(number);
        return database.OpenRecordset(source).Fields(u"备注"_s).Value().textOr();
    }

    SampleCatalogue sample;
    Database database;
    Watching watch;
};

qsizetype refused(const RunReport& report) {
    return report.namesOf({Fate::failed}).size();
}

int sqlite3(const QString& path, const QString& sql) {
    return QProcess::execute(u"sqlite3"_s, {path, sql});
}

class TestTableTransfer : public QObject {
    Q_OBJECT

    std::optional<Target> target_;

  private Q_SLOTS:
    void init() { target_.emplace(); }

    /// The engine's locks on a file are lost when the process closes a file of its own on it.
    void catalogueAsTargetKeepsItsLocks() {
        const Transaction writing(mekTp::catalogue);
        changeRow(u"tcsz"_s, {{u"像册标题"_s, u"new"_s}});
        openTarget(mekTp::cataloguePath());
        QVERIFY(sqlite3(mekTp::cataloguePath(), u"BEGIN IMMEDIATE"_s) != 0);
    }

    /// The tables that the program lives by are not written, by whatever path the catalogue is chosen.
    void onlyAlbumsOfTheCatalogueTakePictures() {
        mekTp::catalogue.Execute(createAlbumSql(u"海边照片"_s));
        const QString link = target_->sample.file(u"link.mdb"_s);
        QVERIFY(QFile::link(mekTp::cataloguePath(), link));
        const QStringList before = numbersOf(u"tcbm"_s);
        for (const QString& table : {u"tcbm"_s, u"tcan"_s, u"pmtp"_s, u"tc00"_s})
            for (const QString& path : {mekTp::cataloguePath(), link}) {
                target_->database = openTarget(path);
                QVERIFY(!failureOf([&] { target_->take(u"tc01"_s, {u"1"_s}, true, {u"序号"_s}, table); }).isEmpty());
            }
        QCOMPARE(numbersOf(u"tcbm"_s), before);
        QCOMPARE(objectionToTable(mekTp::catalogue, target_->database, u"TC00"_s),
                 u"该表只做演示用，不能录入或编辑！"_s);
        QCOMPARE(objectionToTable(mekTp::catalogue, mekTp::catalogue, u"海边照片"_s), QString());
    }

    void aMoveThatWouldLoseThePictureIsNotMade() {
        const QStringList mapped{u"序号"_s, u"备注"_s};
        QCOMPARE(refused(target_->take(u"tc01"_s, {u"1"_s}, true, mapped)), 1);
        // A copy leaves the picture where it is.
        QCOMPARE(target_->take(u"tc01"_s, {u"1"_s}, false, mapped).count, 1);
        QCOMPARE(refused(target_->take(u"tc01"_s, {u"1"_s}, true, {})), 1);
    }

    /// Every record is in one place, and whole.
    void aDiskIsFullAtAnyPicture() {
        const QByteArray large(3 << 20, 'x');
        for (const int tooLarge : {1, 2, 3}) {
            target_.emplace(1, 1);
            const QString number = QString::number(tooLarge);
            changeRow(u"SELECT * FROM tc01 WHERE 序号 = "_s + number, {{u"图片"_s, large}});
            target_->watch.passes = tooLarge != 2;
            {
                const FullDisk full(1 << 20);
                const RunReport report = target_->take(u"tc01"_s, {u"1"_s, u"2"_s, u"3"_s}, true);
                QCOMPARE(report.namesOf({Fate::failed}), QStringList{number});
                QCOMPARE(report.count, target_->watch.passes ? 2 : 1);
                QCOMPARE(report.verified, report.count);
                QCOMPARE(report.failure.isEmpty(), target_->watch.passes);
                QCOMPARE(numbersOf(u"tc01"_s).size(), 10 - report.count);
                QCOMPARE(target_->arrived().size(), 1 + report.count);
            }
            QCOMPARE(target_->watch.asked, QStringList{number});
            QCOMPARE(target_->take(u"tc01"_s, {number}, true).count, 1);
            QCOMPARE(stored(u"tc02"_s, int(target_->arrived().size()), target_->database), large);
        }
    }

    /// What the target gives back is not what it was given: the only whole picture stays.
    void whatIsReadBackDiffers() {
        for (const bool passes : {false, true}) {
            init();
            sqlite3(target_->database.Name(),
                    u"CREATE TRIGGER spoil AFTER INSERT ON tc02 WHEN NEW.序号 = 2 BEGIN "
                    "UPDATE long_binary SET bytes = zeroblob(length(bytes)) WHERE id = NEW.图片; END"_s);
            target_->watch.passes = passes;
            const RunReport report = target_->take(u"tc01"_s, {u"1"_s, u"2"_s, u"3"_s}, true);
            QCOMPARE(report.namesOf({Fate::doubtful}), QStringList{u"2"_s});
            QVERIFY(report.items[1].reason.contains(u"读回的图片与原图不同"_s));
            QCOMPARE(report.cameToEnd, passes);
            // The third one is in when it was stored together with the second.
            const QStringList taken = report.namesOf({Fate::taken});
            QVERIFY(taken.contains(u"1"_s) && taken.contains(u"3"_s) >= passes);
            QVERIFY(report.count == taken.size() && report.verified == taken.size());
            QCOMPARE(numbersOf(u"tc01"_s).size(), 10 - taken.size());
            QVERIFY(numbersOf(u"tc01"_s).contains(u"2"_s));
        }
    }

    /// The source may be the target: two albums of one catalogue.
    void betweenTwoAlbumsOfTheCatalogue() {
        mekTp::openCatalogue();
        target_->database = mekTp::catalogue;
        const QByteArray picture = stored(u"tc01"_s, 7);
        const Fingerprint print = fingerprintOf(picture);
        PictureHashes(target_->database).note(target_->database.OpenRecordset(u"tc01"_s).storedAt(6, u"图片"_s), print);
        const RunReport report = target_->take(u"tc01"_s, {u"7"_s, u"8"_s}, true);
        QVERIFY(report.count == 2 && report.verified == 2);
        QCOMPARE(stored(u"tc02"_s, 1), picture);
        QCOMPARE(numbersOf(u"tc01"_s).size(), 8);
        // A fingerprint that was kept goes with the picture.
        const PictureHashes prints(target_->database);
        const Recordset copies = target_->database.OpenRecordset(u"tc02"_s);
        QCOMPARE(prints.of(copies.storedAt(0, u"图片"_s)), print);
        QCOMPARE(prints.of(copies.storedAt(1, u"图片"_s)), Fingerprint());
    }

    /// Groups are stored while the ones before them are read back; one record is larger than what is kept in memory.
    void eachRecordIsInOneOfTheTwoAtAnyTime() {
        class Looking : public RunWatch {
          public:
            explicit Looking(QString target) : target_(std::move(target)) {}
            bool progress(const RunProgress& now) override {
                const bool isLarge = now.bytes - std::exchange(bytes_, now.bytes) > (40 << 20);
                if (!isLarge) std::thread([this] { look(); }).join();  // that one keeps readers out until it is stored
                return true;
            }
            bool areAllThere = true;

          private:
            void look() {
                const QStringList left = numbersOf(u"tc02"_s, OpenDatabase(mekTp::cataloguePath()));
                const qsizetype arrived = numbersOf(u"tc02"_s, OpenDatabase(target_)).size();
                areAllThere = areAllThere && left.size() + arrived >= 24;
            }
            QString target_;
            qint64 bytes_ = 0;
        };
        QStringList numbers;
        for (int i = 1; i <= 24; ++i) {
            addRow(u"tc02"_s, {{u"序号"_s, i}, {u"图片"_s, QByteArray(i == 12 ? 48 << 20 : 2 << 20, char(i))}});
            numbers << QString::number(i);
        }
        Looking watch(target_->database.Name());
        const TransferTarget place{target_->database, u"tc02"_s, {{u"序号"_s, u"序号"_s}, {u"图片"_s, u"图片"_s}}};
        const RunReport report = transferToTable(mekTp::catalogue, u"tc02"_s, numbers, place, true, watch);
        QVERIFY(watch.areAllThere);
        QVERIFY(report.count == 24 && report.verified == 24);
        QCOMPARE(numbersOf(u"tc02"_s), QStringList());
        QCOMPARE(stored(u"tc02"_s, 12, target_->database), QByteArray(48 << 20, char(12)));
    }

    /// Somebody else writes to the album: its records cannot go.
    void recordsThatStayAreInDoubt() {
        std::binary_semaphore held(0), free(0);
        std::jthread other([&] {
            const Database album = OpenDatabase(mekTp::cataloguePath());
            const Transaction writing(album);
            held.release();
            free.acquire();
        });
        held.acquire();
        target_->watch.passes = true;
        const RunReport report = target_->take(u"tc01"_s, {u"1"_s, u"2"_s}, true);
        free.release();
        QCOMPARE(report.namesOf({Fate::doubtful}), (QStringList{u"1"_s, u"2"_s}));
        QCOMPARE(target_->watch.asked.size(), 1);
        QVERIFY(report.count == 0 && numbersOf(u"tc01"_s).size() == 10 && target_->arrived().size() == 2);
    }

    void groupsAreMovedWhole() {
        QStringList numbers;
        for (int i = 1; i <= 150; ++i) {
            addRow(u"tc02"_s, {{u"序号"_s, i}, {u"图片"_s, QByteArray::number(i)}});
            numbers << QString::number(i);
        }
        const RunReport report = target_->take(u"tc02"_s, numbers, true);
        QVERIFY(report.cameToEnd && report.count == 150 && report.verified == 150);
        QCOMPARE(target_->watch.last.percent, 100);
        QCOMPARE(target_->watch.last.done, qsizetype(150));
        QCOMPARE(target_->watch.last.bytes, qint64(9 + 2 * 90 + 3 * 51));
        QCOMPARE(numbersOf(u"tc02"_s), QStringList());
        QCOMPARE(target_->arrived(), numbers);
        QCOMPARE(stored(u"tc02"_s, 150, target_->database), QByteArray("150"));
    }

    /// What is in the target has left the album, and nothing else has.
    void aWatchEndsAMoveBetweenTwoRecords() {
        Watching watch(2);
        const TransferTarget place{target_->database, u"tc02"_s, {{u"序号"_s, u"序号"_s}, {u"图片"_s, u"图片"_s}}};
        const QStringList numbers{u"4"_s, u"1"_s, u"3"_s, u"2"_s};
        const RunReport report = transferToTable(mekTp::catalogue, u"tc01"_s, numbers, place, true, watch);
        QVERIFY(report.stopped && !report.cameToEnd && report.count == 2);
        QCOMPARE(report.namesOf({Fate::left}), (QStringList{u"3"_s, u"2"_s}));
        QCOMPARE(target_->arrived(), (QStringList{u"1"_s, u"2"_s}));
        QCOMPARE(numbersOf(u"tc01"_s).first(2), (QStringList{u"2"_s, u"3"_s}));
        QCOMPARE(numbersOf(u"tc01"_s).size(), 8);
    }

    void numbersThatTwoRecordsShareAreBothMoved() {
        const auto change = [](int number, const QString& column, const FieldValue& value) {
            changeRow(u"SELECT * FROM tc01 WHERE 序号 = %1"_s.arg(number), {{column, value}});
        };
        change(2, u"序号"_s, 1);
        QCOMPARE(target_->take(u"tc01"_s, {u"1"_s, u"1"_s}, true).count, 2);
        QCOMPARE(target_->remarkOf(1), u"图片1"_s);
        QCOMPARE(target_->remarkOf(2), u"图片2"_s);
        QCOMPARE(numbersOf(u"tc01"_s).size(), 8);
        // The first one does not fit, and does not stand in the way of the second.
        change(6, u"序号"_s, 5);
        change(5, u"编号"_s, u"不合适"_s);
        target_->database.Execute(
            u"CREATE TABLE tc03 ([序号] LONG,[编号] TEXT(2),[图片] LONGBINARY,[备注] TEXT(50))"_s);
        const QStringList fields{u"序号"_s, u"编号"_s, u"图片"_s, u"备注"_s};
        target_->watch.passes = true;
        QCOMPARE(refused(target_->take(u"tc01"_s, {u"5"_s, u"5"_s}, true, fields, u"tc03"_s)), 1);
        QCOMPARE(fieldOf(u"SELECT * FROM tc01 WHERE 序号 = 5"_s, u"备注"_s).toText(), u"图片5"_s);
        // One record chosen twice is moved once.
        QCOMPARE(refused(target_->take(u"tc01"_s, {u"3"_s, u"3"_s}, true)), 1);
        QCOMPARE(target_->take(u"tc01"_s, {u"4"_s, u"4"_s}, false).count, 2);
        QCOMPARE(target_->arrived().size(), 5);
    }

    void whatWasMovedIsInTheBin() {
        mekTp::openCatalogue();
        QCOMPARE(target_->take(u"tc01"_s, {u"5"_s, u"2"_s, u"3"_s}, true).count, 3);
        QCOMPARE(binTotals(mekTp::catalogue).pictures(), 3);
        QVERIFY(isBinOnly(mekTp::catalogue, 0, BinKind::moved));
        QCOMPARE(restoreFromBin(mekTp::catalogue, binItems(mekTp::catalogue)).pictures, 3);
        QCOMPARE(numbersOf(u"tc01"_s).size(), 10);
        QCOMPARE(target_->take(u"tc01"_s, {u"5"_s}, false).count, 1);
        QVERIFY(isBinEmpty(mekTp::catalogue));
    }
};

const Registered<TestTableTransfer> registered;

}  // namespace

#include "table_transfer_test.moc"
