#include "../support/run_all.h"
#include "backup/catalogue_copy.h"
#include "backup/copy_pace.h"
#include "platform/base/file_lock.h"
#include "platform/database/records/database.h"

#include <QtTest/QtTest>
#include <optional>
#include <thread>

using namespace Qt::Literals::StringLiterals;

namespace {

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
