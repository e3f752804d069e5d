#include "../support/run_all.h"
#include "intake_window.h"

using namespace Qt::Literals::StringLiterals;

namespace {

class TestRunReport : public QObject {
    Q_OBJECT

    /// Two of four files are no pictures. At the question about the first one the person goes on.
    static void enterDamaged(IntakeWindow& window) {
        window.addAll({u"1.jpg"_s, u"4.jpg"_s});
        for (const QString& name : {u"2.jpg"_s, u"3.jpg"_s}) window.addBytes(name, "no picture");
        window.prepare(u"tc02"_s, 1);
        window.passesOver = true;
        window.enterAll();
    }

  private Q_SLOTS:
    void onlyTheFirstFailureIsAskedAbout() {
        IntakeWindow window;
        enterDamaged(window);
        QCOMPARE(window.boxes.size(), 3);
        const BoxText& question = window.boxes[1];
        QVERIFY2(question.text.startsWith(u"文件“2.jpg”没有录入："_s), qPrintable(question.text));
        QCOMPARE(question.answers, (QStringList{u"停止"_s, u"跳过并继续"_s}));
        QVERIFY(question.onEnter == 0 && question.onEscape == 0);
        QCOMPARE(window.boxes[2].text, entered(2));
        QCOMPARE(numbersOf(u"tc02"_s), (QStringList{u"1"_s, u"2"_s}));
        const QStringList report = window.report();
        QCOMPARE(report[0], u"已录入 2 张，2 张失败"_s);
        QVERIFY(report[1].startsWith(u"2.jpg|失败，没有录入|"_s) && report[2].startsWith(u"3.jpg|失败，没有录入|"_s));
        QCOMPARE(window.label(u"lblJd"_s), report[0]);
    }

    void theFailedOnesAreTriedAgain() {
        IntakeWindow window;
        enterDamaged(window);
        window.said();
        window.add(u"2.jpg"_s);
        window.click(u"cmdCs"_s);
        QVERIFY(window.said().contains(entered(1)));
        QCOMPARE(window.reported()[0], u"已录入 1 张，1 张失败"_s);
        window.add(u"3.jpg"_s);
        window.click(u"cmdCs"_s);
        QCOMPARE(window.said(), QStringList{entered(1)});
        QCOMPARE(window.report(), QStringList());
        QCOMPARE(numbersOf(u"tc02"_s).size(), 4);
        QCOMPARE(window.label(u"lblJl"_s), u"表 [tc02 空册] 共有记录：4 条"_s);
    }

    void theReportIsSaved() {
        IntakeWindow window;
        enterDamaged(window);
        window.said();
        window.picked = window.path(u"没有/报告.txt"_s);
        window.click(u"cmdBc"_s);
        QVERIFY(window.said().join(u""_s).contains(window.picked));
        window.picked = window.path(u"报告.txt"_s);
        window.click(u"cmdBc"_s);
        QCOMPARE(window.said(), QStringList());
        const QString text = QString::fromUtf8(window.bytesOf(u"报告.txt"_s));
        QVERIFY2(text.startsWith(u"已录入 2 张，2 张失败\n\n2.jpg\t失败，没有录入\t"_s), qPrintable(text));
        QVERIFY(text.endsWith(u"1.jpg\t已录入\t\n4.jpg\t已录入\t\n"_s));
    }
};

const Registered<TestRunReport> registered;

}  // namespace

#include "run_report_test.moc"
