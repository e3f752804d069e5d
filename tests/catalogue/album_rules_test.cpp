#include "catalogue/album_rules.h"

#include "../support/run_all.h"

#include <QtTest/QtTest>

using namespace Qt::Literals::StringLiterals;

namespace {

Picture pictureOf(QSize pixels) {
    return {QImage(1, 1, QImage::Format_RGB32), pixels};
}

}  // namespace

class TestAlbumRules : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void namesAndLines();
    void albumsOfAButton();
    void specsAreReadWithAnyBlanks_data();
    void specsAreReadWithAnyBlanks();
    void specsOfPicturesFitTheirColumn_data();
    void specsOfPicturesFitTheirColumn();
    void kilobytes();
    void widthInCells();
    void namesThatAreNumbers();
};

void TestAlbumRules::namesAndLines() {
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

void TestAlbumRules::albumsOfAButton() {
    const QString tables = u"tc01tc03tc12"_s;
    QCOMPARE(tablesOfButton(tables), QStringList({u"tc01"_s, u"tc03"_s, u"tc12"_s}));
    QVERIFY(offersAlbum(tables, u"TC03"_s));
    QVERIFY(!offersAlbum(tables, u"tc02"_s));
    QVERIFY(!offersAlbum({}, u"tc02"_s));
    QVERIFY2(!offersAlbum(u"t012tc01"_s, u"12tc"_s), "a name begins at every fourth character");
    QCOMPARE(withoutAlbum(tables, u"tc03"_s), u"tc01tc12"_s);
    QCOMPARE(withoutAlbum(tables, u"TC03"_s), u"tc01tc12"_s);
    QCOMPARE(withoutAlbum(tables, u"tc02"_s), tables);
    QCOMPARE(withoutAlbum(u"tc01tc01"_s, u"tc01"_s), QString());
}

void TestAlbumRules::specsAreReadWithAnyBlanks_data() {
    QTest::addColumn<QString>("sizeText");
    QTest::addColumn<bool>("readable");
    QTest::addColumn<QSize>("size");
    QTest::newRow("usual") << u"640 * 480"_s << true << QSize(640, 480);
    QTest::newRow("no blanks") << u"640*480"_s << true << QSize(640, 480);
    QTest::newRow("many blanks") << u"640  *480 "_s << true << QSize(640, 480);
    QTest::newRow("first star counts") << u"640*480*3"_s << true << QSize(640, 480);
    QTest::newRow("no height") << u"640 *"_s << true << QSize(640, 0);
    QTest::newRow("no numbers") << u"宽 * 高"_s << true << QSize(0, 0);
    QTest::newRow("beyond all sizes") << u"1e99 * -7"_s << true << QSize(32767, 0);
    QTest::newRow("no star") << u"640 x 480"_s << false << QSize();
    QTest::newRow("empty") << QString() << false << QSize();
}

void TestAlbumRules::specsAreReadWithAnyBlanks() {
    QFETCH(const QString, sizeText);
    QFETCH(const bool, readable);
    QFETCH(const QSize, size);
    const auto read = sizeFromSpec(sizeText);
    QCOMPARE(read.has_value(), readable);
    if (readable) QCOMPARE(*read, size);
}

void TestAlbumRules::specsOfPicturesFitTheirColumn_data() {
    QTest::addColumn<QSize>("pixels");
    QTest::addColumn<QString>("sizeText");
    QTest::newRow("usual") << QSize(640, 480) << u"640 * 480"_s;
    QTest::newRow("button") << QSize(100, 75) << u"100 * 75"_s;
    QTest::newRow("small") << QSize(1, 3) << u"1 * 3"_s;
    QTest::newRow("twelve characters") << QSize(12000, 9000) << u"12000 * 9000"_s;
    QTest::newRow("largest") << QSize(32767, 32767) << u"32767*32767"_s;
}

void TestAlbumRules::specsOfPicturesFitTheirColumn() {
    QFETCH(const QSize, pixels);
    QFETCH(const QString, sizeText);
    QCOMPARE(specOfPicture(pictureOf(pixels)), sizeText);
    QCOMPARE(sizeFromSpec(sizeText), pixels);
    QCOMPARE(sizeFromSpec(specOfPicture(pictureOf(pixels), u"*"_s)), pixels);
}

void TestAlbumRules::kilobytes() {
    QCOMPARE(kilobytesText(0), u"0.000"_s);
    QCOMPARE(kilobytesText(999), u"0.999"_s);
    QCOMPARE(kilobytesText(1234567), u"1,234.567"_s);
    QCOMPARE(kilobytesText(3'000'000'000), u"3,000,000.000"_s);
}

void TestAlbumRules::widthInCells() {
    QCOMPARE(wzcd(u"一二三四五六七八"_s), 16);
    QCOMPARE(wzcd(u"一二三四五六七八a"_s), 17);
    QCOMPARE(wzcd(u"a b，"_s), 5);
    QCOMPARE(wzcd(u"𠮷"_s), 2);
    QCOMPARE(wzcd({}), 0);
}

void TestAlbumRules::namesThatAreNumbers() {
    for (const QString& name : {u"123.jpg"_s, u"007.a.jpg"_s, u"12"_s}) QVERIFY2(zhjy(name), qPrintable(name));
    for (const QString& name : {u"a12.jpg"_s, u"12a.jpg"_s, u".jpg"_s, QString()})
        QVERIFY2(!zhjy(name), qPrintable(name));
}

static Registered<TestAlbumRules> registered;

#include "album_rules_test.moc"
