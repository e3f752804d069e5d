#include "../support/disk_faults.h"
#include "transfer_window.h"

using namespace Qt::Literals::StringLiterals;

namespace {

const QString closing = u"图册《旅行》中的 %1 张图片已复制完成！"_s;

class TestTransferPage : public QObject {
    Q_OBJECT

    std::optional<TransferWindow> window_;

  private Q_SLOTS:
    void init() { window_.emplace(); }

    void albumIsChosen() {
        window_.emplace(QString{});
        window_->expect({.disabled = u"cmdQb cmdFz cmdYd cmdWj cmdQq fraMb"_s});
        window_->choose(u"cboBm"_s, u"tc01"_s);
        window_->expect({.enabled = u"cmdQb"_s,
                         .disabled = u"cmdCk(3)"_s,
                         .texts = {{u"lblY0"_s, u"源表：tc01"_s}, {u"lblJs"_s, u"旅行 全部共：10条"_s}}});
        window_->chooseRows({0, 1});
        window_->choose(u"cboBm"_s, u"tc02"_s);
        QCOMPARE(window_->chosen(), QStringList());
        QVERIFY(window_->pageFree());
    }

    void recordsAreChosenOneByOne() {
        window_->chooseRows({2, 0});
        QCOMPARE(window_->chosen(), (QStringList{u"3"_s, u"1"_s}));
        window_->expect({.enabled = u"fraMb cmdQq cmdCk(3)"_s, .texts = {{u"lbl5"_s, u"已选中2条"_s}}});
        QVERIFY(!window_->pageFree());
        window_->clickRow(2);
        QCOMPARE(window_->said(), QStringList{u"选择的图片重复！"_s});
        QCOMPARE(window_->chosen().size(), 2);
        // The preview follows the record.
        window_->click(u"cmdCk(3)"_s);
        QVERIFY(window_->shown(u"fraCk"_s) && window_->label(u"lblWj"_s).contains(u"30*40"_s));
        window_->clickRow(3);
        QVERIFY(window_->label(u"lblWj"_s).contains(u"100*50"_s));
        window_->click(u"cmdCg"_s);
        window_->dropLine(u"4"_s);
        window_->dropLine(u"3"_s);
        QCOMPARE(window_->chosen(), QStringList{u"1"_s});
        QCOMPARE(window_->label(u"lbl5"_s), u"已选中1条"_s);
        window_->dropLine(u"1"_s);
        window_->expect({.disabled = u"fraMb"_s});
        QVERIFY(window_->pageFree());
    }

    void allRecords() {
        window_->clickRow(4);
        window_->click(u"cmdQb"_s);
        QCOMPARE(window_->chosen().size(), 11);
        QCOMPARE(window_->chosen().first(), u"5"_s);
        window_->expect({.disabled = u"cmdXb"_s, .texts = {{u"cmdQb"_s, u"撤消全部选中"_s}}});
        window_->click(u"cmdQb"_s);
        QCOMPARE(window_->chosen(), QStringList());
        window_->expect({.enabled = u"cmdXb"_s, .disabled = u"cmdQq"_s, .texts = {{u"cmdQb"_s, u"本像册全部选中"_s}}});
        window_->click(u"cmdQb"_s);
        window_->click(u"cmdQq"_s);
        QCOMPARE(window_->chosen(), QStringList());
        window_->expect({.enabled = u"cmdQb"_s});
        QVERIFY(window_->pageFree());
    }

    void recordsOfTheTable() {
        window_->click(u"cmdXb"_s);
        QCOMPARE(window_->chosen().size(), 10);
        window_->click(u"cmdXb"_s);
        QCOMPARE(window_->chosen(), QStringList());
        window_->click(u"cmdBh(2)"_s);
        QCOMPARE(window_->label(u"lblJs"_s), u"旅行 编号=2 共：5条"_s);
        window_->clickRow(0);
        window_->click(u"cmdXb"_s);
        QCOMPARE(window_->chosen(), (QStringList{u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s}));
        window_->expect({.disabled = u"cmdQb"_s, .texts = {{u"cmdXb"_s, u"撤消选中"_s}}});
    }

