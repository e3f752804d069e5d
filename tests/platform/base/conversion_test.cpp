#include "platform/base/conversion.h"

#include "../../support/run_all.h"
#include "platform/base/typed_date.h"

using namespace Qt::Literals::StringLiterals;

class ConversionTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void numbersFromTexts() {
        struct Case {
            QString text;
            double begins;
            bool numeric;
            double whole = 0;
        };
        const Case cases[] = {{u""_s, 0, false},
                              {u"  "_s, 0, false},
                              {u"7"_s, 7, true, 7},
                              {u" -7.50 "_s, -7.5, true, -7.5},
                              {u"+.5"_s, 0.5, true, 0.5},
                              {u"5."_s, 5, true, 5},
                              {u"."_s, 0, false},
                              {u"-"_s, 0, false},
                              {u"640 * 480"_s, 640, false},
                              {u"1 6 15th"_s, 1615, false},
                              {u"abc7"_s, 0, false},
                              {u"1,234.567"_s, 1, true, 1234.567},
                              {u",5"_s, 0, false},
                              {u"1e3"_s, 1000, true, 1000},
                              {u"1E-2"_s, 0.01, true, 0.01},
                              {u"1e"_s, 1, false},
                              {u"1.2.3"_s, 1.2, false},
                              {u"&H00FF0000&"_s, 0xFF0000, true, 0xFF0000},
                              {u"&hffffff"_s, 0xFFFFFF, true, 0xFFFFFF},
                              {u"&HFFFFFFFF&"_s, 4294967295.0, true, 4294967295.0},
                              {u"&O17"_s, 15, true, 15},
                              {u"&O18"_s, 1, false},
                              {u"&HG"_s, 0, false},
                              {u"&"_s, 0, false},
                              {u"-&H10"_s, -16, true, -16},
                              {u"１２"_s, 0, false},
                              {u"1e999"_s, 0, false},
                              {u"nan"_s, 0, false}};
        for (const auto& [text, begins, numeric, whole] : cases) {
            QCOMPARE(numericValue(text), begins);
            QCOMPARE(isNumeric(text), numeric);
            QCOMPARE(numberFromText(text).value_or(0), whole);
        }
    }

    void textsOfNumbers() {
        QCOMPARE(thousandsText(1234.5, 3), u"1,234.500"_s);
        QCOMPARE(thousandsText(0, 3), u"0.000"_s);
        QCOMPARE(thousandsText(1234567.8915, 3), u"1,234,567.892"_s);
        QCOMPARE(thousandsText(1.0005, 3), u"1.001"_s);
        QCOMPARE(thousandsText(2.5, 0), u"3"_s);
        QCOMPARE(thousandsText(-2.5, 0), u"-3"_s);
        QCOMPARE(thousandsText(-0.0001, 3), u"0.000"_s);
        QCOMPARE(plainText(1234.50), u"1234.5"_s);
        QCOMPARE(plainText(0.1 + 0.2), u"0.3"_s);
        QCOMPARE(plainText(1234.567F), u"1234.567"_s);
        QCOMPARE(plainText(5000000.0), u"5000000"_s);
    }

    void dates() {
        const QDate day(2003, 10, 1);
        for (const QString& text : {u"2003-10-01"_s, u"2003-10-1"_s, u"2003/10/1"_s, u" 2003年10月01日 "_s})
            QCOMPARE(dateFromText(text), day.startOfDay());
        QCOMPARE(dateFromText(u"2003-10-01 8:05"_s), QDateTime(day, QTime(8, 5)));
        QCOMPARE(dateFromText(u"2003-10-01  23:59:59"_s), QDateTime(day, QTime(23, 59, 59)));
        QCOMPARE(dateFromText(u"2004-02-29"_s), QDate(2004, 2, 29).startOfDay());
        for (const QString& text :
             {u""_s, u"2003-02-29"_s, u"2003-13-01"_s, u"2003-00-10"_s, u"03-10-01"_s, u"2003-10"_s, u"2003-10/01"_s,
              u"2003年10月1"_s, u"2003-10-01x"_s, u"2003-10-018:00"_s, u"2003-10-01 24:00"_s, u"2003-10-01 8"_s,
              u"2003-10-01 8:00:"_s, u"10/1/2003"_s})
            QVERIFY2(!dateFromText(text), qPrintable(text));
    }

    void textsOfDates() {
        const QDateTime date(QDate(2003, 1, 9), QTime(5, 7, 3));
        QCOMPARE(dateText(date, u"yyyy-mm-dd hh:mm:ss"), u"2003-01-09 05:07:03"_s);
        QCOMPARE(dateText(date, u"yyyy年mm月dd日"), u"2003年01月09日"_s);
        QCOMPARE(dateText(date, u"hh:mm mm"), u"05:07 01"_s);
        QCOMPARE(dateText(date, u"YYYY/M/D"), u"2003/1/9"_s);
    }

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

static Registered<ConversionTest> registered;

#include "conversion_test.moc"
