#include "intake_window.h"
#include "platform/base/files.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// Whether a record has the picture of a file of the window's folder.
bool holds(const IntakeWindow& window, const QString& table, int number, const QString& file) {
    return stored(table, number).startsWith(window.bytesOf(file));
}

class TestIntake : public QObject {
    Q_OBJECT

    std::optional<IntakeWindow> window_;

    /// Two of four files are no pictures. At the question about the first one the person goes on.
    void enterDamaged() {
        window_->addAll({u"1.jpg"_s, u"4.jpg"_s});
        for (const QString& name : {u"2.jpg"_s, u"3.jpg"_s}) window_->addBytes(name, "no picture");
        window_->prepare(u"tc02"_s, 1);
        window_->passesOver = true;
        window_->enterAll();
    }

  private Q_SLOTS:
    void init() { window_.emplace(); }

    void appendsInListOrder() {
        window_->addAll({u"10.jpg"_s, u"2.jpg"_s, u"it's #3 图.jpg"_s}, {60, 45});
        window_->prepare(u"tc02"_s, 1);
        window_->enterAll();
        QCOMPARE(numbersOf(u"tc02"_s), (QStringList{u"1"_s, u"2"_s, u"3"_s}));
        QCOMPARE(columnOf(u"tc02"_s, u"规格"_s), QStringList(3, u"60 * 45"_s));
        QCOMPARE(valueOf(u"tc02"_s, u"编号"_s), u" "_s);
        QVERIFY(!valueOf(u"tc02"_s, u"大小"_s).isEmpty());
        QCOMPARE(valueOf(u"tc02"_s, u"日期"_s), FieldValue(FileDateTime(window_->path(u"2.jpg"_s))).toText());
        QVERIFY(holds(*window_, u"tc02"_s, 1, u"2.jpg"_s) && holds(*window_, u"tc02"_s, 3, u"it's #3 图.jpg"_s));
        const QStringList said = window_->said();
        QVERIFY(said.first().startsWith(u"将所选的图片追加本图册(tc02 空册)吗？"_s));
        QCOMPARE(said.mid(1), QStringList{entered(3)});
        window_->expect({.disabled = u"cmdQ1"_s, .texts = {{u"lblJl"_s, u"表 [tc02 空册] 共有记录：3 条"_s}}});

        // Numbers go on from the highest one, wherever it stands.
        putValue(u"SELECT * FROM tc02 WHERE 序号 = 2"_s, u"序号"_s, 40);
        window_->option(u"optYl(0)"_s);
        window_->option(u"optCz(1)"_s);
        window_->enterAll();
        QCOMPARE(numbersOf(u"tc02"_s), (QStringList{u"1"_s, u"40"_s, u"3"_s, u"41"_s, u"42"_s, u"43"_s}));
    }

    void withoutFillingIn() {
        window_->addAll({u"5.jpg"_s, u"6.jpg"_s}, {60, 45});
        window_->get<QCheckBox>(u"chkZd"_s).setChecked(false);
        window_->enterInto(u"tc02"_s, 1);
        for (const QString& column : {u"编号"_s, u"大小"_s, u"规格"_s, u"日期"_s})
            QCOMPARE(valueOf(u"tc02"_s, column), QString());
    }

    void replacesByNumber() {
        putValue(u"SELECT * FROM tc01 WHERE 序号 = 3"_s, u"备注"_s, u"湖边"_s);
        window_->addAll({u"3.jpg"_s, u"1.5.jpg"_s, u"123.jpg"_s}, {60, 45});
        QCOMPARE(window_->enterInto(u"tc01"_s, 0),
                 (QStringList{u"本目标表无下列对应序号：\n\n123.jpg\n\n这些文件没有替换！"_s, entered(2)}));
        QCOMPARE(numbersOf(u"tc01"_s).size(), 10);
        QCOMPARE(ofNumber(3, u"备注"_s), u"湖边"_s);
        QCOMPARE(ofNumber(3, u"编号"_s), u" "_s);
        QCOMPARE(columnOf(u"tc01"_s, u"规格"_s).first(3), (QStringList{u"60 * 45"_s, u"40 * 30"_s, u"60 * 45"_s}));
        QVERIFY(holds(*window_, u"tc01"_s, 3, u"3.jpg"_s));
    }