    void stepsBackFromAFolder() {
        window_->chooseRows({0, 1});
        window_->option(u"optMb(0)"_s);
        window_->expect({.shown = u"picMl"_s, .hidden = u"fil1"_s, .disabled = u"cmdMq"_s});
        QVERIFY(window_->hint().startsWith(u"在左侧目录框中选择“目标文件夹”"_s));
        window_->click(u"cmdQq"_s);  // step 2
        window_->expect({.hidden = u"picMl"_s, .unchecked = u"optMb(0)"_s});

        window_->chooseFolder();
        window_->expect({.enabled = u"cmdFz cmdYd cmdWj"_s,
                         .disabled = u"cboBm msgBm fraMb"_s,
                         .texts = {{u"lblLj"_s, u"目标文件夹路径："_s + window_->pictures.path()},
                                   {u"lbl3"_s, u"默认文件名为：\n选定路径＋'\\'＋编号＋序号＋'.jpg' "_s},
                                   {u"lblTs"_s, u"操作提示：可根据需要选按各按钮进行图片文件的复制或移动。"_s}}});

        window_->click(u"cmdQq"_s);  // step 4
        window_->expect({.shown = u"picMl"_s, .enabled = u"cboBm"_s, .disabled = u"cmdFz"_s});
        QCOMPARE(window_->echo(), window_->pictures.path());
        window_->click(u"cmdMj"_s);
        QCOMPARE(window_->caption(u"cmdMj"_s), u"新建确定"_s);
        window_->click(u"cmdQq"_s);  // step 5
        window_->expect({.enabled = u"cmdMq"_s, .texts = {{u"cmdMj"_s, u"新建文件夹"_s}}});
        window_->click(u"cmdQq"_s);  // step 3
        QCOMPARE(window_->echo(), QString());
        window_->click(u"cmdQq"_s);  // step 2
        window_->expect({.hidden = u"picMl"_s});
        QCOMPARE(window_->chosen().size(), 2);
        window_->click(u"cmdQq"_s);  // step 1
        QCOMPARE(window_->chosen(), QStringList());
        window_->expect({.enabled = u"cboBm msgBm"_s, .disabled = u"cmdQq"_s});
    }

    void copiesUnderGivenNames() {
        window_->chooseRows({0, 2});
        window_->chooseFolder(u"cmdFz"_s);
        window_->expect({.shown = u"fraWm imgWm"_s,
                         .disabled = u"cmdFz cmdYd"_s,
                         .texts = {{u"cmdFz"_s, u"已复制"_s},
                                   {u"lblWm"_s, u"输入图册《旅行》中序号＝1 的保存文件名"_s},
                                   {u"txtWm"_s, u"121.jpg"_s}}});
        QCOMPARE(window_->box(u"txtWm"_s).selectedText(), u"121.jpg"_s);
        // Leaving the box completes the name.
        window_->typeName(u"海边.bmp"_s);
        window_->button(u"cmdWm(1)"_s).setFocus();
        QTRY_COMPARE(window_->text(u"txtWm"_s), u"海边.jpg"_s);
        window_->confirmName();
        window_->expect(
            {.texts = {{u"lblWm"_s, u"输入图册《旅行》中序号＝3 的保存文件名："_s}, {u"txtWm"_s, u"123.jpg"_s}}});
        QTest::keyClicks(&window_->box(u"txtWm"_s), u"b"_s);
        window_->pressKey(Qt::Key_Return);
        QCOMPARE(window_->said(), QStringList{closing.arg(2)});
        QCOMPARE(window_->exported(), (QStringList{u"b.jpg"_s, u"海边.jpg"_s}));
        QCOMPARE(window_->bytesOf(u"b.jpg"_s), stored(u"tc01"_s, 3));
        QCOMPARE(numbersOf(u"tc01"_s).size(), 10);
        window_->expect({.texts = {{u"lbl5"_s, u"已转录完成"_s}, {u"cmdFz"_s, u"复 制"_s}}});
        QCOMPARE(window_->hint(), u"选择图册可重新开始。"_s);
        window_->expect({.hidden = u"fraWm picWm"_s, .enabled = u"cboBm"_s});
        QVERIFY(window_->pageFree());
    }

