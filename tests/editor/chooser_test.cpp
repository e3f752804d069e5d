#include "editor_window.h"
#include "platform/desktop/data_control.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// The editor with its album chooser open.
struct Chooser : EditorWindow {
    Chooser() { press(u"sk"_s); }

    void chooseAlbum(const QString& line) const {
        auto* list = find<QComboBox>(u"cboBm"_s);
        list->setCurrentIndex(list->findText(line));
        Q_EMIT list->activated(list->currentIndex());
    }
    /// Opens a record of the album 旅行, by its row.
    void openRow(int row) const {
        chooseAlbum(u"tc01 旅行"_s);
        clickRow(row);
        click(u"cmdQd"_s);
    }
    QString label(const QString& name) const { return find<QLabel>(name)->text(); }
    int rows() const { return find<DataControl>(u"datBj"_s)->total(); }
    QString source() const { return find<DataControl>(u"datBj"_s)->RecordSource(); }
};

QString record(int number) {
    return u"SELECT * FROM tc01 WHERE 序号 = %1"_s.arg(number);
}

QString column(int number, const QString& name) {
    return fieldOf(record(number), name).textOr();
}

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
        QCOMPARE(editor.steps(), QStringList{u"01"_s});
    }

    void cancelEmptiesTheEditor() {
        OpenEditor editor;
        editor.press(u"sk"_s);
        QCOMPARE(editor.steps(), QStringList());
        QVERIFY(!editor.key(u"sf"_s)->isEnabled());
        editor.click(u"cmdQx"_s);
        QVERIFY(editor.shows(u"img1"_s) && editor.shows(u"picGd"_s) && !editor.key(u"lc"_s)->isEnabled());
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

    void stepping() {
        const Chooser editor;
        editor.openRow(8);
        const auto number = [&] { return editor.caption().section(u"序号："_s, 1).section(u' ', 0, 0).toInt(); };
        QCOMPARE(number(), 9);
        editor.press(u"xy"_s);
        QCOMPARE(number(), 10);
        editor.press(u"xy"_s);
        QCOMPARE(number(), 10);
        QVERIFY(!editor.key(u"xy"_s)->isEnabled() && !editor.menu(u"mnuXy"_s)->isEnabled());
        editor.press(u"sy"_s);  // from behind the end to the last one again
        QCOMPARE(number(), 10);
        QVERIFY(editor.key(u"xy"_s)->isEnabled());
        editor.press(u"sy"_s);
        QCOMPARE(number(), 9);
        editor.press(u"ty"_s);
        QCOMPARE(number(), 1);
        editor.press(u"sy"_s);
        QVERIFY(!editor.key(u"sy"_s)->isEnabled());
        editor.trigger(u"mnuHy"_s);
        QCOMPARE(number(), 10);
    }

    void steppingFollowsTheFilter() {
        const Chooser editor;
        editor.chooseAlbum(u"tc01 旅行"_s);
        editor.click(u"cmdBh(1)"_s);
        editor.click(u"cmdQd"_s);
        editor.press(u"xy"_s);
        QVERIFY(editor.caption().contains(u"序号：3 "));
    }

    void savesIntoTheAlbum() {
        Chooser editor;
        editor.openRow(3);
        editor.scale(u"2"_s);
        editor.answer = false;
        editor.press(u"bc"_s);
        QCOMPARE(column(4, u"规格"_s), u"100 * 50"_s);
        editor.answer = true;
        editor.press(u"bc"_s);
        QCOMPARE(editor.lastBox(), u"保存图片|图片已保存完毕！(序号＝4)"_s);
        QCOMPARE(column(4, u"规格"_s), u"200 * 100"_s);
        QCOMPARE(editor.steps(), QStringList());
        for (const auto& key : {u"bc"_s, u"cx"_s}) QVERIFY(!editor.key(key)->isEnabled());
        QCOMPARE(editor.source(), u"SELECT * FROM tc01 旅行 ORDER BY [序号]"_s);
        QVERIFY(!editor.key(u"xy"_s)->isEnabled());
        editor.trigger(u"mnuXy"_s);
        QVERIFY(editor.caption().contains(u"序号：5 "));
        // Undo works again after the next load, by its button; the menu item stays off.
        QVERIFY(editor.key(u"cx"_s)->isEnabled());
        QVERIFY(!editor.menu(u"mnuCx"_s)->isEnabled());
    }

    void afterAnUndoTheUndonePictureIsSaved() {
        Chooser editor;
        editor.openRow(3);
        editor.scale(u"2"_s);
        editor.undo();
        QCOMPARE(editor.picYu().picture().size(), QSize(100, 50));
        editor.press(u"bc"_s);
        QCOMPARE(column(4, u"规格"_s), u"200 * 100"_s);
    }

    void savingTwiceStaysWithTheRecord() {
        // A number of its own, that of another record too, none.
        for (const Variant& number : {Variant(3), Variant(1), Variant()}) {
            const Chooser editor;
            changeRow(record(3), {{u"序号"_s, number}});
            editor.chooseAlbum(u"tc01 旅行"_s);
            editor.click(u"cmdBh(1)"_s);
            for (int row = 0; !editor.label(u"lblCl"_s).endsWith(u"30 * 40"); ++row) editor.clickRow(row);
            editor.click(u"cmdQd"_s);
            QCOMPARE(editor.picYu().picture().size(), QSize(30, 40));
            for (int i = 0; i < 2; ++i) {
                editor.scale(u"2"_s);
                editor.press(u"bc"_s);
            }
            const QString sized = u"SELECT * FROM tc01 WHERE 规格 = '%1'"_s;
            QCOMPARE(mekTp::catalogue.OpenRecordset(sized.arg(u"120 * 160")).rowCount(), 1);
            QCOMPARE(fieldOf(sized.arg(u"120 * 160"), u"备注"_s).toText(), u"图片3"_s);
            QCOMPARE(mekTp::catalogue.OpenRecordset(sized.arg(u"60 * 80")).rowCount(), 0);
        }
    }

    void undoWaitsUntilTheChooserIsClosed() {
        const Chooser editor;
        editor.openRow(3);
        editor.scale(u"2"_s);
        editor.press(u"sk"_s);
        for (const QString& key : {u"cx"_s, u"lc"_s, u"bc"_s}) QVERIFY(!editor.key(key)->isEnabled());
        editor.trigger(u"mnuCx"_s);
        editor.clickRow(0);
        editor.click(u"cmdQd"_s);
        QCOMPARE(editor.steps(), QStringList{u"01"_s});
        QVERIFY(editor.key(u"xy"_s)->isEnabled());
    }

    void steppingAfterAnUndoStartsANewTrail() {
        const Chooser editor;
        editor.openRow(3);
        editor.scale(u"2"_s);
        editor.undo();
        editor.click(u"cmdCq(1)"_s);
        editor.trigger(u"mnuXy"_s);
        editor.scale(u"2"_s);
        editor.undo();
        QCOMPARE(editor.picYu().picture().size(), QSize(40, 30));
    }

    void aTitleWithABlankKeepsTheList() {
        Chooser editor;
        auto* list = editor.find<QComboBox>(u"cboBm"_s);
        list->setItemText(0, u"tc01 旅行 '春 天"_s);
        editor.chooseAlbum(u"tc01 旅行 '春 天"_s);
        editor.clickRow(1);
        editor.click(u"cmdQd"_s);
        editor.scale(u"2"_s);
        editor.press(u"bc"_s);
        QCOMPARE(editor.lastBox(), u"保存图片|图片已保存完毕！(序号＝2)"_s);
        QCOMPARE(column(2, u"规格"_s), u"80 * 60"_s);
        editor.trigger(u"mnuXy"_s);
        QVERIFY(editor.caption().contains(u"序号：3 "));
    }
};

const Registered<TestChooser> registered;

}  // namespace

#include "chooser_test.moc"
