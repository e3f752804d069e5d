#include "../support/run_all.h"
#include "intake/intake_run.h"
#include "intake_window.h"
#include "platform/base/files.h"

using namespace Qt::Literals::StringLiterals;

namespace {

QStringList numbers(const QString& table) {
    return columnOf(u"SELECT * FROM "_s + table + u" ORDER BY [序号]"_s, u"序号"_s);
}

QString ofNumber(int number, const QString& column) {
    return valueOf(u"SELECT * FROM tc01 WHERE 序号 = %1"_s.arg(number), column);
}

QByteArray pictureOf(const QString& table, int number) {
    Recordset row = mekTp::catalogue.OpenRecordset(u"SELECT * FROM %1 WHERE 序号 = %2"_s.arg(table).arg(number));
    return row.Fields(u"图片"_s).isNull() ? QByteArray() : row.Fields(u"图片"_s).Value().toBytes();
}

bool isJpeg(const QByteArray& bytes) {
    return bytes.startsWith("\xff\xd8");
}

/// A run over chosen names of a folder, without the page in between.
struct Run {
    Run(const QString& table, const QString& folder, const QStringList& names) {
        DataControl datLr;
        datLr.useDatabase(mekTp::catalogue);
        FormState state;
        state.targetDatabasePath = mekTp::cataloguePath();
        state.targetTable = table;
        QList<int> all;
        for (int i = 0; i < names.size(); ++i) all << i;
        result = wjlr(datLr, {folder, names, all, true, true}, state, [](int) {});
    }
    IntakeResult result;
};

class TestIntake : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void appendsInListOrder() {
        IntakeWindow window;
        for (const QString& name : {u"10.jpg"_s, u"2.jpg"_s, u"it's #3 图.jpg"_s}) window.add(name, {60, 45});
        window.prepare(u"tc02"_s, 1);
        window.enterAll();
        QCOMPARE(numbers(u"tc02"_s), (QStringList{u"1"_s, u"2"_s, u"3"_s}));
        QCOMPARE(columnOf(u"SELECT * FROM tc02 ORDER BY [序号]"_s, u"规格"_s), QStringList(3, u"60 * 45"_s));
        QCOMPARE(valueOf(u"tc02"_s, u"编号"_s), u" "_s);
        QVERIFY(!valueOf(u"tc02"_s, u"大小"_s).isEmpty());
        QCOMPARE(valueOf(u"tc02"_s, u"日期"_s), Variant(FileDateTime(window.path(u"2.jpg"_s))).toText());
        QVERIFY(pictureOf(u"tc02"_s, 1).startsWith(window.bytesOf(u"2.jpg"_s)));
        QVERIFY(pictureOf(u"tc02"_s, 3).startsWith(window.bytesOf(u"it's #3 图.jpg"_s)));
        const QStringList said = window.said();
        QVERIFY(said.first().startsWith(u"将所选的图片追加本图册(tc02 空册)吗？"_s));
        QCOMPARE(said.last(), u"图片录入完成！  共录入：3张"_s);
        QCOMPARE(said.size(), 2);
        QCOMPARE(window.label(u"lblJl"_s), u"表 [tc02 空册] 共有记录：3 条"_s);
        QVERIFY(!window.button(u"cmdQ1"_s).isEnabled());

        window.option(u"optYl(0)"_s);
        window.option(u"optCz(1)"_s);
        window.enterAll();
        QCOMPARE(numbers(u"tc02"_s).last(), u"6"_s);
    }

    void numbersGoOnFromTheLastRow() {
        IntakeWindow window;
        putValue(u"SELECT * FROM tc01 WHERE 序号 = 10"_s, u"序号"_s, 40);
        window.add(u"a.jpg"_s);
        window.add(u"b.jpg"_s);
        window.prepare(u"tc01"_s, 1);
        window.enterAll();
        QCOMPARE(numbers(u"tc01"_s).mid(9), (QStringList{u"40"_s, u"41"_s, u"42"_s}));
    }

