#include "../support/run_all.h"
#include "settings/album_changes.h"
#include "settings/tab_strip.h"

#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

class TestSettingsRules : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void captionHints_data() {
        QTest::addColumn<int>("x");
        QTest::addColumn<int>("y");
        QTest::addColumn<QString>("start");  // "-": beside the captions
        const auto row = [](int x, int y, const QString& start) { QTest::addRow("%d,%d", x, y) << x << y << start; };
        for (const auto& [left, right, start] : {std::tuple{120, 840, u"“图册设置”：可建立图册"_s},
                                                 {1020, 1800, u"“图片录入”：可在本页面"_s},
                                                 {2000, 2700, u"“图册编辑”：可对本软件"_s},
                                                 {2900, 3600, u"“图片转存”：将本软件"_s},
                                                 {3840, 4600, u""_s}}) {
            row(left, 100, u"-"_s);
            row(left + 1, 0, start);
            row(right - 1, 269, start);
            row(right, 100, u"-"_s);
            row(left + 1, 270, u"-"_s);
        }
    }

    void captionHints() {
        QFETCH(int, x);
        QFETCH(int, y);
        QFETCH(QString, start);
        const auto hint = captionHint(x, y);
        QCOMPARE(hint.has_value(), start != u"-"_s);
        if (!hint) return;
        QVERIFY2(hint->startsWith(start), qPrintable(*hint));
        QCOMPARE(hint->isEmpty(), start.isEmpty());
    }

    void leaving_data() {
        QTest::addColumn<int>("x");
        QTest::addColumn<int>("y");
        QTest::addColumn<bool>("warns");
        QTest::newRow("first caption") << 100 << 100 << true;
        QTest::newRow("lowest line of the strip") << 100 << 374 << true;
        QTest::newRow("below the strip") << 100 << 375 << false;
        QTest::newRow("before the blank part") << 4799 << 0 << true;
        QTest::newRow("blank part begins") << 4800 << 0 << false;
        QTest::newRow("blank part") << 5000 << 100 << false;
        QTest::newRow("blank part ends") << 7100 << 0 << false;
        QTest::newRow("behind the blank part") << 7101 << 0 << true;
    }

    void leaving() {
        QFETCH(int, x);
        QFETCH(int, y);
        QTEST(leadsToOtherPage(x, y), "warns");
    }

    void tableNames_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("fine");
        QTest::newRow("digits") << u"tc07"_s << true;
        QTest::newRow("letters") << u"tcxy"_s << true;
        QTest::newRow("Chinese") << u"tc花鸟"_s << true;
        QTest::newRow("empty") << u""_s << false;
        QTest::newRow("three characters") << u"tc7"_s << false;
        QTest::newRow("five characters") << u"tc107"_s << false;
        QTest::newRow("other start") << u"ab07"_s << false;
        QTest::newRow("quote") << u"tc'7"_s << false;
        QTest::newRow("double quote") << u"tc\"7"_s << false;
        QTest::newRow("blank") << u"tc 7"_s << false;
        QTest::newRow("bracket") << u"tc]7"_s << false;
        QTest::newRow("second statement") << u"tc;x"_s << false;
        QTest::newRow("half a character outside the first plane") << u"tc😀"_s << false;
    }

    void tableNames() {
        QFETCH(QString, name);
        QTEST(tableNameFault(name).isEmpty(), "fine");
    }

    void titles_data() {
        QTest::addColumn<QString>("title");
        QTest::addColumn<bool>("fits");
        QTest::newRow("8 Chinese") << u"一二三四五六七八"_s << true;
        QTest::newRow("8 Chinese and a letter") << u"一二三四五六七八a"_s << false;
        QTest::newRow("9 Chinese") << u"一二三四五六七八九"_s << false;
        QTest::newRow("16 letters") << u"abcdefghijklmnop"_s << true;
        QTest::newRow("17 letters") << u"abcdefghijklmnopq"_s << false;
        QTest::newRow("7 Chinese and 2 letters") << u"一二三四五六七ab"_s << true;
        QTest::newRow("empty") << u""_s << true;
    }

    void titles() {
        QFETCH(QString, title);
        QTEST(titleFits(title), "fits");
    }
};

const Registered<TestSettingsRules> registered;

}  // namespace

#include "rules_test.moc"