    void thePictureInQuestionIsShown() {
        putValue(u"SELECT * FROM tc01 WHERE 序号 = 5"_s, u"图片"_s, FieldValue());
        putValue(u"SELECT * FROM tc01 WHERE 序号 = 5"_s, u"编号"_s, u" "_s);
        window_->chooseRows({2, 3, 4});
        window_->chooseFolder(u"cmdFz"_s);
        auto& image = window_->get<ImageBox>(u"imgWm"_s);
        for (const QSize pixels : {QSize(30, 40), QSize(100, 50)}) {
            QCOMPARE(image.picture().pixels(), pixels);
            QVERIFY(image.parentWidget()->rect().contains(image.geometry()));
            QVERIFY(qAbs(double(image.width()) / image.height() - double(pixels.width()) / pixels.height()) < 0.05);
            window_->pressKey(Qt::Key_Return);
        }
        window_->expect({.shown = u"picWm"_s, .hidden = u"imgWm"_s, .texts = {{u"txtWm"_s, u"05.jpg"_s}}});
        QVERIFY(window_->label(u"picWm"_s).startsWith(u"这条记录没有"_s));
        window_->pressKey(Qt::Key_Return);
        QCOMPARE(window_->said(), QStringList{closing.arg(2)});
        QCOMPARE(window_->report(),
                 (QStringList{u"已复制 2 张，2 张已核对，1 张失败"_s, u"5|失败，没有复制|记录没有图片"_s,
                              u"3 → 123.jpg|已复制|"_s, u"4 → 24.jpg|已复制|"_s}));
        QCOMPARE(window_->label(u"lblJd"_s), u"已复制 2 张，2 张已核对，1 张失败"_s);
        QCOMPARE(window_->exported(), (QStringList{u"123.jpg"_s, u"24.jpg"_s}));
    }

    void badNamesAreRefusedOnTheSpot() {
        window_->addBytes(u"taken.jpg"_s, "mine");
        window_->chooseRows({0, 1});
        window_->chooseFolder(u"cmdYd"_s);
        const QString question = window_->label(u"lblWm"_s);
        const QList<std::pair<QString, QString>> cases{{u"taken"_s, u"文件夹中已有文件“taken.jpg”，请换一个文件名。"_s},
                                                       {u"x/out"_s, u"文件名中不能有“/”，请重新填写。"_s},
                                                       {u"  "_s, u"请填写文件名！"_s},
                                                       {u".jpg"_s, u"请填写文件名！"_s}};
        for (const auto& [name, refusal] : cases) {
            window_->giveName(name);
            QCOMPARE(window_->said(), QStringList{refusal});
            // What was typed stands, to be changed or typed over.
            QCOMPARE(window_->text(u"txtWm"_s).left(name.size()), name);
            QVERIFY(window_->box(u"txtWm"_s).hasSelectedText());
            window_->expect({.shown = u"fraWm"_s, .enabled = u"cmdWm(0)"_s, .texts = {{u"lblWm"_s, question}}});
        }
        window_->pressKey(Qt::Key_Delete);
        window_->expect({.disabled = u"cmdWm(0)"_s});
        window_->pressKey(Qt::Key_Return);
        QTRY_COMPARE(window_->boxes.size(), 1);
        QCOMPARE(window_->said(), QStringList{u"请填写文件名！"_s});
        QCOMPARE(numbersOf(u"tc01"_s).size(), 10);
        for (const QString& name : {u"a"_s, u"b"_s}) window_->giveName(name);
        QCOMPARE(window_->said(), QStringList{closing.arg(2)});
        QCOMPARE(window_->exported(), (QStringList{u"a.jpg"_s, u"b.jpg"_s, u"taken.jpg"_s}));
        QCOMPARE(window_->bytesOf(u"taken.jpg"_s), QByteArray("mine"));
        QCOMPARE(numbersOf(u"tc01"_s).size(), 8);
    }

    void theListStandsWhileNamesAreAskedFor() {
        window_->chooseRows({0, 2});
        window_->chooseFolder(u"cmdYd"_s);
        window_->click(u"cmdBh(1)"_s);
        window_->expect(
            {.disabled = u"msgBm cmdQb cmdXb lstSu fraMb"_s, .texts = {{u"lblJs"_s, u"旅行 编号=1 共：5条"_s}}});
        window_->clickRow(1);
        window_->click(u"cmdXb"_s);
        window_->option(u"optMb(1)"_s);
        QCOMPARE(window_->chosen(), (QStringList{u"1"_s, u"3"_s}));
        QTest::mouseClick(&window_->box(u"txtWm"_s), Qt::LeftButton);
        QTest::keyClick(&window_->box(u"txtWm"_s), Qt::Key_A, Qt::ControlModifier);
        for (const QString& name : {u"a"_s, u"b"_s}) window_->giveName(name);
        QCOMPARE(window_->said(), QStringList{closing.arg(2)});
        QCOMPARE(window_->exported(), (QStringList{u"a.jpg"_s, u"b.jpg"_s}));
        QCOMPARE(numbersOf(u"tc01"_s).first(2), (QStringList{u"2"_s, u"4"_s}));
    }

