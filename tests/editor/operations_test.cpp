#include "catalogue/picture_field.h"
#include "editor_window.h"

using namespace Qt::Literals::StringLiterals;

namespace {

QColor at(const EditorWindow& editor, int x, int y) {
    return QColor(editor.picYu().Point(x, y));
}

class TestOperations : public QObject {
    Q_OBJECT

    std::optional<OpenEditor> editor_;

  private Q_SLOTS:
    void init() { editor_.emplace(); }

    void scaling() {
        const std::tuple<QString, QSize, QString> rows[] = {
            {u".5"_s, {40, 30}, u"*0.5"_s}, {u"1"_s, {80, 60}, u"*1"_s}, {u"1.37"_s, {110, 82}, u"*1.37"_s}};
        for (const auto& [factor, size, logged] : rows) {
            init();
            const QString source = editor_->caption();
            editor_->press(u"sf"_s);
            QVERIFY(editor_->shows(u"picCq"_s) && !editor_->shows(u"linJd(1)"_s));
            QCOMPARE(editor_->find<QLabel>(u"lblCq"_s)->text(), u"请输入缩放倍数"_s);
            QVERIFY(!editor_->find(u"cmdCq(0)"_s)->isEnabled());
            QCOMPARE(leftOf(editor_->find(u"cmdCq(0)"_s)), 1920);
            editor_->enter(factor);
            QCOMPARE(editor_->size(), size);
            QCOMPARE(editor_->picYu().picture().size(), size);
            QCOMPARE(editor_->picMb().picture(), editor_->picYu().picture());
            QCOMPARE(editor_->caption(), source + u" [ "_s + logged + u']');
            QCOMPARE(editor_->hint(), hintFor(u"s2"_s));
            QVERIFY(!editor_->shows(u"picCq"_s));
            QCOMPARE(leftOf(editor_->find(u"cmdCq(0)"_s)), 1890);
            QVERIFY(editor_->menu(u"mnuBc"_s)->isEnabled() && editor_->key(u"bc"_s)->isEnabled());
            QCOMPARE(editor_->steps(), (QStringList{u"01"_s, u"02"_s}));
        }
    }

    // A flip leaves 保存 as it was and writes its caption without the blank.
    void flipping() {
        const QString source = editor_->caption();
        const QImage before = editor_->picYu().picture();
        editor_->press(u"fs"_s);
        QCOMPARE(editor_->picYu().picture(), before.mirrored(true, false));
        QCOMPARE(editor_->caption(), source + u"[ 水平翻转]"_s);
        QCOMPARE(editor_->hint(), hintFor(u"p1"_s));
        QVERIFY(!editor_->menu(u"mnuBc"_s)->isEnabled());
        editor_->press(u"fc"_s);
        QCOMPARE(editor_->picYu().picture(), before.mirrored(true, true));
        editor_->press(u"fs"_s);
        editor_->press(u"fc"_s);
        QCOMPARE(editor_->picYu().picture(), before);
        QCOMPARE(editor_->caption(), source + u"[ 水平翻转 垂直翻转 水平翻转 垂直翻转]"_s);
        QCOMPARE(editor_->steps().size(), 5);
    }

    void rotating() {
        const QString source = editor_->caption();
        editor_->press(u"xz"_s);
        QVERIFY(!editor_->menu(u"mnuXz"_s)->isEnabled() && !editor_->key(u"at"_s)->isEnabled());
        QVERIFY(editor_->shows(u"linJd(1)"_s) && editor_->shows(u"linJd(3)"_s));
        QTest::keyClicks(&editor_->box(u"txtCq"_s), u"90"_s);
        const auto* hand = editor_->find<LineBox>(u"linJd(0)"_s);
        QCOMPARE(QPoint(hand->x2(), hand->y2()), QPoint(60, 810));
        QTest::keyClick(&editor_->box(u"txtCq"_s), Qt::Key_Return);
        QVERIFY(std::abs(editor_->picYu().width() - 60) <= 1 && std::abs(editor_->picYu().height() - 80) <= 1);
        QCOMPARE(at(*editor_, 8, 70), QColor(Qt::red));
        QCOMPARE(at(*editor_, 8, 8), QColor(Qt::green));
        QCOMPARE(editor_->caption(), source + u" [ 90度]"_s);
        QCOMPARE(editor_->hint(), hintFor(u"x2"_s));
        QVERIFY(editor_->menu(u"mnuXz"_s)->isEnabled() && editor_->key(u"at"_s)->isEnabled());
        for (const QString& name : {u"prg1"_s, u"linJd(0)"_s, u"linJd(1)"_s, u"picCq"_s})
            QVERIFY(!editor_->shows(name));
        QVERIFY(editor_->key(u"bc"_s)->isEnabled());
    }

