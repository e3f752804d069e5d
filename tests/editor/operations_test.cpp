#include "../support/run_all.h"
#include "catalogue/picture_field.h"
#include "editor/editor_texts.h"
#include "editor_window.h"
#include "platform/desktop/placing.h"

using namespace Qt::Literals::StringLiterals;

namespace {

QColor at(const EditorWindow& editor, int x, int y) {
    return QColor(editor.picYu().Point(x, y));
}

class TestOperations : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void scaling_data() {
        QTest::addColumn<QString>("factor");
        QTest::addColumn<QSize>("size");
        QTest::addColumn<QString>("logged");
        QTest::newRow("half") << u".5"_s << QSize(40, 30) << u" *0.5"_s;
        QTest::newRow("own size") << u"1"_s << QSize(80, 60) << u" *1"_s;
        QTest::newRow("odd") << u"1.37"_s << QSize(110, 82) << u" *1.37"_s;
    }
    void scaling() {
        QFETCH(const QString, factor);
        QFETCH(const QSize, size);
        EditorWindow editor;
        editor.open();
        const QString source = editor.caption();
        editor.press(u"sf"_s);
        QVERIFY(editor.shows(u"picCq"_s));
        QVERIFY(!editor.shows(u"linJd(1)"_s));
        QCOMPARE(editor.find<QLabel>(u"lblCq"_s)->text(), u"请输入缩放倍数"_s);
        QVERIFY(!editor.find(u"cmdCq(0)"_s)->isEnabled());
        QCOMPARE(leftOf(editor.find(u"cmdCq(0)"_s)), 1920);
        editor.enter(factor);
        QCOMPARE(editor.picYu().size(), size);
        QCOMPARE(editor.picYu().picture().size(), size);
        QCOMPARE(editor.picMb().Image(), editor.picYu().Image());
        QTEST(editor.caption().mid(source.size() + 2).chopped(1), "logged");
        QCOMPARE(editor.caption().mid(source.size(), 2), u" ["_s);
        QCOMPARE(editor.hint(), hintFor(u"s2"_s));
        QVERIFY(!editor.shows(u"picCq"_s));
        QCOMPARE(leftOf(editor.find(u"cmdCq(0)"_s)), 1890);
        QVERIFY(editor.menu(u"mnuBc"_s)->isEnabled() && editor.key(u"bc"_s)->isEnabled());
        QCOMPARE(EditorWindow::steps(), (QStringList{u"01"_s, u"02"_s}));
    }

    // A flip leaves 保存 as it was and writes its caption without the blank.
    void flipping() {
        EditorWindow editor;
        editor.open();
        const QString source = editor.caption();
        const QImage before = editor.picYu().Image();
        editor.press(u"fs"_s);
        QCOMPARE(editor.picYu().Image(), before.mirrored(true, false));
        QCOMPARE(editor.caption(), source + u"[ 水平翻转]"_s);
        QCOMPARE(editor.hint(), hintFor(u"p1"_s));
        QVERIFY(!editor.menu(u"mnuBc"_s)->isEnabled());
        editor.press(u"fc"_s);
        QCOMPARE(editor.picYu().Image(), before.mirrored(true, true));
        editor.press(u"fs"_s);
        editor.press(u"fc"_s);
        QCOMPARE(editor.picYu().Image(), before);
        QCOMPARE(editor.caption(), source + u"[ 水平翻转 垂直翻转 水平翻转 垂直翻转]"_s);
        QCOMPARE(EditorWindow::steps().size(), 5);
    }

    void rotating() {
        EditorWindow editor;
        editor.open();
        const QString source = editor.caption();
        editor.press(u"xz"_s);
        QVERIFY(!editor.menu(u"mnuXz"_s)->isEnabled() && !editor.key(u"at"_s)->isEnabled());
        QVERIFY(editor.shows(u"linJd(1)"_s) && editor.shows(u"linJd(3)"_s));
        QTest::keyClicks(&editor.box(u"txtCq"_s), u"90"_s);
        const auto* hand = editor.find<LineBox>(u"linJd(0)"_s);
        QCOMPARE(QPoint(hand->x2(), hand->y2()), QPoint(60, 810));
        QTest::keyClick(&editor.box(u"txtCq"_s), Qt::Key_Return);
        QVERIFY(std::abs(editor.picYu().width() - 60) <= 1 && std::abs(editor.picYu().height() - 80) <= 1);
        QCOMPARE(at(editor, 8, 70), QColor(Qt::red));
        QCOMPARE(at(editor, 8, 8), QColor(Qt::green));
        QCOMPARE(editor.caption(), source + u" [ 90度]"_s);
        QCOMPARE(editor.hint(), hintFor(u"x2"_s));
        QVERIFY(editor.menu(u"mnuXz"_s)->isEnabled() && editor.key(u"at"_s)->isEnabled());
        for (const QString& name : {u"prg1"_s, u"linJd(0)"_s, u"linJd(1)"_s, u"picCq"_s}) QVERIFY(!editor.shows(name));
        QVERIFY(editor.key(u"bc"_s)->isEnabled());
    }

