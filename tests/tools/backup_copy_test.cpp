#include "../support/run_all.h"
#include "backup/copy_pace.h"

#include <QtTest/QtTest>

namespace {

class TestBackupCopy : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    /// Runs the pace against a disk that copies so many pages a millisecond; returns how long a step holds the source
    /// once the pace has settled.
    void pace_data() {
        QTest::addColumn<int>("pagesPerMs");
        QTest::addColumn<bool>("beginsAnew");
        QTest::addColumn<int>("heldMs");
        QTest::newRow("quick disk") << 100 << false << 200;
        QTest::newRow("slow disk") << 1 << false << 200;
        QTest::newRow("written to all the time") << 10 << true << 1000;
    }
    void pace() {
        QFETCH(int, pagesPerMs);
        QFETCH(bool, beginsAnew);
        CopyPace pace;
        int done = 0;
        for (int step = 0; step < 20; ++step) {
            done = beginsAnew ? 100 : done + pace.pages();
            pace.stepTook(pace.pages() / pagesPerMs, done);
        }
        QTEST(pace.pages() / pagesPerMs, "heldMs");
    }

    void oneSlowStepIsFollowedByAShortOne() {
        CopyPace pace;
        pace.stepTook(100'000, 256);
        QCOMPARE(pace.pages(), 1);
        pace.stepTook(0, 257);
        QVERIFY(pace.pages() <= 8);
    }
};

const Registered<TestBackupCopy> registered;

}  // namespace

#include "backup_copy_test.moc"
