#include "catalogue/picture_field.h"
#include "editor_window.h"

using namespace Qt::Literals::StringLiterals;

namespace {

QColor at(const EditorWindow& editor, int x, int y) {
    return QColor(editor.picYu().Point(x, y));
}

class TestOperations : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void scaling() {
        const std::tuple<QString, QSize, QString> rows[] = {
            {u".5"_s, {40, 30}, u"*0.5"_s}, {u"1"_s, {80, 60}, u"*1"_s}, {u"1.37"_s, {110, 82}, u"*1.37"_s}};
        for (const auto& [factor, size, logged] : rows) {
            const OpenEditor editor;
            const QString source = editor.caption();
            editor.press(u"sf"_s);
            QVERIFY(editor.shows(u"picCq"_s) && !editor.shows(u"linJd(1)"_s));
            QCOMPARE(editor.find<QLabel>(u"lblCq"_s)->text(), u"请输入缩放倍数"_s);
            QVERIFY(!editor.find(u"cmdCq(0)"_s)->isEnabled());
            QCOMPARE(leftOf(editor.find(u"cmdCq(0)"_s)), 1920);
            editor.enter(factor);
            QCOMPARE(editor.size(), size);
            QCOMPARE(editor.picYu().picture().size(), size);
            QCOMPARE(editor.picMb().picture(), editor.picYu().picture());
            QCOMPARE(editor.caption(), source + u" [ "_s + logged + u']');
            QCOMPARE(editor.hint(), hintFor(u"s2"_s));
            QVERIFY(!editor.shows(u"picCq"_s));
            QCOMPARE(leftOf(editor.find(u"cmdCq(0)"_s)), 1890);
            QVERIFY(editor.menu(u"mnuBc"_s)->isEnabled() && editor.key(u"bc"_s)->isEnabled());
            QCOMPARE(editor.steps(), (QStringList{u"01"_s, u"02"_s}));
        }
    }

    // A flip leaves 保存 as it was and writes its caption without the blank.
    void flipping() {
        OpenEditor editor;
        const QString source = editor.caption();
        const QImage before = editor.picYu().picture();
        editor.press(u"fs"_s);
        QCOMPARE(editor.picYu().picture(), before.mirrored(true, false));
        QCOMPARE(editor.caption(), source + u"[ 水平翻转]"_s);
        QCOMPARE(editor.hint(), hintFor(u"p1"_s));
        QVERIFY(!editor.menu(u"mnuBc"_s)->isEnabled());
        editor.press(u"fc"_s);
        QCOMPARE(editor.picYu().picture(), before.mirrored(true, true));
        editor.press(u"fs"_s);
        editor.press(u"fc"_s);
        QCOMPARE(editor.picYu().picture(), before);
        QCOMPARE(editor.caption(), source + u"[ 水平翻转 垂直翻转 水平翻转 垂直翻转]"_s);
        QCOMPARE(editor.steps().size(), 5);
    }

    void rotating() {
        OpenEditor editor;
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
        OpenEditor editor;
        editor.rotate(u"abc"_s);
        QCOMPARE(editor.size(), QSize(80, 60));
        for (const int x : {0, 79}) QCOMPARE(at(editor, x, 30), QColor(Qt::white));
        QCOMPARE(at(editor, 1, 1), QColor(Qt::red));
    }

    // The corner of a crop stays the source of later flips until a scale.
    void croppingMovesTheSourceOfFlips() {
        OpenEditor editor;
        editor.crop({10, 6, 40, 30});
        QCOMPARE(editor.size(), QSize(40, 30));
        QCOMPARE(at(editor, 29, 23), QColor(Qt::red));
        QCOMPARE(at(editor, 30, 24), QColor(Qt::yellow));
        QVERIFY(editor.caption().endsWith(u" [ 裁剪]"_s));
        QVERIFY(!editor.shows(u"shpYu"_s) && !editor.shows(u"txtCc"_s));
        const QImage cropped = editor.picYu().picture();
        editor.press(u"fs"_s);
        QCOMPARE(at(editor, 5, 5), QColor(Qt::white));
        QCOMPARE(at(editor, 10, 0), QColor(cropped.pixel(39, 6)));
        editor.scale(u"1"_s);
        const QImage before = editor.picYu().picture();
        editor.press(u"fc"_s);
        QCOMPARE(editor.picYu().picture(), before.mirrored(false, true));
    }