    void anAngleThatIsNoNumberLeavesAFrame() {
        EditorWindow editor;
        editor.open();
        editor.rotate(u"abc"_s);
        QCOMPARE(editor.picYu().size(), QSize(80, 60));
        QCOMPARE(at(editor, 0, 30), QColor(Qt::white));
        QCOMPARE(at(editor, 79, 30), QColor(Qt::white));
        QCOMPARE(at(editor, 1, 1), QColor(Qt::red));
    }

    // The corner of a crop stays the source of later flips until a scale.
    void croppingMovesTheSourceOfFlips() {
        EditorWindow editor;
        editor.open();
        editor.crop({10, 6, 40, 30});
        QCOMPARE(editor.picYu().size(), QSize(40, 30));
        QCOMPARE(at(editor, 29, 23), QColor(Qt::red));
        QCOMPARE(at(editor, 30, 24), QColor(Qt::yellow));
        QVERIFY(editor.caption().endsWith(u" [ 裁剪]"_s));
        QVERIFY(!editor.shows(u"shpYu"_s) && !editor.shows(u"txtCc"_s));
        const QImage cropped = editor.picYu().Image();
        editor.press(u"fs"_s);
        QCOMPARE(at(editor, 5, 5), QColor(Qt::white));
        QCOMPARE(at(editor, 10, 0), QColor(cropped.pixel(39, 6)));
        editor.scale(u"1"_s);
        const QImage before = editor.picYu().Image();
        editor.press(u"fc"_s);
        QCOMPARE(editor.picYu().Image(), before.mirrored(false, true));
    }

    void nothingIsPaintedFromNothing_data() {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("text");
        for (const QString& text : {u"0"_s, u"-2"_s, u"abc"_s, u"0.001"_s})
            QTest::addRow("factor %s", qPrintable(text)) << u"sf"_s << text;
        QTest::newRow("click without drag") << u"cj"_s << u"10,10"_s;
        QTest::newRow("backwards") << u"cj"_s << u"5,5"_s;
        QTest::newRow("flat") << u"cj"_s << u"40,10"_s;
    }
    void nothingIsPaintedFromNothing() {
        QFETCH(const QString, key);
        QFETCH(const QString, text);
        EditorWindow editor;
        editor.open();
        const QImage before = editor.picYu().Image();
        const QString source = editor.caption();
        editor.press(key);
        if (key == u"sf") {
            editor.enter(text);
        } else {
            editor.select({10, 10}, {text.section(u',', 0, 0).toInt(), text.section(u',', 1, 1).toInt()});
            editor.click(u"cmdCq(0)"_s);
        }
        QCOMPARE(editor.picYu().Image(), before);
        QVERIFY(editor.shows(u"picYu"_s) && editor.shows(u"picCq"_s) && editor.shows(u"txtTs"_s));
        QCOMPARE(EditorWindow::steps(), QStringList{u"01"_s});
        QVERIFY(editor.boxes.isEmpty());
        editor.press(u"fs"_s);
        QCOMPARE(editor.picYu().Image(), before.mirrored(true, false));
        QCOMPARE(editor.caption(), source + u"[ 水平翻转]"_s);
    }

    // A picture that would be too large stays hidden, at its old size, until the dialog is left.
    void tooLargeComesBack() {
        EditorWindow editor;
        editor.open();
        for (const QString& factor : {u"500"_s, u"1e300"_s}) {
            editor.scale(factor);
            QVERIFY(!editor.shows(u"picYu"_s));
            QVERIFY(editor.shows(u"picCq"_s));
            editor.click(u"cmdCq(1)"_s);
            QVERIFY(editor.shows(u"picYu"_s) && !editor.shows(u"picCq"_s));
            QCOMPARE(editor.picYu().size(), QSize(80, 60));
        }
        editor.scale(u"2"_s);
        QCOMPARE(editor.picYu().size(), QSize(160, 120));
        QVERIFY(editor.caption().endsWith(u"[ *2]"_s));
    }