    void storedValueIsLongerThanTheFile() {
        IntakeWindow window;
        window.add(u"a.jpg"_s);
        const QByteArray picture = window.bytesOf(u"a.jpg"_s);
        const QList<int> lengths{16384, 40000};
        for (int i = 0; i < lengths.size(); ++i)
            window.addBytes(u"%1.jpg"_s.arg(i), picture + QByteArray(lengths[i] - picture.size(), 'x'));
        window.prepare(u"tc02"_s, 1);
        window.enterAll();
        QCOMPARE(pictureOf(u"tc02"_s, 1).size(), 16384 + 2);
        QCOMPARE(pictureOf(u"tc02"_s, 2).size(), 40003);
        QCOMPARE(pictureOf(u"tc02"_s, 3).size(), picture.size() + 1);
        QVERIFY(pictureOf(u"tc02"_s, 2).endsWith(QByteArray(3, '\0')));
    }

    void withoutFillingIn() {
        IntakeWindow window;
        window.add(u"5.jpg"_s, {60, 45});
        window.add(u"6.jpg"_s, {60, 45});
        window.get<QCheckBox>(u"chkZd"_s).setChecked(false);
        window.prepare(u"tc02"_s, 1);
        window.enterAll();
        for (const QString& column : {u"编号"_s, u"大小"_s, u"规格"_s, u"日期"_s})
            QCOMPARE(valueOf(u"tc02"_s, column), QString());
        QVERIFY(!pictureOf(u"tc02"_s, 1).isEmpty());

        const QString size = ofNumber(5, u"规格"_s), date = ofNumber(5, u"日期"_s);
        window.prepare(u"tc01"_s, 0);
        window.enterAll();
        QCOMPARE(ofNumber(5, u"规格"_s), size);
        QCOMPARE(ofNumber(5, u"日期"_s), date);
        QVERIFY(pictureOf(u"tc01"_s, 5).startsWith(window.bytesOf(u"5.jpg"_s)));
    }

    void replacesByNumber() {
        IntakeWindow window;
        putValue(u"SELECT * FROM tc01 WHERE 序号 = 3"_s, u"备注"_s, u"湖边"_s);
        for (const QString& name : {u"3.jpg"_s, u"1.5.jpg"_s, u"123.jpg"_s}) window.add(name, {60, 45});
        window.prepare(u"tc01"_s, 0);
        window.enterAll();
        QCOMPARE(numbers(u"tc01"_s).size(), 10);
        QCOMPARE(ofNumber(3, u"备注"_s), u"湖边"_s);
        QCOMPARE(ofNumber(3, u"编号"_s), u" "_s);
        QCOMPARE(ofNumber(3, u"规格"_s), u"60 * 45"_s);
        QCOMPARE(ofNumber(1, u"规格"_s), u"60 * 45"_s);
        QCOMPARE(ofNumber(2, u"规格"_s), u"40 * 30"_s);
        QVERIFY(pictureOf(u"tc01"_s, 3).startsWith(window.bytesOf(u"3.jpg"_s)));
        QCOMPARE(window.said().mid(1), (QStringList{u"本目标表无下列对应序号：\n\n123.jpg\n\n这些文件没有替换！"_s,
                                                    u"图片录入完成！  共录入：2张"_s}));
    }

    void namesWithoutNumberAreRefused() {
        IntakeWindow window;
        window.add(u"12a.jpg"_s);
        window.add(u"13.jpg"_s);
        window.prepare(u"tc01"_s, 0);
        QVERIFY(!window.button(u"cmdQx"_s).isEnabled());
        window.clickFile(u"12a.jpg"_s);
        QCOMPARE(window.said(), QStringList{u"文件名不能转换为序号，无法替换！"_s});
        QVERIFY(window.files().selectedItems().isEmpty());
        QCOMPARE(window.echo(), QString());
        QVERIFY(!window.button(u"cmdLr"_s).isEnabled());
        window.clickFile(u"13.jpg"_s);
        QVERIFY(window.button(u"cmdLr"_s).isEnabled());
        // A range that reaches over a name without number keeps the others only, and all that is shown speaks of them.
        window.clickFile(u"12a.jpg"_s, Qt::ShiftModifier);
        QCOMPARE(window.files().selectedItems().size(), 1);
        QCOMPARE(window.echo(), u"13.jpg"_s);
        QVERIFY(window.label(u"lblTs"_s).startsWith(u"操作提示：共选中：1条"_s));
        QVERIFY(window.button(u"cmdLr"_s).isEnabled() && window.button(u"cmdCk(1)"_s).isEnabled());
        window.click(u"cmdCk(1)"_s);
        QVERIFY(window.label(u"lblWj"_s).startsWith(u"图片文件："_s + window.path(u"13.jpg"_s)));
        window.click(u"cmdCg"_s);
        window.said();
        window.option(u"optCz(1)"_s);
        QVERIFY(window.button(u"cmdQx"_s).isEnabled());
    }

