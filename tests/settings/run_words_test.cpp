#include "settings/frame/run_words.h"

#include "../support/run_all.h"

#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

class TestRunWords : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void progress() {
        const std::tuple<RunProgress, qint64, QString> cases[] = {
            {{0, 0, 1500, 0}, 0, u"0 / 1,500 张"_s},
            {{10, 3, 1500, 999}, 499, u"3 / 1,500 张"_s},
            {{50, 750, 1500, 85'300'000}, 1000, u"750 / 1,500 张 · 85.3 MB/s · 还剩 1 秒"_s},
            {{1, 10, 10000, 0}, 1000, u"10 / 10,000 张 · 还剩 16 分 39 秒"_s},
            {{100, 4, 4, 8'000'000}, 1000, u"4 / 4 张 · 8.0 MB/s · 还剩 0 秒"_s},
            {{0, 0, 5, 0}, 60000, u"0 / 5 张"_s}};
        for (const auto& [state, elapsed, text] : cases) QCOMPARE(progressText(state, elapsed), text);
    }

    void outcome() {
        const auto items = [](std::initializer_list<Fate> fates) {
            std::vector<RunItem> all;
            for (const Fate fate : fates) all.push_back({.fate = fate});
            return all;
        };
        const std::tuple<RunReport, QString, bool> cases[] = {
            {{.items = items({Fate::taken, Fate::taken}), .cameToEnd = true, .verified = 2},
             u"已移动 2 张，2 张已核对"_s,
             true},
            {{.count = 1500, .cameToEnd = true}, u"已移动 1,500 张"_s, true},
            {{.items = items({Fate::taken})}, u"已移动 1 张"_s, false},
            {{.items = items({Fate::taken, Fate::alreadyThere}), .cameToEnd = true},
             u"已移动 1 张，1 张已有，跳过"_s,
             false},
            {{.items = items({Fate::withoutPicture, Fate::truncated, Fate::notAPicture, Fate::notFound}),
              .cameToEnd = true},
             u"已移动 1 张，3 张没有移动"_s,
             false},
            {{.items = items({Fate::taken, Fate::left}), .stopped = true},
             u"已停止，已移动 1 张，1 张没有做到"_s,
             false},
            {{.items = items({Fate::taken, Fate::doubtful}), .cameToEnd = true}, u"已移动 1 张，1 张没有完成"_s, false},
            {{.items = items({Fate::failed, Fate::left}), .failure = u"磁盘已满。"_s},
             u"因失败而停止，已移动 0 张，1 张失败，1 张没有做到"_s,
             false}};
        for (const auto& [report, text, expected] : cases) {
            QCOMPARE(outcomeText(report, {u"移动"_s}), text);
            QCOMPARE(isAsExpected(report), expected);
        }
    }

    /// Parts of a line stay in their columns, whatever is in a file's name.
    void asText() {
        const RunReport report{.items = {{0, u"a.jpg"_s},
                                         {1, u"b\t\n.jpg"_s, Fate::failed, u"坏了。"_s},
                                         {2, u"c.jpg"_s, Fate::doubtful, u"不同。"_s}},
                               .failure = u"坏了。"_s};
        QCOMPARE(
            reportAsText(report, {u"录入"_s}),
            u"因失败而停止，已录入 1 张，1 张失败，1 张没有完成\n坏了。\n\nb .jpg\t失败，没有录入\t坏了。\nc.jpg\t已存入，但没有完成\t不同。\na.jpg\t已录入\t\n"_s);
        QCOMPARE(placesToRetry(report), QList<qsizetype>{1});
    }

    void question() {
        const RunItem failed{0, u"5"_s, Fate::failed, u"磁盘已满。"_s};
        QVERIFY(failureQuestion(failed, {u"录入"_s}).startsWith(u"文件“5”没有录入：磁盘已满。\n\n"_s));
        QVERIFY(failureQuestion(failed, {u"移动"_s, u"序号"_s}).startsWith(u"“序号＝5”的记录没有移动：磁盘已满。"_s));
    }
};

const Registered<TestRunWords> registered;

}  // namespace

#include "run_words_test.moc"
