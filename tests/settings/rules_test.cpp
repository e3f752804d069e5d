#include "../support/run_all.h"
#include "catalogue/album_directory.h"
#include "catalogue/selection_buttons.h"
#include "settings/backup/backup_rules.h"
#include "settings/editing/editing_rules.h"
#include "settings/frame/run_words.h"
#include "settings/frame/tab_strip.h"

using namespace Qt::Literals::StringLiterals;

class TestSettingsRules : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void captionHints() {
        for (const auto& [left, right, start] : {std::tuple{120, 840, u"“图册设置”：可建立图册"_s},
                                                 {1020, 1800, u"“图片录入”：可在本页面"_s},
                                                 {2000, 2700, u"“图册编辑”：可对本软件"_s},
                                                 {2900, 3600, u"“图片转存”：将本软件"_s},
                                                 {3840, 4600, u""_s}}) {
            for (const QPoint inside : {QPoint(left + 1, 0), QPoint(right - 1, 269)}) {
                const auto hint = captionHint(inside.x(), inside.y());
                QVERIFY2(hint && hint->startsWith(start) && hint->isEmpty() == start.isEmpty(), qPrintable(start));
            }
            for (const QPoint beside : {QPoint(left, 100), QPoint(right, 100), QPoint(left + 1, 270)})
                QVERIFY2(!captionHint(beside.x(), beside.y()), qPrintable(start));
        }
    }

    void leaving() {
        // The strip is 374 high; its part from 4800 to 7100 is blank.
        for (const auto& [x, y] : {std::pair{100, 100}, {100, 374}, {4799, 0}, {7101, 0}})
            QVERIFY2(leadsToOtherPage(x, y), qPrintable(QString::number(x)));
        for (const auto& [x, y] : {std::pair{100, 375}, {4800, 0}, {5000, 100}, {7100, 0}})
            QVERIFY2(!leadsToOtherPage(x, y), qPrintable(QString::number(x)));
    }

    void tableNames() {
        for (const QString& name : {u"tc07"_s, u"tcxy"_s, u"tc花鸟"_s})
            QVERIFY2(tableNameFault(name).isEmpty(), qPrintable(name));
        for (const QString& name :
             {u""_s, u"tc7"_s, u"tc107"_s, u"ab07"_s, u"tc'7"_s, u"tc\"7"_s, u"tc 7"_s, u"tc]7"_s, u"tc;x"_s, u"tc😀"_s})
            QVERIFY2(!tableNameFault(name).isEmpty(), qPrintable(name));
    }

    void titles() {
        for (const QString& title : {u""_s, u"一二三四五六七八"_s, u"一二三四五六七ab"_s, u"abcdefghijklmnop"_s})
            QVERIFY2(titleFits(title), qPrintable(title));
        for (const QString& title : {u"一二三四五六七八a"_s, u"一二三四五六七八九"_s, u"abcdefghijklmnopq"_s})
            QVERIFY2(!titleFits(title), qPrintable(title));
    }

    void albumsAndCodesWithAwkwardNames() {
        const QString line = u"tc01 我的 旅行"_s;
        QCOMPARE(filterText(line, recordFilter(1), 12), u"(我的 旅行) 未设编号 共有记录 12条"_s);
        QCOMPARE(codeFilterText(line, u"1"_s, 5), u"分图册名：tc01( 我的 旅行) 编号 = [1] 共有记录 5条"_s);
        QVERIFY(renumberingQuestion(line + u' ', u"按日期"_s).startsWith(u"  重新设置像册[我的 旅行]的序号吗？"_s));
        QCOMPARE(codeLine(u"{"_s, u"风景"_s, false), u"{ 风景"_s);
    }

    // Backup ----------------------------------------------------------------------------------------------------------

    void completionOfBackupPaths() {
        const std::pair<QString, QString> cases[] = {
            {u"/new/sub"_s, u"/new/sub/lunq.mdb"_s},
            {u"/bak/"_s, u"/bak/lunq.mdb"_s},
            {u"/bak/lunq.mdb"_s, u"/bak/lunq.mdb"_s},
            {u"/bak/mylunq.mdb"_s, u"/bak/mylunq.mdb/lunq.mdb"_s},
            {u"/"_s, u"/lunq.mdb"_s},
            {u"/bak "_s, u"/bak /lunq.mdb"_s},
            {u""_s, u""_s},
        };
        for (const auto& [typed, completed] : cases) QCOMPARE(completedBackupPath(typed), completed);
    }

    void foldersOfBackupPaths() {
        QCOMPARE(folderPrefixes(u"/a/b/lunq.mdb"_s), (QStringList{u"/"_s, u"/a/"_s, u"/a/b/"_s}));
        QCOMPARE(folderPrefixes(u"/lunq.mdb"_s), QStringList{u"/"_s});
        QCOMPARE(folderPrefixes(u"lunq.mdb"_s), QStringList{});
        QCOMPARE(folderPrefixes(u"/1/2/3/4/5/6/7/8/9/lunq.mdb"_s).value(9), u"/1/2/3/4/5/6/7/8/9/"_s);
    }

    void faultsOfBackupPaths() {
        QTemporaryDir home;
        const QString catalogue = home.filePath(u"lunq.mdb"_s);
        QVERIFY(QDir(home.path()).mkpath(u"bak/lunq.mdb"_s));
        QVERIFY(QFile::link(home.path(), home.filePath(u"link"_s)));
        QCOMPARE(backupPathFault(home.filePath(u"other/lunq.mdb"_s), catalogue), QString());
        for (const QString& path : {u"bak/lunq.mdb"_s, u"D:\\bak\\lunq.mdb"_s, u"~/bak/lunq.mdb"_s})
            QVERIFY2(backupPathFault(path, catalogue).contains(u"不完整"_s), qPrintable(path));
        QFile file(catalogue);
        QVERIFY(file.open(QIODevice::WriteOnly) && QFile::link(catalogue, home.filePath(u"other.mdb"_s)));
        for (const QString& path : {catalogue, home.filePath(u"other.mdb"_s), home.path() + u"//lunq.mdb"_s,
                                    home.path() + u"/bak/../lunq.mdb"_s, home.filePath(u"link/lunq.mdb"_s)})
            QVERIFY2(backupPathFault(path, catalogue).contains(u"数据库本身"_s), qPrintable(path));
        QVERIFY(backupPathFault(home.filePath(u"bak/lunq.mdb"_s), catalogue).contains(u"是一个文件夹"_s));
    }

    void quoting() {
        for (const QString& text :
             {u"plain"_s, u"two blanks  here"_s, u"it's"_s, u"''"_s, u"$HOME `id` $(id)"_s, u"a\"b\\c"_s, u"-n"_s,
              u"*?[a]"_s, u"图册 备份"_s, u"a\nb"_s, u"%1 %2"_s, u"&;|<>#!"_s}) {
            QProcess shell;
            shell.start(u"/bin/sh"_s, {u"-c"_s, u"printf '%s' "_s + shellQuoted(text)});
            QVERIFY(shell.waitForFinished());
            QCOMPARE(QString::fromUtf8(shell.readAllStandardOutput()), text);
        }
    }

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

const Registered<TestSettingsRules> registered;

#include "rules_test.moc"