    void keysThatReachANameWithoutNumber() {
        IntakeWindow window;
        for (const QString& name : {u"1.jpg"_s, u"2.jpg"_s, u"a.jpg"_s}) window.add(name);
        window.prepare(u"tc01"_s, 0);
        window.clickFile(u"2.jpg"_s);
        QTest::keyClick(&window.files(), Qt::Key_Down);
        QCOMPARE(window.said(), QStringList{u"文件名不能转换为序号，无法替换！"_s});
        QVERIFY(!window.button(u"cmdLr"_s).isEnabled());
    }

    void commasMakeNoNumber() {
        IntakeWindow window;
        window.add(u"1,234.jpg"_s, {60, 45});
        window.add(u"2.jpg"_s, {60, 45});
        window.prepare(u"tc01"_s, 0);
        QVERIFY(!window.button(u"cmdQx"_s).isEnabled());
        // The run keeps to it, however the files came to be selected.
        Run run(u"tc01"_s, window.pictures.path(), {u"1,234.jpg"_s, u"2.jpg"_s});
        QCOMPARE(run.result.notFound, QStringList{u"1,234.jpg"_s});
        QCOMPARE(run.result.count, 1);
        QCOMPARE(ofNumber(1, u"规格"_s), u"40 * 30"_s);
    }

    void failedReplacementLeavesTheRecord() {
        IntakeWindow window;
        // The longest name that a file can have: no scratch file fits beside it, so it cannot become a JPEG file.
        const QString name = u"3."_s + QString(249, u'x') + u".bmp"_s;
        window.add(name, {60, 45}, "BMP");
        window.add(u"4.jpg"_s, {60, 45});
        const QByteArray old = pictureOf(u"tc01"_s, 3);
        const QString size = ofNumber(3, u"规格"_s), date = ofNumber(3, u"日期"_s), next = ofNumber(4, u"规格"_s);
        window.prepare(u"tc01"_s, 0);
        window.enterAll();
        const QStringList said = window.said().mid(1);
        QCOMPARE(said.size(), 2);
        QVERIFY2(said[0].startsWith(u"录入到文件“"_s + name) && !said[0].contains(u"已录入图册"_s),
                 qPrintable(said[0]));
        QCOMPARE(pictureOf(u"tc01"_s, 3), old);
        QCOMPARE(ofNumber(3, u"规格"_s), size);
        QCOMPARE(ofNumber(3, u"日期"_s), date);
        QCOMPARE(ofNumber(4, u"规格"_s), next);
    }

    void bitmapsBecomeJpegFiles() {
        IntakeWindow window;
        window.add(u"1.bmp"_s, {60, 45}, "BMP");
        window.add(u"2.BMP"_s, {60, 45}, "BMP");
        const qint64 before = window.bytesOf(u"1.bmp"_s).size();
        const QByteArray kept = window.bytesOf(u"2.BMP"_s);
        window.prepare(u"tc02"_s, 1);
        window.enterAll();
        QVERIFY(isJpeg(window.bytesOf(u"1.bmp"_s)));
        QVERIFY(pictureOf(u"tc02"_s, 1).startsWith(window.bytesOf(u"1.bmp"_s)));
        QCOMPARE(valueOf(u"tc02"_s, u"大小"_s), QString::number(before / 1000.0));
        QCOMPARE(window.bytesOf(u"2.BMP"_s), kept);
        QVERIFY(pictureOf(u"tc02"_s, 2).startsWith(kept));
        QCOMPARE(window.said().last(), u"图片录入完成！  共录入：2张"_s);
    }