    void anAngleThatIsNoNumberLeavesAFrame() {
        editor_->rotate(u"abc"_s);
        QCOMPARE(editor_->size(), QSize(80, 60));
        for (const int x : {0, 79}) QCOMPARE(at(*editor_, x, 30), QColor(Qt::white));
        QCOMPARE(at(*editor_, 1, 1), QColor(Qt::red));
    }

    // The corner of a crop stays the source of later flips until a scale.
    void croppingMovesTheSourceOfFlips() {
        editor_->crop({10, 6, 40, 30});
        QCOMPARE(editor_->size(), QSize(40, 30));
        QCOMPARE(at(*editor_, 29, 23), QColor(Qt::red));
        QCOMPARE(at(*editor_, 30, 24), QColor(Qt::yellow));
        QVERIFY(editor_->caption().endsWith(u" [ 裁剪]"_s));
        QVERIFY(!editor_->shows(u"shpYu"_s) && !editor_->shows(u"txtCc"_s));
        const QImage cropped = editor_->picYu().picture();
        editor_->press(u"fs"_s);
        QCOMPARE(at(*editor_, 5, 5), QColor(Qt::white));
        QCOMPARE(at(*editor_, 10, 0), QColor(cropped.pixel(39, 6)));
        editor_->scale(u"1"_s);
        const QImage before = editor_->picYu().picture();
        editor_->press(u"fc"_s);
        QCOMPARE(editor_->picYu().picture(), before.mirrored(false, true));
    }

    void nothingIsPaintedFromNothing() {
        const auto verify = [this](const QString& key, const std::function<void()>& work) {
            init();
            const QImage before = editor_->picYu().picture();
            const QString source = editor_->caption();
            editor_->press(key);
            work();
            QCOMPARE(editor_->picYu().picture(), before);
            QVERIFY(editor_->shows(u"picYu"_s) && editor_->shows(u"picCq"_s) && editor_->shows(u"txtTs"_s));
            QCOMPARE(editor_->steps(), QStringList());
            QVERIFY(editor_->boxes.isEmpty());
            editor_->press(u"fs"_s);
            QCOMPARE(editor_->picYu().picture(), before.mirrored(true, false));
            QCOMPARE(editor_->caption(), source + u"[ 水平翻转]"_s);
        };
        for (const QString& factor : {u"0"_s, u"-2"_s, u"abc"_s, u"0.001"_s})
            verify(u"sf"_s, [this, &factor] { editor_->enter(factor); });
        // A click without a drag, backwards, flat.
        for (const QPoint to : {QPoint(10, 10), QPoint(5, 5), QPoint(40, 10)}) {
            verify(u"cj"_s, [this, to] {
                editor_->select({10, 10}, to);
                editor_->click(u"cmdCq(0)"_s);
            });
        }
    }

    // A picture that would be too large stays hidden, at its old size, until the dialog is left.
    void tooLargeComesBack() {
        for (const QString& factor : {u"500"_s, u"1e300"_s}) {
            editor_->scale(factor);
            QVERIFY(!editor_->shows(u"picYu"_s) && editor_->shows(u"picCq"_s));
            editor_->click(u"cmdCq(1)"_s);
            QVERIFY(editor_->shows(u"picYu"_s) && !editor_->shows(u"picCq"_s));
            QCOMPARE(editor_->size(), QSize(80, 60));
        }
        editor_->scale(u"2"_s);
        QCOMPARE(editor_->size(), QSize(160, 120));
        QVERIFY(editor_->caption().endsWith(u"[ *2]"_s));
    }

    void anEmptyEntryIsAskedFor() {
        editor_->press(u"sf"_s);
        QTest::keyClick(&editor_->box(u"txtCq"_s), Qt::Key_Return);
        QVERIFY(editor_->boxes.isEmpty());
        QTest::keyClicks(&editor_->box(u"txtCq"_s), u"2"_s);
        editor_->box(u"txtCq"_s).clear();
        editor_->click(u"cmdCq(0)"_s);
        QCOMPARE(editor_->lastBox(), u"操作提示|请在文本框中输入数据！"_s);
        QVERIFY(editor_->box(u"txtCq"_s).hasFocus());
        QTest::keyClick(&editor_->box(u"txtCq"_s), Qt::Key_Escape);
        QVERIFY(!editor_->shows(u"picCq"_s));
        QCOMPARE(editor_->hint(), hintFor(u"w1"_s));
    }

