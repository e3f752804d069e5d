#include "../support/damage.h"
#include "../support/run_all.h"
#include "../support/test_files.h"
#include "backup/catalogue_copy.h"
#include "backup/copy_pace.h"
#include "catalogue/album_rules.h"
#include "catalogue/backup_file.h"
#include "catalogue/fingerprint.h"
#include "platform/base/error.h"
#include "platform/base/file_lock.h"
#include "platform/database/records/own_values.h"
#include "platform/database/records/value_hashes.h"

#include <filesystem>
#include <optional>
#include <thread>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A catalogue with one picture and its fingerprint, in a folder with one for backups.
struct Sample {
    Sample() {
        const Database database = createDatabase(catalogue);
        database.Execute(createAlbumSql(u"tc01"_s));
        OwnValues(database).prepare();
        Recordset album = database.OpenRecordset(u"tc01"_s);
        album.AddNew();
        album.Fields(u"序号"_s).SetValue(1);
        album.Fields(u"图片"_s).SetValue(QByteArray(100'000, 'x'));
        album.Update();
        const StoredValue picture = album.storedAt(0, u"图片"_s);
        const Fingerprint print = fingerprintOf(picture);
        ValueHashes(database).note(picture.id(), print.length, print.sha256);
        giveIdentity(database);
        QDir(folder.path()).mkdir(u"bak"_s);
    }
    /// What a backup says when it is refused; empty when it was made.
    QString refusal() const {
        try {
            copyCatalogue(catalogue, backup);
            return {};
        } catch (const Error& error) {
            return error.text();
        }
    }
    QStringList files() const { return QDir(folder.filePath(u"bak"_s)).entryList(QDir::Files); }
    QByteArray newest() const { return contentOf(backup); }

    QTemporaryDir folder;
    QString catalogue = folder.filePath(u"lunq.mdb"_s), backup = folder.filePath(u"bak/lunq.mdb"_s);
};

class TestBackupCopy : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    /// Runs the pace against a disk that copies so many pages a millisecond; returns how long a step holds the source
    /// once the pace has settled.
    void pace() {
        const std::tuple<int, bool, int> cases[] = {
            {100, false, 2048 / 100},  // quick disk
            {1, false, 200},           // slow disk
            {10, true, 1000},          // written to all the time
            {1, true, 1000},           // a slow disk, written to all the time
        };
        for (const auto& [pagesPerMs, beginsAnew, heldMs] : cases) {
            CopyPace pace;
            int done = 0;
            for (int step = 0; step < 20; ++step) {
                done = beginsAnew ? 100 : done + pace.pages();
                pace.stepTook(pace.pages() / pagesPerMs, done);
            }
            QCOMPARE(pace.pages() / pagesPerMs, heldMs);
        }
    }

    /// What it has changed is in the copy.
    void aRunComesToItsEndFirst() {
        const QTemporaryDir folder;
        const QString catalogue = folder.filePath(u"lunq.mdb"_s), backup = folder.filePath(u"backup.mdb"_s);
        const Database database = createDatabase(catalogue);
        QVERIFY(QFile(folder.filePath(u"lunq.lock"_s)).open(QIODevice::WriteOnly));
        std::optional<FileLock> mark(std::in_place);
        QVERIFY(mark->take(runMarkOf(catalogue)) == FileLock::Outcome::taken);
        std::thread copying([&] { copyCatalogue(catalogue, backup); });
        const bool hasBegun = QTest::qWaitFor([&] { return QFileInfo::exists(backup + u".new"_s); });
        database.Execute(u"CREATE TABLE late ([序号] LONG)"_s);
        mark.reset();
        copying.join();
        QVERIFY(hasBegun && OpenDatabase(backup).TableDefs().contains(u"late"_s));
    }

    /// The newest has the name, the last three before it have dates. The clock counts for nothing: it was put back. A
    /// kill has left both names to the fifth: it does not count twice.
    void lastOnesAreKept() {
        const Sample sample;
        for (int i = 1; i <= 6; ++i) {
            if (i == 6)
                std::filesystem::create_hard_link(
                    sample.backup.toStdString(),
                    datedPath(sample.backup, describedBackup(sample.backup, false).made).toStdString());
            QCOMPARE(sample.refusal(), QString());
            behindTheBack(
                sample.backup,
                u"UPDATE lunq_values SET value = '20%1-01-01T00:00' WHERE name = 'backup.made'"_s.arg(40 - i));
        }
        QCOMPARE(sample.files(), QStringList({u"lunq-2035-01-01-0000.mdb"_s, u"lunq-2036-01-01-0000.mdb"_s,
                                              u"lunq-2037-01-01-0000.mdb"_s, u"lunq.mdb"_s}));
        QCOMPARE(describedBackup(sample.backup, false).number, 6);
    }

    /// That of another catalogue stays whatever happens; one of an older program while there is room.
    void backupsOfOthersStay() {
        const Sample other, sample;
        QVERIFY(other.refusal().isEmpty());
        QVERIFY(QFile::copy(other.backup, sample.backup));
        for (int i = 0; i < 6; ++i) QCOMPARE(sample.refusal(), QString());
        QStringList kept;
        for (const BackupFile& one : datedBeside(sample.backup, false)) kept << one.catalogue;
        QCOMPARE(kept.size(), 4);
        QCOMPARE(kept.count(describedBackup(other.backup, false).catalogue), 1);
    }

    /// Somebody's file that has the name of the backup.
    void fileThatIsNoBackupStays() {
        const Sample sample;
        QFile diary(sample.backup);
        QVERIFY(diary.open(QIODevice::WriteOnly) && diary.write("diary") > 0);
        diary.close();
        for (int i = 0; i < 5; ++i) QCOMPARE(sample.refusal(), QString());
        QStringList found;
        for (const QString& name : sample.files()) {
            QFile file(sample.folder.filePath(u"bak/"_s + name));
            if (file.open(QIODevice::ReadOnly) && file.readAll() == "diary") found << name;
        }
        QCOMPARE(found.size(), 1);
        QCOMPARE(datedBeside(sample.backup, false).size(), olderBackups);
    }

    /// A bit that has turned in a picture, of the catalogue or only of its fingerprint, is no good copy.
    void damagedPictureIsRefused() {
        const Sample sample;
        QVERIFY(sample.refusal().isEmpty());
        const QByteArray before = sample.newest();
        rot(sample.catalogue, u"tc01"_s, 1);
        QVERIFY2(sample.refusal().contains(u"1 张图片变了"_s), qPrintable(sample.refusal()));
        QCOMPARE(sample.newest(), before);
        QCOMPARE(sample.files(), QStringList(u"lunq.mdb"_s));
    }

    void oneSlowStepIsFollowedByShortOnes() {
        CopyPace pace;
        pace.stepTook(100'000, 256);
        QCOMPARE(pace.pages(), 1);
        pace.stepTook(0, 257);
        QCOMPARE(pace.pages(), 2);
    }

    /// However quick the disk has been, the program that writes outlives the step in which it begins to crawl at 20 MB
    /// a second.
    void diskThatCollapses() {
        constexpr double crawlingPagesPerMs = 20e6 / 16384 / 1000;
        CopyPace pace;
        for (int done = 0; done < 100'000; done += pace.pages()) pace.stepTook(0, done);
        const double waited = pace.pages() / crawlingPagesPerMs;
        QVERIFY2(waited < 2000, qPrintable(QString::number(waited)));
        pace.stepTook(qint64(waited), 200'000);
        QVERIFY(pace.pages() / crawlingPagesPerMs <= 200);
    }
};

const Registered<TestBackupCopy> registered;

}  // namespace

#include "backup_copy_test.moc"
