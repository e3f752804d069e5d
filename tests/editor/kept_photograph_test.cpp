#include "../platform/picture/picture_samples.h"
#include "../platform/picture/profile_samples.h"
#include "catalogue/remembered.h"
#include "chooser_window.h"
#include "editor/document/photograph_file.h"
#include "photograph_samples.h"
#include "platform/database/records/own_values.h"
#include "platform/picture/lossless_turn.h"
#include "platform/picture/picture_tags.h"
#include "platform/picture/preview.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// The editor with a file open: a photograph on its side, or another one.
struct Photograph : EditorWindow {
    explicit Photograph(const QString& name = u"turned.jpg"_s, const QByteArray& bytes = jpegOnItsSide()) {
        file = writeFile(catalogue.file(name), bytes);
        press(u"wk"_s);
    }
};

/// As the person left the check box 无损保存.
void chooseLossless(bool on) {
    OwnValues(mekTp::catalogue).prepare();
    remembered::setFlag(u"editor.lossless"_s, on);
}

/// What a photograph has beside its pixels, and its own blocks, through a saving.
class TestKeptPhotograph : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void theOldOrientationDoesNotTurnTwice() {
        Photograph editor;
        QCOMPARE(editor.picYu().picture().size(), QSize(40, 60));
        editor.scale(u"1"_s);
        editor.press(u"bc"_s);
        QCOMPARE(LoadPicture(editor.file).pixels(), QSize(40, 60));
    }

    void whatTheCameraHasWrittenIsKept() {
        Photograph editor;
        editor.scale(u"2"_s);
        const QString source = editor.file;
        editor.file = editor.catalogue.file(u"copy.jpg"_s);
        editor.press(u"lc"_s);
        editor.scale(u"2"_s);
        editor.press(u"bc"_s);
        for (const QString& path : {source, editor.file}) {
            const PictureTags tags(contentOf(path));
            QVERIFY(!tags.isEmpty());
            QCOMPARE(tags.orientation(), 1);
        }
    }

    /// Flips and turns by right angles; the file turns by itself besides.
    void losslessWhereOnlyTurnsWereMade() {
        const std::tuple<QSize, bool, QString, bool> cases[] = {
            {{64, 48}, true, u"已无损保存"_s, true},
            {{64, 48}, false, u""_s, false},
            {{60, 41}, true, u"不能无损保存"_s, false},
        };
        for (const auto& [size, isWanted, hint, isLossless] : cases) {
            Photograph editor(u"照片.jpg"_s, pictureBytes(size, Qt::darkGreen));
            chooseLossless(isWanted);
            const QByteArray before = contentOf(editor.file);
            editor.press(u"fs"_s);
            editor.rotate(u"-90"_s);
            editor.press(u"bc"_s);
            QVERIFY(editor.hint().startsWith(hint));
            QCOMPARE(contentOf(editor.file) == turnedJpeg(before, composed(2, 6)), isLossless);
            // The file is no longer what was opened: the same turns would turn it twice.
            editor.press(u"fs"_s);
            editor.press(u"bc"_s);
            QVERIFY(!editor.hint().startsWith(u"已无损保存"_s));
        }
    }

    /// A photograph that was stored on its side is turned by both: its own orientation and the person.
    void whatWasStoredOnItsSideIsTurnedOnce() {
        const QByteArray photograph = withPreview(jpegBytes(quadrants({64, 48})), jpegBytes(quadrants({160, 120})), 6);
        const QImage shown = LoadPicture(photograph, u"shown"_s).image();
        const PhotographFile file = photographFile(shown.mirrored(true, false), {}, photograph, 2);
        QVERIFY(file.isLossless && !file.hasLostTags);
        QCOMPARE(file.pixels, QSize(48, 64));
        const Picture saved = LoadPicture(file.bytes, u"saved"_s);
        QCOMPARE(saved.pixels(), QSize(48, 64));
        QCOMPARE(quadrantsOf(saved.image()), quadrantsOf(shown.mirrored(true, false)));
        QCOMPARE(quadrantsOf(LoadPreview(file.bytes).image()), quadrantsOf(saved.image()));
    }

    /// After a cut that was taken back, a flip reads from its corner; after a button picture it turns the thumbnail.
    void aFlipOfAPartIsNoTurn() {
        const auto cutTakenBack = [](EditorWindow& editor) {
            editor.crop({10, 5, 40, 30});
            editor.undo();
            editor.press(u"fs"_s);
        };
        const auto thumbnail = [](EditorWindow& editor) {
            const QString source = std::exchange(editor.file, editor.catalogue.file(u"按钮.jpg"_s));
            editor.press(u"at"_s);
            for (const int option : {0, 3})
                QTest::mouseClick(editor.find<QRadioButton>(u"optAn(%1)"_s.arg(option)), Qt::LeftButton, {}, {8, 9});
            editor.file = source;
            editor.press(u"fs"_s);
        };
        const std::function<void(EditorWindow&)> ways[] = {cutTakenBack, thumbnail, [&](EditorWindow& editor) {
                                                               cutTakenBack(editor);
                                                               editor.scale(u"9999"_s);  // comes to nothing
                                                               editor.click(u"cmdCq(1)"_s);
                                                           }};
        for (const auto& way : ways) {
            Photograph editor(u"照片.jpg"_s, pictureBytes({192, 144}, Qt::darkGreen));
            chooseLossless(true);
            way(editor);
            editor.rotate(u"90"_s);
            editor.press(u"bc"_s);
            QVERIFY(!editor.hint().contains(u"无损"_s));
            QCOMPARE(LoadPicture(editor.file).pixels(), editor.picYu().picture().size());
        }
    }

    /// The ending decides what is written, exactly so.
    void aBitmapIsNotCalledLossless() {
        const Photograph editor(u"DSC1.JPG"_s);
        chooseLossless(true);
        editor.rotate(u"180"_s);
        editor.press(u"bc"_s);
        QVERIFY(editor.hint().startsWith(u"已存成 BMP"_s));
    }

    void aFileThatIsSavedOverByAnotherNameKeepsItsTags() {
        Photograph editor;
        editor.scale(u"2"_s);
        editor.press(u"lc"_s);
        editor.scale(u"2"_s);
        editor.press(u"bc"_s);
        QVERIFY(!PictureTags(contentOf(editor.file)).isEmpty());
        // Another program has changed it meanwhile.
        editor.press(u"wk"_s);
        editor.scale(u"2"_s);
        writePicture(editor.file, {300, 200}, Qt::red);
        editor.press(u"bc"_s);
        QVERIFY(editor.hint().contains(u"改过"_s));
    }

    void otherWorkIsEncoded() {
        Chooser editor;
        chooseLossless(true);
        editor.openRow(0);
        editor.scale(u"2"_s);
        editor.press(u"fs"_s);
        editor.press(u"bc"_s);
        QVERIFY(!editor.hint().contains(u"无损"_s));
    }

    void theChoiceIsMadeInTheBox() {
        const Photograph editor(u"照片.jpg"_s, pictureBytes({64, 48}, Qt::darkGreen));
        editor.rotate(u"180"_s);
        chooseLossless(false);
        answerBoxesWith({});
        QTimer::singleShot(0, [] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            QVERIFY(box != nullptr && box->checkBox()->objectName() == u"chkWs"_s && !box->checkBox()->isChecked());
            QTest::mouseClick(box->checkBox(), Qt::LeftButton, {}, QPoint(8, box->checkBox()->height() / 2));
            QTest::keyClick(box, Qt::Key_Escape);
        });
        editor.press(u"bc"_s);
        QVERIFY(!remembered::flag(u"editor.lossless"_s));  // the box was left
        QTimer::singleShot(0, [] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            QTest::mouseClick(box->checkBox(), Qt::LeftButton, {}, QPoint(8, box->checkBox()->height() / 2));
            QTimer::singleShot(0, [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Return); });
            QTest::keyClick(box, Qt::Key_Return);
        });
        editor.press(u"bc"_s);
        QVERIFY(remembered::flag(u"editor.lossless"_s));
        QVERIFY(editor.hint().startsWith(u"已无损保存"_s));
    }

    /// The screen shows sRGB; the picture, its steps and what is saved keep their own colours and the profile.
    void aPictureKeepsItsProfile() {
        const QByteArray profile = displayP3Profile();
        const QRgb stored = qRgb(200, 100, 50), shown = byLibrary(profile, ColourKind::lights, {stored}).first();
        const auto isNear = [](QRgb a, QRgb b) {
            return std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) + std::abs(qBlue(a) - qBlue(b)) <= 6;
        };
        QImage image({60, 40}, QImage::Format_RGB32);
        image.fill(stored);
        for (const QString& name : {u"图.jpg"_s, u"图.bmp"_s}) {
            EditorWindow editor;
            editor.file = editor.catalogue.file(name);
            name.endsWith(u"jpg") ? saveJpeg(image, editor.file, 95, profile)
                                  : SavePicture(image, editor.file, profile);
            editor.press(u"wk"_s);
            const auto onScreen = [&] { return editor.picYu().grab().toImage().pixel(20, 20); };
            QVERIFY(isNear(onScreen(), shown));
            editor.scale(u"2"_s);
            QVERIFY(isNear(onScreen(), shown));
            QVERIFY(isNear(editor.picYu().picture().pixel(30, 30), stored));
            for (const QString& step : {u"01"_s, u"02"_s}) {
                const QByteArray bytes =
                    fieldOf(u"SELECT * FROM tccx WHERE 编号 = '%1'"_s.arg(step), u"图片"_s).toBytes();
                QCOMPARE(LoadPicture(bytes, step, {}, Colours::ofFile).profile(), profile);
            }
            editor.undo();
            QVERIFY(isNear(onScreen(), shown));
            editor.scale(u"2"_s);
            editor.press(u"bc"_s);
            const Picture saved = LoadPicture(editor.file, {}, Colours::ofFile);
            QCOMPARE(saved.pixels(), QSize(120, 80));
            QCOMPARE(saved.profile(), profile);
            QVERIFY(isNear(saved.image().pixel(50, 50), stored));
        }
    }
};

Registered<TestKeptPhotograph> registered;

}  // namespace

#include "kept_photograph_test.moc"