    void movesOnlyWhatIsWritten() {
        window_->addBytes(u"same.jpg"_s, stored(u"tc01"_s, 2));
        putValue(u"SELECT * FROM tc01 WHERE 序号 = 4"_s, u"图片"_s, FieldValue());
        window_->chooseRows({0, 1, 2, 3});
        mekTp::catalogue.Execute(u"DELETE FROM [tc01] WHERE 序号 = 3"_s);
        window_->chooseFolder(u"cmdYd"_s);
        for (const QString& name : {u"one"_s, u"same"_s, u"gone"_s, u"empty"_s}) window_->giveName(name);
        QCOMPARE(window_->said(), QStringList{closing.arg(2)});
        QCOMPARE(window_->report().mid(1, 2),
                 (QStringList{u"3|失败，没有移动|记录已不在图册中"_s, u"4|失败，没有移动|记录没有图片"_s}));
        QCOMPARE(numbersOf(u"tc01"_s).first(2), (QStringList{u"4"_s, u"5"_s}));
        QCOMPARE(window_->exported(), (QStringList{u"one.jpg"_s, u"same.jpg"_s}));
        QCOMPARE(window_->strayFiles(), QStringList());
        QCOMPARE(window_->label(u"lblJs"_s), u"旅行 全部共：7条"_s);
    }

    /// Its file is not written again.
    void aRecordThatStaysIsInDoubt() {
        QProcess::execute(u"sqlite3"_s, {mekTp::cataloguePath(),
                                         u"CREATE TRIGGER stays BEFORE DELETE ON tc01 WHEN OLD.序号 = 1 "
                                         "BEGIN SELECT RAISE(ABORT, 'stays'); END"_s});
        window_->chooseRows({0, 1});
        window_->chooseFolder(u"cmdYd"_s);
        for (const QString& name : {u"a"_s, u"b"_s}) window_->giveName(name);
        const QStringList said = window_->said();
        QVERIFY(said.size() == 2 && said[0].startsWith(u"文件“a.jpg”已写成，但记录没有从图册删除"_s));
        QCOMPARE(said[1], closing.arg(1));
        QVERIFY(window_->report()[1].startsWith(u"1 → a.jpg|已存入，但没有完成|"_s));
        QCOMPARE(window_->exported(), (QStringList{u"a.jpg"_s, u"b.jpg"_s}));
        QCOMPARE(numbersOf(u"tc01"_s).first(2), (QStringList{u"1"_s, u"3"_s}));
    }

    void cancelledNamesKeepTheRest() {
        putValue(u"SELECT * FROM tc01 WHERE 序号 = 2"_s, u"图片"_s, FieldValue());
        window_->chooseRows({0, 1, 2, 3});
        window_->chooseFolder(u"cmdYd"_s);
        for (const QString& name : {u"a"_s, u"none"_s, u"c"_s}) window_->giveName(name);
        window_->click(u"cmdWm(1)"_s);
        window_->expect({.hidden = u"fraWm picWm"_s, .disabled = u"cboBm"_s});
        // What was not moved stays in the list, and what was written is named.
        QCOMPARE(window_->chosen(), (QStringList{u"2"_s, u"4"_s}));
        QCOMPARE(window_->said(), QStringList());
        QVERIFY2(!window_->get<QPushButton>(u"cmdCs"_s).isEnabled(), "the names are to be given again");
        QCOMPARE(window_->report(), (QStringList{u"已停止，已移动 2 张，2 张已核对，1 张失败，1 张没有做到"_s,
                                                 u"2|失败，没有移动|记录没有图片"_s, u"4|没有做到|"_s,
                                                 u"1 → a.jpg|已移动|"_s, u"3 → c.jpg|已移动|"_s}));
        QCOMPARE(window_->caption(u"cmdYd"_s), u"已移动"_s);
        window_->click(u"cmdQq"_s);
        window_->click(u"cmdMq"_s);
        window_->click(u"cmdFz"_s);
        window_->click(u"cmdWm(1)"_s);
        QCOMPARE(window_->said(), QStringList());
        QCOMPARE(window_->chosen(), (QStringList{u"2"_s, u"4"_s}));
        window_->dropLine(u"2"_s);
        window_->chooseFolder(u"cmdFz"_s);
        window_->giveName(u"b"_s);
        QCOMPARE(window_->said(), QStringList{closing.arg(1)});
        QCOMPARE(numbersOf(u"tc01"_s).size(), 8);
        QCOMPARE(window_->exported(), (QStringList{u"a.jpg"_s, u"b.jpg"_s, u"c.jpg"_s}));
    }

