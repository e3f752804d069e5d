#include "catalogue/picture_field.h"
#include "editor_window.h"
#include "platform/desktop/shapes.h"

using namespace Qt::Literals::StringLiterals;

namespace {

struct Selecting : OpenEditor {
    explicit Selecting(QSize pixels = {300, 200}) : OpenEditor(pixels) {}

    void option(int index) const {
        QTest::mouseClick(find<QRadioButton>(u"optAn(%1)"_s.arg(index)), Qt::LeftButton, {}, QPoint(8, 9));
    }
    void startButton(int shape) const {
        press(u"at"_s);
        option(shape);
    }
    QString label(int index) const { return find<QLabel>(u"lblAs(%1)"_s.arg(index))->text(); }
    const ShapeBox& band() const { return *find<ShapeBox>(u"shpYu"_s); }
    QSize bandSize() const { return {widthOf(&band()), heightOf(&band())}; }
    QPushButton& confirm() const { return *find<QPushButton>(u"cmdCk"_s); }
    void move(QPoint to) const { QTest::mouseMove(&picYu(), to); }
    void down(QPoint at) const { QTest::mousePress(&picYu(), Qt::LeftButton, {}, at); }
    void up(QPoint at) const { QTest::mouseRelease(&picYu(), Qt::LeftButton, {}, at); }
};

/// The rubber band, and what is made of it.
class TestSelecting : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void theBandNeedsADialog() {
        const Selecting editor;
        editor.select({10, 10}, {90, 70});
        QVERIFY(!editor.shows(u"shpYu"_s));
        editor.press(u"at"_s);
        editor.select({10, 10}, {90, 70});
        QVERIFY(!editor.shows(u"shpYu"_s));
        QVERIFY(!editor.confirm().isEnabled());
    }

    void freeSelection() {
        const Selecting editor;
        editor.press(u"cj"_s);
        QVERIFY(!editor.menu(u"mnuCj"_s)->isEnabled() && !editor.find(u"cmdCq(0)"_s)->isEnabled());
        editor.down({20, 30});
        QVERIFY(editor.shows(u"shpYu"_s) && !editor.shows(u"txtCc"_s));
        editor.move({21, 31});
        QVERIFY(!editor.shows(u"txtCc"_s));
        editor.move({100, 90});
        QCOMPARE(editor.bandSize(), QSize(1200, 900));
        QCOMPARE(editor.box(u"txtCc"_s).text(), u"L：20 T：30 W：80 H：60 W/H：1.333"_s);
        QVERIFY(editor.shows(u"txtCc"_s));
        editor.up({100, 90});
        QVERIFY(editor.find<QPushButton>(u"cmdCq(0)"_s)->isEnabled());
        editor.click(u"cmdCq(0)"_s);
        QCOMPARE(editor.picYu().picture().size(), QSize(80, 60));
        QVERIFY(!editor.shows(u"shpYu"_s) && !editor.shows(u"picCq"_s) && editor.menu(u"mnuCj"_s)->isEnabled());
    }

    void bandColourFollowsThePicture() {
        for (const auto& [under, band] : {std::pair(Qt::black, Qt::white), {Qt::lightGray, Qt::red}}) {
            EditorWindow editor;
            editor.file = editor.catalogue.file(u"面.bmp"_s);
            writePicture(editor.file, {60, 40}, under, "BMP");
            editor.press(u"wk"_s);
            editor.press(u"cj"_s);
            QTest::mousePress(&editor.picYu(), Qt::LeftButton, {}, QPoint(5, 5));
            QCOMPARE(editor.find<ShapeBox>(u"shpYu"_s)->borderColor(), QColor(band));
        }
    }