    // ------------------------------------------------------------------------------------------------ taking back

    void stepsAreJpegFiles() {
        const QImage loaded = editor_->picYu().picture();
        QCOMPARE(editor_->steps(), QStringList());  // looking leaves nothing in the catalogue
        editor_->scale(u"2"_s);
        QCOMPARE(editor_->steps(), (QStringList{u"01"_s, u"02"_s}));
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
        const QByteArray jpeg = encodeJpeg(editor_->picYu().picture(), 80);
        QVERIFY(bytes.startsWith(jpeg));
        QCOMPARE(bytes.size(), jpeg.size() + jpeg.size() / pictureChunk + 1);
    }

    void undoReopensTheDialogAndEmptiesAtTheEnd() {
        const QString source = editor_->caption();
        editor_->scale(u"2"_s);
        editor_->scale(u".5"_s);
        editor_->undo();
        QCOMPARE(editor_->size(), QSize(160, 120));
        QCOMPARE(editor_->caption(), source + u"[ *2]"_s);
        QVERIFY(editor_->shows(u"picCq"_s));
        QCOMPARE(editor_->box(u"txtCq"_s).text(), u".5"_s);
        QVERIFY(!editor_->find(u"cmdCq(0)"_s)->isEnabled());
        QCOMPARE(leftOf(editor_->find(u"cmdCq(0)"_s)), 1920);
        QCOMPARE(editor_->hint(), hintFor(u"s1"_s));

        editor_->undo();
        QVERIFY(!editor_->shows(u"picCq"_s));
        QCOMPARE(editor_->size(), QSize(160, 120));
        editor_->trigger(u"mnuCx"_s);
        QCOMPARE(editor_->size(), QSize(80, 60));
        QCOMPARE(editor_->caption(), source);
        editor_->undo();
        QVERIFY(editor_->menu(u"mnuCx"_s)->isEnabled());
        editor_->undo();
        QCOMPARE(editor_->caption(), u"览忆集苑（图片处理）"_s);
        QVERIFY(editor_->shows(u"img1"_s) && editor_->picYu().picture().isNull());
        QVERIFY(!editor_->key(u"cx"_s)->isEnabled() && !editor_->menu(u"mnuCx"_s)->isEnabled());
        QVERIFY(editor_->steps().isEmpty());
    }

    // The menu item stays off, the button works.
    void openingAfterAnUndoStartsATrail() {
        for (const bool isLast : {true, false}) {
            init();
            if (!isLast) editor_->scale(u"2"_s);
            editor_->undo();
            editor_->open({120, 90});
            QVERIFY(!editor_->shows(u"picCq"_s));
            editor_->press(u"fs"_s);
            QCOMPARE(editor_->steps(), (QStringList{u"01"_s, u"02"_s}));
            editor_->undo();
            QCOMPARE(editor_->size(), QSize(120, 90));
            QCOMPARE(editor_->caption(),
                     sourceLine(PictureFile{editor_->file, QFileInfo(editor_->file).size(), {3175, 2381}}));
            QCOMPARE(editor_->menu(u"mnuCx"_s)->isEnabled(), !isLast);
            editor_->undo();
            QVERIFY(editor_->shows(u"img1"_s));
        }
    }

    // What the person was about to try again is still there.
    void aCancelledOpeningChangesNothing() {
        editor_->scale(u"2"_s);
        editor_->undo();
        const QStringList steps = editor_->steps();
        editor_->file.clear();
        editor_->press(u"wk"_s);
        QVERIFY(editor_->shows(u"picCq"_s) && editor_->boxes.isEmpty());
        QCOMPARE(editor_->steps(), steps);
        editor_->box(u"txtCq"_s).clear();
        editor_->enter(u"3"_s);
        QCOMPARE(editor_->size(), QSize(240, 180));
        QCOMPARE(editor_->steps(), (QStringList{u"01"_s, u"02"_s}));
    }

