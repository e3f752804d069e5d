#include "../support/disk_faults.h"
#include "../support/failing_disk.h"
#include "chooser_window.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// The editor with work on a file whose folder has another name since.
struct GoneFolder : EditorWindow {
    GoneFolder() {
        QDir().mkdir(catalogue.file(u"夹"_s));
        file = catalogue.file(u"夹/图.jpg"_s);
        writePicture(file, {60, 40}, Qt::darkGreen);
        press(u"wk"_s);
        scale(u"2"_s);
        if (!QFile::rename(catalogue.file(u"夹"_s), catalogue.file(u"别处"_s))) qFatal("cannot rename");
    }
};

class TestSaving : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void overTheFile() {
        for (const auto& [name, begin] :
             {std::pair(u"照 '片.jpg"_s, "\xff\xd8"), {u"照片.JPG"_s, "BM"}, {u"照片.bmp"_s, "BM"}}) {
            EditorWindow editor;
            editor.file = editor.catalogue.file(name);
            writePicture(editor.file, {60, 40}, Qt::darkGreen, name.endsWith(u"bmp") ? "BMP" : "JPG");
            editor.press(u"wk"_s);
            QVERIFY(!editor.key(u"bc"_s)->isEnabled());
            editor.scale(u"2"_s);
            editor.crop({10, 5, 40, 30});
            editor.press(u"bc"_s);
            QCOMPARE(editor.boxes.first().title, u"按原文件名保存"_s);
            QCOMPARE(editor.boxes.first().text,
                     u"        保存已修改的图片吗？\n\n如果保存，按《确定》，将覆盖原图片；否则按《取消》。"_s);
            QCOMPARE(editor.lastBox(), u"保存图片|图片已保存完毕！(文件名："_s + editor.file + u")"_s);
            QCOMPARE(beginOf(editor.file), QByteArray(begin));
            QCOMPARE(LoadPicture(editor.file).pixels(), QSize(40, 30));
            QCOMPARE(editor.steps(), QStringList());
            QVERIFY(!editor.key(u"bc"_s)->isEnabled() && !editor.menu(u"mnuCx"_s)->isEnabled());
            editor.press(u"wk"_s);
            QVERIFY(editor.key(u"cx"_s)->isEnabled() && !editor.menu(u"mnuCx"_s)->isEnabled());
        }
    }

    void aFileThatCannotBeWrittenKeepsThePicture() {
        GoneFolder editor;
        editor.press(u"bc"_s);
        QVERIFY(editor.lastBox().startsWith(u"错误提示|不能保存图片"));
        QVERIFY(editor.key(u"bc"_s)->isEnabled() && !editor.steps().isEmpty());
        QCOMPARE(LoadPicture(editor.catalogue.file(u"别处/图.jpg"_s)).pixels(), QSize(60, 40));
    }

    void aFullDiskKeepsRecordPictureAndSteps() {
        Chooser editor;
        editor.openRow(0);
        editor.scale(u"2"_s);
        const QString source = u"SELECT * FROM tc01 WHERE 序号 = 1"_s;
        const QByteArray before = fieldOf(source, u"图片"_s).toBytes();
        const QStringList steps = editor.steps();
        {
            const FullDisk full(0);
            editor.press(u"bc"_s);
            QVERIFY2(editor.lastBox().startsWith(u"错误提示|数据库文件“"_s + mekTp::cataloguePath()),
                     qPrintable(editor.lastBox()));
            QVERIFY(editor.key(u"bc"_s)->isEnabled());

            // Steps that are lost are told once.
            editor.boxes.clear();
            editor.press(u"fs"_s);
            editor.press(u"fc"_s);
            QCOMPARE(editor.boxes.size(), 1);
            QVERIFY2(editor.boxes.first().text.startsWith(u"这一步没有记录下来，以后不能撤消。"_s),
                     qPrintable(editor.lastBox()));
        }
        QCOMPARE(fieldOf(source, u"图片"_s).toBytes(), before);
        QCOMPARE(fieldOf(source, u"规格"_s).toText(), u"40 * 30"_s);
        QCOMPARE(editor.steps(), steps);
        editor.press(u"bc"_s);
        QVERIFY2(editor.lastBox().startsWith(u"保存图片|图片已保存完毕！"_s), qPrintable(editor.lastBox()));
        QCOMPARE(fieldOf(source, u"规格"_s).toText(), u"80 * 60"_s);
    }

    /// Wherever the disk fails on the way: what the record tells of its picture is true.
    void recordAndPictureAreStoredTogether() {
        const QString source = u"SELECT * FROM tc01 WHERE 序号 = 1"_s;
        bool isStored = false;
        for (int waits = 0; !isStored; ++waits) {
            FailingDisk disk;
            Chooser editor;
            editor.openRow(0);
            editor.scale(u"2"_s);
            disk.syncing = {.code = SQLITE_IOERR_FSYNC, .reason = EIO, .before = waits};
            editor.press(u"bc"_s);
            disk.syncing = {};
            isStored = editor.lastBox().startsWith(u"保存图片|图片已保存完毕！"_s);
            const QSize pixels = QImage::fromData(fieldOf(source, u"图片"_s).toBytes()).size();
            QCOMPARE(fieldOf(source, u"规格"_s).toText(), u"%1 * %2"_s.arg(pixels.width()).arg(pixels.height()));
            QVERIFY(waits >= 2 || !isStored);  // the journal and the file are waited for
        }
    }

    void aFirstStepThatIsLost() {
        FailingDisk disk;
        OpenEditor editor;
        QCOMPARE(editor.steps(), QStringList());
        disk.writing = {SQLITE_FULL, ENOSPC, 1};
        editor.scale(u"2"_s);
        QCOMPARE(disk.writing.calls, 0);
        QCOMPARE(editor.boxes.size(), 1);
        QVERIFY2(editor.boxes.first().text.startsWith(u"这一步没有记录下来，以后不能撤消。"_s),
                 qPrintable(editor.lastBox()));
        QCOMPARE(editor.steps(), QStringList{u"02"_s});
        editor.press(u"fs"_s);
        QCOMPARE(editor.boxes.size(), 1);
        editor.undo();
        editor.undo();
        QVERIFY(editor.shows(u"picYu"_s) && editor.steps().isEmpty());
        // The way back to the picture as it was loaded is lost: what is left is changed still.
        editor.reply = u"继续编辑"_s;
        editor.press(u"fh"_s);
        QVERIFY(editor.windows.handedTo.isEmpty());
    }

    void anotherName() {
        OpenEditor editor;
        editor.press(u"fs"_s);
        QVERIFY(!editor.key(u"bc"_s)->isEnabled());
        editor.file = editor.catalogue.file(u"新 图.png"_s);
        editor.press(u"lc"_s);
        const QString name = editor.catalogue.file(u"新 图.bmp"_s);
        QCOMPARE(editor.questions.last().title, u"另存图片文件"_s);
        QCOMPARE(editor.lastBox(), u"另外保存图片|图片已保存完毕！(文件名："_s + name + u")"_s);
        QCOMPARE(QImage(name).pixelColor(5, 5), QColor(Qt::green));
        QCOMPARE(editor.steps(), (QStringList{u"01"_s, u"02"_s}));
        editor.undo();
        QCOMPARE(editor.picYu().picture().pixelColor(70, 5).green() > 100, true);
    }

    void anExistingFileBehindTheChangedName() {
        OpenEditor editor;
        const QString other = editor.catalogue.file(u"x.bmp"_s);
        writePicture(other, {7, 7}, Qt::red, "BMP");
        editor.file = editor.catalogue.file(u"x.png"_s);
        int asked = 0;
        answerBoxesWith([&](const BoxText&) { return ++asked == 1; });
        editor.press(u"lc"_s);
        QCOMPARE(asked, 2);
        QCOMPARE(QImage(other).size(), QSize(7, 7));
    }

    void afterTheLastUndoAPictureIsWhole() {
        OpenEditor editor;
        editor.undo();
        QVERIFY(editor.menu(u"mnuCl"_s)->menu() == nullptr);
        editor.open();
        editor.press(u"fs"_s);
        for (const QString& parent : {u"mnuCl"_s, u"mnuB0"_s}) QVERIFY(editor.menu(parent)->menu() != nullptr);
        editor.file = editor.catalogue.file(u"新.jpg"_s);
        editor.press(u"lc"_s);
        QCOMPARE(LoadPicture(editor.file).pixels(), QSize(80, 60));
    }

    void nothingOpen() {
        OpenEditor editor;
        editor.scale(u"2"_s);
        editor.undo();
        editor.click(u"cmdCq(1)"_s);
        editor.undo();
        QVERIFY(editor.shows(u"img1"_s));
        QVERIFY(!editor.key(u"bc"_s)->isEnabled() && !editor.menu(u"mnuBc"_s)->isEnabled());
        QVERIFY(editor.menu(u"mnuB0"_s)->isEnabled());
        editor.boxes.clear();
        QTest::keyClick(editor.window.get(), Qt::Key_S, Qt::ControlModifier);
        QTest::keyClick(editor.window.get(), Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
        QVERIFY(editor.boxes.isEmpty());
        QTest::mouseClick(editor.window->menuBar(), Qt::LeftButton, {},
                          editor.window->menuBar()->actionGeometry(editor.menu(u"mnuB0"_s)).center());
        QCOMPARE(editor.lastBox(), u"操作提示|请先打开图片！"_s);
    }

    void keysOfTheKeyboard() {
        OpenEditor editor;
        const QString first = editor.file;
        editor.scale(u"2"_s);
        editor.file = editor.catalogue.file(u"另一个.jpg"_s);
        QTest::keyClick(editor.window.get(), Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(LoadPicture(editor.file).pixels(), QSize(160, 120));
        QCOMPARE(LoadPicture(first).pixels(), QSize(80, 60));
        QTest::keyClick(editor.window.get(), Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(LoadPicture(first).pixels(), QSize(160, 120));
        QTest::keyClick(editor.window.get(), Qt::Key_O, Qt::ControlModifier);
        QVERIFY(editor.caption().contains(u"另一个.jpg"));
    }

    // ------------------------------------------------------------------------------------ after an undo, one question

    void savingAfterAnUndo() {
        const std::pair<QString, int> answers[] = {{u"确定"_s, 160}, {u"保存屏幕上的图片"_s, 80}, {u"取消"_s, 0}};
        for (const auto& [answer, width] : answers) {
            OpenEditor editor;
            writePicture(editor.file, {7, 7}, Qt::red, "BMP");  // tells a file that was written
            editor.scale(u"2"_s);
            editor.undo();
            editor.reply = answer;
            editor.press(u"bc"_s);
            const BoxText& asked = editor.boxes.first();
            QCOMPARE(asked.title, u"按原文件名保存"_s);
            QVERIFY(asked.text.startsWith(
                u"        保存已修改的图片吗？\n\n如果保存，按《确定》，将覆盖原图片；否则按《取消》。"_s));
            QCOMPARE(asked.answers, (QStringList{u"确定"_s, u"保存屏幕上的图片"_s, u"取消"_s}));
            QCOMPARE(asked.onEnter, 2);
            QCOMPARE(asked.onEscape, 2);
            QCOMPARE(editor.boxes.size(), width == 0 ? 1 : 2);
            QCOMPARE(QImage(editor.file).width(), width == 0 ? 7 : width);
            QCOMPARE(editor.key(u"bc"_s)->isEnabled(), width == 0);
        }
    }

    void anOperationAfterTheUndoIsSavedWithoutAChoice() {
        OpenEditor editor;
        editor.scale(u"2"_s);
        editor.undo();
        editor.box(u"txtCq"_s).clear();
        editor.enter(u"3"_s);
        editor.press(u"bc"_s);
        QCOMPARE(editor.boxes.first().answers, (QStringList{u"确定"_s, u"取消"_s}));
        QCOMPARE(QImage(editor.file).width(), 240);
    }

    // -------------------------------------------------------------------------------------- changes that are not saved

    void unsavedChangesAreAskedAbout() {
        const std::pair<QString, std::function<void(EditorWindow&)>> ways[] = {
            {u"返回"_s, [](EditorWindow& editor) { editor.press(u"fh"_s); }},
            {u"退出"_s, [](EditorWindow& editor) { editor.press(u"tc"_s); }},
            {u"frame"_s, [](EditorWindow& editor) { editor.window->close(); }},
            {u"file"_s, [](EditorWindow& editor) { editor.press(u"wk"_s); }},
            {u"album"_s, [](EditorWindow& editor) { editor.press(u"sk"_s); }},
        };
        const auto hasGone = [](const EditorWindow& editor) {
            return !editor.windows.handedTo.isEmpty() || editor.windows.ended || !editor.window->isVisible() ||
                   editor.shows(u"picCs"_s) || editor.caption().contains(u"另一张"_s);
        };
        for (const auto& [name, way] : ways) {
            for (const QString& answer : {u"继续编辑"_s, u"不保存"_s, u"保存"_s}) {
                OpenEditor editor;
                const QString edited = editor.file;
                editor.press(u"fs"_s);
                editor.file = editor.catalogue.file(u"另一张.bmp"_s);
                writePicture(editor.file, {30, 20}, Qt::red, "BMP");
                editor.reply = answer;
                way(editor);
                QCOMPARE(editor.boxes.size(), 1);
                QCOMPARE(editor.boxes.first().answers, (QStringList{u"保存"_s, u"不保存"_s, u"继续编辑"_s}));
                QCOMPARE(editor.boxes.first().onEnter, 2);
                QCOMPARE(editor.boxes.first().onEscape, 2);
                QVERIFY2(hasGone(editor) == (answer != u"继续编辑"), qPrintable(name + answer));
                QCOMPARE(QImage(edited).pixelColor(5, 5), QColor(answer == u"保存" ? Qt::green : Qt::red));
                if (answer != u"继续编辑") {
                    QCOMPARE(editor.steps(), QStringList());
                } else {
                    QCOMPARE(editor.picYu().picture().pixelColor(5, 5), QColor(Qt::green));
                    editor.undo();
                    QVERIFY(editor.picYu().picture().pixelColor(5, 5).red() > 200);
                }
            }
        }
    }

    // Whoever has given them up with 退出 is not asked by the window that closes for it.
    void nobodyIsAskedTwice() {
        OpenEditor editor;
        editor.press(u"fs"_s);
        editor.reply = u"不保存"_s;
        editor.press(u"tc"_s);
        QVERIFY(editor.windows.ended && editor.window->close());
        QCOMPARE(editor.boxes.size(), 1);
    }

    void nothingIsAskedWithoutChanges() {
        const std::function<void(EditorWindow&)> works[] = {
            [](EditorWindow&) {},
            [](EditorWindow& editor) {
                editor.press(u"fs"_s);
                editor.undo();
            },
            [](EditorWindow& editor) {
                editor.press(u"sf"_s);
                editor.click(u"cmdCq(1)"_s);
            },
            [](EditorWindow& editor) {
                editor.scale(u"2"_s);
                editor.press(u"bc"_s);
            },
            [](EditorWindow& editor) {
                editor.press(u"fs"_s);
                editor.file = editor.catalogue.file(u"副本.jpg"_s);
                editor.press(u"lc"_s);
            },
            [](EditorWindow& editor) { editor.undo(); },
        };
        for (const auto& work : works) {
            OpenEditor editor;
            work(editor);
            editor.boxes.clear();
            editor.press(u"fh"_s);
            QVERIFY(editor.boxes.isEmpty());
            QCOMPARE(editor.windows.handedTo, QList{WindowKind::viewer});
            QCOMPARE(editor.steps(), QStringList());
        }
    }

    // The step that a copy was made of is gone, and another one has its number.
    void anotherStepOfTheSameNumberIsAChange() {
        OpenEditor editor;
        editor.press(u"fs"_s);
        const QString source = std::exchange(editor.file, editor.catalogue.file(u"副本.bmp"_s));
        editor.press(u"lc"_s);
        editor.undo();
        editor.press(u"fc"_s);
        editor.boxes.clear();
        editor.reply = u"保存"_s;
        editor.press(u"fh"_s);
        QCOMPARE(editor.boxes.size(), 1);
        QVERIFY(QImage(source).pixelColor(5, 5).blue() > 200);
    }

    void aDiskThatRefusesKeepsThePersonThere() {
        GoneFolder editor;
        editor.reply = u"保存"_s;
        QVERIFY(!editor.window->close());
        QVERIFY(editor.lastBox().startsWith(u"错误提示|不能保存图片"));
        QVERIFY(editor.window->isVisible() && !editor.steps().isEmpty());
    }

    void theThumbnailIsNotWhatIsSaved() {
        for (const bool isAsked : {true, false}) {
            OpenEditor editor({400, 300});
            editor.press(u"fs"_s);
            editor.scale(u"2"_s);
            editor.undo();
            editor.click(u"cmdCq(1)"_s);
            editor.press(u"at"_s);
            QTest::mouseClick(editor.find<QRadioButton>(u"optAn(0)"_s), Qt::LeftButton, {}, QPoint(8, 9));
            QCOMPARE(editor.picYu().picture().size(), QSize(100, 75));
            editor.reply = isAsked ? u"保存"_s : u"保存屏幕上的图片"_s;
            editor.press(isAsked ? u"fh"_s : u"bc"_s);
            const QImage saved(editor.file);
            QCOMPARE(saved.size(), QSize(400, 300));
            QVERIFY(saved.pixelColor(20, 20).green() > 200);
        }
    }

    // A long session gives back what its steps have taken.
    void theFileDoesNotGrowForEver() {
        OpenEditor editor({1600, 1200});
        const qint64 before = QFileInfo(mekTp::cataloguePath()).size();
        QImage noise(1600, 1200, QImage::Format_RGB32);
        QRandomGenerator random(1);
        random.fillRange(reinterpret_cast<quint32*>(noise.bits()), 1600 * 1200);
        SavePicture(noise, editor.file);
        editor.press(u"wk"_s);
        for (int i = 0; i < 8; ++i) editor.press(u"fs"_s);
        const qint64 grown = QFileInfo(mekTp::cataloguePath()).size() - before;
        editor.reply = u"不保存"_s;
        editor.press(u"fh"_s);
        QCOMPARE(editor.steps(), QStringList());
        const qint64 left = QFileInfo(mekTp::cataloguePath()).size() - before;
        QVERIFY2(grown > 8'000'000 && left < 4'500'000, qPrintable(u"%1 %2"_s.arg(grown).arg(left)));
    }
};

const Registered<TestSaving> registered;

}  // namespace

#include "saving_test.moc"