    void anEmptyEntryIsAskedFor() {
        EditorWindow editor;
        editor.open();
        editor.press(u"sf"_s);
        QTest::keyClick(&editor.box(u"txtCq"_s), Qt::Key_Return);
        QVERIFY(editor.boxes.isEmpty());
        QTest::keyClicks(&editor.box(u"txtCq"_s), u"2"_s);
        editor.box(u"txtCq"_s).clear();
        editor.click(u"cmdCq(0)"_s);
        QCOMPARE(editor.lastBox(), u"操作提示|请在文本框中输入数据！"_s);
        QVERIFY(editor.box(u"txtCq"_s).hasFocus());
        QTest::keyClick(&editor.box(u"txtCq"_s), Qt::Key_Escape);
        QVERIFY(!editor.shows(u"picCq"_s));
        QCOMPARE(editor.hint(), hintFor(u"w1"_s));
    }

    // ------------------------------------------------------------------------------------------------ taking back

    void stepsAreJpegFiles() {
        EditorWindow editor;
        editor.open();
        editor.scale(u"2"_s);
        Recordset step = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tccx WHERE 编号 = '02'"_s);
        QCOMPARE(step.Fields(u"标签"_s).Value().toText(), hintFor(u"s2"_s));
        QCOMPARE(step.Fields(u"标题"_s).Value().toText(), u" *2"_s);
        QCOMPARE(step.Fields(u"图宽"_s).Value().toDouble(), 2400.0);
        QCOMPARE(step.Fields(u"图高"_s).Value().toDouble(), 1800.0);
        QCOMPARE(step.Fields(u"参数"_s).Value().toDouble(), 2.0);
        const QByteArray bytes = step.Fields(u"图片"_s).Value().toBytes();
        const QByteArray jpeg = encodeJpeg(editor.picYu().Image(), 80);
        QVERIFY(bytes.startsWith(jpeg));
        QCOMPARE(bytes.size(), jpeg.size() + jpeg.size() / pictureChunk + 1);
    }

    void undoReopensTheDialogAndEmptiesAtTheEnd() {
        EditorWindow editor;
        editor.open();
        const QString source = editor.caption();
        editor.scale(u"2"_s);
        editor.scale(u".5"_s);
        editor.press(u"cx"_s);
        QCOMPARE(editor.picYu().size(), QSize(160, 120));
        QCOMPARE(editor.caption(), source + u"[ *2]"_s);
        QVERIFY(editor.shows(u"picCq"_s));
        QCOMPARE(editor.box(u"txtCq"_s).text(), u".5"_s);
        QVERIFY(!editor.find(u"cmdCq(0)"_s)->isEnabled());
        QCOMPARE(leftOf(editor.find(u"cmdCq(0)"_s)), 1920);
        QCOMPARE(editor.hint(), hintFor(u"s1"_s));

        editor.press(u"cx"_s);
        QVERIFY(!editor.shows(u"picCq"_s));
        QCOMPARE(editor.picYu().size(), QSize(160, 120));
        editor.trigger(u"mnuCx"_s);
        QCOMPARE(editor.picYu().size(), QSize(80, 60));
        QCOMPARE(editor.caption(), source);
        editor.press(u"cx"_s);
        QVERIFY(editor.menu(u"mnuCx"_s)->isEnabled());
        editor.press(u"cx"_s);
        QCOMPARE(editor.caption(), u"览忆集苑（图片处理）"_s);
        QVERIFY(editor.shows(u"img1"_s));
        QVERIFY(editor.picYu().picture().isNull());
        QVERIFY(!editor.key(u"cx"_s)->isEnabled() && !editor.menu(u"mnuCx"_s)->isEnabled());
        QVERIFY(EditorWindow::steps().isEmpty());
    }

