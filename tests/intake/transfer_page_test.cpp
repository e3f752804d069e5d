#include "../support/run_all.h"
#include "transfer_window.h"

using namespace Qt::Literals::StringLiterals;

namespace {

const QString closing = u"图册《旅行》中的 %1 张图片已复制完成！"_s;

class TestTransferPage : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void albumIsChosen() {
        TransferWindow window(QString{});
        window.expect({.disabled = u"cmdQb cmdFz cmdYd cmdWj cmdQq fraMb"_s});
        window.choose(u"cboBm"_s, u"tc01"_s);
        window.expect({.enabled = u"cmdQb"_s,
                       .disabled = u"cmdCk(3)"_s,
                       .texts = {{u"lblY0"_s, u"源表：tc01"_s}, {u"lblJs"_s, u"旅行 全部共：10条"_s}}});
        window.chooseRows({0, 1});
        window.choose(u"cboBm"_s, u"tc02"_s);
        QCOMPARE(window.chosen(), QStringList());
        QVERIFY(window.pageFree());
    }

    void recordsAreChosenOneByOne() {
        TransferWindow window;
        window.chooseRows({2, 0});
        QCOMPARE(window.chosen(), (QStringList{u"3"_s, u"1"_s}));
        window.expect({.enabled = u"fraMb cmdQq cmdCk(3)"_s, .texts = {{u"lbl5"_s, u"已选中2条"_s}}});
        QVERIFY(!window.pageFree());
        window.clickRow(2);
        QCOMPARE(window.said(), QStringList{u"选择的图片重复！"_s});
        QCOMPARE(window.chosen().size(), 2);
        // The preview follows the record.
        window.click(u"cmdCk(3)"_s);
        QVERIFY(window.shown(u"fraCk"_s) && window.label(u"lblWj"_s).contains(u"30*40"_s));
        window.clickRow(3);
        QVERIFY(window.label(u"lblWj"_s).contains(u"100*50"_s));
        window.click(u"cmdCg"_s);
        window.dropLine(u"4"_s);
        window.dropLine(u"3"_s);
        QCOMPARE(window.chosen(), QStringList{u"1"_s});
        QCOMPARE(window.label(u"lbl5"_s), u"已选中1条"_s);
        window.dropLine(u"1"_s);
        window.expect({.disabled = u"fraMb"_s});
        QVERIFY(window.pageFree());
    }

    void allRecords() {
        TransferWindow window;
        window.clickRow(4);
        window.click(u"cmdQb"_s);
        QCOMPARE(window.chosen().size(), 11);
        QCOMPARE(window.chosen().first(), u"5"_s);
        window.expect({.disabled = u"cmdXb"_s, .texts = {{u"cmdQb"_s, u"撤消全部选中"_s}}});
        window.click(u"cmdQb"_s);
        QCOMPARE(window.chosen(), QStringList());
        window.expect({.enabled = u"cmdXb"_s, .disabled = u"cmdQq"_s, .texts = {{u"cmdQb"_s, u"本像册全部选中"_s}}});
        window.click(u"cmdQb"_s);
        window.click(u"cmdQq"_s);
        QCOMPARE(window.chosen(), QStringList());
        window.expect({.enabled = u"cmdQb"_s});
        QVERIFY(window.pageFree());
    }

    void recordsOfTheTable() {
        TransferWindow window;
        window.click(u"cmdXb"_s);
        QCOMPARE(window.chosen().size(), 10);
        window.click(u"cmdXb"_s);
        QCOMPARE(window.chosen(), QStringList());
        window.click(u"cmdBh(2)"_s);
        QCOMPARE(window.label(u"lblJs"_s), u"旅行 编号=2 共：5条"_s);
        window.clickRow(0);
        window.click(u"cmdXb"_s);
        QCOMPARE(window.chosen(), (QStringList{u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s}));
        window.expect({.disabled = u"cmdQb"_s, .texts = {{u"cmdXb"_s, u"撤消选中"_s}}});
    }

