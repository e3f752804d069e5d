#include "intake/files/run_texts.h"

#include "../support/run_all.h"
#include "intake/transfer/not_done_text.h"

#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

const RunItem broken{0, u"b"_s, Fate::failed, u"坏"_s};

RunItem item(const QString& name, Fate fate) {
    return {0, name, fate};
}

/// A record that a transfer did not take.
RunItem refused(const QString& reason, const QString& number, const QString& file = {}) {
    return {0, number, Fate::failed, reason, file};
}

class TestRunTexts : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void filesReport() {
        const RunItem a = item(u"a"_s, Fate::taken), nine = item(u"9.jpg"_s, Fate::notFound),
                      early = item(u"t"_s, Fate::truncated), empty = item(u"e"_s, Fate::withoutPicture);
        const std::pair<RunReport, QString> cases[] = {
            {{.count = 1, .items = {a}, .cameToEnd = true}, {}},
            {{.items = {nine}, .cameToEnd = true}, {}},  // told by a message of its own
            {{.items = {a}}, u"文件已录入图册：a"_s},
            {{.items = {nine}}, u"目标表无对应序号，没有替换：9.jpg"_s},
            {{.items = {a, broken, item(u"c"_s, Fate::left), item(u"d"_s, Fate::left)}, .failure = u"坏"_s},
             u"录入到文件“b”时停止，该文件没有录入：坏\n\n以下文件也没有录入：c、d\n\n文件已录入图册：a"_s},
            {{.items = {early, broken}, .failure = u"坏"_s},
             u"录入到文件“b”时停止，该文件没有录入：坏\n\n文件不完整，没有录入：t"_s},
            {{.items = {item(u"c"_s, Fate::left)}, .failure = u"坏"_s}, u"录入没有进行：坏\n\n以下文件也没有录入：c"_s},
            {{.count = 1, .items = {early}, .cameToEnd = true}, {}},  // it was asked about
            {{.count = 1, .items = {empty}, .cameToEnd = true}, u"文件没有内容，没有存入图片：e"_s}};
        for (const auto& [report, text] : cases) QCOMPARE(intakeReport(report), text);
    }

    void recordsReport() {
        RunReport whole{
            .items = {item(u"1"_s, Fate::taken), item(u"8"_s, Fate::notFound), item(u"9"_s, Fate::notFound)},
            .cameToEnd = true};
        QCOMPARE(copyReport(whole, u"no"_s), QString());
        QVERIFY(notReplacedText(whole, u"no"_s).endsWith(u"[no = 8,9]"_s));
        QVERIFY(filesNotReplacedText(whole).contains(u"\n\n8,9\n\n"_s));

        RunReport ended = whole;
        ended.cameToEnd = false;
        ended.failure = u"磁盘已满。"_s;
        ended.items.push_back({3, u"3"_s, Fate::failed, ended.failure});
        for (const QString& key : {u"4"_s, u"5"_s}) ended.items.push_back(item(key, Fate::left));
        QCOMPARE(notReplacedText(ended, u"no"_s), QString());
        QCOMPARE(
            copyReport(ended, u"no"_s).split(u"\n\n"_s),
            (QStringList{u"录入到记录“no＝3”时停止，该记录没有录入：磁盘已满。"_s, u"以下记录也没有录入：no＝4、5"_s,
                         u"记录已录入图册：no＝1"_s, u"目标表中没有对应的记录，没有替换：no＝8、9"_s}));

        // Nothing is asked about what was left out before a failure: it is told. A record whose picture stayed is in.
        ended.items.push_back(item(u"6"_s, Fate::notAPicture));
        ended.items.push_back(item(u"7"_s, Fate::truncated));
        ended.items.push_back(item(u"2"_s, Fate::withoutPicture));
        const QString report = copyReport(ended, u"no"_s);
        QVERIFY(report.startsWith(u"源记录没有图片，原有的图片没有改动：no＝2\n\n"_s));
        QVERIFY(report.contains(u"图片不是 BMP 或 JPEG，没有录入：no＝6\n\n图片不完整，没有录入：no＝7"_s));
        QVERIFY(report.contains(u"记录已录入图册：no＝1、2\n\n"_s));
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

    void reasonsAreTold() {
        RunReport report{.items = {item(u"1"_s, Fate::taken)}};
        QCOMPARE(notDoneText(report, u"有 %1 张。"_s), QString());
        report.items = {refused(u"没有图片"_s, u"3"_s), refused(u"同名文件已存在。"_s, u"7"_s, u"07.jpg"_s),
                        refused(u"没有图片"_s, u"5"_s)};
        QCOMPARE(notDoneText(report, u"有 %1 张。"_s), u"有 3 张。\n\n没有图片，序号：3、5\n同名文件已存在：07.jpg"_s);
        for (int i = 0; i < 20; ++i) report.items.push_back(refused(u"原因%1"_s.arg(i), QString::number(i)));
        QCOMPARE(notDoneText(report, {}).count(u'\n'), 8);
        QVERIFY(notDoneText(report, {}).contains(u"其他原因：4、5"_s));
    }
};

const Registered<TestRunTexts> registered;

}  // namespace

#include "run_texts_test.moc"
