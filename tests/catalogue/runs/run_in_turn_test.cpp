#include "catalogue/runs/run_in_turn.h"

#include "../../support/disk_faults.h"
#include "../../support/sample_catalogue.h"
#include "../../support/stored_records.h"
#include "platform/base/error.h"

#include <optional>
#include <thread>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int things = 6;

QStringList numbered(int from, int to) {
    QStringList names;
    for (int number = from; number <= to; ++number) names << QString::number(number);
    return names;
}

/// What a thread with a connection of its own makes of the catalogue.
template <typename Use>
void elsewhere(const Use& use) {
    std::thread([&] {
        const Database catalogue = OpenDatabase(mekTp::cataloguePath());
        use(catalogue);
    }).join();
}

QStringList onTheDisk() {
    QStringList numbers;
    elsewhere([&](const Database& catalogue) { numbers = numbersOf(u"tc02"_s, catalogue); });
    return numbers;
}

/// Adds records with the numbers from 1 on to tc02.
class Numbering : public RunIntoDatabase {
  public:
    Numbering() : RunIntoDatabase(numbered(1, things)) {}

    QByteArray picture{"picture"};
    QSet<int> failing;  ///< Numbers.
    QSet<int> awaited;  ///< Numbers that are not at hand.
    int opened = 0;

  protected:
    const Database& target() const override { return mekTp::catalogue; }
    void open() override {
        ++opened;
        rows_ = mekTp::catalogue.OpenRecordset(u"tc02"_s);
    }
    Taken take(qsizetype place) override {
        const int number = int(place) + 1;
        if (failing.contains(number)) throw Error(u"not %1"_s.arg(number));
        addRow(u"tc02"_s, {{u"序号"_s, number}, {u"图片"_s, picture}});
        return {Fate::taken, picture.size()};
    }
    bool isAtHand(qsizetype place) const override { return !awaited.contains(int(place) + 1); }

  private:
    Recordset rows_;
};

class Watch : public RunWatch {
  public:
    bool progress(const RunProgress& now) override {
        storedMeanwhile << onTheDisk().size();
        return now.done != endAfter;
    }
    bool passesOver(const RunItem& item) override {
        asked << item.reason;
        if (atQuestion) atQuestion();
        // Whoever wants to write can.
        elsewhere([](const Database& catalogue) { Transaction(catalogue).commit(); });
        return passing;
    }

    qsizetype endAfter = -1;
    bool passing = true;
    std::function<void()> atQuestion;
    QList<qsizetype> storedMeanwhile;
    QStringList asked;
};

class TestRunInTurn : public SampleTest {
    Q_OBJECT

  private Q_SLOTS:
    void thingsShareAChange() {
        Numbering run;
        Watch watch;
        run.awaited = {4};
        const RunReport report = run.run(watch);
        QVERIFY(report.cameToEnd && report.count == things);
        QCOMPARE(watch.storedMeanwhile, (QList<qsizetype>{0, 0, 0, 3, 3, 3}));
        QCOMPARE(onTheDisk(), numbered(1, things));
    }

    void failures() {
        const std::tuple<bool, QStringList, QStringList> cases[] = {
            {false, numbered(1, 1), numbered(2, 2)},
            {true, QStringList{u"1"_s, u"3"_s, u"5"_s, u"6"_s}, QStringList{u"2"_s, u"4"_s}}};
        for (const auto& [passing, taken, failed] : cases) {
            init();
            Numbering run;
            Watch watch;
            watch.passing = passing;
            run.failing = {2, 4};
            const RunReport report = run.run(watch);
            QCOMPARE(watch.asked, QStringList{u"not 2"_s});
            QCOMPARE(onTheDisk(), taken);
            QCOMPARE(report.namesOf({Fate::taken}), taken);
            QCOMPARE(report.namesOf({Fate::failed}), failed);
            QCOMPARE(report.namesOf({Fate::left}), passing ? QStringList() : numbered(3, things));
            QCOMPARE(report.count, passing ? int(taken.size()) : 0);
            QCOMPARE(report.failure, passing ? QString() : u"not 2"_s);
            QCOMPARE(run.opened, 1);
        }
    }

    void ended() {
        for (const int after : {1, 3, things}) {
            init();
            Numbering run;
            Watch watch;
            watch.endAfter = after;
            run.failing = {after};  // nobody is asked any more
            const RunReport report = run.run(watch);
            QVERIFY(report.stopped && report.failure.isEmpty() && watch.asked.isEmpty());
            QCOMPARE(report.count, after - 1);
            QCOMPARE(report.namesOf({Fate::failed}), numbered(after, after));
            QCOMPARE(report.namesOf({Fate::left}), numbered(after + 1, things));
            QCOMPARE(onTheDisk(), numbered(1, after - 1));
        }
    }

    /// The disk takes two of the things: these are stored, although they were lost with the others at first.
    void fullDisk() {
        const std::tuple<int, bool, int> cases[] = {{-1, false, 3}, {-1, true, things}, {4, false, 4}};
        for (const auto& [endAfter, passing, lastFailed] : cases) {
            init();
            Numbering run;
            run.picture = QByteArray(1'000'000, 'x');
            Watch watch;
            watch.endAfter = endAfter;
            watch.passing = passing;
            RunReport report;
            {
                const FullDisk full(QFileInfo(mekTp::cataloguePath()).size() + 2'500'000);
                report = run.run(watch);
            }
            QCOMPARE(onTheDisk(), numbered(1, 2));
            QCOMPARE(stored(u"tc02"_s, 2), run.picture);
            QCOMPARE(report.namesOf({Fate::taken}), numbered(1, 2));
            QCOMPARE(report.namesOf({Fate::failed}), numbered(3, lastFailed));
            QCOMPARE(report.namesOf({Fate::left}), numbered(lastFailed + 1, things));
            QCOMPARE(watch.asked.size(), endAfter > 0 ? 0 : 1);
            QCOMPARE(report.count, passing || endAfter > 0 ? 2 : 0);
        }
    }

    void anotherProgramWrites() {
        std::atomic<bool> holds = false, ends = false;
        std::thread writer([&] {
            const Database catalogue = OpenDatabase(mekTp::cataloguePath());
            const Transaction change(catalogue);
            for (holds = true; !ends;) std::this_thread::yield();
        });
        while (!holds) std::this_thread::yield();
        Watch watch;
        watch.atQuestion = [&] {
            ends = true;
            writer.join();
        };
        const RunReport report = Numbering().run(watch);
        QVERIFY2(watch.asked.value(0).contains(mekTp::cataloguePath()), qPrintable(watch.asked.value(0)));
        QCOMPARE(report.namesOf({Fate::failed}), numbered(1, 1));
        QCOMPARE(onTheDisk(), numbered(2, things));
    }
};

const Registered<TestRunInTurn> registered;

}  // namespace

#include "run_in_turn_test.moc"