    // The pointer decides by its place in the visible part, wherever the picture has been scrolled to.
    void aDragBeyondTheEdgeScrolls() {
        const Selecting editor({2400, 1800});
        editor.zoom(Qt::Key_1);
        auto* down = editor.find<QScrollBar>(u"vsc1"_s);
        auto* right = editor.find<QScrollBar>(u"hsc1"_s);
        QVERIFY(down->isVisible() && right->isVisible());
        const QSize view = editor.find(u"picGd"_s)->size();
        const auto moveInView = [&editor](QPoint to) { editor.move(to - editor.picYu().pos()); };
        editor.press(u"cj"_s);
        down->setValue(3000);
        right->setValue(4500);
        editor.down(QPoint(view.width() / 2, view.height() / 2) - editor.picYu().pos());
        moveInView({view.width() - 1, view.height() - 1});
        moveInView({0, 0});
        QCOMPARE(down->value(), 3000);
        QCOMPARE(right->value(), 4500);
        moveInView({20, view.height() + 40});
        QCOMPARE(down->value(), 3200);
        QCOMPARE(topOf(&editor.picYu()), -3195);  // 200 twips are 13 whole pixels
        QCOMPARE(right->value(), 4500);
        moveInView({view.width() + 5, 20});
        QCOMPARE(right->value(), 4700);
        moveInView({-5, -5});
        QCOMPARE(QPoint(right->value(), down->value()), QPoint(4500, 3000));
        for (int i = 0; i < 40; ++i) moveInView({-5, -5});
        QVERIFY(right->value() < 300 && down->value() < 300);
        for (int i = 0; i < 200; ++i) moveInView({view.width() + 2, view.height() + 2});
        QVERIFY(right->maximum() - right->value() < 430 && down->maximum() - down->value() < 430);
        editor.up(QPoint(2600, 1900));
    }

    void aCropEndsWithThePicture() {
        const Selecting editor;
        editor.press(u"cj"_s);
        editor.select({200, 150}, {900, 700});
        QCOMPARE(editor.bandSize(), QSize(1500, 750));
        editor.click(u"cmdCq(0)"_s);
        QCOMPARE(editor.picYu().picture().size(), QSize(100, 50));
        QCOMPARE(editor.picYu().picture().pixelColor(99, 49), QColor(Qt::yellow));
    }

    void aRatioEndsWithThePicture() {
        const Selecting editor;
        editor.startButton(0);
        editor.down({100, 140});
        editor.move({280, 150});
        QCOMPARE(editor.bandSize(), QSize(1200, 900));  // 60 rows are left
        editor.up({280, 150});
        editor.click(u"cmdCk"_s);
        QCOMPARE(editor.picYu().picture().pixelColor(97, 72), QColor(Qt::yellow));
    }

    // On the screen it stays where it was begun.
    void aFixedSizeMovesIntoThePicture() {
        const Selecting editor;
        editor.startButton(1);
        editor.down({280, 190});
        editor.move({285, 195});
        QCOMPARE(editor.band().pos(), QPoint(280, 190));
        QCOMPARE(editor.bandSize(), QSize(1500, 1125));
        editor.up({285, 195});
        editor.click(u"cmdCk"_s);
        const QImage thumbnail = editor.picYu().picture();
        QCOMPARE(thumbnail.size(), QSize(100, 75));
        for (const QPoint corner : {QPoint(0, 0), QPoint(99, 74)})
            QCOMPARE(thumbnail.pixelColor(corner), QColor(Qt::yellow));
    }

    // A crop after a button picture is free again.
    void theShapeEndsWithItsDialog() {
        Selecting editor;
        editor.scale(u"1"_s);
        editor.press(u"at"_s);
        editor.option(0);
        editor.undo();
        QVERIFY(!editor.shows(u"picAn"_s));
        editor.select({10, 10}, {90, 30});
        QVERIFY(!editor.shows(u"shpYu"_s));
        editor.press(u"cj"_s);
        editor.down({10, 10});
        editor.move({90, 30});
        QCOMPARE(editor.bandSize(), QSize(1200, 300));
    }

