#include "catalogue/runs/file_transfer.h"

#include "../../support/disk_faults.h"
#include "../../support/sample_catalogue.h"
#include "watching.h"

using namespace Qt::Literals::StringLiterals;

class TestFileTransfer : public SampleTest {
    Q_OBJECT

  private Q_SLOTS:
    /// One folder takes what it can; each of the others has its reason.
    void whatBecomesOfEach() {
        const QTemporaryDir folder;
        changeRow(u"SELECT * FROM tc01 WHERE 序号 = 2"_s, {{u"图片"_s, FieldValue()}});
        writePicture(folder.filePath(u"123.jpg"_s), {9, 9}, Qt::red);
        Watching watch;
        const RunReport report =
            transferToFiles(mekTp::catalogue, u"tc01"_s, {u"1"_s, u"2"_s, u"3"_s, u"77"_s}, folder.path(), watch);
        QVERIFY(report.cameToEnd && report.count == 1 && report.verified == 1 && watch.asked.isEmpty());
        QCOMPARE(report.filesOf(Fate::taken), QStringList{u"121.jpg"_s});
        QCOMPARE(report.namesOf({Fate::failed}), (QStringList{u"2"_s, u"3"_s, u"77"_s}));
        QCOMPARE(report.filesOf(Fate::failed), (QStringList{QString(), u"123.jpg"_s, QString()}));
        QCOMPARE(watch.percents, (QList<int>{25, 50, 75, 100}));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files), (QStringList{u"121.jpg"_s, u"123.jpg"_s}));
    }

    /// What keeps a folder from being written is asked about once.
    void aFolderThatCannotBeWritten() {
        for (const bool passes : {false, true}) {
            Watching watch;
            watch.passes = passes;
            const RunReport report = transferToFiles(mekTp::catalogue, u"tc01"_s, {u"1"_s, u"2"_s, u"3"_s},
                                                     sample_->file(u"missing"_s), watch);
            QCOMPARE(watch.asked, QStringList{u"1"_s});
            QCOMPARE(report.namesOf({Fate::failed}).size(), passes ? 3 : 1);
            QCOMPARE(report.failure.isEmpty(), passes);
            QVERIFY(report.count == 0 && !report.items[0].reason.isEmpty() && !report.items[0].reason.endsWith(u'。'));
        }
    }

    void aDiskIsFullAtAnyPicture() {
        for (const int tooLarge : {1, 2, 3}) {
            init();
            const QTemporaryDir folder;
            const QString source = u"SELECT * FROM tc01 WHERE 序号 = %1"_s.arg(tooLarge);
            changeRow(source, {{u"图片"_s, QByteArray(1 << 20, 'x')}});
            Watching watch;
            watch.passes = true;
            const FullDisk full(1 << 19);
            const RunReport report =
                transferToFiles(mekTp::catalogue, u"tc01"_s, {u"1"_s, u"2"_s, u"3"_s}, folder.path(), watch);
            QCOMPARE(report.namesOf({Fate::failed}), QStringList{QString::number(tooLarge)});
            QVERIFY(report.cameToEnd && report.count == 2 && report.verified == 2);
            QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 2);
        }
    }

    void aWatchEndsTheRunAfterThePictureInHand() {
        const QTemporaryDir folder;
        Watching watch(1);
        const RunReport report = transferToFiles(mekTp::catalogue, u"tc01"_s, {u"4"_s, u"5"_s}, folder.path(), watch);
        QVERIFY(report.stopped && !report.cameToEnd && report.count == 1);
        QCOMPARE(report.namesOf({Fate::left}), QStringList{u"5"_s});
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{u"24.jpg"_s});
    }
};

const Registered<TestFileTransfer> registered;

#include "file_transfer_test.moc"
