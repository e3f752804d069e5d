#include "../support/run_all.h"
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

  private Q_SLOTS:
    void appendsInListOrder() {
        IntakeWindow window;
        window.addAll({u"10.jpg"_s, u"2.jpg"_s, u"it's #3 图.jpg"_s}, {60, 45});
        window.prepare(u"tc02"_s, 1);
        window.enterAll();
        QCOMPARE(numbersOf(u"tc02"_s), (QStringList{u"1"_s, u"2"_s, u"3"_s}));
        QCOMPARE(columnOf(u"tc02"_s, u"规格"_s), QStringList(3, u"60 * 45"_s));
        QCOMPARE(valueOf(u"tc02"_s, u"编号"_s), u" "_s);
        QVERIFY(!valueOf(u"tc02"_s, u"大小"_s).isEmpty());
        QCOMPARE(valueOf(u"tc02"_s, u"日期"_s), FieldValue(FileDateTime(window.path(u"2.jpg"_s))).toText());
        QVERIFY(holds(window, u"tc02"_s, 1, u"2.jpg"_s) && holds(window, u"tc02"_s, 3, u"it's #3 图.jpg"_s));
        const QStringList said = window.said();
        QVERIFY(said.first().startsWith(u"将所选的图片追加本图册(tc02 空册)吗？"_s));
        QCOMPARE(said.mid(1), QStringList{entered(3)});
        window.expect({.disabled = u"cmdQ1"_s, .texts = {{u"lblJl"_s, u"表 [tc02 空册] 共有记录：3 条"_s}}});

        // Numbers go on from the highest one, wherever it stands.
        putValue(u"SELECT * FROM tc02 WHERE 序号 = 2"_s, u"序号"_s, 40);
        window.option(u"optYl(0)"_s);
        window.option(u"optCz(1)"_s);
        window.enterAll();
        QCOMPARE(numbersOf(u"tc02"_s), (QStringList{u"1"_s, u"40"_s, u"3"_s, u"41"_s, u"42"_s, u"43"_s}));
    }

    void withoutFillingIn() {
        IntakeWindow window;
        window.addAll({u"5.jpg"_s, u"6.jpg"_s}, {60, 45});
        window.get<QCheckBox>(u"chkZd"_s).setChecked(false);
        window.enterInto(u"tc02"_s, 1);
        for (const QString& column : {u"编号"_s, u"大小"_s, u"规格"_s, u"日期"_s})
            QCOMPARE(valueOf(u"tc02"_s, column), QString());
    }

    void replacesByNumber() {
        IntakeWindow window;
        putValue(u"SELECT * FROM tc01 WHERE 序号 = 3"_s, u"备注"_s, u"湖边"_s);
        window.addAll({u"3.jpg"_s, u"1.5.jpg"_s, u"123.jpg"_s}, {60, 45});
        QCOMPARE(window.enterInto(u"tc01"_s, 0),
                 (QStringList{u"本目标表无下列对应序号：\n\n123.jpg\n\n这些文件没有替换！"_s, entered(2)}));
        QCOMPARE(numbersOf(u"tc01"_s).size(), 10);
        QCOMPARE(ofNumber(3, u"备注"_s), u"湖边"_s);
        QCOMPARE(ofNumber(3, u"编号"_s), u" "_s);
        QCOMPARE(columnOf(u"tc01"_s, u"规格"_s).first(3), (QStringList{u"60 * 45"_s, u"40 * 30"_s, u"60 * 45"_s}));
        QVERIFY(holds(window, u"tc01"_s, 3, u"3.jpg"_s));
    }

    void namesWithoutNumberAreRefused() {
        const QStringList refusal{u"文件名不能转换为序号，无法替换！"_s};
        IntakeWindow window;
        window.addAll({u"11.jpg"_s, u"12a.jpg"_s, u"13.jpg"_s});
        window.prepare(u"tc01"_s, 0);
        window.expect({.disabled = u"cmdQx"_s});
        window.clickFile(u"12a.jpg"_s);
        QCOMPARE(window.said(), refusal);
        QVERIFY(window.files().selectedItems().isEmpty());
        QCOMPARE(window.echo(), QString());
        window.expect({.disabled = u"cmdLr"_s});
        // A key that reaches such a name is refused as well, once the box is closed and forgotten.
        QCoreApplication::processEvents();
        window.clickFile(u"11.jpg"_s);
        QTest::keyClick(&window.files(), Qt::Key_Down);
        QCOMPARE(window.said(), refusal);
        window.expect({.disabled = u"cmdLr"_s});
        window.clickFile(u"13.jpg"_s);
        window.expect({.enabled = u"cmdLr"_s});
        // A range that reaches over a name without number keeps the others only, and all that is shown speaks of them.
        window.clickFile(u"12a.jpg"_s, Qt::ShiftModifier);
        QCOMPARE(window.files().selectedItems().size(), 1);
        QCOMPARE(window.echo(), u"13.jpg"_s);
        QVERIFY(window.hint().startsWith(u"共选中：1条"_s));
        window.expect({.enabled = u"cmdLr cmdCk(1)"_s});
        window.click(u"cmdCk(1)"_s);
        QVERIFY(window.label(u"lblWj"_s).startsWith(u"图片文件："_s + window.path(u"13.jpg"_s)));
        window.click(u"cmdCg"_s);
        window.option(u"optCz(1)"_s);
        window.expect({.enabled = u"cmdQx"_s});
    }

    void commasMakeNoNumber() {
        IntakeWindow window;
        window.addAll({u"1,234.jpg"_s, u"2.jpg"_s}, {60, 45});
        window.prepare(u"tc01"_s, 0);
        window.expect({.disabled = u"cmdQx"_s});
        // The run keeps to it, however the files came to be selected.
        const QSignalBlocker unnoticed(window.files());
        window.files().selectAll();
        window.button(u"cmdLr"_s).setEnabled(true);
        window.click(u"cmdLr"_s);
        QCOMPARE(window.said().mid(1),
                 (QStringList{u"本目标表无下列对应序号：\n\n1,234.jpg\n\n这些文件没有替换！"_s, entered(1)}));
        QCOMPARE(ofNumber(1, u"规格"_s), u"40 * 30"_s);
    }

    void aDamagedFileEndsTheRun() {
        IntakeWindow window;
        window.addAll({u"1.jpg"_s, u"3.jpg"_s}, {60, 45});
        window.addBytes(u"2.jpg"_s, "no picture");
        window.addBytes(u"0.jpg"_s, {});
        const QStringList said = window.enterInto(u"tc01"_s, 1);
        QCOMPARE(said.size(), 2);
        QVERIFY2(said[0].startsWith(u"文件“2.jpg”没有录入："_s), qPrintable(said[0]));
        QCOMPARE(said[1], entered(0));
        const QStringList report = window.report();
        QVERIFY(report[0].startsWith(u"因失败而停止，已录入 2 张，1 张失败，1 张没有做到\n"_s));
        QCOMPARE(report[1], u"0.jpg|已录入，但没有图片可存|"_s);
        QVERIFY(report[2].startsWith(u"2.jpg|失败，没有录入|"_s));
        QCOMPARE(report.mid(3), (QStringList{u"3.jpg|没有做到|"_s, u"1.jpg|已录入|"_s}));
        // What the page shows is what the run has left.
        window.expect({.hidden = u"prg2"_s, .texts = {{u"lblJl"_s, u"表 [tc01 旅行] 共有记录：12 条"_s}}});
    }

    void folderWithOneFileOrNone() {
        IntakeWindow window;
        window.prepare(u"tc02"_s, 1);
        window.expect({.hidden = u"lblGy"_s, .disabled = u"cmdQx"_s});
        window.add(u"a.jpg"_s);
        QCOMPARE(window.enterInto(u"tc02"_s, 1), QStringList{entered(0)});
        QCOMPARE(window.report(), (QStringList{u"已录入 1 张"_s, u"a.jpg|已录入|"_s}));
        QVERIFY(holds(window, u"tc02"_s, 1, u"a.jpg"_s));
    }

    void allAreChosenOnlyForAWayOfAdding() {
        IntakeWindow window;
        window.enterFolder(u"下"_s);
        window.add(u"下/a.jpg"_s);
        window.add(u"下/b.jpg"_s);
        window.get<DirList>(u"dir1"_s).setPath(window.pictures.path());
        window.choose(u"cboBm"_s, u"tc02"_s);
        window.option(u"optYl(0)"_s);
        window.enterFolderByHand(u"下"_s);
        window.expect({.disabled = u"cmdQx fil1"_s, .texts = {{u"lblGy"_s, u"该文件夹（目录）共有图片2张"_s}}});
        window.option(u"optCz(1)"_s);
        window.expect({.enabled = u"cmdQx fil1"_s});
        window.click(u"cmdQ1"_s);
        window.expect({.disabled = u"cmdQx fil1"_s});
    }

    void theQuestionNamesAFileThatIsChosen() {
        IntakeWindow window;
        window.addAll({u"1.jpg"_s, u"2.jpg"_s, u"3.jpg"_s});
        window.answer = false;
        window.prepare(u"tc01"_s, 0);
        window.click(u"cmdQx"_s);
        window.click(u"cmdLr"_s);
        QVERIFY(window.said().last().endsWith(u"（从文件[1.jpg]替换到本图册 序号＝1）\n\n    等共3条"_s));
        // The focus is on a file that was given up again.
        window.clickFile(u"1.jpg"_s);
        window.clickFile(u"2.jpg"_s, Qt::ControlModifier);
        window.clickFile(u"1.jpg"_s, Qt::ControlModifier);
        window.click(u"cmdLr"_s);
        QVERIFY(window.said().last().endsWith(u"（从文件[2.jpg]替换到本图册 序号＝2）\n\n"_s));
    }

    void theCountOfPicturesStaysOnItsPage() {
        IntakeWindow window;
        window.addAll({u"a.jpg"_s, u"b.jpg"_s});
        window.prepare(u"tc01"_s, 1);
        window.expect({.shown = u"lblGy"_s});
        window.tabs().setCurrentIndex(3);
        window.clickRow(0);
        for (const QString& target : {u"optMb(0)"_s, u"optMb(1)"_s}) {
            window.option(target);
            window.expect({.shown = u"picMl"_s, .hidden = u"lblGy"_s});
        }
        window.tabs().setCurrentIndex(1);
        window.expect({.shown = u"lblGy"_s});
    }

    void albumMustBeChosen() {
        IntakeWindow window;
        window.expect({.disabled = u"fraLy cmdCk(0)"_s, .texts = {{u"lblJl"_s, u"请先在上边选择接受图片的图册"_s}}});
        window.choose(u"cboBm"_s, u"tc01"_s);
        window.expect({.enabled = u"fraLy optYl(1)"_s, .texts = {{u"lbl11"_s, u"目标表：tc01"_s}}});
        window.choose(u"cboBm"_s, u"tc02"_s);
        window.typeAlbum(u"TC01"_s, true);
        window.expect({.enabled = u"fraLy"_s, .texts = {{u"lbl11"_s, u"目标表：tc01"_s}}});
    }

    void demonstrationAlbumTakesNothing() {
        const QStringList refusal{u"该表只做演示用，不能录入或编辑！"_s};
        for (const QString& typed : {QString(), u"tc00"_s, u"TC00"_s}) {  // empty: chosen from the list
            IntakeWindow window;
            window.addAll({u"1.jpg"_s, u"2.jpg"_s});
            window.prepare(u"tc01"_s, 0);
            window.click(u"cmdQx"_s);
            if (typed.isEmpty())
                window.choose(u"cboBm"_s, u"tc00"_s);
            else
                window.typeAlbum(typed, true);
            QCOMPARE(window.said(), refusal);
            window.expect({.disabled = u"fraLy fraFs cmdLr cmdQx fil1"_s});
            for (const QString& name : {u"optYl(0)"_s, u"optCz(0)"_s, u"optCz(1)"_s})
                QVERIFY2(!window.checked(name), qPrintable(name));
            QVERIFY(window.files().selectedItems().isEmpty());
            QCOMPARE(window.get<DataControl>(u"datBj"_s).total(), 3);
            window.expect({.enabled = u"cmdCk(0)"_s});
            // Even a button that something has enabled again enters nothing.
            window.button(u"cmdLr"_s).setEnabled(true);
            Q_EMIT window.button(u"cmdLr"_s).clicked();
            QCOMPARE(window.said(), refusal);
            QCOMPARE(numbersOf(u"tc00"_s).size(), 3);
        }
    }

    void typedTextThatIsNoAlbum() {
        for (const bool enter : {true, false}) {
            IntakeWindow window;
            window.addAll({u"1.jpg"_s, u"2.jpg"_s});
            window.prepare(u"tc01"_s, 1);
            window.expect({.enabled = u"cmdCk(0)"_s});
            window.click(u"cmdQx"_s);
            window.typeAlbum(u"xy99"_s, enter);
            window.expect({.hidden = u"cmdBh(0)"_s,
                           .disabled = u"fraLy cmdLr cmdCk(0)"_s,
                           .texts = {{u"lblJl"_s, u"请先在上边选择接受图片的图册"_s}}});
            window.clickFile(u"2.jpg"_s);
            window.click(u"cmdLr"_s);
            QCOMPARE(window.said(), QStringList{u"请先选择要录入的图册，然后才能继续！"_s});
            QCOMPARE(numbersOf(u"tc01"_s).size(), 10);

            // The selection stays, also where the question is answered with no.
            window.choose(u"cboBm"_s, u"tc01"_s);
            for (const bool goOn : {false, true}) {
                window.answer = goOn;
                QCOMPARE(window.files().selectedItems().size(), 1);
                window.click(u"cmdLr"_s);
                QCOMPARE(numbersOf(u"tc01"_s).size(), goOn ? 11 : 10);
            }
            QVERIFY(holds(window, u"tc01"_s, 11, u"2.jpg"_s));
        }
    }

    void newFilesAreFound() {
        for (const QString& way : {u"source"_s, u"page"_s, u"run"_s, u"click"_s}) {
            IntakeWindow window;
            window.add(u"1.jpg"_s);
            window.prepare(u"tc02"_s, 1);
            window.add(u"2.jpg"_s);
            if (way == u"source"_s) {
                window.option(u"optYl(0)"_s);
            } else if (way == u"page"_s) {
                window.tabs().setCurrentIndex(0);
                window.tabs().setCurrentIndex(1);
            } else if (way == u"run"_s) {
                window.clickFile(u"1.jpg"_s);
                window.click(u"cmdLr"_s);
                window.expect({.disabled = u"cmdLr"_s, .texts = {{u"txtMl"_s, QString()}}});
            } else {
                window.clickFile(u"1.jpg"_s);
                const auto& dir1 = window.get<DirList>(u"dir1"_s);
                const QPoint line = dir1.visualItemRect(dir1.currentItem()).center();
                QTest::mouseClick(dir1.viewport(), Qt::LeftButton, {}, line);
                window.expect({.disabled = u"cmdLr"_s});
            }
            QVERIFY2(window.files().ListCount() == 2, qPrintable(way));
            QVERIFY2(window.label(u"lblGy"_s) == u"该文件夹（目录）共有图片2张"_s, qPrintable(way));
        }
    }

    void stepsBack() {
        IntakeWindow window;
        window.addAll({u"a.jpg"_s, u"b.jpg"_s});
        window.prepare(u"tc02"_s, 1);
        window.clickFile(u"a.jpg"_s);
        QCOMPARE(window.echo(), u"a.jpg"_s);
        window.expect({.enabled = u"cmdCk(1)"_s});
        window.clickFile(u"b.jpg"_s, Qt::ControlModifier);
        QCOMPARE(window.echo(), u"a.jpg;b.jpg等共2条"_s);
        window.expect({.disabled = u"cmdCk(1)"_s});
        QCOMPARE(window.label(u"lblTs"_s),
                 u"操作提示：共选中：2条，按《录入图册》录入，按《取消》返回前步，按Ctrl可再重复选择。"_s);

        window.click(u"cmdQ1"_s);
        QVERIFY(window.files().selectedItems().isEmpty());
        QCOMPARE(window.echo(), QString());
        window.expect({.disabled = u"cmdLr"_s});
        window.click(u"cmdQ1"_s);
        window.expect({.disabled = u"fil1 cmdQx"_s, .unchecked = u"optCz(1)"_s});
        window.click(u"cmdQ1"_s);
        window.expect({.shown = u"lbl7"_s, .hidden = u"fil1"_s, .unchecked = u"optYl(0)"_s});
        window.click(u"cmdQ1"_s);
        window.expect({.disabled = u"cmdQ1"_s});

        window.option(u"optYl(0)"_s);
        window.expect({.shown = u"fil1"_s, .disabled = u"fil1"_s});
    }

    void codesFilterTheGrid() {
        IntakeWindow window;
        window.choose(u"cboBm"_s, u"tc01"_s);
        auto& second = window.button(u"cmdBh(1)"_s);
        QCOMPARE(second.text(), u"1"_s);
        QTest::mouseMove(&second);
        QEnterEvent over(QPointF(2, 2), QPointF(2, 2), QPointF(2, 2));
        QApplication::sendEvent(&second, &over);
        QCOMPARE(window.text(u"txtB0"_s), u"1：风景"_s);
        window.click(u"cmdBh(1)"_s);
        QCOMPARE(window.get<DataControl>(u"datBj"_s).total(), 5);
        window.expect({.texts = {{u"lblBx(1)"_s, u"选中编号：1＝风景"_s}, {u"lblJl"_s, u"编号=[1](风景) 共有5张"_s}}});
        window.click(u"cmdBh(0)"_s);
        QCOMPARE(window.get<DataControl>(u"datBj"_s).total(), 10);
        window.tabs().setCurrentIndex(2);
        window.expect({.hidden = u"lblBx(1)"_s});
    }
};

const Registered<TestIntake> registered;

}  // namespace

#include "intake_test.moc"
