#include "../support/run_all.h"
#include "editing_window.h"

using namespace Qt::Literals::StringLiterals;

namespace {

class TestEditingPage : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void whatAnAlbumAllows_data() {
        QTest::addColumn<QString>("album");
        QTest::addColumn<bool>("chosen");
        QTest::addColumn<bool>("changeable");
        QTest::addColumn<QString>("line");
        QTest::newRow("none") << QString() << false << false << QString();
        QTest::newRow("demonstration") << u"tc00"_s << true << false << u"(演示) 全部记录 共有记录 3条"_s;
        QTest::newRow("album") << u"tc01"_s << true << true << u"(旅行) 全部记录 共有记录 10条"_s;
        QTest::newRow("empty album") << u"tc02"_s << true << true << u"(空册) 全部记录 共有记录 0条"_s;
    }

    void whatAnAlbumAllows() {
        QFETCH(QString, album);
        QFETCH(bool, chosen);
        QFETCH(bool, changeable);
        EditingWindow window(album);
        for (const bool again : {false, true}) {
            for (const QString& name : {u"cmdQd"_s, u"cmdSc"_s, u"cmdJh"_s, u"cmdS1"_s})
                QVERIFY2(window.isEnabled(name) == changeable, qPrintable(name));
            QCOMPARE(window.isEnabled(u"cmdCk(2)"_s), chosen);
            QCOMPARE(window.codes().isEnabled(), chosen);
            QCOMPARE(window.datBj().isEnabled(), chosen);
            for (int i = 0; i < 3; ++i) QCOMPARE(window.option(element(u"optBs"_s, i)).isEnabled(), chosen);
            QCOMPARE(window.option(u"optBs(0)"_s).isChecked(), chosen);
            QTEST(window.label(u"lblZs"_s), "line");
            // A line that is clicked opens nothing that the album does not.
            if (!again && window.grid().model()->rowCount() > 0) window.clickRow(1);
        }
    }

    void albumTakenAway() {
        EditingWindow window;
        window.click(u"cmdQd"_s);
        auto& cboBm = window.get<QComboBox>(u"cboBm"_s);
        cboBm.lineEdit()->selectAll();
        QTest::keyClicks(cboBm.lineEdit(), u"tc9"_s);
        for (const QString& name : {u"cmdQd"_s, u"cmdSc"_s, u"cmdJh"_s, u"cmdS1"_s, u"cmdCk(2)"_s})
            QVERIFY2(!window.isEnabled(name), qPrintable(name));
        QCOMPARE(window.caption(u"cmdQd"_s), u"编 辑"_s);
        for (const QString& name : {u"txtXh"_s, u"txtBh"_s, u"txtRq"_s, u"txtB2"_s}) {
            QCOMPARE(window.text(name), QString());
            QVERIFY(window.box(name).isLocked());
        }
        QVERIFY(window.isPageFree());
    }

    void nothingToEditInAnEmptyAlbum() {
        EditingWindow window;
        window.clickRow(2);
        window.choose(u"cboBm"_s, u"tc02"_s);
        QCOMPARE(window.text(u"txtXh"_s), QString());
        window.click(u"cmdQd"_s);
        window.click(u"cmdSc"_s);
        QCOMPARE(window.said(), (QStringList{u"没有可以编辑的记录。"_s, u"没有可以删除的记录。"_s}));
        QCOMPARE(window.caption(u"cmdQd"_s), u"编 辑"_s);
    }

    void filters_data() {
        QTest::addColumn<int>("option");
        QTest::addColumn<QStringList>("numbers");
        QTest::addColumn<QString>("line");
        QTest::newRow("all") << 0 << QStringList{u"6"_s, u"7"_s, u"8"_s, u"9"_s} << u"(旅行) 全部记录 共有记录 4条"_s;
        QTest::newRow("without code") << 1 << QStringList{u"6"_s, u"8"_s} << u"(旅行) 未设编号 共有记录 2条"_s;
        // A blank, as files bring it in, is a code.
        QTest::newRow("with code") << 2 << QStringList{u"7"_s, u"9"_s} << u"(旅行) 已设编号 共有记录 2条"_s;
    }