    void emptyFile_data() {
        QTest::addColumn<int>("way");
        QTest::newRow("replace") << 0;
        QTest::newRow("append") << 1;
    }
    void emptyFile() {
        QFETCH(int, way);
        IntakeWindow window;
        window.addBytes(u"3.jpg"_s, {});
        window.add(u"4.jpg"_s, {60, 45});
        const QByteArray old = pictureOf(u"tc01"_s, 3);
        const QString size = ofNumber(3, u"规格"_s);
        window.prepare(u"tc01"_s, way);
        window.enterAll();
        const QStringList said = window.said().mid(1);
        QCOMPARE(said, (QStringList{u"文件没有内容，没有存入图片：3.jpg"_s, u"图片录入完成！  共录入：2张"_s}));
        QCOMPARE(pictureOf(u"tc01"_s, 3), old);
        QCOMPARE(ofNumber(3, u"规格"_s), size);
        if (way == 0) {
            QVERIFY(pictureOf(u"tc01"_s, 4).startsWith(window.bytesOf(u"4.jpg"_s)));
        } else {
            QVERIFY(pictureOf(u"tc01"_s, 11).isEmpty());
            QVERIFY(pictureOf(u"tc01"_s, 12).startsWith(window.bytesOf(u"4.jpg"_s)));
        }
    }

    void damagedFile_data() { emptyFile_data(); }
    void damagedFile() {
        QFETCH(int, way);
        IntakeWindow window;
        window.add(u"1.jpg"_s, {60, 45});
        window.addBytes(u"2.jpg"_s, "no picture");
        window.add(u"3.jpg"_s, {60, 45});
        const QByteArray old = pictureOf(u"tc01"_s, 2);
        window.prepare(u"tc01"_s, way);
        window.enterAll();
        const QStringList said = window.said().mid(1);
        QCOMPARE(said.size(), 2);
        QVERIFY2(said[0].startsWith(u"录入到文件“2.jpg”时停止"_s), qPrintable(said[0]));
        QVERIFY(said[0].contains(u"以下文件也没有录入：3.jpg"_s) && said[0].contains(u"文件已录入图册：1.jpg"_s));
        QCOMPARE(said[1], u"图片录入完成！  共录入：0张"_s);
        QCOMPARE(numbers(u"tc01"_s).size(), way == 0 ? 10 : 11);
        QVERIFY(pictureOf(u"tc01"_s, way == 0 ? 1 : 11).startsWith(window.bytesOf(u"1.jpg"_s)));
        QCOMPARE(pictureOf(u"tc01"_s, 2), old);
        QCOMPARE(ofNumber(2, u"规格"_s), u"40 * 30"_s);
        QVERIFY(window.get<QProgressBar>(u"prg2"_s).isHidden());
    }

    void folderWithOneFile() {
        IntakeWindow window;
        window.add(u"a.jpg"_s);
        window.prepare(u"tc02"_s, 1);
        window.enterAll();
        QCOMPARE(window.said().mid(1), (QStringList{u"文件已录入图册：a.jpg"_s, u"图片录入完成！  共录入：0张"_s}));
        QVERIFY(pictureOf(u"tc02"_s, 1).startsWith(window.bytesOf(u"a.jpg"_s)));
    }

    void cancelKeepsTheSelection() {
        IntakeWindow window;
        window.add(u"a.jpg"_s);
        window.add(u"b.jpg"_s);
        window.prepare(u"tc02"_s, 1);
        window.clickFile(u"b.jpg"_s);
        window.answer = false;
        window.click(u"cmdLr"_s);
        QCOMPARE(window.files().selectedItems().size(), 1);
        QCOMPARE(numbers(u"tc02"_s).size(), 0);
        window.answer = true;
        window.click(u"cmdLr"_s);
        QCOMPARE(numbers(u"tc02"_s).size(), 1);
        QVERIFY(pictureOf(u"tc02"_s, 1).startsWith(window.bytesOf(u"b.jpg"_s)));
    }

    void albumMustBeChosen() {
        IntakeWindow window;
        QCOMPARE(window.label(u"lblJl"_s), u"请先在上边选择接受图片的图册"_s);
        QVERIFY(!window.get<QGroupBox>(u"fraLy"_s).isEnabled());
        window.choose(u"cboBm"_s, u"tc00"_s);
        QCOMPARE(window.said(), QStringList{u"该表只做演示用，不能录入或编辑！"_s});
        QVERIFY(!window.get<QGroupBox>(u"fraLy"_s).isEnabled());
        window.choose(u"cboBm"_s, u"tc01"_s);
        QVERIFY(window.get<QGroupBox>(u"fraLy"_s).isEnabled());
        QCOMPARE(window.label(u"lbl11"_s), u"目标表：tc01"_s);
        QVERIFY(window.get<QRadioButton>(u"optYl(1)"_s).isEnabled());
    }