    void namesWithoutNumberAreRefused() {
        const QStringList refusal{u"文件名不能转换为序号，无法替换！"_s};
        window_->addAll({u"11.jpg"_s, u"12a.jpg"_s, u"13.jpg"_s});
        window_->prepare(u"tc01"_s, 0);
        window_->expect({.disabled = u"cmdQx"_s});
        window_->clickFile(u"12a.jpg"_s);
        QCOMPARE(window_->said(), refusal);
        QVERIFY(window_->files().selectedItems().isEmpty());
        QCOMPARE(window_->echo(), QString());
        window_->expect({.disabled = u"cmdLr"_s});
        // A key that reaches such a name is refused as well, once the box is closed and forgotten.
        QCoreApplication::processEvents();
        window_->clickFile(u"11.jpg"_s);
        QTest::keyClick(&window_->files(), Qt::Key_Down);
        QCOMPARE(window_->said(), refusal);
        window_->expect({.disabled = u"cmdLr"_s});
        window_->clickFile(u"13.jpg"_s);
        window_->expect({.enabled = u"cmdLr"_s});
        // A range that reaches over a name without number keeps the others only, and all that is shown speaks of them.
        window_->clickFile(u"12a.jpg"_s, Qt::ShiftModifier);
        QCOMPARE(window_->files().selectedItems().size(), 1);
        QCOMPARE(window_->echo(), u"13.jpg"_s);
        QVERIFY(window_->hint().startsWith(u"共选中：1条"_s));
        window_->expect({.enabled = u"cmdLr cmdCk(1)"_s});
        window_->click(u"cmdCk(1)"_s);
        QVERIFY(window_->label(u"lblWj"_s).startsWith(u"图片文件："_s + window_->path(u"13.jpg"_s)));
        window_->click(u"cmdCg"_s);
        window_->option(u"optCz(1)"_s);
        window_->expect({.enabled = u"cmdQx"_s});
    }

    void commasMakeNoNumber() {
        window_->addAll({u"1,234.jpg"_s, u"2.jpg"_s}, {60, 45});
        window_->prepare(u"tc01"_s, 0);
        window_->expect({.disabled = u"cmdQx"_s});
        // The run keeps to it, however the files came to be selected.
        const QSignalBlocker unnoticed(window_->files());
        window_->files().selectAll();
        window_->button(u"cmdLr"_s).setEnabled(true);
        window_->click(u"cmdLr"_s);
        QCOMPARE(window_->said().mid(1),
                 (QStringList{u"本目标表无下列对应序号：\n\n1,234.jpg\n\n这些文件没有替换！"_s, entered(1)}));
        QCOMPARE(ofNumber(1, u"规格"_s), u"40 * 30"_s);
    }

    void aDamagedFileEndsTheRun() {
        window_->addAll({u"1.jpg"_s, u"3.jpg"_s}, {60, 45});
        window_->addBytes(u"2.jpg"_s, "no picture");
        window_->addBytes(u"0.jpg"_s, {});
        const QStringList said = window_->enterInto(u"tc01"_s, 1);
        QCOMPARE(said.size(), 2);
        QVERIFY2(said[0].startsWith(u"文件“2.jpg”没有录入："_s), qPrintable(said[0]));
        QCOMPARE(said[1], entered(0));
        const QStringList report = window_->report();
        QVERIFY(report[0].startsWith(u"因失败而停止，已录入 2 张，1 张失败，1 张没有做到\n"_s));
        QCOMPARE(report[1], u"0.jpg|已录入，但没有图片可存|"_s);
        QVERIFY(report[2].startsWith(u"2.jpg|失败，没有录入|"_s));
        QCOMPARE(report.mid(3), (QStringList{u"3.jpg|没有做到|"_s, u"1.jpg|已录入|"_s}));
        // What the page shows is what the run has left.
        window_->expect({.hidden = u"prg2"_s, .texts = {{u"lblJl"_s, u"表 [tc01 旅行] 共有记录：12 条"_s}}});
    }

    void folderWithOneFileOrNone() {
        window_->prepare(u"tc02"_s, 1);
        window_->expect({.hidden = u"lblGy"_s, .disabled = u"cmdQx"_s});
        window_->add(u"a.jpg"_s);
        QCOMPARE(window_->enterInto(u"tc02"_s, 1), QStringList{entered(0)});
        QCOMPARE(window_->report(), (QStringList{u"已录入 1 张"_s, u"a.jpg|已录入|"_s}));
        QVERIFY(holds(*window_, u"tc02"_s, 1, u"a.jpg"_s));
    }

