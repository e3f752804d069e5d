#include "../support/run_all.h"
#include "intake/browsing/intake_texts.h"
#include "intake/files/run_texts.h"
#include "intake/preview/preview_fit.h"
#include "platform/picture/picture.h"
#include "settings/frame/hint_line.h"
#include "settings/frame/name_lists.h"

using namespace Qt::Literals::StringLiterals;

namespace {

QSize hiMetric(QSize pixels) {
    return {hiMetricFromPixels(pixels.width()), hiMetricFromPixels(pixels.height())};
}

RunItem item(const QString& name, Fate fate) {
    return {0, name, fate};
}

class TestIntakeRules : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void echo() {
        const QString a62(62, u'a'), a63(63, u'a'), wide(32, u'山');
        const QList<std::pair<QStringList, QString>> cases{
            {{}, {}},
            {{u"1.jpg"_s}, u"1.jpg"_s},
            {{u"1.jpg"_s, u"2.jpg"_s}, u"1.jpg;2.jpg等共2条"_s},
            {{a62 + u".jpg"_s}, a62 + u".jpg"_s},
            {{a63 + u".jpg"_s}, QString(33, u'a') + u"...\n"_s + QString(26, u'a') + u".jpg"_s},
            // Chinese names are twice as wide.
            {{wide + u".jpg"_s}, wide + u"....\n"_s + QString(26, u'山') + u".jpg"_s}};
        for (const auto& [names, line] : cases) QCOMPARE(selectionEcho(names), line);
    }

    void description() {
        struct Case {
            QString file;
            bool replace;
            int count;
            QString text;
        };
        const QList<Case> cases{{u"a.jpg"_s, false, 1, u"（从文件[a.jpg]追加到本图册 ）\n\n"_s},
                                {u"a.jpg"_s, false, 3, u"（从文件[a.jpg]追加到本图册 ）\n\n    等共3条"_s},
                                {u"12.jpg"_s, true, 1, u"（从文件[12.jpg]替换到本图册 序号＝12）\n\n"_s},
                                {u"12.jpeg"_s, true, 1, u"（从文件[12.jpeg]替换到本图册 序号＝12.）\n\n"_s},
                                // A whole folder: no file has the focus.
                                {QString(), false, 84, u"（从文件追加到本图册 ）\n\n    等共84条"_s},
                                {QString(), true, 2, u"（从文件替换到本图册 ）\n\n    等共2条"_s}};
        for (const auto& [file, replace, count, text] : cases) QCOMPARE(intakeDescription(file, replace, count), text);
    }

    void hints() {
        const QList<std::pair<int, QString>> texts{
            {0, QString()},
            {1, u"先选择目标图册，然后“图片来源”，再“添加方式”"_s},
            {2, u"先选择源图册数据表，选完后再在左侧表格中点击要转存的记录，接着再确定“数据转存目标”"_s},
            {3, u"在左侧目录框中选择“目标数据库”，选完后再确定“目标数据表”"_s},
            {4, u"在左侧目录框中选择“目标文件夹”，选完后再按“确定”。也可按“新建文件夹”新建。"_s},
            {5, u"确定对应字段，即点击与目标表对应的源表字段文本框，在出现的列表框中选择或按“全部对应”。"_s},
            {6, u"请在右边表格中选择数据源要复制的记录，或者直接按“全部记录”按钮。"_s},
            {7, u"接受图片的数据表已经确定，请按“关闭本框”按钮关闭本框，再进行复制或移动图片。"_s},
            {8, u"共选中：5条，按《录入图册》录入，按《取消》返回前步。"_s},
            {9, u"请在文件列表框中选择要录入的图片文件或者直接按“选择全部”按钮。"_s},
            {10, u"请填入新建文件夹名称后按“新建确定”按钮完成新建或按“新建撤消”按钮撤消。"_s},
            {11, u"在左侧目录框中选择“来源数据库”，选完后再确定“来源数据表”"_s},
            {12, QString()},
            {20, u"选择图册可重新开始。"_s},
            {21, QString()}};
        for (const auto& [number, text] : texts) QCOMPARE(hintTail(number, 5), text);
    }

    void longLists() {
        QStringList keys;
        for (int i = 1; i <= 500; ++i) keys << QString::number(i);
        QCOMPARE(someOf(keys.first(12)), keys.first(12).join(u'、'));
        QCOMPARE(someOf(keys), keys.first(12).join(u'、') + u" 等共500个"_s);
        QCOMPARE(nearlyAllOf(keys.first(3)), u"1,2,3"_s);
        QVERIFY(nearlyAllOf(keys).endsWith(u"60 等共500个"_s));
    }

    void fit() {
        struct Case {
            QSize pixels;
            bool own;
            QSize twips;
            QSize box = usualBox;
        };
        const QList<Case> cases{{{640, 480}, false, {4000, 3000}},  // 4:3 fills the box
                                {{800, 400}, false, {4000, 2000}},
                                {{300, 600}, false, {1500, 3000}},
                                {{100, 75}, true, {1501, 1125}},
                                {{270, 90}, true, {4000, 1333}},  // wider than the box
                                // A panel that has grown has another shape.
                                {{640, 480}, false, {8000, 6000}, {15000, 6000}},
                                {{800, 400}, false, {12000, 6000}, {15000, 6000}},
                                {{800, 400}, false, {9000, 4500}, {9000, 8000}},
                                {{480, 640}, false, {4500, 6000}, {15000, 6000}},
                                {{400, 500}, true, {4800, 6000}, {15000, 6000}},
                                {{600, 300}, true, {9000, 4500}, {15000, 6000}}};
        for (const auto& [pixels, own, twips, box] : cases) {
            const QSize off = previewSize(hiMetric(pixels), own, box) - twips;
            QVERIFY2(std::abs(off.width()) <= 2 && std::abs(off.height()) <= 2,
                     qPrintable(QString::number(pixels.width())));
        }
        QVERIFY(offersOwnSize({4000, 3000}));
        QVERIFY(!offersOwnSize({4001, 3000}) && !offersOwnSize({4000, 3001}));
    }

    void buttonPicture() {
        const QList<std::pair<QSize, QString>> cases{{{100, 75}, {}},  // the goal
                                                     {{105, 80}, {}},  // the largest
                                                     {{106, 75}, u"规格106*75 宽高比1.41"_s},
                                                     {{120, 90}, u"规格120*90"_s},
                                                     {{60, 60}, u" 宽高比1"_s},
                                                     {{75, 100}, u"规格75*100 宽高比0.75"_s}};
        for (const auto& [pixels, warning] : cases) QCOMPARE(buttonPictureWarning(hiMetric(pixels)), warning);
    }

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

const Registered<TestIntakeRules> registered;

}  // namespace

#include "rules_test.moc"
