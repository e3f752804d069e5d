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
        for (const QString& name : {u"cmdQb"_s, u"cmdFz"_s, u"cmdYd"_s, u"cmdWj"_s, u"cmdQq"_s, u"fraMb"_s})
            QVERIFY2(!window.enabled(name), qPrintable(name));
        window.choose(u"cboBm"_s, u"tc01"_s);
        QVERIFY(window.enabled(u"cmdQb"_s));
        QVERIFY(!window.enabled(u"cmdCk(3)"_s));
        QCOMPARE(window.label(u"lblY0"_s), u"源表：tc01"_s);
        QCOMPARE(window.label(u"lblJs"_s), u"旅行 全部共：10条"_s);
        window.chooseRows({0, 1});
        window.choose(u"cboBm"_s, u"tc02"_s);
        QCOMPARE(window.chosen(), QStringList());
        QVERIFY(window.pageFree());
    }

    void recordsAreChosenOneByOne() {
        TransferWindow window;
        window.chooseRows({2, 0});
        QCOMPARE(window.chosen(), (QStringList{u"3"_s, u"1"_s}));
        QCOMPARE(window.label(u"lbl5"_s), u"已选中2条"_s);
        for (const QString& name : {u"fraMb"_s, u"cmdQq"_s, u"cmdCk(3)"_s}) QVERIFY(window.enabled(name));
        QVERIFY(!window.pageFree());
        window.clickRow(2);
        QCOMPARE(window.said(), QStringList{u"选择的图片重复！"_s});
        QCOMPARE(window.chosen().size(), 2);
        window.dropLine(u"3"_s);
        QCOMPARE(window.chosen(), QStringList{u"1"_s});
        QCOMPARE(window.label(u"lbl5"_s), u"已选中1条"_s);
        window.dropLine(u"1"_s);
        QVERIFY(!window.enabled(u"fraMb"_s));
        QVERIFY(window.pageFree());
    }

    void allRecords() {
        TransferWindow window;
        window.clickRow(4);
        window.click(u"cmdQb"_s);
        QCOMPARE(window.chosen().size(), 11);
        QCOMPARE(window.chosen().first(), u"5"_s);
        QCOMPARE(window.caption(u"cmdQb"_s), u"撤消全部选中"_s);
        QVERIFY(!window.enabled(u"cmdXb"_s));
        window.click(u"cmdQb"_s);
        QCOMPARE(window.chosen(), QStringList());
        QCOMPARE(window.caption(u"cmdQb"_s), u"本像册全部选中"_s);
        QVERIFY(window.enabled(u"cmdXb"_s) && !window.enabled(u"cmdQq"_s));
        window.click(u"cmdQb"_s);
        window.click(u"cmdQq"_s);
        QCOMPARE(window.chosen(), QStringList());
        QVERIFY(window.enabled(u"cmdQb"_s) && window.pageFree());
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
        QCOMPARE(window.caption(u"cmdXb"_s), u"撤消选中"_s);
        QVERIFY(!window.enabled(u"cmdQb"_s));
    }

    void previewFollowsTheRecord() {
        TransferWindow window;
        window.clickRow(2);
        window.click(u"cmdCk(3)"_s);
        QVERIFY(window.shown(u"fraCk"_s));
        QVERIFY(window.label(u"lblWj"_s).contains(u"30*40"_s));
        window.clickRow(3);
        QVERIFY(window.label(u"lblWj"_s).contains(u"100*50"_s));
    }

    void stepsBackFromAFolder() {
        TransferWindow window;
        window.chooseRows({0, 1});
        window.option(u"optMb(0)"_s);
        QVERIFY(window.shown(u"picMl"_s) && !window.enabled(u"cmdMq"_s) && !window.shown(u"fil1"_s));
        QVERIFY(window.hint().startsWith(u"在左侧目录框中选择“目标文件夹”"_s));
        window.click(u"cmdQq"_s);  // step 2
        QVERIFY(!window.shown(u"picMl"_s) && !window.get<QRadioButton>(u"optMb(0)"_s).isChecked());

        window.chooseFolder();
        QCOMPARE(window.label(u"lblLj"_s), u"目标文件夹路径："_s + window.pictures.path());
        QCOMPARE(window.label(u"lbl3"_s), u"默认文件名为：\n选定路径＋'\\'＋编号＋序号＋'.jpg' "_s);
        QCOMPARE(window.label(u"lblTs"_s), u"操作提示：可根据需要选按各按钮进行图片文件的复制或移动。"_s);
        for (const QString& name : {u"cmdFz"_s, u"cmdYd"_s, u"cmdWj"_s}) QVERIFY(window.enabled(name));
        for (const QString& name : {u"cboBm"_s, u"msgBm"_s, u"fraMb"_s}) QVERIFY(!window.enabled(name));

        window.click(u"cmdQq"_s);  // step 4
        QVERIFY(window.shown(u"picMl"_s) && !window.enabled(u"cmdFz"_s) && window.enabled(u"cboBm"_s));
        QCOMPARE(window.echo(), window.pictures.path());
        window.click(u"cmdMj"_s);
        QCOMPARE(window.caption(u"cmdMj"_s), u"新建确定"_s);
        window.click(u"cmdQq"_s);  // step 5
        QCOMPARE(window.caption(u"cmdMj"_s), u"新建文件夹"_s);
        QVERIFY(window.enabled(u"cmdMq"_s));
        window.click(u"cmdQq"_s);  // step 3
        QCOMPARE(window.echo(), QString());
        window.click(u"cmdQq"_s);  // step 2
        QVERIFY(!window.shown(u"picMl"_s));
        QCOMPARE(window.chosen().size(), 2);
        window.click(u"cmdQq"_s);  // step 1
        QCOMPARE(window.chosen(), QStringList());
        QVERIFY(!window.enabled(u"cmdQq"_s) && window.enabled(u"cboBm"_s) && window.enabled(u"msgBm"_s));
    }

    void droppingTheLastLineFreesThePage() {
        TransferWindow window;
        window.clickRow(0);
        window.chooseFolder();
        window.dropLine(u"1"_s);
        QVERIFY(window.enabled(u"cboBm"_s) && window.enabled(u"msgBm"_s) && window.pageFree());
        QVERIFY(!window.enabled(u"cmdFz"_s));
    }

    void copiesUnderGivenNames() {
        TransferWindow window;
        window.chooseRows({0, 2});
        window.chooseFolder();
        window.click(u"cmdFz"_s);
        QCOMPARE(window.caption(u"cmdFz"_s), u"已复制"_s);
        QVERIFY(window.shown(u"fraWm"_s) && !window.enabled(u"cmdFz"_s) && !window.enabled(u"cmdYd"_s));
        QCOMPARE(window.label(u"lblWm"_s), u"输入图册《旅行》中序号＝1 的保存文件名"_s);
        QVERIFY(!window.enabled(u"cmdWm(0)"_s));
        window.giveName(u"海边.bmp"_s);
        QCOMPARE(window.label(u"lblWm"_s), u"输入图册《旅行》中序号＝3 的保存文件名："_s);
        QCOMPARE(window.text(u"txtWm"_s), QString());
        window.box(u"txtWm"_s).setText(u"b"_s);
        QTest::keyClick(&window.box(u"txtWm"_s), Qt::Key_Return);
        QCOMPARE(window.said(), QStringList{closing.arg(2)});
        QCOMPARE(window.files(), (QStringList{u"b.jpg"_s, u"海边.jpg"_s}));
        QCOMPARE(window.fileBytes(u"b.jpg"_s), TransferWindow::stored(u"tc01"_s, 3));
        QCOMPARE(TransferWindow::numbers(u"tc01"_s).size(), 10);
        QCOMPARE(window.label(u"lbl5"_s), u"已转录完成"_s);
        QCOMPARE(window.caption(u"cmdFz"_s), u"复 制"_s);
        QCOMPARE(window.hint(), u"选择图册可重新开始。"_s);
        QVERIFY(!window.shown(u"fraWm"_s) && window.enabled(u"cboBm"_s) && window.pageFree());
    }

    void theListStandsWhileNamesAreAskedFor() {
        TransferWindow window;
        window.chooseRows({0, 2});
        window.chooseFolder();
        window.click(u"cmdYd"_s);
        window.click(u"cmdBh(1)"_s);
        QCOMPARE(window.label(u"lblJs"_s), u"旅行 编号=1 共：5条"_s);
        for (const QString& name : {u"msgBm"_s, u"cmdQb"_s, u"cmdXb"_s, u"lstSu"_s, u"fraMb"_s})
            QVERIFY2(!window.enabled(name), qPrintable(name));
        window.clickRow(1);
        window.click(u"cmdXb"_s);
        window.option(u"optMb(1)"_s);
        QCOMPARE(window.chosen(), (QStringList{u"1"_s, u"3"_s}));
        window.giveName(u"a"_s);
        window.giveName(u"b"_s);
        QCOMPARE(window.said(), QStringList{closing.arg(2)});
        QCOMPARE(window.files(), (QStringList{u"a.jpg"_s, u"b.jpg"_s}));
        QCOMPARE(TransferWindow::numbers(u"tc01"_s).first(2), (QStringList{u"2"_s, u"4"_s}));
    }

    void leavingTheBoxCompletesTheName() {
        TransferWindow window;
        window.clickRow(0);
        window.chooseFolder();
        window.click(u"cmdFz"_s);
        window.box(u"txtWm"_s).setText(u"photo.bmp"_s);
        window.button(u"cmdWm(1)"_s).setFocus();
        QTRY_COMPARE(window.text(u"txtWm"_s), u"photo.jpg"_s);
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
        QCOMPARE(TransferWindow::numbers(u"tc01"_s).first(4), (QStringList{u"2"_s, u"4"_s, u"5"_s, u"6"_s}));
        QCOMPARE(window.files(), (QStringList{u"one.jpg"_s, u"taken.jpg"_s}));
        QCOMPARE(window.fileBytes(u"taken.jpg"_s), QByteArray("mine"));
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
        QVERIFY(!window.shown(u"fraWm"_s));
        QCOMPARE(window.chosen(), (QStringList{u"2"_s, u"3"_s}));
        QCOMPARE(window.caption(u"cmdYd"_s), u"已移动"_s);
        window.click(u"cmdQq"_s);
        window.click(u"cmdMq"_s);
        window.click(u"cmdFz"_s);
        window.giveName(u"b"_s);
        window.giveName(u"c"_s);
        QCOMPARE(window.said(), QStringList{closing.arg(2)});
        QCOMPARE(TransferWindow::numbers(u"tc01"_s).size(), 9);
        QCOMPARE(window.files(), (QStringList{u"a.jpg"_s, u"b.jpg"_s, u"c.jpg"_s}));
    }

    void demonstrationAlbumIsNotMoved() {
        TransferWindow window(u"tc00"_s);
        window.clickRow(0);
        window.chooseFolder();
        window.click(u"cmdYd"_s);
        QCOMPARE(window.said(), QStringList{u"该表只做演示用，不能录入或编辑！"_s});
        QVERIFY(!window.shown(u"fraWm"_s));
    }

    void defaultNames() {
        TransferWindow window;
        putValue(u"SELECT * FROM tc01 WHERE 序号 = 7"_s, u"编号"_s, Variant());
        window.addBytes(u"123.jpg"_s, "mine");
        window.chooseRows({2, 6, 5, 8});
        mekTp::catalogue.Execute(u"DELETE FROM [tc01] WHERE 序号 = 9"_s);
        window.chooseFolder();
        window.click(u"cmdWj"_s);
        QCOMPARE(window.said(),
                 (QStringList{u"要将本图册选中的图片转存成文件吗？\n\n（本操作并不影响原图册中的图片）\n\n"
                              "如果“是”，按《确定》；否则按《取消》。"_s,
                              u"有 2 张图片没有写成文件。\n\n同名文件已存在，没有改动：123.jpg\n"
                              "记录已不在图册中，序号：9"_s,
                              u"选定的图片已全部转换成文件，共4条"_s}));
        QCOMPARE(window.files(), (QStringList{u"07.jpg"_s, u"123.jpg"_s, u"6.jpg"_s}));
        QCOMPARE(window.fileBytes(u"123.jpg"_s), QByteArray("mine"));
        QCOMPARE(window.fileBytes(u"07.jpg"_s), TransferWindow::stored(u"tc01"_s, 7));
        QCOMPARE(window.chosen().size(), 4);
        QVERIFY(!window.enabled(u"cmdQq"_s) && !window.enabled(u"cmdQb"_s) && window.enabled(u"cboBm"_s));
        QVERIFY(window.pageFree() && !window.shown(u"prg3"_s));
    }

    void defaultNamesForTheTable() {
        TransferWindow window;
        window.click(u"cmdXb"_s);
        window.chooseFolder();
        window.click(u"cmdWj"_s);
        QCOMPARE(window.said().last(), u"选定的图片已全部转换成文件，共10条"_s);
        QCOMPARE(window.caption(u"cmdQb"_s), u"本像册全部选中"_s);
        QCOMPARE(window.caption(u"cmdXb"_s), u"撤消选中"_s);
        window.click(u"cmdXb"_s);
        QCOMPARE(window.chosen(), QStringList());
    }

    void defaultNamesAskFirst() {
        TransferWindow window;
        window.clickRow(0);
        window.chooseFolder();
        window.answer = false;
        window.click(u"cmdWj"_s);
        QCOMPARE(window.files(), QStringList());
        QCOMPARE(window.chosen().size(), 1);
    }

    void lostFolder() {
        TransferWindow window;
        window.chooseRows({0, 1});
        window.chooseFolder();
        QVERIFY(QDir(window.pictures.path()).removeRecursively());
        window.click(u"cmdYd"_s);
        window.giveName(u"a"_s);
        window.giveName(u"b"_s);
        const QStringList said = window.said();
        QVERIFY(said.first().startsWith(u"有 2 张图片没有移动，仍在原图册中。"_s));
        QVERIFY(said.first().contains(window.pictures.path()));
        QCOMPARE(TransferWindow::numbers(u"tc01"_s).size(), 10);
    }

    void numbersThatTwoRecordsShare() {
        TransferWindow window;
        putValue(u"SELECT * FROM tc01 WHERE 序号 = 2"_s, u"序号"_s, 1);
        window.click(u"cmdQb"_s);
        window.chooseFolder();
        window.click(u"cmdWj"_s);
        // The codes of both differ, so that each has its own file.
        QVERIFY(window.files().contains(u"121.jpg"_s) && window.files().contains(u"21.jpg"_s));
    }

    void leavingThePageGivesUp() {
        TransferWindow window;
        window.chooseRows({0, 1});
        window.chooseFolder();
        window.click(u"cmdFz"_s);
        window.tabs().setCurrentIndex(2);
        QVERIFY(window.enabled(u"cboBm"_s) && window.enabled(u"msgBm"_s));
        window.tabs().setCurrentIndex(3);
        QCOMPARE(window.chosen(), QStringList());
        QVERIFY(!window.shown(u"fraWm"_s));
        QCOMPARE(window.caption(u"cmdFz"_s), u"复 制"_s);
    }
};

const Registered<TestTransferPage> registered;

}  // namespace

#include "transfer_page_test.moc"