    void nothingIsPaintedFromNothing() {
        const auto verify = [](const QString& key, const std::function<void(const EditorWindow&)>& work) {
            const OpenEditor editor;
            const QImage before = editor.picYu().picture();
            const QString source = editor.caption();
            editor.press(key);
            work(editor);
            QCOMPARE(editor.picYu().picture(), before);
            QVERIFY(editor.shows(u"picYu"_s) && editor.shows(u"picCq"_s) && editor.shows(u"txtTs"_s));
            QCOMPARE(editor.steps(), QStringList());
            QVERIFY(editor.boxes.isEmpty());
            editor.press(u"fs"_s);
            QCOMPARE(editor.picYu().picture(), before.mirrored(true, false));
            QCOMPARE(editor.caption(), source + u"[ 水平翻转]"_s);
        };
        for (const QString& factor : {u"0"_s, u"-2"_s, u"abc"_s, u"0.001"_s})
            verify(u"sf"_s, [&factor](const EditorWindow& editor) { editor.enter(factor); });
        // A click without a drag, backwards, flat.
        for (const QPoint to : {QPoint(10, 10), QPoint(5, 5), QPoint(40, 10)}) {
            verify(u"cj"_s, [to](const EditorWindow& editor) {
                editor.select({10, 10}, to);
                editor.click(u"cmdCq(0)"_s);
            });
        }
    }

    // A picture that would be too large stays hidden, at its old size, until the dialog is left.
    void tooLargeComesBack() {
        OpenEditor editor;
        for (const QString& factor : {u"500"_s, u"1e300"_s}) {
            editor.scale(factor);
            QVERIFY(!editor.shows(u"picYu"_s) && editor.shows(u"picCq"_s));
            editor.click(u"cmdCq(1)"_s);
            QVERIFY(editor.shows(u"picYu"_s) && !editor.shows(u"picCq"_s));
            QCOMPARE(editor.size(), QSize(80, 60));
        }
        editor.scale(u"2"_s);
        QCOMPARE(editor.size(), QSize(160, 120));
        QVERIFY(editor.caption().endsWith(u"[ *2]"_s));
    }

    void anEmptyEntryIsAskedFor() {
        OpenEditor editor;
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
        OpenEditor editor;
        const QImage loaded = editor.picYu().picture();
        QCOMPARE(editor.steps(), QStringList());  // looking leaves nothing in the catalogue
        editor.scale(u"2"_s);
        QCOMPARE(editor.steps(), (QStringList{u"01"_s, u"02"_s}));
        const auto first = [](const QString& column) {
            return fieldOf(u"SELECT * FROM tccx WHERE 编号 = '01'"_s, column);
        };
        QVERIFY(first(u"图片"_s).toBytes().startsWith(encodeJpeg(loaded, 80)));
        QCOMPARE(first(u"标签"_s).toText(), u"操作提示：先打开要处理的图片，再进行其它操作。"_s);
        QVERIFY(first(u"标题"_s).textOr().isEmpty());
        for (const auto& [column, number] : {std::pair(u"图宽"_s, 1200.0), {u"图高"_s, 900.0}, {u"参数"_s, 0.0}})
            QCOMPARE(first(column).toDouble(), number);
        const auto stored = [](const QString& column) {
            return fieldOf(u"SELECT * FROM tccx WHERE 编号 = '02'"_s, column);
        };
        QCOMPARE(stored(u"标签"_s).toText(), hintFor(u"s2"_s));
        QCOMPARE(stored(u"标题"_s).toText(), u" *2"_s);
        for (const auto& [column, number] : {std::pair(u"图宽"_s, 2400.0), {u"图高"_s, 1800.0}, {u"参数"_s, 2.0}})
            QCOMPARE(stored(column).toDouble(), number);
        const QByteArray bytes = stored(u"图片"_s).toBytes();
        const QByteArray jpeg = encodeJpeg(editor.picYu().picture(), 80);
        QVERIFY(bytes.startsWith(jpeg));
        QCOMPARE(bytes.size(), jpeg.size() + jpeg.size() / pictureChunk + 1);
    }

