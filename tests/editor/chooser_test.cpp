#include "chooser_window.h"

using namespace Qt::Literals::StringLiterals;

namespace {

class TestChooser : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void opensEmpty() {
        const Chooser editor;
        QVERIFY(editor.shows(u"picCs"_s) && !editor.shows(u"picGd"_s));
        const auto* list = editor.find<QComboBox>(u"cboBm"_s);
        QCOMPARE(list->count(), 2);
        QCOMPARE(list->itemText(0), u"tc01 旅行"_s);
        QVERIFY(!editor.find<Grid>(u"msgBm"_s)->isEnabled());
        QVERIFY(!editor.find<QPushButton>(u"cmdQd"_s)->isEnabled());
        QCOMPARE(editor.label(u"lbl1"_s), u"请先选择图册"_s);
        QCOMPARE(editor.label(u"lblCl"_s), u"图片处理（尚未选择图片）"_s);
        QVERIFY(editor.hint().startsWith(u"先选择图册，再在右边筛选"));
    }

    void listsAnAlbumAndItsButtons() {
        const Chooser editor;
        editor.chooseAlbum(u"tc01 旅行"_s);
        QCOMPARE(editor.rows(), 10);
        QCOMPARE(editor.label(u"lbl1"_s), u"按编号筛选"_s);
        QCOMPARE(editor.find<QPushButton>(u"cmdBh(0)"_s)->text(), u"v"_s);
        QVERIFY(editor.shows(u"cmdBh(3)"_s));
        QCOMPARE(editor.box(u"txtB0"_s).text(), u"v：全部"_s);
        QCOMPARE(editor.label(u"lblCl"_s), u"表名：旅行 序号：1  编号：12 图片规格：40 * 30"_s);
        QVERIFY(editor.find<QPushButton>(u"cmdQd"_s)->isEnabled());

        editor.click(u"cmdBh(1)"_s);
        QCOMPARE(editor.rows(), 5);
        QCOMPARE(editor.label(u"lblJ1"_s), u"编号=[1](风景) 共有5张"_s);
        editor.click(u"cmdBh(0)"_s);
        QCOMPARE(editor.source(), u"SELECT * FROM tc01"_s);
        QCOMPARE(editor.label(u"lblJ1"_s), u"编号=[v](全部) 共有10张"_s);
        editor.clickRow(3);
        QCOMPARE(editor.label(u"lblCl"_s), u"表名：旅行 序号：4  编号：2 图片规格：100 * 50"_s);
    }

    void manyButtons() {
        for (const int count : {15, 56, 80}) {
            const Chooser editor;
            for (int i = 5; i <= count; ++i)
                addRow(u"tcan"_s, {{u"序号"_s, i}, {u"编号"_s, QString(QChar(0x4e00 + i))}, {u"图册"_s, u"tc01"_s}});
            editor.chooseAlbum(u"tc01 旅行"_s);
            const auto* panel = editor.find(u"picCs"_s);
            const auto* preview = editor.find(u"imgCl"_s);
            for (int i = 0; i < count; ++i) {
                const auto* button = editor.find(u"cmdBh(%1)"_s.arg(i));
                QVERIFY(button != nullptr && button->isVisible());
                QVERIFY(panel->rect().contains(button->geometry()));
                QVERIFY(!button->geometry().intersects(preview->geometry()));
            }
            const QPoint step = editor.find(u"cmdBh(1)"_s)->pos() - editor.find(u"cmdBh(0)"_s)->pos();
            if (count <= 56) QVERIFY(step.x() == 18 || step.x() == 19);
            QCOMPARE(step.y(), 0);
        }
    }

    void albumWithoutButtons() {
        const Chooser editor;
        mekTp::catalogue.Execute(u"DELETE FROM tcan"_s);
        editor.chooseAlbum(u"tc01 旅行"_s);
        QVERIFY(editor.shows(u"img0"_s) && !editor.shows(u"txtB0"_s));
    }

    void takesAPicture() {
        const Chooser editor;
        editor.openRow(3);
        QVERIFY(!editor.shows(u"picCs"_s));
        QCOMPARE(editor.picYu().picture().size(), QSize(100, 50));
        QCOMPARE(editor.caption(),
                 u"[从图册读出] 图册名：tc01 序号：4 编号：2 大小："_s + column(4, u"大小"_s) + u" 规格：100 * 50"_s);
        QVERIFY(editor.menu(u"mnuQh"_s)->isVisible());
        for (const QString& key : {u"ty"_s, u"sy"_s, u"xy"_s, u"hy"_s}) QVERIFY(editor.key(key)->isEnabled());
    }

