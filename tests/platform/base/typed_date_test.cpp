#include "platform/base/typed_date.h"

#include "../../support/run_all.h"

#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

class TypedDateTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void formsOfOneDay() {
        for (const QString& text :
             {u"20031001"_s, u"031001"_s, u"2003-10-01"_s, u"2003-10-1"_s, u"03-10-01"_s, u"2003/10/1"_s,
              u"2003.10.01"_s, u"2003。10。1"_s, u"2003年10月1日"_s, u"03年10月1"_s, u"2003年 10月 1日"_s,
              u" 2003 - 10 - 01 "_s, u"２００３－１０－０１"_s, u"２００３／１０／１"_s, u"2003-10/1"_s,
              u"2003-年10-月1日-"_s, u"2003-10-01-"_s})
            QVERIFY2(dateFromTyping(text) == QDate(2003, 10, 1).startOfDay(), qPrintable(text));
    }

    void centuriesOfShortYears() {
        const int present = QDate::currentDate().year();
        const int next = present % 100 + 1;
        for (const auto& [text, year] : {std::pair(u"00-5-6"_s, 2000),
                                         {u"%1-5-6"_s.arg(present % 100), present},
                                         {u"%1-5-6"_s.arg(next), present + 1 - 100},
                                         {u"990506"_s, 1999}})
            QVERIFY2(dateFromTyping(text) == QDate(year, 5, 6).startOfDay(), qPrintable(text));
    }

    void timesOfDay() {
        const QDateTime noon(QDate(2003, 10, 1), QTime(12, 30));
        for (const QString& text : {u"2003-10-01 12:30"_s, u"20031001 12:30:00"_s, u"2003年10月01日 12:30:00"_s,
                                    u"2003年10月1日12:30"_s, u"2003-10-01　１２：３０"_s})
            QVERIFY2(dateFromTyping(text) == noon, qPrintable(text));
    }

    void textsThatAreNoDate() {
        for (const QString& text : {u""_s,
                                    u"x"_s,
                                    u"2003"_s,
                                    u"2003--"_s,
                                    u"2003-10"_s,
                                    u"2003-10-"_s,
                                    u"3-10-01"_s,
                                    u"003-10-01"_s,
                                    u"2003-02-29"_s,
                                    u"20031301"_s,
                                    u"2003-1001"_s,
                                    u"2003 10 01"_s,
                                    u"2003-10-018:00"_s,
                                    u"2003-10-01x"_s,
                                    u"2003-10-01 24:00"_s,
                                    u"2003-10-01 x"_s,
                                    u"10/1/2003"_s,
                                    u"2003月10年1日"_s,
                                    u"-2003-10-01"_s,
                                    u"２月"_s})
            QVERIFY2(!dateFromTyping(text), qPrintable(text));
    }
};

const Registered<TypedDateTest> registered;

}  // namespace

#include "typed_date_test.moc"
