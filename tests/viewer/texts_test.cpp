#include "../support/run_all.h"
#include "platform/base/error.h"
#include "viewer/clock.h"
#include "viewer/filters.h"
#include "viewer/tags.h"

#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

class TestTexts : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void selection_data() {
        QTest::addColumn<QString>("code");
        QTest::addColumn<QString>("date");
        QTest::addColumn<QString>("number");
        QTest::addColumn<QString>("sql");
        const QString date = u" DateValue(日期) > #2003-10-01#"_s;
        QTest::newRow("code and number")
            << u"x"_s << u""_s << u"序号 = 7"_s
            << u"SELECT * FROM tc05 WHERE InStr(编号,'x') > 0 And 序号 = 7 ORDER BY [序号]"_s;
        QTest::newRow("code alone") << u"x"_s << u""_s << u""_s
                                    << u"SELECT * FROM tc05 WHERE InStr(编号,'x') > 0 ORDER BY [序号]"_s;
        QTest::newRow("code, date and number")
            << u"x"_s << date << u"序号 < 7"_s
            << u"SELECT * FROM tc05 WHERE InStr(编号,'x') > 0 And  DateValue(日期) > #2003-10-01# And 序号 < 7 ORDER BY [序号]"_s;
        QTest::newRow("a quote as code") << u"'"_s << u""_s << u""_s
                                         << u"SELECT * FROM tc05 WHERE InStr(编号,'''') > 0 ORDER BY [序号]"_s;
        QTest::newRow("all, date and number")
            << u"v"_s << date << u"序号 > 5"_s
            << u"SELECT * FROM tc05 WHERE  DateValue(日期) > #2003-10-01# And 序号 > 5 ORDER BY [序号]"_s;
        QTest::newRow("all, date") << u"v"_s << date << u""_s
                                   << u"SELECT * FROM tc05 WHERE  DateValue(日期) > #2003-10-01# ORDER BY [序号]"_s;
        QTest::newRow("all, number") << u"v"_s << u""_s << u"序号 > 5"_s
                                     << u"SELECT * FROM tc05 WHERE 序号 > 5 ORDER BY [序号]"_s;
        QTest::newRow("all without condition is refused by the engine")
            << u"v"_s << u""_s << u""_s << u"SELECT * FROM tc05 WHERE  ORDER BY [序号]"_s;
    }
    void selection() {
        QFETCH(QString, code);
        QFETCH(QString, date);
        QFETCH(QString, number);
        QTEST(selectionSql(u"tc05"_s, code, date, number), "sql");
    }

    void conditions() {
        QCOMPARE(buttonSql(u"tc05"_s, u"v"_s), u"SELECT * FROM tc05 ORDER BY [序号]"_s);
        QCOMPARE(buttonSql(u"tc05"_s, u"x"_s), u"SELECT * FROM tc05 WHERE  InStr(编号,'x') > 0 ORDER BY [序号]"_s);
        QCOMPARE(numberCondition(u"序号>"_s, u"5"_s), u"序号 > 5"_s);
        QCOMPARE(numberCondition(u"序号任意"_s, u"5"_s), QString());
        QCOMPARE(numberCondition(u"序号"_s, u"5"_s), QString());
        QCOMPARE(dateConditionFor(0, u"2003-10-01"_s), u" DateValue(日期) < #2003-10-01#"_s);
        QCOMPARE(dateConditionFor(2, u"2003-10-01"_s), u" DateValue(日期) = #2003-10-01#"_s);
    }

    void pageLine() {
        const QString date = dateConditionFor(1, u"2003-10-01"_s);
        QCOMPARE(pageStatus({date, 1, u"2003-10-01"_s, u"序号 > 5"_s}, 3, 1),
                 u"日期晚于2003-10-01 序号> 5 共3张 共1页"_s);
        QCOMPARE(pageStatus({date, 0, u"2003-10-01"_s, {}}, 0, 0), u"日期早于2003-10-01 共0张 共0页"_s);
        QCOMPARE(pageStatus({{}, 0, u"2003-10-01"_s, u"序号 = 7"_s}, 1, 1), u" 序号= 7 共1张 共1页"_s);
        QCOMPARE(pageStatus({{}, 0, {}, {}}, 10, 3), u"全部 共10张 共3页"_s);
    }

    void typedDates_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("caret");
        QTest::newRow("this century") << u"03"_s << u"2003--"_s << 5;
        QTest::newRow("last century") << u"85"_s << u"1985--"_s << 5;
        QTest::newRow("10 may be the beginning of a year") << u"10"_s << u"10"_s << -1;
        QTest::newRow("20 may be the beginning of a year") << u"20"_s << u"20"_s << -1;
        QTest::newRow("21 is a year") << u"21"_s << u"1921--"_s << 5;
        QTest::newRow("four digits") << u"2015"_s << u"2015--"_s << 5;
        QTest::newRow("month begun") << u"2003-1-"_s << u"2003-1-"_s << -1;
        QTest::newRow("month of one digit") << u"2003-5-"_s << u"2003-5-"_s << 8;
        QTest::newRow("month of two digits") << u"2003-10-"_s << u"2003-10-"_s << 8;
        QTest::newRow("whole") << u"2003-10-01"_s << u"2003-10-01"_s << -1;
    }
    void typedDates() {
        QFETCH(QString, typed);
        const TypedDate helped = helpTypedDate(typed);
        QTEST(helped.text, "text");
        QTEST(helped.caret, "caret");
    }

    void numbersInTags_data() {
        QTest::addColumn<QString>("tag");
        QTest::addColumn<QString>("number");
        QTest::newRow("usual") << u"序号：12 3.5KB 640 * 480 2003年10月01日 12:30:00 山"_s << u"12"_s;
        QTest::newRow("one digit") << u"序号：3 KB   "_s << u"3"_s;
        QTest::newRow("empty cell") << u""_s << u""_s;
    }
    void numbersInTags() {
        QFETCH(QString, tag);
        QTEST(numberInTag(tag), "number");
    }

    void clock() {
        QCOMPARE(clockText(QDateTime(QDate(2003, 10, 1), QTime(9, 5, 7))), u"2003年10月01日 09:05:07 周三"_s);
        QCOMPARE(clockText(QDateTime(QDate(2003, 10, 5), QTime(23, 59, 59))), u"2003年10月05日 23:59:59 周日"_s);
        QCOMPARE(titleColours(QTime(1, 1, 30)), (TitleColours{QColor(0, 0, 170), QColor(0, 255, 192)}));
        QCOMPARE(titleColours(QTime(1, 1, 38)), (TitleColours{QColor(255, 0, 0), QColor(255, 192, 192)}));
        QCOMPARE(titleColours(QTime(1, 1, 6)), (TitleColours{QColor(255, 0, 255), QColor(255, 210, 255)}));
    }
};

const Registered<TestTexts> registered;

}  // namespace

#include "texts_test.moc"
