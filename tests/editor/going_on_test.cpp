#include "../support/disk_faults.h"
#include "catalogue/bin_contents.h"
#include "chooser_window.h"
#include "editor/document/kept_work.h"
#include "editor/document/undo_steps.h"
#include "photograph_samples.h"
#include "platform/picture/picture_tags.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// An editor that goes without an end, as a crash takes it.
struct Crash : Chooser {
    Crash() { mekTp::openCatalogue(); }

    /// The editor as it is opened after that; the question is answered with `given`.
    void again(const QString& given) {
        reply = given;
        boxes.clear();
        window.reset();
        window = std::make_unique<frmCl>(windows);
        window->show();
        QApplication::setActiveWindow(window.get());
        QCoreApplication::processEvents();
    }
};

class TestGoingOn : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void goesOnWithAFile() {
        Crash editor;
        editor.open();
        editor.rotate(u"90"_s);
        editor.press(u"fs"_s);
        const QString caption = editor.caption();
        const QImage before = editor.picYu().picture();
        editor.again(u"继续处理"_s);
        QCOMPARE(editor.boxes.size(), 1);
        QVERIFY(editor.boxes[0].text.contains(editor.file));
        QCOMPARE(editor.boxes[0].onEscape, 0);
        QCOMPARE(editor.picYu().picture().size(), before.size());
        QCOMPARE(editor.caption().remove(u' '), QString(caption).remove(u' '));
        editor.undo();
        QCOMPARE(editor.steps(), QStringList({u"01"_s, u"02"_s}));