    void undoReopensTheDialogAndEmptiesAtTheEnd() {
        OpenEditor editor;
        const QString source = editor.caption();
        editor.scale(u"2"_s);
        editor.scale(u".5"_s);
        editor.undo();
        QCOMPARE(editor.size(), QSize(160, 120));
        QCOMPARE(editor.caption(), source + u"[ *2]"_s);
        QVERIFY(editor.shows(u"picCq"_s));
        QCOMPARE(editor.box(u"txtCq"_s).text(), u".5"_s);
        QVERIFY(!editor.find(u"cmdCq(0)"_s)->isEnabled());
        QCOMPARE(leftOf(editor.find(u"cmdCq(0)"_s)), 1920);
        QCOMPARE(editor.hint(), hintFor(u"s1"_s));

        editor.undo();
        QVERIFY(!editor.shows(u"picCq"_s));
        QCOMPARE(editor.size(), QSize(160, 120));
        editor.trigger(u"mnuCx"_s);
        QCOMPARE(editor.size(), QSize(80, 60));
        QCOMPARE(editor.caption(), source);
        editor.undo();
        QVERIFY(editor.menu(u"mnuCx"_s)->isEnabled());
        editor.undo();
        QCOMPARE(editor.caption(), u"览忆集苑（图片处理）"_s);
        QVERIFY(editor.shows(u"img1"_s) && editor.picYu().picture().isNull());
        QVERIFY(!editor.key(u"cx"_s)->isEnabled() && !editor.menu(u"mnuCx"_s)->isEnabled());
        QVERIFY(editor.steps().isEmpty());
    }

    // The menu item stays off, the button works.
    void openingAfterAnUndoStartsATrail() {
        for (const bool isLast : {true, false}) {
            OpenEditor editor;
            if (!isLast) editor.scale(u"2"_s);
            editor.undo();
            editor.open({120, 90});
            QVERIFY(!editor.shows(u"picCq"_s));
            editor.press(u"fs"_s);
            QCOMPARE(editor.steps(), (QStringList{u"01"_s, u"02"_s}));
            editor.undo();
            QCOMPARE(editor.size(), QSize(120, 90));
            QCOMPARE(editor.caption(),
                     sourceLine(PictureFile{editor.file, QFileInfo(editor.file).size(), {3175, 2381}}));
            QCOMPARE(editor.menu(u"mnuCx"_s)->isEnabled(), !isLast);
            editor.undo();
            QVERIFY(editor.shows(u"img1"_s));
        }
    }

    // What the person was about to try again is still there.
    void aCancelledOpeningChangesNothing() {
        OpenEditor editor;
        editor.scale(u"2"_s);
        editor.undo();
        const QStringList steps = editor.steps();
        editor.file.clear();
        editor.press(u"wk"_s);
        QVERIFY(editor.shows(u"picCq"_s) && editor.boxes.isEmpty());
        QCOMPARE(editor.steps(), steps);
        editor.box(u"txtCq"_s).clear();
        editor.enter(u"3"_s);
        QCOMPARE(editor.size(), QSize(240, 180));
        QCOMPARE(editor.steps(), (QStringList{u"01"_s, u"02"_s}));
    }