    void demonstrationAlbumTakesNothing_data() {
        QTest::addColumn<QString>("typed");  // empty: chosen from the list
        QTest::newRow("chosen") << QString();
        QTest::newRow("typed") << u"tc00"_s;
        QTest::newRow("typed in capitals") << u"TC00"_s;
    }
    void demonstrationAlbumTakesNothing() {
        QFETCH(QString, typed);
        IntakeWindow window;
        window.add(u"1.jpg"_s);
        window.add(u"2.jpg"_s);
        window.prepare(u"tc01"_s, 0);
        window.click(u"cmdQx"_s);
        if (typed.isEmpty())
            window.choose(u"cboBm"_s, u"tc00"_s);
        else
            window.typeAlbum(typed, true);
        QCOMPARE(window.said(), QStringList{u"该表只做演示用，不能录入或编辑！"_s});
        for (const QString& name : {u"fraLy"_s, u"fraFs"_s, u"cmdLr"_s, u"cmdQx"_s, u"fil1"_s})
            QVERIFY2(!window.get<QWidget>(name).isEnabled(), qPrintable(name));
        for (const QString& name : {u"optYl(0)"_s, u"optCz(0)"_s, u"optCz(1)"_s})
            QVERIFY2(!window.get<QRadioButton>(name).isChecked(), qPrintable(name));
        QVERIFY(window.files().selectedItems().isEmpty());
        QCOMPARE(window.get<DataControl>(u"datBj"_s).total(), 3);
        QVERIFY(window.button(u"cmdCk(0)"_s).isEnabled());
        // Even a button that something has enabled again enters nothing.
        window.button(u"cmdLr"_s).setEnabled(true);
        Q_EMIT window.button(u"cmdLr"_s).clicked();
        QCOMPARE(window.said(), QStringList{u"该表只做演示用，不能录入或编辑！"_s});
        QCOMPARE(numbers(u"tc00"_s).size(), 3);
    }

    void typedTextThatIsNoAlbum_data() {
        QTest::addColumn<bool>("enter");
        QTest::newRow("with Enter") << true;
        QTest::newRow("without") << false;
    }
    void typedTextThatIsNoAlbum() {
        QFETCH(bool, enter);
        IntakeWindow window;
        QVERIFY(!window.button(u"cmdCk(0)"_s).isEnabled());
        window.add(u"1.jpg"_s);
        window.add(u"2.jpg"_s);
        window.prepare(u"tc01"_s, 1);
        QVERIFY(window.button(u"cmdCk(0)"_s).isEnabled());
        window.click(u"cmdQx"_s);
        window.typeAlbum(u"xy99"_s, enter);
        for (const QString& name : {u"fraLy"_s, u"cmdLr"_s, u"cmdCk(0)"_s})
            QVERIFY2(!window.get<QWidget>(name).isEnabled(), qPrintable(name));
        QVERIFY(!window.button(u"cmdBh(0)"_s).isVisible());
        QCOMPARE(window.label(u"lblJl"_s), u"请先在上边选择接受图片的图册"_s);
        window.clickFile(u"2.jpg"_s);
        window.click(u"cmdLr"_s);
        QCOMPARE(window.said(), QStringList{u"请先选择要录入的图册，然后才能继续！"_s});
        QCOMPARE(numbers(u"tc01"_s).size(), 10);

        window.choose(u"cboBm"_s, u"tc01"_s);
        window.click(u"cmdLr"_s);
        QCOMPARE(numbers(u"tc01"_s).size(), 11);
    }

    void typedAlbumIsTheListedOne() {
        IntakeWindow window;
        window.typeAlbum(u"TC01"_s, true);
        QCOMPARE(window.label(u"lbl11"_s), u"目标表：tc01"_s);
        QVERIFY(window.get<QGroupBox>(u"fraLy"_s).isEnabled());
    }

    void newFilesAreFound_data() {
        QTest::addColumn<QString>("way");
        for (const char* way : {"source", "page", "click"}) QTest::newRow(way) << QString::fromLatin1(way);
    }
    void newFilesAreFound() {
        QFETCH(QString, way);
        IntakeWindow window;
        window.add(u"1.jpg"_s);
        window.prepare(u"tc02"_s, 1);
        window.add(u"2.jpg"_s);
        auto& dir1 = window.get<DirList>(u"dir1"_s);
        if (way == u"source"_s) {
            window.option(u"optYl(0)"_s);
        } else if (way == u"page"_s) {
            window.tabs().setCurrentIndex(0);
            window.tabs().setCurrentIndex(1);
        } else {
            window.clickFile(u"1.jpg"_s);
            QTest::mouseClick(dir1.viewport(), Qt::LeftButton, {}, dir1.visualItemRect(dir1.currentItem()).center());
            QVERIFY(!window.button(u"cmdLr"_s).isEnabled());
        }
        QCOMPARE(window.files().ListCount(), 2);
        QCOMPARE(window.label(u"lblGy"_s), u"该文件夹（目录）共有图片2张"_s);
    }