    // The first open after an undo records nothing, the second does; the menu item stays off, the button works.
    void openingAfterTheLastUndo() {
        EditorWindow editor;
        editor.open();
        editor.press(u"cx"_s);
        editor.open();
        QVERIFY(EditorWindow::steps().isEmpty());
        QCOMPARE(editor.picYu().size(), QSize(80, 60));
        editor.press(u"cx"_s);
        QCOMPARE(editor.picYu().size(), QSize(80, 60));
        editor.open();
        editor.open();
        QCOMPARE(EditorWindow::steps(), QStringList{u"01"_s});
        QVERIFY(!editor.menu(u"mnuCx"_s)->isEnabled() && editor.key(u"cx"_s)->isEnabled());
    }

    void anotherTryRotatesAgain() {
        EditorWindow editor;
        editor.open();
        editor.rotate(u"90"_s);
        editor.press(u"cx"_s);
        QCOMPARE(editor.picYu().size(), QSize(80, 60));
        QVERIFY(editor.shows(u"picCq"_s));
        editor.box(u"txtCq"_s).clear();
        editor.enter(u"-90"_s);
        QVERIFY(editor.caption().endsWith(u" [ -90度]"_s));
        QVERIFY(editor.picYu().width() < editor.picYu().height());

        editor.press(u"xz"_s);
        editor.click(u"cmdCq(1)"_s);
        editor.scale(u"2"_s);
        QVERIFY(editor.caption().endsWith(u" [ -90度 *2]"_s));
    }

    void aFlipHasNoDialogToReopen() {
        EditorWindow editor;
        editor.open();
        editor.scale(u"2"_s);
        editor.press(u"fs"_s);
        editor.press(u"cx"_s);
        QVERIFY(!editor.shows(u"picCq"_s));
        QCOMPARE(editor.hint(), hintFor(u"p1"_s));
        QVERIFY(editor.caption().endsWith(u"[ *2]"_s));
    }

    void undoneCropCanBeTriedAgain() {
        EditorWindow editor;
        editor.open();
        editor.crop({0, 0, 40, 30});
        editor.press(u"cx"_s);
        QCOMPARE(editor.picYu().size(), QSize(80, 60));
        QVERIFY(editor.shows(u"picCq"_s) && !editor.shows(u"txtCq"_s));
        QVERIFY(!editor.menu(u"mnuCj"_s)->isEnabled());
        editor.select({40, 30}, {60, 50});
        editor.click(u"cmdCq(0)"_s);
        QCOMPARE(editor.picYu().size(), QSize(20, 20));
    }

    void moreThanAHundredSteps() {
        EditorWindow editor;
        editor.open({16, 8});
        constexpr int flips = 101;
        for (int i = 0; i < flips; ++i) editor.press(u"fs"_s);
        QCOMPARE(EditorWindow::steps().last(), u"102"_s);
        for (int i = 0; i < flips; ++i) editor.press(u"cx"_s);
        QCOMPARE(EditorWindow::steps(), QStringList{u"01"_s});
        QVERIFY(at(editor, 2, 2).red() > 200);
        editor.press(u"cx"_s);
        QVERIFY(editor.shows(u"img1"_s));
    }

    // ---------------------------------------------------------------------------------------------------- loading

    void aFailedLoadChangesNothing_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("cancelled") << QString();
        QTest::newRow("no picture") << u"文字.jpg"_s;
        QTest::newRow("missing") << u"没有.jpg"_s;
        QTest::newRow("folder") << u"夹"_s;
    }
    void aFailedLoadChangesNothing() {
        QFETCH(const QString, name);
        EditorWindow editor;
        editor.open();
        editor.scale(u"2"_s);
        QFile text(editor.catalogue.file(u"文字.jpg"_s));
        QVERIFY(text.open(QIODevice::WriteOnly) && text.write("no picture") > 0);
        text.close();
        QVERIFY(QDir(editor.catalogue.folder()).mkdir(u"夹"_s));
        const QString caption = editor.caption();
        const QImage picture = editor.picYu().Image();
        editor.file = name.isEmpty() ? QString() : editor.catalogue.file(name);
        editor.press(u"wk"_s);
        QCOMPARE(editor.boxes.size(), name.isEmpty() ? 0 : 1);
        if (!name.isEmpty()) {
            QCOMPARE(editor.boxes.last().title, u"错误提示"_s);
            QVERIFY(editor.boxes.last().text.contains(name));
        }
        QCOMPARE(editor.caption(), caption);
        QCOMPARE(editor.picYu().Image(), picture);
        editor.press(u"cx"_s);
        QCOMPARE(editor.picYu().size(), QSize(80, 60));
    }
};

const Registered<TestOperations> registered;

}  // namespace

#include "operations_test.moc"
