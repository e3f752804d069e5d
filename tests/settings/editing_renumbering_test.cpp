#include "editing_window.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// Gives tc01 these records in place of its own: number, codes, date; the remark tells them apart. A Null number is "".
void setRecords(const QList<QStringList>& rows) {
    mekTp::catalogue.Execute(u"DELETE FROM [tc01]"_s);
    Recordset records = mekTp::catalogue.OpenRecordset(u"tc01"_s);
    char16_t letter = u'A';
    for (const QStringList& row : rows) {
        records.AddNew();
        if (!row.at(0).isEmpty()) records.Fields(u"序号"_s).SetValue(row.at(0));
        records.Fields(u"编号"_s).SetValue(row.at(1));
        if (!row.at(2).isEmpty()) records.Fields(u"日期"_s).SetValue(row.at(2));
        records.Fields(u"备注"_s).SetValue(QString(QChar(letter++)));
        records.Update();
    }
}

/// Remarks and numbers in the order of the numbers: "B1 A2 C3".
QString album() {
    const QString source = u"SELECT * FROM tc01 ORDER BY [序号]"_s;
    const QStringList remarks = columnOf(source, u"备注"_s);
    const QStringList numbers = columnOf(source, u"序号"_s);
    QStringList all;
    for (int i = 0; i < remarks.size(); ++i) all << remarks.at(i) + numbers.at(i);
    return all.join(u' ');
}

class TestEditingRenumbering : public QObject {
    Q_OBJECT

    std::optional<EditingWindow> window_;

  private Q_SLOTS:
    void init() { window_.emplace(); }

    void orders() {
        using Rows = QList<QStringList>;
        const Rows three{
            {u"5"_s, u"b"_s, u"2003-10-03"_s}, {u"2"_s, u""_s, u"2003-10-01"_s}, {u"9"_s, u"a"_s, u"2003-10-02"_s}};
        const Rows sameDay{
            {u"3"_s, u"b"_s, u"2003-10-01"_s}, {u"2"_s, u"b"_s, u"2003-10-01"_s}, {u"1"_s, u"b"_s, u""_s}};
        const Rows oddNumbers{{u"7"_s, {}, {}}, {u"7"_s, {}, {}}, {u"-4"_s, {}, {}}, {{}, {}, {}}, {u"0"_s, {}, {}}};
        const std::tuple<QList<QStringList>, int, QString> cases[] = {
            {three, 0, u"B1 A2 C3"_s},
            {three, 1, u"B1 C2 A3"_s},
            {three, 2, u"B1 C2 A3"_s},
            {three, -1, u"B1 A2 C3"_s},  // no order chosen
            {sameDay, 1, u"C1 A2 B3"_s},
            {oddNumbers, 0, u"D1 C2 E3 A4 B5"_s},
            {Rows{{u"40"_s, {}, {}}}, 2, u"A1"_s},
            {Rows{}, 1, QString()},
        };
        for (const auto& [rows, order, after] : cases) {
            init();
            setRecords(rows);
            if (order >= 0) {
                window_->clickOption(element(u"optP1"_s, order));
                const QStringList columns{u"序号"_s, u"日期"_s, u"编号"_s};
                QCOMPARE(window_->datBj().RecordSource(), u"SELECT * FROM tc01 ORDER BY [%1]"_s.arg(columns.at(order)));
            }
            window_->click(u"cmdJh"_s);
            QCOMPARE(album(), after);
            QVERIFY(window_->boxes.value(0).hasCancel());
            const QString asked = QStringList{u"按原序号"_s, u"按日期"_s, u"按编号"_s}.at(order < 0 ? 2 : order);
            const QString acting = order < 0 ? u"\n\n实际排序：按原序号"_s : QString();
            QCOMPARE(
                window_->said(),
                (QStringList{
                    u"  重新设置像册[旅行]的序号吗？（%1排序）\n\n如果“是”,按《确定》，然后设置排序顺序；否则按《取消》。%2"_s
                        .arg(asked, acting),
                    u"重新设置序号已经完成！"_s}));
            QCOMPARE(window_->datBj().RecordSource(), u"SELECT * FROM tc01 ORDER BY [序号]"_s);
            QCOMPARE(window_->numbers(), columnOf(u"SELECT * FROM tc01 ORDER BY [序号]"_s, u"序号"_s));
            for (int i = 0; i < 3; ++i) QVERIFY(!window_->option(element(u"optP1"_s, i)).isChecked());
            QVERIFY(window_->isEnabled(u"cmdJh"_s) && window_->isEnabled(u"cmdS1"_s));
            QVERIFY(!window_->get<QProgressBar>(u"prg2"_s).isVisible());
        }
    }