    void demonstrationAlbumIsNotMoved() {
        window_.emplace(u"tc00"_s);
        window_->clickRow(0);
        window_->chooseFolder(u"cmdYd"_s);
        QCOMPARE(window_->said(), QStringList{u"该表只做演示用，不能录入或编辑！"_s});
        window_->expect({.hidden = u"fraWm"_s});
    }

    void defaultNames() {
        putValue(u"SELECT * FROM tc01 WHERE 序号 = 7"_s, u"编号"_s, FieldValue());
        window_->addBytes(u"123.jpg"_s, "mine");
        window_->addBytes(u"24.jpg"_s, stored(u"tc01"_s, 4));
        window_->chooseRows({2, 6, 5, 8, 3});
        mekTp::catalogue.Execute(u"DELETE FROM [tc01] WHERE 序号 = 9"_s);
        window_->chooseFolder();
        const QString question =
            u"要将本图册选中的图片转存成文件吗？\n\n（本操作并不影响原图册中的图片）\n\n如果“是”，按《确定》；否则按《取消》。"_s;
        window_->answer = false;
        window_->click(u"cmdWj"_s);
        QCOMPARE(window_->said(), QStringList{question});
        QCOMPARE(window_->exported(), (QStringList{u"123.jpg"_s, u"24.jpg"_s}));
        QCOMPARE(window_->chosen().size(), 5);
        window_->answer = true;
        window_->click(u"cmdWj"_s);
        QCOMPARE(window_->said(), (QStringList{question, u"选定的图片已全部转换成文件，共3条"_s}));
        QCOMPARE(window_->report().mid(1, 2), (QStringList{u"3 → 123.jpg|失败，没有转成文件|同名文件已存在，没有改动"_s,
                                                           u"9|失败，没有转成文件|记录已不在图册中"_s}));
        QCOMPARE(window_->exported(), (QStringList{u"06.jpg"_s, u"07.jpg"_s, u"123.jpg"_s, u"24.jpg"_s}));
        QCOMPARE(window_->bytesOf(u"123.jpg"_s), QByteArray("mine"));
        QCOMPARE(window_->bytesOf(u"07.jpg"_s), stored(u"tc01"_s, 7));
        QCOMPARE(window_->chosen().size(), 5);
        window_->expect({.hidden = u"prg3"_s, .enabled = u"cboBm"_s, .disabled = u"cmdQq cmdQb"_s});
        QVERIFY(window_->pageFree());
    }

    void defaultNamesForTheTable() {
        putValue(u"SELECT * FROM tc01 WHERE 序号 = 2"_s, u"序号"_s, 1);
        window_->click(u"cmdXb"_s);
        window_->chooseFolder(u"cmdWj"_s);
        QCOMPARE(window_->said().last(), u"选定的图片已全部转换成文件，共10条"_s);
        // Two records share a number. Their codes differ, so that each has its own file.
        QVERIFY(window_->exported().contains(u"121.jpg"_s) && window_->exported().contains(u"21.jpg"_s));
        window_->expect({.texts = {{u"cmdQb"_s, u"本像册全部选中"_s}, {u"cmdXb"_s, u"撤消选中"_s}}});
        window_->click(u"cmdXb"_s);
        QCOMPARE(window_->chosen(), QStringList());
    }

