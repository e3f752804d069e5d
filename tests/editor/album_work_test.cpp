#include "bin/bin_room.h"
#include "catalogue/bin_contents.h"
#include "chooser_window.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// Work on the pictures of an album: from one to the next, and back into it.
class TestAlbumWork : public QObject {
    Q_OBJECT

  private Q_SLOTS:
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

    // At the end of the album there is nothing to ask about.
    void steppingAsksAboutChanges() {
        Chooser editor;
        editor.openRow(3);
        editor.press(u"fs"_s);
        editor.reply = u"继续编辑"_s;
        for (const QString& step : {u"mnuTy"_s, u"mnuSy"_s, u"mnuXy"_s, u"mnuHy"_s}) {
            editor.boxes.clear();
            editor.trigger(step);
            QCOMPARE(editor.boxes.size(), 1);
            QVERIFY(editor.caption().contains(u"序号：4 "));
        }
        editor.undo();
        QCOMPARE(editor.picYu().picture().size(), QSize(100, 50));

        editor.scale(u"2"_s);
        editor.reply = u"保存"_s;
        editor.trigger(u"mnuXy"_s);
        QVERIFY(editor.caption().contains(u"序号：5 "));
        QCOMPARE(column(4, u"规格"_s), u"200 * 100"_s);
        editor.press(u"hy"_s);
        editor.scale(u"2"_s);
        editor.boxes.clear();
        editor.trigger(u"mnuXy"_s);
        QVERIFY(editor.boxes.isEmpty() && !editor.menu(u"mnuXy"_s)->isEnabled());
        editor.reply = u"不保存"_s;
        editor.trigger(u"mnuSy"_s);
        QCOMPARE(editor.boxes.size(), 1);
        QCOMPARE(column(10, u"规格"_s), u"40 * 30"_s);
    }

    void turnSaveNext() {
        Chooser editor;
        editor.openRow(0);
        for (int number = 1; number <= 3; ++number) {
            QVERIFY(editor.caption().contains(u"序号：%1 "_s.arg(number)));
            editor.scale(u"2"_s);
            QTest::keyClick(editor.window.get(), Qt::Key_PageDown);
            QVERIFY(editor.caption().contains(u"序号：%1 "_s.arg(number)));
            QTest::keyClick(editor.window.get(), Qt::Key_S, Qt::ControlModifier);
            if (number == 2)
                editor.press(u"xy"_s);
            else
                QTest::keyClick(editor.window.get(), Qt::Key_PageDown);
        }
        QVERIFY(editor.caption().contains(u"序号：4 "));
        QCOMPARE(column(3, u"规格"_s), u"60 * 80"_s);
    }

    // A dialog that an undo has opened again does not keep the album waiting.
    void savingAfterAnUndoGoesOnToo() {
        Chooser editor;
        editor.openRow(3);
        editor.scale(u"2"_s);
        editor.undo();
        editor.reply = u"保存屏幕上的图片"_s;
        editor.press(u"bc"_s);
        QCOMPARE(column(4, u"规格"_s), u"100 * 50"_s);
        QVERIFY(!editor.shows(u"picCq"_s));
        editor.press(u"xy"_s);
        QVERIFY(editor.caption().contains(u"序号：5 "));
    }

    void lookingThroughAnAlbumLeavesNothing() {
        const Chooser editor;
        editor.openRow(0);
        for (int i = 0; i < 9; ++i) {
            editor.press(u"xy"_s);
            QCOMPARE(editor.steps(), QStringList());
        }
        editor.press(u"fs"_s);
        QCOMPARE(editor.steps(), (QStringList{u"01"_s, u"02"_s}));
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
        editor.trigger(u"mnuXy"_s);
        QVERIFY(editor.caption().contains(u"序号：5 "));
        // Undo works again after the next load, by its button; the menu item stays off.
        QVERIFY(editor.key(u"cx"_s)->isEnabled());
        QVERIFY(!editor.menu(u"mnuCx"_s)->isEnabled());
    }

    /// The picture that is saved over stays in the bin: where the disk is full, older things may go for that.
    void savingOffersRoom() {
        const auto usual = qScopeGuard([free = BinRoom::free] { BinRoom::free = free; });
        BinRoom::free = [] { return 1'000'000'000; };
        Chooser editor;
        mekTp::openCatalogue();  // as the program does, with a bin
        Recordset gone = mekTp::catalogue.OpenRecordset(record(9));
        removeIntoBin(mekTp::catalogue, u"tc01"_s, gone);
        const std::vector<qint64> oldest = binItems(mekTp::catalogue);
        editor.openRow(3);
        editor.scale(u"2"_s);
        editor.press(u"bc"_s);
        QCOMPARE(editor.boxes.size(), 3);
        QVERIFY2(editor.boxes[1].text.contains(u"1 张图片"_s), qPrintable(editor.boxes[1].text));
        QCOMPARE(column(4, u"规格"_s), u"200 * 100"_s);
        QVERIFY(binItems(mekTp::catalogue, oldest).empty());
        QCOMPARE(binItems(mekTp::catalogue).size(), 1U);
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
        for (const FieldValue& number : {FieldValue(3), FieldValue(1), FieldValue()}) {
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
        Chooser editor;
        editor.openRow(3);
        editor.scale(u"2"_s);
        editor.reply = u"不保存"_s;
        editor.press(u"sk"_s);
        for (const QString& key : {u"cx"_s, u"lc"_s, u"bc"_s}) QVERIFY(!editor.key(key)->isEnabled());
        editor.trigger(u"mnuCx"_s);
        editor.clickRow(0);
        editor.click(u"cmdQd"_s);
        QCOMPARE(editor.steps(), QStringList());
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

const Registered<TestAlbumWork> registered;

}  // namespace

#include "album_work_test.moc"
