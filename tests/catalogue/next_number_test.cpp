#include "catalogue/next_number.h"

#include "../support/failure_of.h"
#include "../support/run_all.h"
#include "../support/sample_catalogue.h"
#include "catalogue/mektp.h"

#include <QtTest/QtTest>
#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace {

class TestNextNumber : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    /// `nothing` is a record without a number.
    void oneAboveTheHighest() {
        constexpr int nothing = -1000;
        const std::pair<QList<int>, int> cases[] = {{{}, 1},           {{1, 2, 3}, 4}, {{7, 40, 3}, 41}, {{nothing}, 1},
                                                    {{5, nothing}, 6}, {{-3, 0}, 1},   {{-3, 2}, 3}};
        for (const auto& [numbers, next] : cases) {
            const SampleCatalogue catalogue;
            for (const int number : numbers)
                addRow(u"tc02"_s, {{u"序号"_s, number == nothing ? FieldValue() : FieldValue(number)}});
            NextNumber free(mekTp::catalogue, u"tc02"_s);
            QCOMPARE(free.value(), next);
            free.take();
            QCOMPARE(free.value(), next + 1);
        }
    }

    void theyEndWithTheLargest() {
        const SampleCatalogue catalogue;
        addRow(u"tc02"_s, {{u"序号"_s, std::numeric_limits<qint32>::max() - 1}});
        addRow(u"tc02"_s, {{u"序号"_s, 1}});
        NextNumber free(mekTp::catalogue, u"tc02"_s);
        QCOMPARE(free.value(), std::numeric_limits<qint32>::max());
        free.take();
        QVERIFY(failureOf([&] { free.value(); }).contains(u"序号已用完"_s));
    }
};

const Registered<TestNextNumber> registered;

}  // namespace

#include "next_number_test.moc"
