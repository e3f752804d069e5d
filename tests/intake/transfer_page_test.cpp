#include "../support/disk_faults.h"
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
        window.expect({.shown = u"fraWm imgWm"_s,
                       .disabled = u"cmdFz cmdYd"_s,
                       .texts = {{u"cmdFz"_s, u"已复制"_s},
                                 {u"lblWm"_s, u"输入图册《旅行》中序号＝1 的保存文件名"_s},
                                 {u"txtWm"_s, u"121.jpg"_s}}});
        QCOMPARE(window.box(u"txtWm"_s).selectedText(), u"121.jpg"_s);
        // Leaving the box completes the name.
        window.typeName(u"海边.bmp"_s);
        window.button(u"cmdWm(1)"_s).setFocus();
        QTRY_COMPARE(window.text(u"txtWm"_s), u"海边.jpg"_s);
        window.confirmName();
        window.expect(
            {.texts = {{u"lblWm"_s, u"输入图册《旅行》中序号＝3 的保存文件名："_s}, {u"txtWm"_s, u"123.jpg"_s}}});
        QTest::keyClicks(&window.box(u"txtWm"_s), u"b"_s);
        window.pressKey(Qt::Key_Return);
        QCOMPARE(window.said(), QStringList{closing.arg(2)});
        QCOMPARE(window.exported(), (QStringList{u"b.jpg"_s, u"海边.jpg"_s}));
        QCOMPARE(window.bytesOf(u"b.jpg"_s), stored(u"tc01"_s, 3));
        QCOMPARE(numbersOf(u"tc01"_s).size(), 10);
        window.expect({.texts = {{u"lbl5"_s, u"已转录完成"_s}, {u"cmdFz"_s, u"复 制"_s}}});
        QCOMPARE(window.hint(), u"选择图册可重新开始。"_s);
        window.expect({.hidden = u"fraWm picWm"_s, .enabled = u"cboBm"_s});
        QVERIFY(window.pageFree());
    }

    void thePictureInQuestionIsShown() {
        TransferWindow window;
        putValue(u"SELECT * FROM tc01 WHERE 序号 = 5"_s, u"图片"_s, FieldValue());
        putValue(u"SELECT * FROM tc01 WHERE 序号 = 5"_s, u"编号"_s, u" "_s);
        window.chooseRows({2, 3, 4});
        window.chooseFolder();
        window.click(u"cmdFz"_s);
        auto& image = window.get<ImageBox>(u"imgWm"_s);
        for (const QSize pixels : {QSize(30, 40), QSize(100, 50)}) {
            QCOMPARE(image.picture().pixels(), pixels);
            QVERIFY(image.parentWidget()->rect().contains(image.geometry()));
            QVERIFY(qAbs(double(image.width()) / image.height() - double(pixels.width()) / pixels.height()) < 0.05);
            window.pressKey(Qt::Key_Return);
        }
        window.expect({.shown = u"picWm"_s, .hidden = u"imgWm"_s, .texts = {{u"txtWm"_s, u"05.jpg"_s}}});
        QVERIFY(window.label(u"picWm"_s).startsWith(u"这条记录没有"_s));
        window.pressKey(Qt::Key_Return);
        QCOMPARE(window.said(), QStringList{closing.arg(2)});
        QCOMPARE(window.report(),
                 (QStringList{u"已复制 2 张，2 张已核对，1 张失败"_s, u"5|失败，没有复制|记录没有图片"_s,
                              u"3 → 123.jpg|已复制|"_s, u"4 → 24.jpg|已复制|"_s}));
        QCOMPARE(window.label(u"lblJd"_s), u"已复制 2 张，2 张已核对，1 张失败"_s);
        QCOMPARE(window.exported(), (QStringList{u"123.jpg"_s, u"24.jpg"_s}));
    }

    void badNamesAreRefusedOnTheSpot() {
        TransferWindow window;
        window.addBytes(u"taken.jpg"_s, "mine");
        window.chooseRows({0, 1});
        window.chooseFolder();
        window.click(u"cmdYd"_s);
        const QString question = window.label(u"lblWm"_s);
        const QList<std::pair<QString, QString>> cases{{u"taken"_s, u"文件夹中已有文件“taken.jpg”，请换一个文件名。"_s},
                                                       {u"x/out"_s, u"文件名中不能有“/”，请重新填写。"_s},
                                                       {u"  "_s, u"请填写文件名！"_s},
                                                       {u".jpg"_s, u"请填写文件名！"_s}};
        for (const auto& [name, refusal] : cases) {
            window.giveName(name);
            QCOMPARE(window.said(), QStringList{refusal});
            // What was typed stands, to be changed or typed over.
            QCOMPARE(window.text(u"txtWm"_s).left(name.size()), name);
            QVERIFY(window.box(u"txtWm"_s).hasSelectedText());
            window.expect({.shown = u"fraWm"_s, .enabled = u"cmdWm(0)"_s, .texts = {{u"lblWm"_s, question}}});
        }
        window.pressKey(Qt::Key_Delete);
        window.expect({.disabled = u"cmdWm(0)"_s});
        window.pressKey(Qt::Key_Return);
        QTRY_COMPARE(window.boxes.size(), 1);
        QCOMPARE(window.said(), QStringList{u"请填写文件名！"_s});
        QCOMPARE(numbersOf(u"tc01"_s).size(), 10);
        for (const QString& name : {u"a"_s, u"b"_s}) window.giveName(name);
        QCOMPARE(window.said(), QStringList{closing.arg(2)});
        QCOMPARE(window.exported(), (QStringList{u"a.jpg"_s, u"b.jpg"_s, u"taken.jpg"_s}));
        QCOMPARE(window.bytesOf(u"taken.jpg"_s), QByteArray("mine"));
        QCOMPARE(numbersOf(u"tc01"_s).size(), 8);
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
        QTest::mouseClick(&window.box(u"txtWm"_s), Qt::LeftButton);
        QTest::keyClick(&window.box(u"txtWm"_s), Qt::Key_A, Qt::ControlModifier);
        for (const QString& name : {u"a"_s, u"b"_s}) window.giveName(name);
        QCOMPARE(window.said(), QStringList{closing.arg(2)});
        QCOMPARE(window.exported(), (QStringList{u"a.jpg"_s, u"b.jpg"_s}));
        QCOMPARE(numbersOf(u"tc01"_s).first(2), (QStringList{u"2"_s, u"4"_s}));
    }

    void movesOnlyWhatIsWritten() {
        TransferWindow window;
        window.addBytes(u"same.jpg"_s, stored(u"tc01"_s, 2));
        putValue(u"SELECT * FROM tc01 WHERE 序号 = 4"_s, u"图片"_s, FieldValue());
        window.chooseRows({0, 1, 2, 3});
        mekTp::catalogue.Execute(u"DELETE FROM [tc01] WHERE 序号 = 3"_s);
        window.chooseFolder();
        window.click(u"cmdYd"_s);
        for (const QString& name : {u"one"_s, u"same"_s, u"gone"_s, u"empty"_s}) window.giveName(name);
        QCOMPARE(window.said(), QStringList{closing.arg(2)});
        QCOMPARE(window.report().mid(1, 2),
                 (QStringList{u"3|失败，没有移动|记录已不在图册中"_s, u"4|失败，没有移动|记录没有图片"_s}));
        QCOMPARE(numbersOf(u"tc01"_s).first(2), (QStringList{u"4"_s, u"5"_s}));
        QCOMPARE(window.exported(), (QStringList{u"one.jpg"_s, u"same.jpg"_s}));
        QCOMPARE(window.strayFiles(), QStringList());
        QCOMPARE(window.label(u"lblJs"_s), u"旅行 全部共：7条"_s);
    }

    /// Its file is not written again.
    void aRecordThatStaysIsInDoubt() {
        TransferWindow window;
        QProcess::execute(u"sqlite3"_s, {mekTp::cataloguePath(),
                                         u"CREATE TRIGGER stays BEFORE DELETE ON tc01 WHEN OLD.序号 = 1 "
                                         "BEGIN SELECT RAISE(ABORT, 'stays'); END"_s});
        window.chooseRows({0, 1});
        window.chooseFolder();
        window.click(u"cmdYd"_s);
        for (const QString& name : {u"a"_s, u"b"_s}) window.giveName(name);
        const QStringList said = window.said();
        QVERIFY(said.size() == 2 && said[0].startsWith(u"文件“a.jpg”已写成，但记录没有从图册删除"_s));
        QCOMPARE(said[1], closing.arg(1));
        QVERIFY(window.report()[1].startsWith(u"1 → a.jpg|已存入，但没有完成|"_s));
        QCOMPARE(window.exported(), (QStringList{u"a.jpg"_s, u"b.jpg"_s}));
        QCOMPARE(numbersOf(u"tc01"_s).first(2), (QStringList{u"1"_s, u"3"_s}));
    }

    void cancelledNamesKeepTheRest() {
        TransferWindow window;
        putValue(u"SELECT * FROM tc01 WHERE 序号 = 2"_s, u"图片"_s, FieldValue());
        window.chooseRows({0, 1, 2, 3});
        window.chooseFolder();
        window.click(u"cmdYd"_s);
        for (const QString& name : {u"a"_s, u"none"_s, u"c"_s}) window.giveName(name);
        window.click(u"cmdWm(1)"_s);
        window.expect({.hidden = u"fraWm picWm"_s, .disabled = u"cboBm"_s});
        // What was not moved stays in the list, and what was written is named.
        QCOMPARE(window.chosen(), (QStringList{u"2"_s, u"4"_s}));
        QCOMPARE(window.said(), QStringList());
        QVERIFY2(!window.get<QPushButton>(u"cmdCs"_s).isEnabled(), "the names are to be given again");
        QCOMPARE(window.report(), (QStringList{u"已停止，已移动 2 张，2 张已核对，1 张失败，1 张没有做到"_s,
                                               u"2|失败，没有移动|记录没有图片"_s, u"4|没有做到|"_s,
                                               u"1 → a.jpg|已移动|"_s, u"3 → c.jpg|已移动|"_s}));
        QCOMPARE(window.caption(u"cmdYd"_s), u"已移动"_s);
        window.click(u"cmdQq"_s);
        window.click(u"cmdMq"_s);
        window.click(u"cmdFz"_s);
        window.click(u"cmdWm(1)"_s);
        QCOMPARE(window.said(), QStringList());
        QCOMPARE(window.chosen(), (QStringList{u"2"_s, u"4"_s}));
        window.dropLine(u"2"_s);
        window.chooseFolder();
        window.click(u"cmdFz"_s);
        window.giveName(u"b"_s);
        QCOMPARE(window.said(), QStringList{closing.arg(1)});
        QCOMPARE(numbersOf(u"tc01"_s).size(), 8);
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
        putValue(u"SELECT * FROM tc01 WHERE 序号 = 7"_s, u"编号"_s, FieldValue());
        window.addBytes(u"123.jpg"_s, "mine");
        window.addBytes(u"24.jpg"_s, stored(u"tc01"_s, 4));
        window.chooseRows({2, 6, 5, 8, 3});
        mekTp::catalogue.Execute(u"DELETE FROM [tc01] WHERE 序号 = 9"_s);
        window.chooseFolder();
        const QString question =
            u"要将本图册选中的图片转存成文件吗？\n\n（本操作并不影响原图册中的图片）\n\n如果“是”，按《确定》；否则按《取消》。"_s;
        window.answer = false;
        window.click(u"cmdWj"_s);
        QCOMPARE(window.said(), QStringList{question});
        QCOMPARE(window.exported(), (QStringList{u"123.jpg"_s, u"24.jpg"_s}));
        QCOMPARE(window.chosen().size(), 5);
        window.answer = true;
        window.click(u"cmdWj"_s);
        QCOMPARE(window.said(), (QStringList{question, u"选定的图片已全部转换成文件，共3条"_s}));
        QCOMPARE(window.report().mid(1, 2), (QStringList{u"3 → 123.jpg|失败，没有转成文件|同名文件已存在，没有改动"_s,
                                                         u"9|失败，没有转成文件|记录已不在图册中"_s}));
        QCOMPARE(window.exported(), (QStringList{u"06.jpg"_s, u"07.jpg"_s, u"123.jpg"_s, u"24.jpg"_s}));
        QCOMPARE(window.bytesOf(u"123.jpg"_s), QByteArray("mine"));
        QCOMPARE(window.bytesOf(u"07.jpg"_s), stored(u"tc01"_s, 7));
        QCOMPARE(window.chosen().size(), 5);
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

    /// A picture that cannot be written now is passed over only when that is wished.
    void aFolderThatTakesNothing() {
        TransferWindow window;
        int answer = 0;
        chooseInBoxesWith([&](const BoxText& box) {
            window.boxes << box;
            return std::min<int>(answer, static_cast<int>(box.answers.size()) - 1);
        });
        window.chooseRows({0, 1, 2});
        window.chooseFolder();
        window.click(u"cmdYd"_s);
        const QString question = window.label(u"lblWm"_s);
        {
            const GoneFile gone(window.pictures.path());
            window.giveName(u"a"_s);
            QCOMPARE(window.boxes.size(), 1);
            const BoxText box = window.boxes.takeFirst();
            QCOMPARE(box.answers, (QStringList{u"再试一次"_s, u"跳过这一张"_s}));
            QVERIFY(box.onEnter == 0 && box.onEscape == 0);
            QVERIFY2(box.text.startsWith(u"序号＝1 的图片没有移动"_s) && box.text.contains(u"文件夹不存在"_s),
                     qPrintable(box.text));
            QCOMPARE(window.label(u"lblWm"_s), question);
            QCOMPARE(window.text(u"txtWm"_s), u"a.jpg"_s);
        }
        window.confirmName();  // the stick is back
        QCOMPARE(window.exported(), QStringList{u"a.jpg"_s});
        {
            putValue(u"SELECT * FROM tc01 WHERE 序号 = 2"_s, u"图片"_s, QByteArray(3 << 20, 'x'));
            const FullDisk full(1 << 20);
            answer = 1;
            window.giveName(u"b"_s);
        }
        window.boxes.clear();
        window.giveName(u"c"_s);
        QCOMPARE(window.said(), QStringList{closing.arg(2)});
        QVERIFY(window.report()[1].startsWith(u"2|失败，没有移动|"_s));
        QCOMPARE(window.exported(), (QStringList{u"a.jpg"_s, u"c.jpg"_s}));
        QCOMPARE(window.strayFiles(), QStringList());
        QCOMPARE(numbersOf(u"tc01"_s).first(2), (QStringList{u"2"_s, u"4"_s}));
    }

    void defaultNamesWhereNothingCanBeWritten() {
        TransferWindow window;
        window.chooseRows({0, 1});
        window.chooseFolder();
        const auto run = [&] {
            window.click(u"cmdWj"_s);
            return window.said().mid(1);
        };
        const QString none = u"选定的图片已全部转换成文件，共0条"_s;
        const auto fails = [&](const QString& reason) {
            if (run().last() != none) return false;
            const QStringList report = window.report();
            return report.size() == 3 && report[1].contains(reason) && report[2].contains(reason);
        };
        {
            const GoneFile gone(window.pictures.path());
            QVERIFY(fails(u"文件夹不存在"_s));
        }
        QFile(window.catalogue.folder())
            .setPermissions(QFile(window.catalogue.folder()).permissions() | QFileDevice::ExeGroup |
                            QFileDevice::ReadGroup);
        {
            const PlainUser user;  // keeps the group, and reads the album
            QVERIFY(fails(u"文件夹不能写入"_s));
        }
        {
            const FullDisk full(100);
            window.click(u"cmdWj"_s);
            QCOMPARE(window.said().last(), none);
        }
        QCOMPARE(window.exported(), QStringList());
        QCOMPARE(window.strayFiles(), QStringList());
        QCOMPARE(run(), QStringList{u"选定的图片已全部转换成文件，共2条"_s});
        // Once more: all of it is there.
        QCOMPARE(run(), QStringList{u"选定的图片已全部转换成文件，共2条"_s});
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