    void theHintTakesNoPressOfASelection() {
        const Selecting editor;
        editor.press(u"cj"_s);
        auto* hint = editor.find(u"txtTs"_s);
        const QPoint start = editor.picYu().mapToGlobal(QPoint(150, 5));
        QVERIFY(hint->isVisible() && hint->rect().contains(hint->mapFromGlobal(start)));
        const auto press = [&](QPoint at) {
            editor.mouse([](QWindow* on, auto... rest) { QTest::mousePress(on, rest...); }, at);
        };
        const auto release = [&](QPoint at) {
            editor.mouse([](QWindow* on, auto... rest) { QTest::mouseRelease(on, rest...); }, at);
        };
        press(start);
        for (const int far : {10, 40})
            editor.mouse(
                [](QWindow* on, Qt::MouseButton, Qt::KeyboardModifiers, QPoint at, int) { QTest::mouseMove(on, at); },
                start + QPoint(2 * far, far));
        release(start + QPoint(80, 40));
        QCOMPARE(editor.bandSize(), QSize(1200, 600));
        QCOMPARE(editor.band().pos(), QPoint(150, 5));
        QVERIFY(hint->isVisible());
        editor.click(u"cmdCq(0)"_s);
        QCOMPARE(editor.picYu().picture().size(), QSize(80, 40));

        // A click hides it, while something is selected and otherwise.
        for (const QString& key : {u"cj"_s, QString()}) {
            if (!key.isEmpty()) editor.press(key);
            QTest::mouseDClick(&editor.picYu(), Qt::LeftButton);
            QVERIFY(hint->isVisible());
            const QPoint at = editor.picYu().mapToGlobal(QPoint(40, 5));
            press(at);
            release(at);
            QVERIFY(!hint->isVisible());
            if (!key.isEmpty()) editor.click(u"cmdCq(1)"_s);
        }
    }

    void theReadoutIsWhole() {
        for (const QSize picture : {QSize(2400, 1800), QSize(300, 200), QSize(80, 60)}) {
            const Selecting editor(picture);
            editor.zoom(Qt::Key_1);
            editor.press(u"cj"_s);
            auto* down = editor.find<QScrollBar>(u"vsc1"_s);
            if (down->isVisible()) down->setValue(down->maximum() / 2);
            const auto* readout = editor.find<TextBox>(u"txtCc"_s);
            const QPoint origin = -editor.picYu().pos();
            const QSize view = editor.find(u"picGd"_s)->size();
            editor.down(origin + QPoint(5, 5));
            for (const QPoint to : {QPoint(30, 30), QPoint(view.width() - 1, view.height() - 1)}) {
                editor.move(origin + to);
                QVERIFY2(readout->isVisible(), qPrintable(readout->text()));
                QCOMPARE(readout->visibleRegion().boundingRect(), readout->rect());
                QVERIFY(readout->fontMetrics().horizontalAdvance(readout->text()) < readout->width());
            }
        }
    }

    void ratioOfAButton() {
        const Selecting editor;
        editor.startButton(0);
        QCOMPARE(editor.label(2), u" 请在图片上进行裁剪操作"_s);
        editor.down({10, 20});
        editor.move({130, 25});
        QCOMPARE(editor.bandSize(), QSize(1800, 1350));
        QCOMPARE(editor.label(0), u"选中尺寸：120 * 90"_s);
        QCOMPARE(editor.label(1), u"缩放比例：1.2：1"_s);
        editor.up({130, 25});
        QCOMPARE(editor.label(0), u"选中尺寸：120 * 90\n缩放比例：1.2：1"_s);
        QCOMPARE(editor.label(2), u"  按“显示”查看裁剪后图片"_s);
        QVERIFY(editor.confirm().isEnabled());
    }

    void fixedSizeOfAButton() {
        Selecting editor;
        editor.startButton(1);
        QCOMPARE(editor.lastBox(),
                 u"操作提示|要将选择的“按钮用图片”固定尺寸吗？\n\n如果“是”，请按“确定”；否则按“取消”。"_s);
        editor.down({10, 20});
        editor.move({11, 21});
        QCOMPARE(editor.bandSize(), QSize(1500, 1125));
        editor.up({200, 150});
        QCOMPARE(editor.label(0), u"选中尺寸：100 * 75\n缩放比例：1：1"_s);
        editor.click(u"cmdCk"_s);
        QCOMPARE(editor.picYu().picture().size(), QSize(100, 75));
        QVERIFY(editor.shows(u"fraWz"_s));
        QCOMPARE(editor.label(2), u"    请在上边选择保存位置"_s);
        QCOMPARE(editor.find(u"picGd"_s)->size(), QSize(100, 75));
    }

