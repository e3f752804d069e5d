#include "start/hash_keeping.h"

#include "../support/damage.h"
#include "../support/sample_catalogue.h"
#include "catalogue/picture_hashes.h"
#include "platform/desktop/long_work.h"

#include <QPushButton>
#include <QSignalSpy>
#include <semaphore>
#include <thread>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int pictures = 13;     // in all albums of the sample
constexpr int patience = 60000;  // the thread works when the processor has nothing better to do

int hashes() {
    int count = 0;
    const ValueHashes kept(mekTp::catalogue);
    for (const QString& album : {u"tc00"_s, u"tc01"_s, u"tc02"_s})
        kept.each(album, u"图片"_s, [&](qint64, const QByteArray&) { ++count; });
    return count;
}

HashKeeping::Pace pace(std::chrono::milliseconds quiet) {
    return {quiet, {.start = 0ms, .look = 5ms, .rest = 20ms, .batch = 0ms, .share = 1}};
}

class TestHashKeeping : public OpenedSampleTest {
    Q_OBJECT

  private Q_SLOTS:
    void oldAndNewPicturesGetTheirs() {
        const HashKeeping keeping(mekTp::cataloguePath(), pace(20ms));
        QTRY_COMPARE_WITH_TIMEOUT(hashes(), pictures, patience);
        KnownPictures known(mekTp::catalogue, u"tc01"_s);
        QVERIFY(known.has(fingerprintOf(fieldOf(u"tc01"_s, u"图片"_s).toBytes())));
        addRow(u"tc02"_s, {{u"图片"_s, QByteArray("new")}});
        QTRY_COMPARE_WITH_TIMEOUT(hashes(), pictures + 1, patience);
    }

    /// What was read long ago is read again, and damage is told once.
    void picturesAreProvedInTurn() {
        {
            const HashKeeping keeping(mekTp::cataloguePath(), pace(10ms));
            QTRY_COMPARE_WITH_TIMEOUT(behindTheBack(mekTp::cataloguePath(),
                                                    u"SELECT count(*) FROM lunq_values "
                                                    "WHERE name = 'proof.decoded' AND value > 12"_s),
                                      u"1"_s, patience);
        }
        const qint64 rotten = rot(mekTp::cataloguePath(), u"tc01"_s, 4);
        behindTheBack(mekTp::cataloguePath(), u"UPDATE lunq_hashes SET checked = '2020-02-02'"_s);
        for (const int told : {1, 0}) {
            const HashKeeping keeping(mekTp::cataloguePath(), pace(10ms));
            const QSignalSpy damage(&keeping, &HashKeeping::damageFound);
            QTRY_COMPARE_WITH_TIMEOUT(proofState(mekTp::catalogue).since, QDate::currentDate(), patience);
            QTRY_COMPARE_WITH_TIMEOUT(damage.size(), told, patience);
            QCOMPARE(proofState(mekTp::catalogue).damaged.keys(), QList<qint64>{rotten});
        }
    }

    /// Prints are stored a batch after the other: meanwhile nothing behind them counts as decoded.
    void allAreDecodedWhereSomeLackedPrints() {
        const auto isThrough = [] { return picturesDue(mekTp::catalogue, QDate::currentDate()).empty(); };
        {
            const HashKeeping keeping(mekTp::cataloguePath(), pace(10ms));
            QTRY_VERIFY_WITH_TIMEOUT(hashes() == pictures && isThrough(), patience);
        }
        behindTheBack(mekTp::cataloguePath(), u"DELETE FROM lunq_hashes WHERE id % 2 = 0"_s);
        behindTheBack(mekTp::cataloguePath(), u"DELETE FROM lunq_values WHERE name = 'proof.decoded'"_s);
        const HashKeeping keeping(mekTp::cataloguePath(), pace(200ms));
        QTRY_VERIFY_WITH_TIMEOUT(hashes() == pictures && isThrough(), patience);
    }