    void allAreChosenOnlyForAWayOfAdding() {
        window_->enterFolder(u"下"_s);
        window_->add(u"下/a.jpg"_s);
        window_->add(u"下/b.jpg"_s);
        window_->get<DirList>(u"dir1"_s).setPath(window_->pictures.path());
        window_->choose(u"cboBm"_s, u"tc02"_s);
        window_->option(u"optYl(0)"_s);
        window_->enterFolderByHand(u"下"_s);
        window_->expect({.disabled = u"cmdQx fil1"_s, .texts = {{u"lblGy"_s, u"该文件夹（目录）共有图片2张"_s}}});
        window_->option(u"optCz(1)"_s);
        window_->expect({.enabled = u"cmdQx fil1"_s});
        window_->click(u"cmdQ1"_s);
        window_->expect({.disabled = u"cmdQx fil1"_s});
    }

    void theQuestionNamesAFileThatIsChosen() {
        window_->addAll({u"1.jpg"_s, u"2.jpg"_s, u"3.jpg"_s});
        window_->answer = false;
        window_->prepare(u"tc01"_s, 0);
        window_->click(u"cmdQx"_s);
        window_->click(u"cmdLr"_s);
        QVERIFY(window_->said().last().endsWith(u"（从文件[1.jpg]替换到本图册 序号＝1）\n\n    等共3条"_s));
        // The focus is on a file that was given up again.
        window_->clickFile(u"1.jpg"_s);
        window_->clickFile(u"2.jpg"_s, Qt::ControlModifier);
        window_->clickFile(u"1.jpg"_s, Qt::ControlModifier);
        window_->click(u"cmdLr"_s);
        QVERIFY(window_->said().last().endsWith(u"（从文件[2.jpg]替换到本图册 序号＝2）\n\n"_s));
    }

    void theCountOfPicturesStaysOnItsPage() {
        window_->addAll({u"a.jpg"_s, u"b.jpg"_s});
        window_->prepare(u"tc01"_s, 1);
        window_->expect({.shown = u"lblGy"_s});
        window_->tabs().setCurrentIndex(3);
        window_->clickRow(0);
        for (const QString& target : {u"optMb(0)"_s, u"optMb(1)"_s}) {
            window_->option(target);
            window_->expect({.shown = u"picMl"_s, .hidden = u"lblGy"_s});
        }
        window_->tabs().setCurrentIndex(1);
        window_->expect({.shown = u"lblGy"_s});
    }

    void albumMustBeChosen() {
        window_->expect({.disabled = u"fraLy cmdCk(0)"_s, .texts = {{u"lblJl"_s, u"请先在上边选择接受图片的图册"_s}}});
        window_->choose(u"cboBm"_s, u"tc01"_s);
        window_->expect({.enabled = u"fraLy optYl(1)"_s, .texts = {{u"lbl11"_s, u"目标表：tc01"_s}}});
        window_->choose(u"cboBm"_s, u"tc02"_s);
        window_->typeAlbum(u"TC01"_s, true);
        window_->expect({.enabled = u"fraLy"_s, .texts = {{u"lbl11"_s, u"目标表：tc01"_s}}});
    }

    void demonstrationAlbumTakesNothing() {
        const QStringList refusal{u"该表只做演示用，不能录入或编辑！"_s};
        for (const QString& typed : {QString(), u"tc00"_s, u"TC00"_s}) {  // empty: chosen from the list
            init();
            window_->addAll({u"1.jpg"_s, u"2.jpg"_s});
            window_->prepare(u"tc01"_s, 0);
            window_->click(u"cmdQx"_s);
            if (typed.isEmpty())
                window_->choose(u"cboBm"_s, u"tc00"_s);
            else
                window_->typeAlbum(typed, true);
            QCOMPARE(window_->said(), refusal);
            window_->expect({.disabled = u"fraLy fraFs cmdLr cmdQx fil1"_s});
            for (const QString& name : {u"optYl(0)"_s, u"optCz(0)"_s, u"optCz(1)"_s})
                QVERIFY2(!window_->checked(name), qPrintable(name));
            QVERIFY(window_->files().selectedItems().isEmpty());
            QCOMPARE(window_->get<DataControl>(u"datBj"_s).total(), 3);
            window_->expect({.enabled = u"cmdCk(0)"_s});
            // Even a button that something has enabled again enters nothing.
            window_->button(u"cmdLr"_s).setEnabled(true);
            Q_EMIT window_->button(u"cmdLr"_s).clicked();
            QCOMPARE(window_->said(), refusal);
            QCOMPARE(numbersOf(u"tc00"_s).size(), 3);
        }
    }