    void aRefusedFixedSizeLeavesTheShapeBefore() {
        Selecting editor;
        editor.press(u"at"_s);
        editor.answer = false;
        editor.option(1);
        QVERIFY(!editor.find<QRadioButton>(u"optAn(1)"_s)->isChecked());
        QCOMPARE(editor.label(2), u"      请先选择裁剪方式"_s);
        editor.option(0);
        editor.option(1);
        QVERIFY(editor.find<QRadioButton>(u"optAn(0)"_s)->isChecked());
    }

    void fittingPicturesCanBeTakenWhole() {
        const Selecting editor({400, 300});
        editor.startButton(0);
        QVERIFY(editor.lastBox().startsWith(u"操作提示|选择的“按钮用图片”尺寸不必裁剪可直接使用。\n\n"));
        QCOMPARE(editor.picYu().picture().size(), QSize(100, 75));
        QCOMPARE(editor.picYu().picture().pixelColor(20, 20), QColor(Qt::red));
        QCOMPARE(editor.picYu().picture().pixelColor(80, 60), QColor(Qt::yellow));

        const Selecting clicked({400, 300});
        clicked.select({230, 190}, {300, 250});
        clicked.startButton(0);
        QCOMPARE(clicked.picYu().picture().pixelColor(20, 20), QColor(Qt::red));
    }

    void smallPicturesNeedNoCut() {
        Selecting editor({90, 70});
        editor.startButton(0);
        editor.select({5, 5}, {60, 40});
        editor.click(u"cmdCk"_s);
        QCOMPARE(editor.picYu().picture().size(), QSize(90, 70));
        QVERIFY(editor.shows(u"fraWz"_s));
        QCOMPARE(editor.label(2), u"     请直接选择安装位置"_s);
    }

    void storingInAButton() {
        Selecting editor({400, 300});
        editor.startButton(0);
        editor.option(2);
        auto* grid = editor.find<Grid>(u"msgBm"_s);
        QCOMPARE(grid->parentWidget()->objectName(), u"picAn"_s);
        QCOMPARE(grid->model()->rowCount(), 4);
        // Nobody has chosen the row that the table stands on.
        QCOMPARE(editor.label(2), u"  请在表中选择要换图片的按钮"_s);
        QTest::keyClick(grid, Qt::Key_Down);
        QCOMPARE(editor.label(2), u"选中:序号=2(风景)"_s);
        editor.clickRow(3);
        QCOMPARE(editor.label(2), u"选中:序号=4(无图)"_s);
        QCOMPARE(editor.confirm().text(), u"确定"_s);
        QCOMPARE(topOf(&editor.confirm()), 1815);  // 1810 in whole pixels
        editor.click(u"cmdCk"_s);
        QCOMPARE(editor.lastBox(), u"保存按钮图片|按钮图片已保存完毕！(序号＝4)"_s);
        Recordset row = mekTp::catalogue.OpenRecordset(u"SELECT * FROM tcan WHERE 序号 = 4"_s);
        const auto stored = pictureFromField(row, u"图片"_s);
        QVERIFY(stored && stored->pixels() == QSize(100, 75));
        editor.scale(u"2"_s);
        QCOMPARE(editor.picYu().picture().size(), QSize(200, 150));
    }

    void aLongNameIsWholeInTheToolTip() {
        const Selecting editor({400, 300});
        const QString name = u"我"_s.repeated(20);
        changeRow(u"SELECT * FROM tcan WHERE 序号 = 2"_s, {{u"名称"_s, name}});
        editor.startButton(0);
        editor.option(2);
        editor.clickRow(1);
        const auto* label = editor.find<QLabel>(u"lblAs(2)"_s);
        QVERIFY(label->fontMetrics().horizontalAdvance(label->text()) <= label->width());
        QVERIFY(label->text().endsWith(u"…") && label->toolTip().contains(name));
        editor.clickRow(3);
        QVERIFY(label->toolTip().isEmpty());
    }

