#include "settings/editing_rules.h"

#include "../support/run_all.h"

#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

class TestEditingRules : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void listings_data() {
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("sql");
        QTest::newRow("all") << filteredRecords(u"tc01"_s, recordFilter(0)) << u"SELECT * FROM tc01 ORDER BY [序号]"_s;
        QTest::newRow("without code") << filteredRecords(u"tc01"_s, recordFilter(1))
                                      << u"SELECT * FROM tc01 WHERE isnull(编号) or 编号 = ''  ORDER BY [序号]"_s;
        QTest::newRow("with code") << filteredRecords(u"tc01"_s, recordFilter(2))
                                   << u"SELECT * FROM tc01 WHERE 编号 <> ''  ORDER BY [序号]"_s;
        QTest::newRow("one code") << recordsWithCode(u"tc01"_s, u"1"_s)
                                  << u"SELECT * FROM tc01 WHERE InStr(编号, '1') > 0 ORDER BY [序号]"_s;
        QTest::newRow("every code") << recordsWithCode(u"tc01"_s, u"v"_s) << u"SELECT * FROM tc01 ORDER BY [序号]"_s;
        QTest::newRow("a quote for a code") << recordsWithCode(u"tc01"_s, u"'"_s)
                                            << u"SELECT * FROM tc01 WHERE InStr(编号, '''') > 0 ORDER BY [序号]"_s;
        for (int i = 0; i < 3; ++i)
            QTest::addRow("order %d", i) << sortedRecords(u"tc01"_s, sortColumn(i))
                                         << u"SELECT * FROM tc01 ORDER BY [%1]"_s.arg(
                                                QStringList{u"序号"_s, u"日期"_s, u"编号"_s}.at(i));
    }

    void listings() {
        QFETCH(QString, source);
        QTEST(source, "sql");
    }

    void texts_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("wanted");
        const QString line = u"tc01 我的 旅行"_s;
        QTest::newRow("filter") << filterText(line, recordFilter(1), 12) << u"(我的 旅行) 未设编号 共有记录 12条"_s;
        QTest::newRow("code") << codeFilterText(line, u"1"_s, 5)
                              << u"分图册名：tc01( 我的 旅行) 编号 = [1] 共有记录 5条"_s;
        QTest::newRow("renumbering")
            << renumberingQuestion(line + u' ', u"按日期"_s)
            << u"  重新设置像册[我的 旅行]的序号吗？（按日期排序）\n\n如果“是”,按《确定》，然后设置排序顺序；否则按《取消》。"_s;
        QTest::newRow("deletion") << recordDeletionQuestion(u"7"_s)
                                  << u"确定删除这张图片吗？ [序号]=7\n\n确定删除，按《确定》；否则按《取消》。"_s;
        QTest::newRow("offered") << codeLine(u"1"_s, u"风景"_s, true) << u"1 {风景}"_s;
        QTest::newRow("not offered") << codeLine(u"{"_s, u"风景"_s, false) << u"{ 风景"_s;
        QTest::newRow("code of a line") << codeOfLine(u"1 {风景}"_s) << u"1"_s;
    }

    void texts() {
        QFETCH(QString, text);
        QTEST(text, "wanted");
    }
};

const Registered<TestEditingRules> registered;

}  // namespace

#include "editing_rules_test.moc"