    // Nothing is open then, and everything says so.
    void cancelEmptiesTheEditor() {
        for (const bool byKey : {false, true}) {
            const Chooser editor;
            editor.openRow(3);
            editor.press(u"sk"_s);
            QCOMPARE(editor.steps(), QStringList());
            QVERIFY(!editor.menu(u"mnuQh"_s)->isVisible());
            for (const QString& key : {u"sf"_s, u"ty"_s, u"sy"_s, u"xy"_s, u"hy"_s})
                QVERIFY2(!editor.key(key)->isEnabled(), qPrintable(key));
            if (byKey)
                QTest::keyClick(editor.find(u"msgBm"_s), Qt::Key_Escape);
            else
                editor.click(u"cmdQx"_s);
            QVERIFY(editor.shows(u"img1"_s) && editor.shows(u"picGd"_s) && !editor.shows(u"picCs"_s));
            for (const QString& key : {u"lc"_s, u"bc"_s, u"ty"_s, u"sy"_s, u"xy"_s, u"hy"_s})
                QVERIFY2(!editor.key(key)->isEnabled(), qPrintable(key));
            QCOMPARE(editor.caption(), u"览忆集苑（图片处理）"_s);
            QVERIFY(!editor.menu(u"mnuQh"_s)->isVisible());
        }
    }

