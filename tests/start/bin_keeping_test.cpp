#include "start/bin_keeping.h"

#include "../support/run_all.h"
#include "../support/sample_catalogue.h"
#include "catalogue/bin_contents.h"
#include "catalogue/mektp.h"
#include "catalogue/remembered.h"

#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

class TestBinKeeping : public QObject {
    Q_OBJECT

    std::unique_ptr<SampleCatalogue> sample_;

    /// The program at work on a day, until it has looked at the bin.
    static void workOn(const QDate& day) {
        const BinKeeping keeping({.start = 0ms, .between = 1ms, .today = [day] { return day; }});
        QTRY_VERIFY(remembered::text(u"bin.days"_s).endsWith(day.toString(Qt::ISODate)));
    }

  private Q_SLOTS:
    void init() {
        sample_.reset();
        sample_ = std::make_unique<SampleCatalogue>();
        mekTp::openCatalogue();
        Recordset record = mekTp::catalogue.OpenRecordset(u"tc01"_s);
        removeIntoBin(mekTp::catalogue, u"tc01"_s, record);
    }

    void whatIsOverGoesOnTheSecondDay() {
        const QDate today = QDate::currentDate();
        for (const int day : {0, 30, 31}) {
            workOn(today.addDays(day));
            QVERIFY(!isBinEmpty(mekTp::catalogue));
        }
        const BinKeeping keeping({.start = 0ms, .between = 1ms, .today = [today] { return today.addDays(32); }});
        QTRY_VERIFY(isBinEmpty(mekTp::catalogue));
    }

    /// Also when the battery of the clock was flat for a day.
    void aWrongDayRemovesNothing() {
        const QDate today = QDate::currentDate();
        for (const int wrong : {25000, -2500}) {
            for (const int day : {0, wrong, 0, 1, 2}) workOn(today.addDays(day));
            QVERIFY(!isBinEmpty(mekTp::catalogue));
        }
    }
};

const Registered<TestBinKeeping> registered;

}  // namespace

#include "bin_keeping_test.moc"