    void filters() {
        QFETCH(int, option);
        EditingWindow window;
        runOutside(u"DELETE FROM tc01 WHERE 序号 < 6 OR 序号 = 10"_s);
        runOutside(u"UPDATE tc01 SET 编号 = NULL WHERE 序号 = 6"_s);
        runOutside(u"UPDATE tc01 SET 编号 = ' ' WHERE 序号 = 7"_s);
        runOutside(u"UPDATE tc01 SET 编号 = '' WHERE 序号 = 8"_s);
        window.clickOption(element(u"optBs"_s, option));
        QTEST(window.numbers(), "numbers");
        QTEST(window.label(u"lblZs"_s), "line");
        QCOMPARE(window.text(u"txtXh"_s), window.numbers().first());
    }

    void filterWithoutRecords() {
        EditingWindow window;
        window.clickOption(u"optBs(1)"_s);
        QCOMPARE(window.numbers(), QStringList{});
        QCOMPARE(window.text(u"txtXh"_s), QString());
        window.clickOption(u"optBs(0)"_s);
        QCOMPARE(window.text(u"txtXh"_s), u"1"_s);
    }

    void filterByCode_data() {
        QTest::addColumn<QString>("code");
        QTest::addColumn<QStringList>("numbers");
        QTest::newRow("one") << u"1"_s << QStringList{u"1"_s, u"3"_s, u"5"_s, u"7"_s, u"9"_s};
        QTest::newRow("quote") << u"'"_s << QStringList{u"6"_s};
        QTest::newRow("all") << u"v"_s << columnOfNumbers();
    }

    void filterByCode() {
        QFETCH(QString, code);
        QFETCH(QStringList, numbers);
        EditingWindow window;
        putValue(u"SELECT * FROM tcan WHERE 编号 = 'a'"_s, u"编号"_s, u"'"_s);
        putValue(u"SELECT * FROM tc01 WHERE 序号 = 6"_s, u"编号"_s, u"x'"_s);
        window.choose(u"cboBm"_s, u"tc01"_s);
        window.doubleClickCode(code);
        QCOMPARE(window.numbers(), numbers);
        QCOMPARE(window.label(u"lblZs"_s),
                 u"分图册名：tc01( 旅行) 编号 = [%1] 共有记录 %2条"_s.arg(code).arg(numbers.size()));
        QCOMPARE(window.text(u"txtBh"_s), code == u"'" ? u"x'"_s : u"12"_s);
    }

    void doubleClickWhileEditing() {
        EditingWindow window;
        window.click(u"cmdQd"_s);
        window.doubleClickCode(u"2"_s);
        QCOMPARE(window.numbers().size(), 10);
        QVERIFY(window.text(u"txtBh"_s).startsWith(u"122"_s));
    }

    void codeListIsSorted() {
        EditingWindow window;
        putValue(u"SELECT * FROM tcan WHERE 编号 = 'a'"_s, u"序号"_s, 0);
        putValue(u"SELECT * FROM tcan WHERE 编号 = '2'"_s, u"图册"_s, u"tc02"_s);
        const auto lines = [&] {
            QStringList all;
            for (int i = 0; i < window.codes().ListCount(); ++i) all << window.codes().List(i);
            return all;
        };
        window.clickOption(u"optP2(0)"_s);
        QCOMPARE(lines(), (QStringList{u"a {无图}"_s, u"v {全部}"_s, u"1 {风景}"_s, u"2 人物"_s}));
        window.clickOption(u"optP2(1)"_s);
        QCOMPARE(lines(), (QStringList{u"1 {风景}"_s, u"2 人物"_s, u"a {无图}"_s, u"v {全部}"_s}));
    }