        // Writing the copy over the source is asked about, and Enter does not do it.
        editor.press(u"xz"_s);
        editor.enter(u"90"_s);
        editor.reply = u"确定"_s;
        editor.boxes.clear();
        editor.press(u"bc"_s);
        QVERIFY(editor.boxes[0].text.contains(u"质量 80"_s));
        QCOMPARE(editor.boxes[0].answers.value(editor.boxes[0].onEnter), u"取消"_s);
        QVERIFY(editor.steps().isEmpty());
        QVERIFY(!keptSource());
    }

    void goesOnWithARecord_data() {
        QTest::addColumn<bool>("isThere");
        QTest::newRow("in its album still") << true;
        QTest::newRow("deleted since") << false;
    }

    void goesOnWithARecord() {
        QFETCH(const bool, isThere);
        Crash editor;
        editor.openRow(4);
        editor.rotate(u"90"_s);
        const auto source = std::get<AlbumRecord>(*keptSource());
        QCOMPARE(source.table, u"tc01"_s);
        Recordset record =
            mekTp::catalogue.OpenRecordset(u"SELECT * FROM tc01 WHERE 序号 = "_s + source.number.toText());
        QCOMPARE(record.storedAt(0, u"图片"_s).id(), source.picture);
        if (!isThere) record.Delete();
        editor.again(u"继续处理"_s);
        editor.reply = u"确定"_s;
        editor.boxes.clear();
        editor.press(u"bc"_s);
        QCOMPARE(editor.lastBox().contains(u"图片已保存完毕"_s), isThere);
        QCOMPARE(isBinEmpty(mekTp::catalogue), !isThere);
        QCOMPARE(editor.steps().isEmpty(), isThere);
    }

    /// What is done after a picture was stored is worth as much.
    void goesOnAfterSaving_data() {
        QTest::addColumn<bool>("isRecord");
        QTest::newRow("file") << false;
        QTest::newRow("record") << true;
    }

    void goesOnAfterSaving() {
        QFETCH(const bool, isRecord);
        Crash editor;
        if (isRecord)
            editor.openRow(4);
        else
            editor.open();
        editor.reply = u"确定"_s;
        editor.rotate(u"90"_s);
        editor.press(u"bc"_s);
        editor.rotate(u"90"_s);
        const QString caption = editor.caption().remove(u' ');
        editor.again(u"继续处理"_s);
        QCOMPARE(editor.boxes.size(), 1);
        QCOMPARE(editor.caption().remove(u' '), caption);
        editor.reply = u"确定"_s;
        editor.press(u"bc"_s);
        QVERIFY(editor.lastBox().contains(u"图片已保存完毕"_s));
    }

    /// From the moment of its saving on, by whichever command; what its camera has written stays with it.
    void whatWasSavedIsKnownAgain_data() {
        QTest::addColumn<QString>("key");
        QTest::addColumn<bool>("isRecord");
        QTest::newRow("file") << u"bc"_s << false;
        QTest::newRow("file, by its own name") << u"lc"_s << false;
        QTest::newRow("record") << u"bc"_s << true;
    }

    void whatWasSavedIsKnownAgain() {
        QFETCH(const QString, key);
        QFETCH(const bool, isRecord);
        Crash editor;
        editor.file = editor.catalogue.file(u"turned.jpg"_s);
        writeFile(editor.file, jpegOnItsSide());
        isRecord ? editor.openRow(4) : editor.press(u"wk"_s);
        editor.rotate(u"90"_s);
        std::optional<PictureSource> kept;
        chooseInBoxesWith([&](const BoxText& box) {
            if (box.text.contains(u"已保存完毕"_s)) kept = keptSource();
            return 0;
        });
        editor.press(key);
        QVERIFY(kept.has_value());
        if (isRecord) {
            const Recordset row = mekTp::catalogue.OpenRecordset(record(5));
            QCOMPARE(std::get<AlbumRecord>(*kept).picture, row.storedAt(0, u"图片"_s).id());
            return;
        }
        QCOMPARE(std::get<PictureFile>(*kept).bytesNow, QFileInfo(editor.file).size());
        editor.rotate(u"90"_s);
        editor.again({});
        editor.press(u"bc"_s);
        QVERIFY(!PictureTags(contentOf(editor.file)).isEmpty());
        QVERIFY(!editor.hint().contains(u"没有写入"_s));
    }

    /// Steps of an earlier picture are still there when those of this one are lost, or taken back.
    void noSourceIsKeptWithEarlierSteps() {
        Crash editor;
        editor.openRow(4);
        for (int i = 0; i < 3; ++i) editor.rotate(u"90"_s);
        editor.reply = u"不保存"_s;
        editor.trigger(u"mnuXy"_s);
        {
            const FullDisk full(0);
            editor.press(u"fs"_s);
        }
        QVERIFY(!editor.steps().isEmpty() && !keptSource());
        editor.press(u"fs"_s);
        QVERIFY(keptSource());
        const QImage before = editor.picYu().picture();
        editor.undo();
        QCOMPARE(editor.picYu().picture(), before);  // the step before was lost
        editor.undo();
        editor.undo();
        QVERIFY(!editor.steps().isEmpty() && !keptSource());
    }

    void refusingEmptiesTheSteps() {
        Crash editor;
        editor.open();
        editor.rotate(u"90"_s);
        editor.again(u"放弃"_s);
        QVERIFY(editor.steps().isEmpty());
        QVERIFY(!keptSource());
        editor.again({});
        QVERIFY(editor.boxes.isEmpty());
    }

    /// Rows of an earlier picture stay behind when another record is stepped to.
    void earlierPicturesStepsDoNotCount() {
        Crash editor;
        editor.openRow(4);
        for (int i = 0; i < 3; ++i) editor.rotate(u"90"_s);
        editor.reply = u"不保存"_s;
        editor.trigger(u"mnuXy"_s);
        QVERIFY(!keptSource());
        editor.press(u"fs"_s);
        editor.again(u"继续处理"_s);
        QVERIFY(editor.caption().contains(u"翻转"_s));
        editor.undo();
        QVERIFY(!editor.caption().contains(u"翻转"_s));
    }
};

const Registered<TestGoingOn> registered;

}  // namespace

#include "going_on_test.moc"