    void numbersAsAChineseKeyboardGivesThem() {
        const auto enter = [this](const QString& key, const QString& text) {
            editor_->press(key);
            QInputMethodEvent typed;
            typed.setCommitString(text);
            QApplication::sendEvent(&editor_->box(u"txtCq"_s), &typed);
            QTest::keyClick(&editor_->box(u"txtCq"_s), Qt::Key_Return);
        };
        enter(u"sf"_s, u"１５０％"_s);
        QCOMPARE(editor_->size(), QSize(120, 90));
        QVERIFY(editor_->caption().endsWith(u" [ *１５０％]"_s));
        enter(u"xz"_s, u"－９０"_s);
        QVERIFY(std::abs(editor_->picYu().width() - 90) <= 1);
        QCOMPARE(at(*editor_, 8, 8), QColor(Qt::blue));
    }

    void anotherTryRotatesAgain() {
        editor_->rotate(u"90"_s);
        editor_->undo();
        QCOMPARE(editor_->size(), QSize(80, 60));
        QVERIFY(editor_->shows(u"picCq"_s));
        editor_->box(u"txtCq"_s).clear();
        editor_->enter(u"-90"_s);
        QVERIFY(editor_->caption().endsWith(u" [ -90度]"_s));
        QVERIFY(editor_->picYu().width() < editor_->picYu().height());

        editor_->press(u"xz"_s);
        editor_->click(u"cmdCq(1)"_s);
        editor_->scale(u"2"_s);
        QVERIFY(editor_->caption().endsWith(u" [ -90度 *2]"_s));
    }

    void aFlipHasNoDialogToReopen() {
        editor_->scale(u"2"_s);
        editor_->press(u"fs"_s);
        editor_->undo();
        QVERIFY(!editor_->shows(u"picCq"_s));
        QCOMPARE(editor_->hint(), hintFor(u"p1"_s));
        QVERIFY(editor_->caption().endsWith(u"[ *2]"_s));
    }

    void undoneCropCanBeTriedAgain() {
        editor_->crop({0, 0, 40, 30});
        editor_->undo();
        QCOMPARE(editor_->size(), QSize(80, 60));
        QVERIFY(editor_->shows(u"picCq"_s) && !editor_->shows(u"txtCq"_s));
        QVERIFY(!editor_->menu(u"mnuCj"_s)->isEnabled());
        editor_->select({40, 30}, {60, 50});
        editor_->click(u"cmdCq(0)"_s);
        QCOMPARE(editor_->size(), QSize(20, 20));
    }

    void moreThanAHundredSteps() {
        editor_.emplace(QSize(16, 8));
        constexpr int flips = 101;
        for (int i = 0; i < flips; ++i) editor_->press(u"fs"_s);
        QCOMPARE(editor_->steps().last(), u"102"_s);
        for (int i = 0; i < flips; ++i) editor_->undo();
        QCOMPARE(editor_->steps(), QStringList{u"01"_s});
        QVERIFY(at(*editor_, 2, 2).red() > 200);
        editor_->undo();
        QVERIFY(editor_->shows(u"img1"_s));
    }

    // ---------------------------------------------------------------------------------------------------- loading

    void aFailedLoadChangesNothing() {
        editor_->scale(u"2"_s);
        QFile text(editor_->catalogue.file(u"文字.jpg"_s));
        QVERIFY(text.open(QIODevice::WriteOnly) && text.write("no picture") > 0);
        text.close();
        QVERIFY(QDir(editor_->catalogue.folder()).mkdir(u"夹"_s));
        const QString caption = editor_->caption();
        const QImage picture = editor_->picYu().picture();
        for (const QString& name : {u""_s, u"文字.jpg"_s, u"没有.jpg"_s, u"夹"_s}) {
            editor_->boxes.clear();
            editor_->file = name.isEmpty() ? QString() : editor_->catalogue.file(name);
            editor_->reply = u"不保存"_s;
            editor_->press(u"wk"_s);
            QCOMPARE(editor_->boxes.size(), name.isEmpty() ? 0 : 2);
            QVERIFY(name.isEmpty() ||
                    (editor_->lastBox().startsWith(u"错误提示|") && editor_->lastBox().contains(name)));
            QCOMPARE(editor_->caption(), caption);
            QCOMPARE(editor_->picYu().picture(), picture);
        }
        editor_->undo();
        QCOMPARE(editor_->size(), QSize(80, 60));
    }
};

const Registered<TestOperations> registered;

}  // namespace

#include "operations_test.moc"
