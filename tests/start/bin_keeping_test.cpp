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
        QTRY_VERIFY(remembered::text(u"bin.days"_s).contains(day.toString(Qt::ISODate)));
    }

  private Q_SLOTS:
    void init() {
        sample_.reset();
        sample_ = std::make_unique<SampleCatalogue>();
        mekTp::openCatalogue();
        Recordset record = mekTp::catalogue.OpenRecordset(u"tc01"_s);
        removeIntoBin(mekTp::catalogue, u"tc01"_s, record);
    }

    /// What is removed later stays.
    void whatIsOverGoes() {
        const QDate today = QDate::currentDate();
        for (const int day : {0, 7, 14, 21, 28}) workOn(today.addDays(day));
        Recordset record = mekTp::catalogue.OpenRecordset(u"tc01"_s);
        removeIntoBin(mekTp::catalogue, u"tc01"_s, record);
        QCOMPARE(binItems(mekTp::catalogue).size(), 2U);
        const BinKeeping keeping({.start = 0ms, .between = 1ms, .today = [today] { return today.addDays(35); }});
        QTRY_COMPARE(binItems(mekTp::catalogue).size(), 1U);
        QCOMPARE(binItem(mekTp::catalogue, binItems(mekTp::catalogue).front())->number, 2);
    }
};

const Registered<TestBinKeeping> registered;

}  // namespace

#include "bin_keeping_test.moc"