    void deletion_data() {
        QTest::addColumn<QString>("gaps");
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("next");
        QTest::newRow("first") << QString() << 0 << u"2"_s;
        QTest::newRow("middle") << QString() << 4 << u"6"_s;
        QTest::newRow("last") << QString() << 9 << u"9"_s;
        QTest::newRow("the following number is missing") << u"5"_s << 3 << u"3"_s;
        QTest::newRow("both neighbours are missing") << u"3, 5"_s << 2 << u"6"_s;
    }

    void deletion() {
        QFETCH(QString, gaps);
        QFETCH(int, row);
        EditingWindow window;
        if (!gaps.isEmpty()) runOutside(u"DELETE FROM tc01 WHERE 序号 IN (%1)"_s.arg(gaps));
        window.choose(u"cboBm"_s, u"tc01"_s);
        window.clickRow(row);
        QStringList numbers = window.numbers();
        const QString number = numbers.at(row);
        const QString question =
            u"确定删除这张图片吗？ [序号]=%1\n\n确定删除，按《确定》；否则按《取消》。"_s.arg(number);
        window.answer = false;
        window.click(u"cmdSc"_s);
        QCOMPARE(window.said(), QStringList{question});
        QCOMPARE(window.numbers(), numbers);
        window.answer = true;
        window.click(u"cmdSc"_s);
        QCOMPARE(window.said(), QStringList{question});
        numbers.removeAt(row);
        QCOMPARE(window.numbers(), numbers);
        QCOMPARE(columnOf(u"SELECT * FROM tc01 ORDER BY [序号]"_s, u"序号"_s), numbers);
        QTEST(window.text(u"txtXh"_s), "next");
        QCOMPARE(window.label(u"lblZs"_s), u"(旅行) 全部记录 共有记录 %1条"_s.arg(numbers.size()));
    }

    void theOnlyRecord() {
        EditingWindow window;
        runOutside(u"DELETE FROM tc01 WHERE 序号 > 1"_s);
        window.choose(u"cboBm"_s, u"tc01"_s);
        window.click(u"cmdSc"_s);
        QCOMPARE(columnOf(u"tc01"_s, u"序号"_s), QStringList{});
        QCOMPARE(window.numbers(), QStringList{});
        QCOMPARE(window.text(u"txtXh"_s), QString());
    }

    // Of two records with one number, the one shown is the one that goes.
    void twoOfOneNumber() {
        EditingWindow window;
        runOutside(u"UPDATE tc01 SET 序号 = 4 WHERE 序号 = 5"_s);
        window.choose(u"cboBm"_s, u"tc01"_s);
        window.clickRow(4);
        const QString remark = window.text(u"txtB2"_s);
        window.click(u"cmdSc"_s);
        const QStringList left = columnOf(u"tc01"_s, u"备注"_s);
        QCOMPARE(left.size(), 9);
        QVERIFY(!left.contains(remark));
    }

    void toolTipOnThisPageOnly() {
        EditingWindow window;
        QCOMPARE(window.codes().toolTip(), u"双击编号可按编号筛选"_s);
        window.tabs().setCurrentIndex(3);
        QCOMPARE(window.codes().toolTip(), QString());
    }

    // Browsing folders on the page of intake opens nothing here.
    void nothingOpensWithoutAnAlbum() {
        EditingWindow window((QString()));
        for (const int tab : {1, 2}) window.tabs().setCurrentIndex(tab);
        for (const QString& name : {u"cmdQd"_s, u"cmdSc"_s, u"cmdCk(2)"_s}) QVERIFY(!window.isEnabled(name));
    }

  private:
    static QStringList columnOfNumbers() {
        QStringList numbers;
        for (int i = 1; i <= 10; ++i) numbers << QString::number(i);
        return numbers;
    }
};

const Registered<TestEditingPage> registered;

}  // namespace

#include "editing_page_test.moc"