    void theOrderChosenLastStays() {
        setRecords({{u"5"_s, u"a"_s, u"2003-10-02"_s}, {u"6"_s, u"b"_s, u"2003-10-01"_s}});
        window_->clickOption(u"optP1(1)"_s);
        window_->answer = false;
        window_->click(u"cmdJh"_s);
        QCOMPARE(window_->said().size(), 1);
        QCOMPARE(album(), u"A5 B6"_s);
        QVERIFY(window_->option(u"optP1(1)"_s).isChecked());
        window_->answer = true;
        for (const auto& [asked, acting] :
             {std::pair{u"（按日期排序）"_s, u"否则按《取消》。"_s}, {u"（按编号排序）"_s, u"实际排序：按日期"_s}}) {
            window_->click(u"cmdJh"_s);
            const QString question = window_->said().first();
            QVERIFY2(question.contains(asked) && question.endsWith(acting), qPrintable(question));
            QCOMPARE(album(), u"B1 A2"_s);
        }
    }

    void theOrderThatIsMarkedActs() {
        setRecords({{u"5"_s, u"b"_s, u"2003-10-01"_s}, {u"6"_s, u"a"_s, u"2003-10-02"_s}});
        window_->clickOption(u"optP1(1)"_s);
        window_->clickOption(u"optP1(2)"_s);
        window_->click(u"cmdJh"_s);
        QVERIFY(window_->said().first().contains(u"（按编号排序）"_s));
        QCOMPARE(album(), u"B1 A2"_s);
    }

    // A failure at the seventh record has six numbers written before it.
    void failureLeavesAllNumbers() {
        window_->clickOption(u"optP1(1)"_s);
        const QStringList remarks = columnOf(u"SELECT * FROM tc01 ORDER BY [序号]"_s, u"备注"_s);
        runOutside(u"UPDATE tc01 SET 序号 = 序号 * 10"_s);
        runOutside(
            u"CREATE TRIGGER fault BEFORE UPDATE ON tc01 WHEN NEW.序号 = 7 "
            "BEGIN SELECT RAISE(ABORT, '磁盘'); END"_s);
        window_->click(u"cmdJh"_s);
        const QStringList said = window_->said();
        QCOMPARE(said.size(), 2);
        QVERIFY2(said.last().startsWith(u"序号没有重排，图册[tc01]的序号全都没有改变。"_s), qPrintable(said.last()));
        const QStringList numbers = columnOf(u"SELECT * FROM tc01 ORDER BY [序号]"_s, u"序号"_s);
        QCOMPARE(numbers.first(), u"10"_s);
        QCOMPARE(numbers.last(), u"100"_s);
        QCOMPARE(columnOf(u"SELECT * FROM tc01 ORDER BY [序号]"_s, u"备注"_s), remarks);
        QVERIFY(window_->isEnabled(u"cmdJh"_s) && !window_->get<QProgressBar>(u"prg2"_s).isVisible());

        runOutside(u"DROP TRIGGER fault"_s);
        window_->click(u"cmdJh"_s);
        QCOMPARE(window_->said().last(), u"重新设置序号已经完成！"_s);
        QCOMPARE(columnOf(u"SELECT * FROM tc01 ORDER BY [序号]"_s, u"序号"_s).last(), u"10"_s);
    }

    void picturesStayWithTheirRecords() {
        const auto bytes = [](const QString& remark) {
            const Recordset row =
                mekTp::catalogue.OpenRecordset(u"SELECT * FROM tc01 WHERE 备注 = "_s + quoted(remark));
            return row.Fields(u"图片"_s).Value().toBytes();
        };
        const QByteArray third = bytes(u"图片3"_s);
        window_->clickOption(u"optP1(2)"_s);
        window_->click(u"cmdJh"_s);
        QVERIFY(valueOf(u"SELECT * FROM tc01 WHERE 备注 = '图片3'"_s, u"序号"_s) != u"3"_s);
        QCOMPARE(bytes(u"图片3"_s), third);
    }

    void demonstrationIsOnlySorted() {
        window_.emplace(u"tc00"_s);
        window_->clickOption(u"optP1(1)"_s);
        QCOMPARE(window_->datBj().RecordSource(), u"SELECT * FROM tc00 ORDER BY [日期]"_s);
        QVERIFY(!window_->isEnabled(u"cmdJh"_s));
    }

    void refreshShowsWhatAnotherProgramChanged() {
        runOutside(u"DELETE FROM tc01 WHERE 序号 > 4"_s);
        window_->click(u"cmdS1"_s);
        QCOMPARE(window_->numbers(), (QStringList{u"1"_s, u"2"_s, u"3"_s, u"4"_s}));
    }
};

const Registered<TestEditingRenumbering> registered;

}  // namespace

#include "editing_renumbering_test.moc"