    void typedTextThatIsNoAlbum() {
        for (const bool enter : {true, false}) {
            init();
            window_->addAll({u"1.jpg"_s, u"2.jpg"_s});
            window_->prepare(u"tc01"_s, 1);
            window_->expect({.enabled = u"cmdCk(0)"_s});
            window_->click(u"cmdQx"_s);
            window_->typeAlbum(u"xy99"_s, enter);
            window_->expect({.hidden = u"cmdBh(0)"_s,
                             .disabled = u"fraLy cmdLr cmdCk(0)"_s,
                             .texts = {{u"lblJl"_s, u"请先在上边选择接受图片的图册"_s}}});
            window_->clickFile(u"2.jpg"_s);
            window_->click(u"cmdLr"_s);
            QCOMPARE(window_->said(), QStringList{u"请先选择要录入的图册，然后才能继续！"_s});
            QCOMPARE(numbersOf(u"tc01"_s).size(), 10);

            // The selection stays, also where the question is answered with no.
            window_->choose(u"cboBm"_s, u"tc01"_s);
            for (const bool goOn : {false, true}) {
                window_->answer = goOn;
                QCOMPARE(window_->files().selectedItems().size(), 1);
                window_->click(u"cmdLr"_s);
                QCOMPARE(numbersOf(u"tc01"_s).size(), goOn ? 11 : 10);
            }
            QVERIFY(holds(*window_, u"tc01"_s, 11, u"2.jpg"_s));
        }
    }

    void newFilesAreFound() {
        for (const QString& way : {u"source"_s, u"page"_s, u"run"_s, u"click"_s}) {
            init();
            window_->add(u"1.jpg"_s);
            window_->prepare(u"tc02"_s, 1);
            window_->add(u"2.jpg"_s);
            if (way == u"source"_s) {
                window_->option(u"optYl(0)"_s);
            } else if (way == u"page"_s) {
                window_->tabs().setCurrentIndex(0);
                window_->tabs().setCurrentIndex(1);
            } else if (way == u"run"_s) {
                window_->clickFile(u"1.jpg"_s);
                window_->click(u"cmdLr"_s);
                window_->expect({.disabled = u"cmdLr"_s, .texts = {{u"txtMl"_s, QString()}}});
            } else {
                window_->clickFile(u"1.jpg"_s);
                const auto& dir1 = window_->get<DirList>(u"dir1"_s);
                const QPoint line = dir1.visualItemRect(dir1.currentItem()).center();
                QTest::mouseClick(dir1.viewport(), Qt::LeftButton, {}, line);
                window_->expect({.disabled = u"cmdLr"_s});
            }
            QVERIFY2(window_->files().ListCount() == 2, qPrintable(way));
            QVERIFY2(window_->label(u"lblGy"_s) == u"该文件夹（目录）共有图片2张"_s, qPrintable(way));
        }
    }

    void stepsBack() {
        window_->addAll({u"a.jpg"_s, u"b.jpg"_s});
        window_->prepare(u"tc02"_s, 1);
        window_->clickFile(u"a.jpg"_s);
        QCOMPARE(window_->echo(), u"a.jpg"_s);
        window_->expect({.enabled = u"cmdCk(1)"_s});
        window_->clickFile(u"b.jpg"_s, Qt::ControlModifier);
        QCOMPARE(window_->echo(), u"a.jpg;b.jpg等共2条"_s);
        window_->expect({.disabled = u"cmdCk(1)"_s});
        QCOMPARE(window_->label(u"lblTs"_s),
                 u"操作提示：共选中：2条，按《录入图册》录入，按《取消》返回前步，按Ctrl可再重复选择。"_s);

        window_->click(u"cmdQ1"_s);
        QVERIFY(window_->files().selectedItems().isEmpty());
        QCOMPARE(window_->echo(), QString());
        window_->expect({.disabled = u"cmdLr"_s});
        window_->click(u"cmdQ1"_s);
        window_->expect({.disabled = u"fil1 cmdQx"_s, .unchecked = u"optCz(1)"_s});
        window_->click(u"cmdQ1"_s);
        window_->expect({.shown = u"lbl7"_s, .hidden = u"fil1"_s, .unchecked = u"optYl(0)"_s});
        window_->click(u"cmdQ1"_s);
        window_->expect({.disabled = u"cmdQ1"_s});

        window_->option(u"optYl(0)"_s);
        window_->expect({.shown = u"fil1"_s, .disabled = u"fil1"_s});
    }