    void oneThatCannotBeReadHoldsNobodyUp() {
        const QString id = behindTheBack(mekTp::cataloguePath(), u"SELECT min(图片) FROM tc01"_s);
        behindTheBack(mekTp::cataloguePath(), u"DELETE FROM long_binary WHERE id = "_s + id);
        const HashKeeping keeping(mekTp::cataloguePath(), pace(10ms));
        QTRY_COMPARE_WITH_TIMEOUT(proofState(mekTp::catalogue).damaged.keys(), QList<qint64>{id.toLongLong()},
                                  patience);
        QTRY_VERIFY_WITH_TIMEOUT(picturesDue(mekTp::catalogue, QDate::currentDate()).empty(), patience);
        QCOMPARE(hashes(), pictures - 1);
    }

    void nothingIsStoredWhileSomebodyWorks() {
        QWidget window;
        window.show();
        const HashKeeping keeping(mekTp::cataloguePath(), pace(400ms));
        const std::function<void()> hands[] = {[&] { QTest::keyClick(&window, Qt::Key_A); },
                                               [&] { QTest::mouseClick(&window, Qt::LeftButton); },
                                               [&] { QTest::mouseMove(&window, QPoint(3, 3)); }};
        QElapsedTimer sinceInput;
        sinceInput.start();
        for (int i = 0; i < 30; ++i) {
            QTest::qWait(50);
            if (sinceInput.elapsed() >= 300) break;  // on a slow machine the pause may have been long enough
            QCOMPARE(hashes(), 0);
            sinceInput.restart();
            hands[i % 3]();
        }
        QTRY_COMPARE_WITH_TIMEOUT(hashes(), pictures, patience);
        QVERIFY(sinceInput.elapsed() >= 400);
    }

    void nothingIsStoredDuringARun() {
        QWidget window;
        QPushButton stop(&window);
        LongWork work(&window, &stop);
        std::binary_semaphore go(0);
        bool isOver = false;
        work.start([&] { go.acquire(); }, [&] { isOver = true; });
        const HashKeeping keeping(mekTp::cataloguePath(), pace(10ms));
        QTest::qWait(200);
        QVERIFY(LongWork::isAnyAtWork());
        QCOMPARE(hashes(), 0);
        go.release();
        QTRY_VERIFY_WITH_TIMEOUT(isOver, patience);
        QTRY_COMPARE_WITH_TIMEOUT(hashes(), pictures, patience);
    }

    /// Another program writes for longer than the window waits.
    void whatIsRefusedIsStoredLater() {
        HashKeeping::Pace quick = pace(10ms);
        quick.again = 50ms;
        std::binary_semaphore held(0), free(0);
        std::jthread other([&] {
            const Database catalogue = OpenDatabase(mekTp::cataloguePath());
            const Transaction writing(catalogue);
            held.release();
            free.acquire();
        });
        held.acquire();
        const HashKeeping keeping(mekTp::cataloguePath(), quick);
        QTest::qWait(1500);  // its first try takes longer
        QCOMPARE(hashes(), 0);
        free.release();
        QTRY_COMPARE_WITH_TIMEOUT(hashes(), pictures, patience);
    }

    /// Waiting for its beginning, reading a large picture, or with more in hand than was stored.
    void endsAtOnce() {
        addRow(u"tc01"_s, {{u"图片"_s, QByteArray(256 << 20, 'x')}});
        for (const auto start : {0ms, 60000ms}) {
            QElapsedTimer timer;
            timer.start();
            {
                const HashKeeping keeping(mekTp::cataloguePath(), {0ms, {.start = start, .rest = 60000ms}});
                QTest::qWait(50);
            }
            QVERIFY(timer.elapsed() < 20000);  // far less than its pauses, also on a machine with much other work
        }
    }

    void writersPassIt() {
        addRow(u"tc01"_s, {{u"图片"_s, QByteArray(64 << 20, 'x')}});
        const HashKeeping keeping(mekTp::cataloguePath(), pace(0ms));
        int slow = 0;
        for (int i = 0; i < 20; ++i) {
            QElapsedTimer timer;
            timer.start();
            changeRow(u"tcsz"_s, {{u"像册标题"_s, QString::number(i)}});
            slow += timer.elapsed() >= 1000 ? 1 : 0;
            QTest::qWait(5);
        }
        QVERIFY(slow <= 2);  // the machine may have other work
    }
};

const Registered<TestHashKeeping> registered;

}  // namespace

#include "hash_keeping_test.moc"