    // The record that is marked is the one that opens, by keys as well.
    void theMarkedRecordIsTaken() {
        const auto number = [](const Chooser& editor) {
            return editor.caption().section(u"序号："_s, 1).section(u' ', 0, 0).toInt();
        };
        const std::tuple<QList<Qt::Key>, int> byKeys[] = {{{Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}, 3},
                                                          {{Qt::Key_End, Qt::Key_Up, Qt::Key_Enter}, 9},
                                                          {{Qt::Key_Return}, 1}};
        for (const auto& [keys, expected] : byKeys) {
            const Chooser editor;
            editor.chooseAlbum(u"tc01 旅行"_s);
            auto* grid = editor.find<Grid>(u"msgBm"_s);
            for (const Qt::Key key : keys) {
                QCOMPARE(editor.label(u"lblCl"_s).section(u"序号："_s, 1).section(u' ', 0, 0).toInt(),
                         grid->currentIndex().row() + 1);
                QTest::keyClick(grid, key);
            }
            QVERIFY(!editor.shows(u"picCs"_s));
            QCOMPARE(number(editor), expected);
            editor.press(u"xy"_s);
            QCOMPARE(number(editor), expected + 1);
        }

        const Chooser editor;
        editor.chooseAlbum(u"tc01 旅行"_s);
        auto* grid = editor.find<Grid>(u"msgBm"_s);
        QTest::keyClick(grid, Qt::Key_Down);
        editor.click(u"cmdQd"_s);
        QCOMPARE(number(editor), 2);
        editor.press(u"sk"_s);
        const QPoint fifth = grid->visualRect(grid->model()->index(4, 1)).center();
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, fifth);
        QTest::mouseDClick(grid->viewport(), Qt::LeftButton, {}, fifth);
        QVERIFY(!editor.shows(u"picCs"_s));
        QCOMPARE(number(editor), 5);
    }

    void whyThereIsNothingToSee() {
        const auto says = [](const Chooser& editor, const QString& words) {
            QVERIFY(editor.shows(u"lblSm"_s));
            QVERIFY2(editor.label(u"lblSm"_s).contains(words), qPrintable(editor.label(u"lblSm"_s)));
            QVERIFY(editor.find<ImageBox>(u"imgCl"_s)->picture().isNull());
            QCOMPARE(editor.label(u"lblCl"_s), u"图片处理（尚未选择图片）"_s);
            QVERIFY(!editor.find(u"cmdQd"_s)->isEnabled());
        };
        const Chooser editor;
        editor.chooseAlbum(u"tc01 旅行"_s);
        QVERIFY(!editor.shows(u"lblSm"_s));
        editor.chooseAlbum(u"tc02 空册"_s);
        says(editor, u"图册“空册”里还没有图片"_s);
        editor.chooseAlbum(u"tc01 旅行"_s);
        changeRow(u"SELECT * FROM tcan WHERE 序号 = 2"_s, {{u"编号"_s, u"q"_s}});
        editor.chooseAlbum(u"tc01 旅行"_s);
        editor.click(u"cmdBh(1)"_s);
        says(editor, u"没有带这个编号的图片"_s);
        mekTp::catalogue.Execute(u"DROP TABLE tc02"_s);
        editor.chooseAlbum(u"tc02 空册"_s);
        says(editor, u"不能打开"_s);
    }

    void withoutAnAlbumOfOnesOwn() {
        Chooser editor;
        mekTp::catalogue.Execute(u"DELETE FROM tcbm"_s);
        editor.window = std::make_unique<frmCl>(editor.windows);
        editor.window->show();
        editor.press(u"sk"_s);
        QVERIFY(editor.shows(u"lblSm"_s) && editor.label(u"lblSm"_s).contains(u"建立新图册"));
    }

    void aRecordWithoutPictureIsNotToldAsAnother() {
        const Chooser editor;
        changeRow(record(2), {{u"图片"_s, {}}});
        changeRow(record(3), {{u"图片"_s, QByteArray("no picture")}});
        editor.chooseAlbum(u"tc01 旅行"_s);
        const auto* preview = editor.find<ImageBox>(u"imgCl"_s);
        const QSize first = preview->picture().pixels();
        editor.clickRow(1);
        QCOMPARE(preview->picture().pixels(), first);
        QVERIFY(editor.label(u"lblCl"_s).endsWith(u"没有图片"));
        editor.clickRow(2);
        QVERIFY(preview->picture().isNull() && editor.shows(u"lblSm"_s));
        editor.clickRow(3);
        QVERIFY(!preview->picture().isNull() && !editor.shows(u"lblSm"_s));
    }

    // A long title gives way, the figures do not.
    void theLineUnderThePreview() {
        const Chooser editor;
        auto* list = editor.find<QComboBox>(u"cboBm"_s);
        list->setItemText(0, u"tc01 一二三四五六七八"_s);
        changeRow(record(1), {{u"序号"_s, 10001}, {u"编号"_s, u"abcdefghij"_s}});
        editor.chooseAlbum(u"tc01 一二三四五六七八"_s);
        for (int row = 0; !editor.label(u"lblCl"_s).contains(u"10001"); ++row) editor.clickRow(row);
        const auto* label = editor.find<QLabel>(u"lblCl"_s);
        QVERIFY(label->fontMetrics().horizontalAdvance(label->text()) <= label->width());
        QVERIFY2(label->text().endsWith(u" 图片规格：40 * 30"), qPrintable(label->text()));
        QVERIFY(label->text().contains(u"…"));
        QVERIFY(label->toolTip().contains(u"一二三四五六七八"));
    }

    void theNameOfAButtonIsWhole() {
        const Chooser editor;
        const QString name = u"我"_s.repeated(20);
        changeRow(u"SELECT * FROM tcan WHERE 序号 = 2"_s, {{u"名称"_s, name}});
        editor.chooseAlbum(u"tc01 旅行"_s);
        const auto& box = editor.box(u"txtB0"_s);
        const QRect usual = box.geometry();
        const auto pointAt = [&editor](const QString& button) {
            QEnterEvent enter({5, 5}, {5, 5}, {5, 5});
            QApplication::sendEvent(editor.find(button), &enter);
        };
        pointAt(u"cmdBh(1)"_s);
        QVERIFY(box.text().endsWith(name));
        QVERIFY(box.fontMetrics().horizontalAdvance(box.text()) + 8 <= box.width());
        QVERIFY(editor.find(u"picCs"_s)->rect().contains(box.geometry()));
        pointAt(u"cmdBh(0)"_s);
        QCOMPARE(box.geometry(), usual);
    }

    void recordWithoutPicture() {
        Chooser editor;
        changeRow(record(2), {{u"图片"_s, {}}});
        editor.openRow(0);
        editor.press(u"xy"_s);
        QVERIFY(editor.lastBox().contains(u"这条记录没有可以显示的图片"));
        QVERIFY(editor.caption().contains(u"序号：1 "));
        // What is saved now belongs to the picture on the screen.
        editor.scale(u"0.5"_s);
        editor.press(u"bc"_s);
        QCOMPARE(column(1, u"规格"_s), u"20 * 15"_s);
        QVERIFY(column(2, u"规格"_s).startsWith(u"40"));
    }

    void damagedAndVanished() {
        Chooser editor;
        changeRow(record(1), {{u"图片"_s, QByteArray("no picture")}});
        editor.openRow(0);
        QVERIFY(editor.shows(u"picCs"_s));
        QVERIFY(editor.lastBox().contains(u"没有可以显示的图片"));
        mekTp::catalogue.Execute(u"DELETE FROM tc01"_s);
        editor.clickRow(2);
        editor.click(u"cmdQd"_s);
        QVERIFY(editor.shows(u"picCs"_s));
        editor.click(u"cmdQx"_s);
        QVERIFY(editor.shows(u"img1"_s));
    }
};

const Registered<TestChooser> registered;

}  // namespace

#include "chooser_test.moc"
