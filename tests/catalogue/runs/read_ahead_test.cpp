#include "catalogue/runs/read_ahead.h"

#include "../../support/failure_of.h"
#include "../../support/run_all.h"

#include <atomic>
#include <latch>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto longEnough = 10s;
using Numbers = ReadAhead<qsizetype>;

qint64 oneByte(const qsizetype&) {
    return 1;
}

class TestReadAhead : public QObject {
    Q_OBJECT

    static void threads_data() {
        QTest::addColumn<int>("threads");
        QTest::newRow("one thread") << 1;
        QTest::newRow("three threads") << 3;
    }

  private Q_SLOTS:
    void givesAllThingsInTheirOrder_data() { threads_data(); }
    void givesAllThingsInTheirOrder() {
        QFETCH(int, threads);
        const std::thread::id taking = std::this_thread::get_id();
        std::atomic<bool> isElsewhere = true;
        std::latch allAtWork(threads);
        Numbers ahead(1000,
                      [&] {
                          if (std::this_thread::get_id() == taking) isElsewhere = false;
                          return [&](qsizetype place) {
                              if (place < threads) allAtWork.arrive_and_wait();
                              if (place % 7 == 0) std::this_thread::yield();
                              return place * place;
                          };
                      },
                      oneByte, {.things = 7, .bytes = 5, .threads = threads});
        for (qsizetype place = 0; place < 1000; ++place) QCOMPARE(ahead.take(place), place * place);
        QVERIFY(isElsewhere);
        // A group that was lost is taken once more, and a thing that is not wanted is passed over.
        QCOMPARE(ahead.take(3), qsizetype(9));
        QCOMPARE(ahead.take(999), qsizetype(999 * 999));
        Numbers again(
            10, [] { return [](qsizetype place) { return place; }; }, oneByte);
        for (const qsizetype place : {2, 1, 2, 9, 0}) QCOMPARE(again.take(place), place);
    }

    void isAheadByItsLimits() {
        // Things, bytes, threads, and how many are prepared; the last thing is larger than all bytes.
        const std::tuple<int, int, int, int> cases[] = {
            {3, 1000, 1, 3}, {3, 1000, 4, 3}, {100, 25, 1, 3}, {100, 5, 1, 1}};
        for (const auto& [things, bytes, threads, prepared] : cases) {
            std::atomic<int> count = 0;
            Numbers ahead(
                50, [&] { return [&](qsizetype place) { return ++count, place; }; },
                [](const qsizetype&) { return 10; },
                {.things = std::size_t(things), .bytes = bytes, .threads = threads});
            QVERIFY(ahead.isAtHand(prepared - 1, longEnough));
            QVERIFY(!ahead.isAtHand(prepared, 50ms));
            QCOMPARE(count, prepared);
            ahead.take(0);
            QVERIFY(ahead.isAtHand(prepared, longEnough));
        }
    }

    void failuresComeInTheirTurn_data() { threads_data(); }
    void failuresComeInTheirTurn() {
        QFETCH(int, threads);
        Numbers ahead(3,
                      [] {
                          return [](qsizetype place) {
                              if (place == 1) throw Error(u"not this one"_s);
                              return place;
                          };
                      },
                      oneByte, {.threads = threads});
        QCOMPARE(ahead.take(0), qsizetype(0));
        QCOMPARE(failureOf([&] { ahead.take(1); }), u"not this one"_s);
        QCOMPARE(ahead.take(2), qsizetype(2));
        Numbers none(2, []() -> Numbers::Prepare { throw Error(u"no source"_s); }, oneByte, {.threads = threads});
        for (const qsizetype place : {0, 1, 0}) QCOMPARE(failureOf([&] { none.take(place); }), u"no source"_s);
    }

    void endsAtAnyTime_data() { threads_data(); }
    void endsAtAnyTime() {
        QFETCH(int, threads);
        for (int taken = 0; taken < 40; ++taken) {
            Numbers ahead(40, [] { return [](qsizetype place) { return place; }; }, oneByte,
                          {.things = 2, .threads = threads});
            for (int place = 0; place < taken; ++place) ahead.take(place);
        }
    }
};

const Registered<TestReadAhead> registered;

}  // namespace

#include "read_ahead_test.moc"