    void numbersAsAChineseKeyboardGivesThem() {
        OpenEditor editor;
        const auto enter = [&editor](const QString& key, const QString& text) {
            editor.press(key);
            QInputMethodEvent typed;
            typed.setCommitString(text);
            QApplication::sendEvent(&editor.box(u"txtCq"_s), &typed);
            QTest::keyClick(&editor.box(u"txtCq"_s), Qt::Key_Return);
        };
        enter(u"sf"_s, u"１５０％"_s);
        QCOMPARE(editor.size(), QSize(120, 90));
        QVERIFY(editor.caption().endsWith(u" [ *１５０％]"_s));
        enter(u"xz"_s, u"－９０"_s);
        QVERIFY(std::abs(editor.picYu().width() - 90) <= 1);
        QCOMPARE(at(editor, 8, 8), QColor(Qt::blue));
    }

    void anotherTryRotatesAgain() {
        OpenEditor editor;
        editor.rotate(u"90"_s);
        editor.undo();
        QCOMPARE(editor.size(), QSize(80, 60));
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
        OpenEditor editor;
        editor.scale(u"2"_s);
        editor.press(u"fs"_s);
        editor.undo();
        QVERIFY(!editor.shows(u"picCq"_s));
        QCOMPARE(editor.hint(), hintFor(u"p1"_s));
        QVERIFY(editor.caption().endsWith(u"[ *2]"_s));
    }

    void undoneCropCanBeTriedAgain() {
        OpenEditor editor;
        editor.crop({0, 0, 40, 30});
        editor.undo();
        QCOMPARE(editor.size(), QSize(80, 60));
        QVERIFY(editor.shows(u"picCq"_s) && !editor.shows(u"txtCq"_s));
        QVERIFY(!editor.menu(u"mnuCj"_s)->isEnabled());
        editor.select({40, 30}, {60, 50});
        editor.click(u"cmdCq(0)"_s);
        QCOMPARE(editor.size(), QSize(20, 20));
    }

    void moreThanAHundredSteps() {
        const OpenEditor editor({16, 8});
        constexpr int flips = 101;
        for (int i = 0; i < flips; ++i) editor.press(u"fs"_s);
        QCOMPARE(editor.steps().last(), u"102"_s);
        for (int i = 0; i < flips; ++i) editor.undo();
        QCOMPARE(editor.steps(), QStringList{u"01"_s});
        QVERIFY(at(editor, 2, 2).red() > 200);
        editor.undo();
        QVERIFY(editor.shows(u"img1"_s));
    }

    // ---------------------------------------------------------------------------------------------------- loading

    void aFailedLoadChangesNothing() {
        OpenEditor editor;
        editor.scale(u"2"_s);
        QFile text(editor.catalogue.file(u"文字.jpg"_s));
        QVERIFY(text.open(QIODevice::WriteOnly) && text.write("no picture") > 0);
        text.close();
        QVERIFY(QDir(editor.catalogue.folder()).mkdir(u"夹"_s));
        const QString caption = editor.caption();
        const QImage picture = editor.picYu().picture();
        for (const QString& name : {u""_s, u"文字.jpg"_s, u"没有.jpg"_s, u"夹"_s}) {
            editor.boxes.clear();
            editor.file = name.isEmpty() ? QString() : editor.catalogue.file(name);
            editor.reply = u"不保存"_s;
            editor.press(u"wk"_s);
            QCOMPARE(editor.boxes.size(), name.isEmpty() ? 0 : 2);
            QVERIFY(name.isEmpty() || (editor.lastBox().startsWith(u"错误提示|") && editor.lastBox().contains(name)));
            QCOMPARE(editor.caption(), caption);
            QCOMPARE(editor.picYu().picture(), picture);
        }
        editor.undo();
        QCOMPARE(editor.size(), QSize(80, 60));
    }
};

const Registered<TestOperations> registered;

}  // namespace

#include "operations_test.moc"