    void stepsBackFromAFolder() {
        TransferWindow window;
        window.chooseRows({0, 1});
        window.option(u"optMb(0)"_s);
        window.expect({.shown = u"picMl"_s, .hidden = u"fil1"_s, .disabled = u"cmdMq"_s});
        QVERIFY(window.hint().startsWith(u"在左侧目录框中选择“目标文件夹”"_s));
        window.click(u"cmdQq"_s);  // step 2
        window.expect({.hidden = u"picMl"_s, .unchecked = u"optMb(0)"_s});

        window.chooseFolder();
        window.expect({.enabled = u"cmdFz cmdYd cmdWj"_s,
                       .disabled = u"cboBm msgBm fraMb"_s,
                       .texts = {{u"lblLj"_s, u"目标文件夹路径："_s + window.pictures.path()},
                                 {u"lbl3"_s, u"默认文件名为：\n选定路径＋'\\'＋编号＋序号＋'.jpg' "_s},
                                 {u"lblTs"_s, u"操作提示：可根据需要选按各按钮进行图片文件的复制或移动。"_s}}});

        window.click(u"cmdQq"_s);  // step 4
        window.expect({.shown = u"picMl"_s, .enabled = u"cboBm"_s, .disabled = u"cmdFz"_s});
        QCOMPARE(window.echo(), window.pictures.path());
        window.click(u"cmdMj"_s);
        QCOMPARE(window.caption(u"cmdMj"_s), u"新建确定"_s);
        window.click(u"cmdQq"_s);  // step 5
        window.expect({.enabled = u"cmdMq"_s, .texts = {{u"cmdMj"_s, u"新建文件夹"_s}}});
        window.click(u"cmdQq"_s);  // step 3
        QCOMPARE(window.echo(), QString());
        window.click(u"cmdQq"_s);  // step 2
        window.expect({.hidden = u"picMl"_s});
        QCOMPARE(window.chosen().size(), 2);
        window.click(u"cmdQq"_s);  // step 1
        QCOMPARE(window.chosen(), QStringList());
        window.expect({.enabled = u"cboBm msgBm"_s, .disabled = u"cmdQq"_s});
    }

    void copiesUnderGivenNames() {
        TransferWindow window;
        window.chooseRows({0, 2});
        window.chooseFolder();
        window.click(u"cmdFz"_s);
        window.expect(
            {.shown = u"fraWm"_s,
             .disabled = u"cmdFz cmdYd cmdWm(0)"_s,
             .texts = {{u"cmdFz"_s, u"已复制"_s}, {u"lblWm"_s, u"输入图册《旅行》中序号＝1 的保存文件名"_s}}});
        // Leaving the box completes the name.
        window.box(u"txtWm"_s).setText(u"海边.bmp"_s);
        window.button(u"cmdWm(1)"_s).setFocus();
        QTRY_COMPARE(window.text(u"txtWm"_s), u"海边.jpg"_s);
        window.giveName(u"海边.bmp"_s);
        window.expect(
            {.texts = {{u"lblWm"_s, u"输入图册《旅行》中序号＝3 的保存文件名："_s}, {u"txtWm"_s, QString()}}});
        window.box(u"txtWm"_s).setText(u"b"_s);
        QTest::keyClick(&window.box(u"txtWm"_s), Qt::Key_Return);
        QCOMPARE(window.said(), QStringList{closing.arg(2)});
        QCOMPARE(window.exported(), (QStringList{u"b.jpg"_s, u"海边.jpg"_s}));
        QCOMPARE(window.bytesOf(u"b.jpg"_s), stored(u"tc01"_s, 3));
        QCOMPARE(numbersOf(u"tc01"_s).size(), 10);
        window.expect({.texts = {{u"lbl5"_s, u"已转录完成"_s}, {u"cmdFz"_s, u"复 制"_s}}});
        QCOMPARE(window.hint(), u"选择图册可重新开始。"_s);
        window.expect({.hidden = u"fraWm"_s, .enabled = u"cboBm"_s});
        QVERIFY(window.pageFree());
    }

