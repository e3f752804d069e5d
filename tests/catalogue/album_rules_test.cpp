#include "catalogue/album_rules.h"

#include "../support/run_all.h"
#include "catalogue/colour_text.h"
#include "platform/base/error.h"

using namespace Qt::Literals::StringLiterals;

namespace {

Picture pictureOf(QSize pixels) {
    return {QImage(1, 1, QImage::Format_RGB32), pixels};
}

}  // namespace

class TestAlbumRules : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void namesAndLines() {
        QCOMPARE(albumTableName(9), u"tc09"_s);
        QCOMPARE(albumTableName(10), u"tc10"_s);
        QCOMPARE(createAlbumSql(u"tc07"_s),
                 u"CREATE TABLE tc07 ([序号] LONG,[编号] TEXT(10),[大小] SINGLE,[规格] TEXT(12),[日期] DATETIME,"
                 u"[图片] LONGBINARY,[备注] TEXT(50))"_s);

        const QString line = albumLine(u"tc03"_s, u"江南 水乡"_s);
        QCOMPARE(line, u"tc03 江南 水乡"_s);
        QCOMPARE(tableOfLine(line), u"tc03"_s);
        QCOMPARE(titleOfLine(line), u"江南 水乡"_s);
        QCOMPARE(tableOfLine(u"tc "_s), u"tc"_s);
        QCOMPARE(titleOfLine(u"tc03"_s), QString());
    }

    void albumsOfAButton() {
        const QString tables = u"tc01tc03tc12"_s;
        QCOMPARE(tablesOfButton(tables), QStringList({u"tc01"_s, u"tc03"_s, u"tc12"_s}));
        QVERIFY(offersAlbum(tables, u"TC03"_s) && !offersAlbum(tables, u"tc02"_s));
        QVERIFY(!offersAlbum({}, u"tc02"_s));
        QVERIFY2(!offersAlbum(u"t012tc01"_s, u"12tc"_s), "a name begins at every fourth character");
        QCOMPARE(withoutAlbum(tables, u"tc03"_s), u"tc01tc12"_s);
        QCOMPARE(withoutAlbum(tables, u"TC03"_s), u"tc01tc12"_s);
        QCOMPARE(withoutAlbum(tables, u"tc02"_s), tables);
        QCOMPARE(withoutAlbum(u"tc01tc01"_s, u"tc01"_s), QString());
    }

    void specsAreReadWithAnyBlanks() {
        for (const auto& [text, size] : {std::pair{u"640 * 480"_s, QSize(640, 480)},
                                         {u"640*480"_s, QSize(640, 480)},
                                         {u"640  *480 "_s, QSize(640, 480)},
                                         {u"640*480*3"_s, QSize(640, 480)},  // the first star counts
                                         {u"640 *"_s, QSize(640, 0)},
                                         {u"宽 * 高"_s, QSize(0, 0)},
                                         {u"1e99 * -7"_s, QSize(32767, 0)}})
            QCOMPARE(sizeFromSpec(text), size);
        for (const QString& text : {u"640 x 480"_s, QString()}) QVERIFY(!sizeFromSpec(text));
    }

    void specsOfPicturesFitTheirColumn() {
        for (const auto& [pixels, text] : {std::pair{QSize(640, 480), u"640 * 480"_s},
                                           {QSize(1, 3), u"1 * 3"_s},
                                           {QSize(12000, 9000), u"12000 * 9000"_s},  // twelve characters
                                           {QSize(32767, 32767), u"32767*32767"_s}}) {
            QCOMPARE(specOfPicture(pictureOf(pixels)), text);
            QCOMPARE(sizeFromSpec(text), pixels);
            QCOMPARE(sizeFromSpec(specOfPicture(pictureOf(pixels), u"*"_s)), pixels);
        }
    }

    void kilobytes() {
        QCOMPARE(kilobytesText(0), u"0.000"_s);
        QCOMPARE(kilobytesText(999), u"0.999"_s);
        QCOMPARE(kilobytesText(1234567), u"1,234.567"_s);
        QCOMPARE(kilobytesText(3'000'000'000), u"3,000,000.000"_s);
    }

    void widthInCells() {
        QCOMPARE(wzcd(u"一二三四五六七八"_s), 16);
        QCOMPARE(wzcd(u"一二三四五六七八a"_s), 17);
        QCOMPARE(wzcd(u"a b，"_s), 5);
        QCOMPARE(wzcd(u"𠮷"_s), 2);
        QCOMPARE(wzcd({}), 0);
    }

    void namesThatAreNumbers() {
        for (const QString& name : {u"123.jpg"_s, u"007.a.jpg"_s, u"12"_s}) QVERIFY2(zhjy(name), qPrintable(name));
        for (const QString& name : {u"a12.jpg"_s, u"12a.jpg"_s, u".jpg"_s, QString()})
            QVERIFY2(!zhjy(name), qPrintable(name));
    }

    void colourTextsAreRead() {
        QCOMPARE(colourFromText(u"&H00FF8001&"_s), QColor(0x01, 0x80, 0xff));
        QCOMPARE(colourFromText(u"&H00FF&"_s), QColor(255, 0, 0));
        QCOMPARE(colourFromText(u"255"_s), QColor(255, 0, 0));
        QCOMPARE(colourFromText(u""_s), QColor(0, 0, 0));
        QVERIFY_THROWS_EXCEPTION(Error, colourFromText(u"-5"_s));
        QVERIFY_THROWS_EXCEPTION(Error, colourFromText(u"16777216"_s));
    }

    void colourTextsAreWritten() {
        QCOMPARE(colourText(Qt::blue), u"&H00FF0000&"_s);
        QCOMPARE(colourText(Qt::red), u"&H00FF&"_s);
        QCOMPARE(colourText(Qt::black), u"&H000&"_s);
        for (const QColor& colour : {QColor(1, 128, 255), QColor(0, 0, 16), QColor(Qt::white)})
            QCOMPARE(colourFromText(colourText(colour)), colour);
    }
};

static Registered<TestAlbumRules> registered;

#include "album_rules_test.moc"