    // The table was the chooser's before, and has another height and another place of its own now.
    void theRowThatIsMarkedShows() {
        Selecting editor;
        for (int i = 5; i <= 9; ++i) addRow(u"tcan"_s, {{u"序号"_s, i}, {u"编号"_s, u"x"_s}, {u"名称"_s, u"名"_s}});
        changeRow(u"SELECT * FROM tc01 WHERE 序号 = 5"_s, {{u"图片"_s, pictureBytes({400, 300}, Qt::red)}});
        editor.press(u"sk"_s);
        auto* albums = editor.find<QComboBox>(u"cboBm"_s);
        albums->setFocus();
        QTest::keyClick(albums, Qt::Key_Down);
        auto* grid = editor.find<Grid>(u"msgBm"_s);
        editor.clickRow(4);
        const QPoint at = grid->visualRect(grid->model()->index(4, 0)).center();
        // By the window itself: the release goes wherever the toolkit sends it then.
        editor.mouse([](QWindow* on, auto... rest) { QTest::mouseDClick(on, rest...); },
                     grid->viewport()->mapToGlobal(at));
        QTRY_VERIFY(!grid->isVisible());
        editor.startButton(0);
        editor.option(2);
        for (int row = 0; row < 9; ++row) {
            QCOMPARE(grid->currentIndex().row(), row);
            QVERIFY2(grid->viewport()->rect().contains(grid->visualRect(grid->currentIndex())),
                     qPrintable(QString::number(row)));
            QTest::keyClick(grid, Qt::Key_Down);
        }
    }

    void savingTheButtonAsAFile() {
        for (const auto& [name, begin] : {std::pair(u"钮 '1.jpg"_s, "\xff\xd8"), {u"钮.bmp"_s, "BM"}}) {
            Selecting editor({400, 300});
            editor.startButton(0);
            editor.file = editor.catalogue.file(name);
            editor.option(3);
            QCOMPARE(editor.lastBox(), u"操作提示|选择的“按钮用图片”已存为文件["_s + editor.file + u"]。"_s);
            QCOMPARE(beginOf(editor.file), QByteArray(begin));
            QVERIFY(!editor.shows(u"picAn"_s) && editor.key(u"sf"_s)->isEnabled());
        }
    }

    void leavingTheButton() {
        const Selecting editor;
        editor.scale(u"2"_s);
        editor.rotate(u"10"_s);
        editor.press(u"at"_s);
        editor.click(u"cmdAg"_s);
        // One step further back than the picture that was on the screen.
        QCOMPARE(editor.picYu().picture().size(), QSize(600, 400));
        QCOMPARE(editor.steps(), (QStringList{u"01"_s, u"02"_s}));

        const Selecting unchanged;
        unchanged.press(u"at"_s);
        unchanged.click(u"cmdAg"_s);
        QVERIFY(unchanged.shows(u"img1"_s));
    }

    void leavingTheButtonWithoutAnyDialogBefore() {
        const Selecting editor;
        editor.press(u"fs"_s);
        editor.press(u"fc"_s);
        for (const QString& way : {u"cmdAg"_s, u"tlb1:cx"_s}) {
            editor.press(u"at"_s);
            QVERIFY(!editor.key(u"sf"_s)->isEnabled());
            editor.click(way);
            QVERIFY(editor.key(u"sf"_s)->isEnabled() && editor.menu(u"mnuCl"_s)->isEnabled());
        }
    }

    void savingMeansThePhotograph() {
        Selecting editor({400, 300});
        editor.scale(u"0.9"_s);
        editor.startButton(0);
        editor.click(u"cmdAg"_s);
        editor.press(u"bc"_s);
        QCOMPARE(QImage(editor.file).size(), QSize(360, 270));
    }
};

const Registered<TestSelecting> registered;

}  // namespace

#include "selecting_test.moc"