    void theListStandsWhileNamesAreAskedFor() {
        TransferWindow window;
        window.chooseRows({0, 2});
        window.chooseFolder();
        window.click(u"cmdYd"_s);
        window.click(u"cmdBh(1)"_s);
        window.expect(
            {.disabled = u"msgBm cmdQb cmdXb lstSu fraMb"_s, .texts = {{u"lblJs"_s, u"旅行 编号=1 共：5条"_s}}});
        window.clickRow(1);
        window.click(u"cmdXb"_s);
        window.option(u"optMb(1)"_s);
        QCOMPARE(window.chosen(), (QStringList{u"1"_s, u"3"_s}));
        for (const QString& name : {u"a"_s, u"b"_s}) window.giveName(name);
        QCOMPARE(window.said(), QStringList{closing.arg(2)});
        QCOMPARE(window.exported(), (QStringList{u"a.jpg"_s, u"b.jpg"_s}));
        QCOMPARE(numbersOf(u"tc01"_s).first(2), (QStringList{u"2"_s, u"4"_s}));
    }

    void movesOnlyWhatIsWritten() {
        TransferWindow window;
        window.addBytes(u"taken.jpg"_s, "mine");
        putValue(u"SELECT * FROM tc01 WHERE 序号 = 4"_s, u"图片"_s, Variant());
        window.chooseRows({0, 1, 2, 3, 4});
        mekTp::catalogue.Execute(u"DELETE FROM [tc01] WHERE 序号 = 3"_s);
        window.chooseFolder();
        window.click(u"cmdYd"_s);
        for (const QString& name : {u"one"_s, u"taken"_s, u"gone"_s, u"empty"_s, u"x/out"_s}) window.giveName(name);
        QCOMPARE(window.said(),
                 (QStringList{u"有 4 张图片没有移动，仍在原图册中。\n\n同名文件已存在，没有改动：taken.jpg\n"
                              "记录已不在图册中，序号：3\n记录没有图片，序号：4\n文件名“x/out.jpg”不能使用，序号：5"_s,
                              closing.arg(5)}));
        QCOMPARE(numbersOf(u"tc01"_s).first(4), (QStringList{u"2"_s, u"4"_s, u"5"_s, u"6"_s}));
        QCOMPARE(window.exported(), (QStringList{u"one.jpg"_s, u"taken.jpg"_s}));
        QCOMPARE(window.bytesOf(u"taken.jpg"_s), QByteArray("mine"));
        QCOMPARE(window.strayFiles(), QStringList());
        QCOMPARE(window.label(u"lblJs"_s), u"旅行 全部共：8条"_s);
    }

    void cancelledNamesKeepTheRest() {
        TransferWindow window;
        window.chooseRows({0, 1, 2});
        window.chooseFolder();
        window.click(u"cmdYd"_s);
        window.giveName(u"a"_s);
        window.click(u"cmdWm(1)"_s);
        window.expect({.hidden = u"fraWm"_s});
        QCOMPARE(window.chosen(), (QStringList{u"2"_s, u"3"_s}));
        QCOMPARE(window.caption(u"cmdYd"_s), u"已移动"_s);
        window.click(u"cmdQq"_s);
        window.click(u"cmdMq"_s);
        window.click(u"cmdFz"_s);
        for (const QString& name : {u"b"_s, u"c"_s}) window.giveName(name);
        QCOMPARE(window.said(), QStringList{closing.arg(2)});
        QCOMPARE(numbersOf(u"tc01"_s).size(), 9);
        QCOMPARE(window.exported(), (QStringList{u"a.jpg"_s, u"b.jpg"_s, u"c.jpg"_s}));
    }

    void demonstrationAlbumIsNotMoved() {
        TransferWindow window(u"tc00"_s);
        window.clickRow(0);
        window.chooseFolder();
        window.click(u"cmdYd"_s);
        QCOMPARE(window.said(), QStringList{u"该表只做演示用，不能录入或编辑！"_s});
        window.expect({.hidden = u"fraWm"_s});
    }

