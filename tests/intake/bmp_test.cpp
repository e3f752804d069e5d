#include "intake_window.h"
#include "settings/frame/bmp_question.h"

#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace {

const QByteArray jpegMark("\xff\xd8"), bitmapMark("BM");

/// As long as it lives, the program is one of a person who may not write what is not his own. Without effect for
/// whoever runs the tests without all rights: there the rights of the file decide.
class OrdinaryPerson {
  public:
    OrdinaryPerson() : done_(getuid() == 0 && setresuid(65534, 0, 0) == 0) {}
    ~OrdinaryPerson() {
        if (done_ && setresuid(0, 0, 0) != 0) qFatal("no way back");
    }

  private:
    bool done_;
};

class BmpWindow : public IntakeWindow {
  public:
    explicit BmpWindow(const QString& words = {}) {
        chooseInBoxesWith([this, words](const BoxText& box) {
            boxes << box;
            return static_cast<int>(std::max<qsizetype>(box.answers.indexOf(words), 0));
        });
    }
    /// What was asked about bitmaps.
    QStringList asked() const {
        QStringList texts;
        for (const BoxText& box : boxes)
            if (box.answers.contains(u"转成 JPG"_s)) texts << box.text.section(u'。', 0, 0);
        return texts;
    }
};

class TestBmpFiles : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void answers_data() {
        QTest::addColumn<QString>("answer");
        QTest::addColumn<bool>("turned");
        QTest::addColumn<int>("count");
        QTest::newRow("to JPEG") << u"转成 JPG"_s << true << 3;
        QTest::newRow("kept") << u"保留原文件"_s << false << 3;
        QTest::newRow("cancelled") << u"取消"_s << false << 0;
    }
    void answers() {
        QFETCH(QString, answer);
        QFETCH(bool, turned);
        QFETCH(int, count);
        BmpWindow window;
        window.add(u"1.bmp"_s, {60, 45}, "BMP");
        window.add(u"2.bmp"_s, {60, 45}, "BMP");
        window.add(u"3.BMP"_s, {60, 45}, "BMP");
        const QByteArray before = window.bytesOf(u"1.bmp"_s), capital = window.bytesOf(u"3.BMP"_s);
        window.prepare(u"tc02"_s, 1);
        window.click(u"cmdQx"_s);
        // The first question is answered with its first answer, whatever the second one gets.
        chooseInBoxesWith([&](const BoxText& box) {
            window.boxes << box;
            return box.answers.size() == 3 ? static_cast<int>(box.answers.indexOf(answer)) : 0;
        });
        window.click(u"cmdLr"_s);
        QVERIFY(window.boxes.value(0).text.startsWith(u"将所选的图片追加本图册"_s));
        QCOMPARE(window.boxes.value(1).answers, (QStringList{u"转成 JPG"_s, u"保留原文件"_s, u"取消"_s}));
        QCOMPARE(window.boxes.value(1).answers[window.boxes.value(1).onEnter], u"保留原文件"_s);
        QVERIFY(window.boxes.value(1).text.startsWith(u"其中有 2 个 BMP 文件：1.bmp、2.bmp\n"_s));
        QCOMPARE(window.asked().size(), 1);
        QCOMPARE(numbersOf(u"tc02"_s).size(), count);
        QCOMPARE(window.bytesOf(u"1.bmp"_s).startsWith(jpegMark), turned);
        QVERIFY(turned || window.bytesOf(u"1.bmp"_s) == before);
        QCOMPARE(window.bytesOf(u"3.BMP"_s), capital);
        if (count == 0) {
            QCOMPARE(window.files().selectedItems().size(), 3);  // nothing is lost for another try
            QVERIFY(window.isEnabled(u"cmdLr"_s));
            return;
        }
        QCOMPARE(window.boxes.last().text, entered(3));
        QVERIFY(stored(u"tc02"_s, 1).startsWith(jpegMark) && stored(u"tc02"_s, 2).startsWith(jpegMark));
        QVERIFY(!turned || stored(u"tc02"_s, 1).startsWith(window.bytesOf(u"1.bmp"_s)));
        QVERIFY(stored(u"tc02"_s, 3).startsWith(capital));
        QCOMPARE(valueOf(u"tc02"_s, u"大小"_s), QString::number(before.size() / 1000.0));
    }

    // The answer holds for one run. A file that is a JPEG already is not made worse by the next one.
    void everyRunAsks() {
        BmpWindow window(u"转成 JPG"_s);
        window.add(u"1.bmp"_s, {60, 45}, "BMP");
        window.enterInto(u"tc02"_s, 1);
        const QByteArray turned = window.bytesOf(u"1.bmp"_s);
        QVERIFY(turned.startsWith(jpegMark));
        window.prepare(u"tc02"_s, 1);
        window.enterAll();
        QCOMPARE(window.asked(), (QStringList{u"“1.bmp”是 BMP 文件"_s}));
        QCOMPARE(window.bytesOf(u"1.bmp"_s), turned);
        QVERIFY(stored(u"tc02"_s, 2).startsWith(turned));
        window.boxes.clear();
        window.add(u"1.bmp"_s, {60, 45}, "JPG");
        QFile::rename(window.path(u"1.bmp"_s), window.path(u"1.jpg"_s));
        window.enterInto(u"tc02"_s, 1);
        QVERIFY(window.asked().isEmpty());  // no such file, no question
    }

    void replacesRecords() {
        BmpWindow window(u"保留原文件"_s);
        window.add(u"3.bmp"_s, {60, 45}, "BMP");
        window.enterInto(u"tc01"_s, 0);
        QVERIFY(stored(u"tc01"_s, 3).startsWith(jpegMark));
        QCOMPARE(ofNumber(3, u"规格"_s), u"60 * 45"_s);
        QVERIFY(window.bytesOf(u"3.bmp"_s).startsWith(bitmapMark));
    }

    void filesThatCannotBeWrittenOver() {
        const BmpWindow window;
        const QString path = window.path(u"1.bmp"_s);
        window.add(u"1.bmp"_s, {60, 45}, "BMP");
        window.add(u"2.bmp"_s, {60, 45}, "PNG");  // the person's file stays as it is
        QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadUser | QFile::ReadGroup | QFile::ReadOther);
        // Others may go into the folder, but not write there.
        QFile::setPermissions(window.pictures.path(), QFile::Permissions(0x7755));
        PictureInHand bitmap(path);
        const OrdinaryPerson person;
        QVERIFY(askAboutBmp(nullptr, {path, window.path(u"2.bmp"_s)}).has_value());
        QVERIFY(window.boxes.isEmpty());
        Recordset album = mekTp::catalogue.OpenRecordset(u"tc02"_s);
        album.AddNew();
        QVERIFY(bctp(bitmap, album, BmpFiles::toJpeg) > 0);
        QVERIFY(album.Fields(u"图片"_s).Value().toBytes().startsWith(jpegMark));
        QVERIFY(window.bytesOf(u"1.bmp"_s).startsWith(bitmapMark));
    }
};

const Registered<TestBmpFiles> registered;

}  // namespace

#include "bmp_test.moc"