    void codesFilterTheGrid() {
        window_->choose(u"cboBm"_s, u"tc01"_s);
        auto& second = window_->button(u"cmdBh(1)"_s);
        QCOMPARE(second.text(), u"1"_s);
        QTest::mouseMove(&second);
        QEnterEvent over(QPointF(2, 2), QPointF(2, 2), QPointF(2, 2));
        QApplication::sendEvent(&second, &over);
        QCOMPARE(window_->text(u"txtB0"_s), u"1：风景"_s);
        window_->click(u"cmdBh(1)"_s);
        QCOMPARE(window_->get<DataControl>(u"datBj"_s).total(), 5);
        window_->expect(
            {.texts = {{u"lblBx(1)"_s, u"选中编号：1＝风景"_s}, {u"lblJl"_s, u"编号=[1](风景) 共有5张"_s}}});
        window_->click(u"cmdBh(0)"_s);
        QCOMPARE(window_->get<DataControl>(u"datBj"_s).total(), 10);
        window_->tabs().setCurrentIndex(2);
        window_->expect({.hidden = u"lblBx(1)"_s});
    }

    // The report
    // --------------------------------------------------------------------------------------------------------

    void onlyTheFirstFailureIsAskedAbout() {
        enterDamaged();
        QCOMPARE(window_->boxes.size(), 3);
        const BoxText& question = window_->boxes[1];
        QVERIFY2(question.text.startsWith(u"文件“2.jpg”没有录入："_s), qPrintable(question.text));
        QCOMPARE(question.answers, (QStringList{u"停止"_s, u"跳过并继续"_s}));
        QVERIFY(question.onEnter == 0 && question.onEscape == 0);
        QCOMPARE(window_->boxes[2].text, entered(2));
        QCOMPARE(numbersOf(u"tc02"_s), (QStringList{u"1"_s, u"2"_s}));
        const QStringList report = window_->report();
        QCOMPARE(report[0], u"已录入 2 张，2 张失败"_s);
        QVERIFY(report[1].startsWith(u"2.jpg|失败，没有录入|"_s) && report[2].startsWith(u"3.jpg|失败，没有录入|"_s));
        QCOMPARE(window_->label(u"lblJd"_s), report[0]);
    }

    void theFailedOnesAreTriedAgain() {
        enterDamaged();
        window_->said();
        window_->add(u"2.jpg"_s);
        window_->click(u"cmdCs"_s);
        QVERIFY(window_->said().contains(entered(1)));
        QCOMPARE(window_->reported()[0], u"已录入 1 张，1 张失败"_s);
        window_->add(u"3.jpg"_s);
        window_->click(u"cmdCs"_s);
        QCOMPARE(window_->said(), QStringList{entered(1)});
        QCOMPARE(window_->report(), QStringList());
        QCOMPARE(numbersOf(u"tc02"_s).size(), 4);
        QCOMPARE(window_->label(u"lblJl"_s), u"表 [tc02 空册] 共有记录：4 条"_s);
    }

    void theReportIsSaved() {
        enterDamaged();
        window_->said();
        window_->picked = window_->path(u"没有/报告.txt"_s);
        window_->click(u"cmdBc"_s);
        QVERIFY(window_->said().join(u""_s).contains(window_->picked));
        window_->picked = window_->path(u"报告.txt"_s);
        window_->click(u"cmdBc"_s);
        QCOMPARE(window_->said(), QStringList());
        const QString text = QString::fromUtf8(window_->bytesOf(u"报告.txt"_s));
        QVERIFY2(text.startsWith(u"已录入 2 张，2 张失败\n\n2.jpg\t失败，没有录入\t"_s), qPrintable(text));
        QVERIFY(text.endsWith(u"1.jpg\t已录入\t\n4.jpg\t已录入\t\n"_s));
    }
};

const Registered<TestIntake> registered;

}  // namespace

#include "intake_test.moc"