    void defaultNames() {
        TransferWindow window;
        putValue(u"SELECT * FROM tc01 WHERE 序号 = 7"_s, u"编号"_s, Variant());
        window.addBytes(u"123.jpg"_s, "mine");
        window.chooseRows({2, 6, 5, 8});
        mekTp::catalogue.Execute(u"DELETE FROM [tc01] WHERE 序号 = 9"_s);
        window.chooseFolder();
        const QString question =
            u"要将本图册选中的图片转存成文件吗？\n\n（本操作并不影响原图册中的图片）\n\n如果“是”，按《确定》；否则按《取消》。"_s;
        window.answer = false;
        window.click(u"cmdWj"_s);
        QCOMPARE(window.said(), QStringList{question});
        QCOMPARE(window.exported(), QStringList{u"123.jpg"_s});
        QCOMPARE(window.chosen().size(), 4);
        window.answer = true;
        window.click(u"cmdWj"_s);
        QCOMPARE(
            window.said(),
            (QStringList{question,
                         u"有 2 张图片没有写成文件。\n\n同名文件已存在，没有改动：123.jpg\n记录已不在图册中，序号：9"_s,
                         u"选定的图片已全部转换成文件，共4条"_s}));
        QCOMPARE(window.exported(), (QStringList{u"07.jpg"_s, u"123.jpg"_s, u"6.jpg"_s}));
        QCOMPARE(window.bytesOf(u"123.jpg"_s), QByteArray("mine"));
        QCOMPARE(window.bytesOf(u"07.jpg"_s), stored(u"tc01"_s, 7));
        QCOMPARE(window.chosen().size(), 4);
        window.expect({.hidden = u"prg3"_s, .enabled = u"cboBm"_s, .disabled = u"cmdQq cmdQb"_s});
        QVERIFY(window.pageFree());
    }

    void defaultNamesForTheTable() {
        TransferWindow window;
        putValue(u"SELECT * FROM tc01 WHERE 序号 = 2"_s, u"序号"_s, 1);
        window.click(u"cmdXb"_s);
        window.chooseFolder();
        window.click(u"cmdWj"_s);
        QCOMPARE(window.said().last(), u"选定的图片已全部转换成文件，共10条"_s);
        // Two records share a number. Their codes differ, so that each has its own file.
        QVERIFY(window.exported().contains(u"121.jpg"_s) && window.exported().contains(u"21.jpg"_s));
        window.expect({.texts = {{u"cmdQb"_s, u"本像册全部选中"_s}, {u"cmdXb"_s, u"撤消选中"_s}}});
        window.click(u"cmdXb"_s);
        QCOMPARE(window.chosen(), QStringList());
    }

    void lostFolder() {
        TransferWindow window;
        window.chooseRows({0, 1});
        window.chooseFolder();
        QVERIFY(QDir(window.pictures.path()).removeRecursively());
        window.click(u"cmdYd"_s);
        for (const QString& name : {u"a"_s, u"b"_s}) window.giveName(name);
        const QString said = window.said().first();
        QVERIFY(said.startsWith(u"有 2 张图片没有移动，仍在原图册中。"_s) && said.contains(window.pictures.path()));
        QCOMPARE(numbersOf(u"tc01"_s).size(), 10);
    }

    void givingUpFreesThePage() {
        TransferWindow window;
        window.clickRow(0);
        window.chooseFolder();
        window.dropLine(u"1"_s);
        window.expect({.enabled = u"cboBm msgBm"_s, .disabled = u"cmdFz"_s});
        QVERIFY(window.pageFree());

        window.chooseRows({0, 1});
        window.chooseFolder();
        window.click(u"cmdFz"_s);
        window.tabs().setCurrentIndex(2);
        window.expect({.enabled = u"cboBm msgBm"_s});
        window.tabs().setCurrentIndex(3);
        QCOMPARE(window.chosen(), QStringList());
        QVERIFY(!window.shown(u"fraWm"_s));
        QCOMPARE(window.caption(u"cmdFz"_s), u"复 制"_s);
    }
};

const Registered<TestTransferPage> registered;

}  // namespace

#include "transfer_page_test.moc"
