#include "catalogue/runs/read_ahead.h"

#include "../../support/failure_of.h"
#include "../../support/run_all.h"

#include <atomic>

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

  private Q_SLOTS:
    void givesAllThingsInTheirOrder() {
        std::thread::id preparing;
        Numbers ahead(1000,
                      [&] {
                          preparing = std::this_thread::get_id();
                          return [](qsizetype place) { return place * place; };
                      },
                      oneByte, {.things = 7, .bytes = 5});
        for (qsizetype place = 0; place < 1000; ++place) QCOMPARE(ahead.take(place), place * place);
        QVERIFY(preparing != std::this_thread::get_id());
        // A group that was lost is taken once more, and a thing that is not wanted is passed over.
        QCOMPARE(ahead.take(3), qsizetype(9));
        QCOMPARE(ahead.take(999), qsizetype(999 * 999));
        Numbers again(
            10, [] { return [](qsizetype place) { return place; }; }, oneByte);
        for (const qsizetype place : {2, 1, 2, 9, 0}) QCOMPARE(again.take(place), place);
    }

    void isAheadByItsLimits() {
        const std::tuple<int, int, int> cases[] = {{3, 1000, 3}, {100, 25, 3}, {100, 5, 1}};
        for (const auto& [things, bytes, prepared] : cases) {
            std::atomic<int> count = 0;
            Numbers ahead(
                50, [&] { return [&](qsizetype place) { return ++count, place; }; },
                [](const qsizetype&) { return 10; }, {.things = std::size_t(things), .bytes = bytes});
            QVERIFY(ahead.isAtHand(prepared - 1, longEnough));
            QVERIFY(!ahead.isAtHand(prepared, 50ms));
            QCOMPARE(count, prepared);
            ahead.take(0);
            QVERIFY(ahead.isAtHand(prepared, longEnough));
        }
    }

    void failuresComeInTheirTurn() {
        Numbers ahead(
            3,
            [] {
                return [](qsizetype place) {
                    if (place == 1) throw Error(u"not this one"_s);
                    return place;
                };
            },
            oneByte);
        QCOMPARE(ahead.take(0), qsizetype(0));
        QCOMPARE(failureOf([&] { ahead.take(1); }), u"not this one"_s);
        QCOMPARE(ahead.take(2), qsizetype(2));
        Numbers none(
            2, []() -> Numbers::Prepare { throw Error(u"no source"_s); }, oneByte);
        for (const qsizetype place : {0, 1, 0}) QCOMPARE(failureOf([&] { none.take(place); }), u"no source"_s);
    }

    void endsAtAnyTime() {
        for (int taken = 0; taken < 40; ++taken) {
            Numbers ahead(40, [] { return [](qsizetype place) { return place; }; }, oneByte, {.things = 2});
            for (int place = 0; place < taken; ++place) ahead.take(place);
        }
    }
};

const Registered<TestReadAhead> registered;

}  // namespace

#include "read_ahead_test.moc"