    void stepsBack() {
        IntakeWindow window;
        window.add(u"a.jpg"_s);
        window.add(u"b.jpg"_s);
        window.prepare(u"tc02"_s, 1);
        QCOMPARE(window.label(u"lblGy"_s), u"该文件夹（目录）共有图片2张"_s);
        window.clickFile(u"a.jpg"_s);
        QCOMPARE(window.echo(), u"a.jpg"_s);
        QVERIFY(window.button(u"cmdCk(1)"_s).isEnabled());
        window.clickFile(u"b.jpg"_s, Qt::ControlModifier);
        QCOMPARE(window.echo(), u"a.jpg;b.jpg等共2条"_s);
        QVERIFY(!window.button(u"cmdCk(1)"_s).isEnabled());
        QCOMPARE(window.label(u"lblTs"_s),
                 u"操作提示：共选中：2条，按《录入图册》录入，按《取消》返回前步，按Ctrl可再重复选择。"_s);

        window.click(u"cmdQ1"_s);
        QVERIFY(window.files().selectedItems().isEmpty());
        QCOMPARE(window.echo(), QString());
        QVERIFY(!window.button(u"cmdLr"_s).isEnabled());
        window.click(u"cmdQ1"_s);
        QVERIFY(!window.get<QRadioButton>(u"optCz(1)"_s).isChecked());
        QVERIFY(!window.files().isEnabled() && !window.button(u"cmdQx"_s).isEnabled());
        window.click(u"cmdQ1"_s);
        QVERIFY(!window.get<QRadioButton>(u"optYl(0)"_s).isChecked());
        QVERIFY(!window.files().isVisible() && window.get<QLabel>(u"lbl7"_s).isVisible());
        window.click(u"cmdQ1"_s);
        QVERIFY(!window.button(u"cmdQ1"_s).isEnabled());

        window.option(u"optYl(0)"_s);
        QVERIFY(window.files().isVisible() && !window.files().isEnabled());
    }

    void emptyFolder() {
        IntakeWindow window;
        window.prepare(u"tc02"_s, 1);
        QVERIFY(!window.button(u"cmdQx"_s).isEnabled());
        QVERIFY(!window.get<QLabel>(u"lblGy"_s).isVisible());
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
        QTest::mouseClick(&second, Qt::LeftButton);
        QCOMPARE(window.get<DataControl>(u"datBj"_s).total(), 5);
        QCOMPARE(window.label(u"lblBx(1)"_s), u"选中编号：1＝风景"_s);
        QCOMPARE(window.label(u"lblJl"_s), u"编号=[1](风景) 共有5张"_s);
        window.click(u"cmdBh(0)"_s);
        QCOMPARE(window.get<DataControl>(u"datBj"_s).total(), 10);
        window.tabs().setCurrentIndex(2);
        QVERIFY(!window.get<QLabel>(u"lblBx(1)"_s).isVisibleTo(window.form.get()));
    }

    void manyFilesIntoALargeAlbum() {
        IntakeWindow window;
        {
            Transaction whole(mekTp::catalogue);
            Recordset rows = mekTp::catalogue.OpenRecordset(u"tc02"_s);
            for (int i = 1; i <= 10000; ++i) {
                rows.AddNew();
                rows.Fields(u"序号"_s).SetValue(i);
                rows.Update();
            }
            whole.commit();
        }
        for (int i = 0; i < 50; ++i) window.add(u"%1.jpg"_s.arg(i));
        window.prepare(u"tc02"_s, 1);
        window.enterAll();
        QCOMPARE(window.said().last(), u"图片录入完成！  共录入：50张"_s);
        QCOMPARE(numbers(u"tc02"_s).last(), u"10050"_s);
    }
};

const Registered<TestIntake> registered;

}  // namespace

#include "intake_test.moc"