    /// A picture that cannot be written now is passed over only when that is wished.
    void aFolderThatTakesNothing() {
        int answer = 0;
        chooseInBoxesWith([&](const BoxText& box) {
            window_->boxes << box;
            return std::min<int>(answer, static_cast<int>(box.answers.size()) - 1);
        });
        window_->chooseRows({0, 1, 2});
        window_->chooseFolder(u"cmdYd"_s);
        const QString question = window_->label(u"lblWm"_s);
        {
            const GoneFile gone(window_->pictures.path());
            window_->giveName(u"a"_s);
            QCOMPARE(window_->boxes.size(), 1);
            const BoxText box = window_->boxes.takeFirst();
            QCOMPARE(box.answers, (QStringList{u"再试一次"_s, u"跳过这一张"_s}));
            QVERIFY(box.onEnter == 0 && box.onEscape == 0);
            QVERIFY2(box.text.startsWith(u"序号＝1 的图片没有移动"_s) && box.text.contains(u"文件夹不存在"_s),
                     qPrintable(box.text));
            QCOMPARE(window_->label(u"lblWm"_s), question);
            QCOMPARE(window_->text(u"txtWm"_s), u"a.jpg"_s);
        }
        window_->confirmName();  // the stick is back
        QCOMPARE(window_->exported(), QStringList{u"a.jpg"_s});
        {
            putValue(u"SELECT * FROM tc01 WHERE 序号 = 2"_s, u"图片"_s, QByteArray(3 << 20, 'x'));
            const FullDisk full(1 << 20);
            answer = 1;
            window_->giveName(u"b"_s);
        }
        window_->boxes.clear();
        window_->giveName(u"c"_s);
        QCOMPARE(window_->said(), QStringList{closing.arg(2)});
        QVERIFY(window_->report()[1].startsWith(u"2|失败，没有移动|"_s));
        QCOMPARE(window_->exported(), (QStringList{u"a.jpg"_s, u"c.jpg"_s}));
        QCOMPARE(window_->strayFiles(), QStringList());
        QCOMPARE(numbersOf(u"tc01"_s).first(2), (QStringList{u"2"_s, u"4"_s}));
    }

    void defaultNamesWhereNothingCanBeWritten() {
        window_->chooseRows({0, 1});
        window_->chooseFolder();
        const auto run = [&] {
            window_->click(u"cmdWj"_s);
            return window_->said().mid(1);
        };
        const QString none = u"选定的图片已全部转换成文件，共0条"_s;
        const auto fails = [&](const QString& reason) {
            if (run().last() != none) return false;
            const QStringList report = window_->report();
            return report.size() == 3 && report[1].contains(reason) && report[2].contains(reason);
        };
        {
            const GoneFile gone(window_->pictures.path());
            QVERIFY(fails(u"文件夹不存在"_s));
        }
        QFile(window_->catalogue.folder())
            .setPermissions(QFile(window_->catalogue.folder()).permissions() | QFileDevice::ExeGroup |
                            QFileDevice::ReadGroup);
        {
            const PlainUser user;  // keeps the group, and reads the album
            QVERIFY(fails(u"文件夹不能写入"_s));
        }
        {
            const FullDisk full(100);
            window_->click(u"cmdWj"_s);
            QCOMPARE(window_->said().last(), none);
        }
        QCOMPARE(window_->exported(), QStringList());
        QCOMPARE(window_->strayFiles(), QStringList());
        QCOMPARE(run(), QStringList{u"选定的图片已全部转换成文件，共2条"_s});
        // Once more: all of it is there.
        QCOMPARE(run(), QStringList{u"选定的图片已全部转换成文件，共2条"_s});
    }

    void givingUpFreesThePage() {
        window_->clickRow(0);
        window_->chooseFolder();
        window_->dropLine(u"1"_s);
        window_->expect({.enabled = u"cboBm msgBm"_s, .disabled = u"cmdFz"_s});
        QVERIFY(window_->pageFree());

        window_->chooseRows({0, 1});
        window_->chooseFolder(u"cmdFz"_s);
        window_->tabs().setCurrentIndex(2);
        window_->expect({.enabled = u"cboBm msgBm"_s});
        window_->tabs().setCurrentIndex(3);
        QCOMPARE(window_->chosen(), QStringList());
        QVERIFY(!window_->shown(u"fraWm"_s));
        QCOMPARE(window_->caption(u"cmdFz"_s), u"复 制"_s);
    }
};

const Registered<TestTransferPage> registered;

}  // namespace

#include "transfer_page_test.moc"
