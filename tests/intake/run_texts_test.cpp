#include "intake/files/run_texts.h"

#include "../support/run_all.h"

#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

RunItem item(const QString& name, Fate fate) {
    return {0, name, fate};
}

class TestRunTexts : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void notReplaced() {
        RunReport report{
            .items = {item(u"1"_s, Fate::taken), item(u"8"_s, Fate::notFound), item(u"9"_s, Fate::notFound)},
            .cameToEnd = true};
        QVERIFY(notReplacedText(report, u"no"_s).endsWith(u"[no = 8,9]"_s));
        QVERIFY(filesNotReplacedText(report).contains(u"\n\n8,9\n\n"_s));
        report.cameToEnd = false;
        QCOMPARE(notReplacedText(report, u"no"_s), QString());
    }

    void leftOut() {
        RunReport files, records;
        for (const QString& name : {u"a.jpg"_s, u"b.jpg"_s}) files.items.push_back(item(name, Fate::truncated));
        records.items = {item(u"7"_s, Fate::truncated)};
        for (const QString& key : {u"3"_s, u"4"_s, u"5"_s}) records.items.push_back(item(key, Fate::notAPicture));
        const auto faults = [](const RunReport& report, const QString& field) {
            return leftOutQuestion(report, field, false).section(u"\n\n"_s, 0, 0);
        };
        QCOMPARE(faults(files, {}), u"其中 2 个文件不完整：a.jpg、b.jpg"_s);
        QCOMPARE(faults(records, u"no"_s),
                 u"其中 3 条的图片不是 BMP 或 JPEG：no＝3、4、5\n其中 1 条的图片不完整：no＝7"_s);
        QVERIFY(leftOutQuestion(files, {}, false).contains(u"接着排在后面"_s));
        QVERIFY(!leftOutQuestion(files, {}, true).contains(u"接着排在后面"_s));
    }
};

const Registered<TestRunTexts> registered;

}  // namespace

#include "run_texts_test.moc"
