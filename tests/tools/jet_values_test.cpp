#include "jet_reader/jet_values.h"
#include "platform/database/stored_forms.h"

#include "../support/run_all.h"
#include "jet_reader/ole_picture.h"

#include <QBuffer>
#include <QImage>
#include <QtTest/QtTest>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

Bytes bytesOf(const QByteArray& bytes) {
    return {reinterpret_cast<const unsigned char*>(bytes.constData()), static_cast<size_t>(bytes.size())};
}

QByteArray wordsOf(std::initializer_list<quint32> words) {
    QByteArray bytes;
    for (const quint32 word : words) bytes.append(reinterpret_cast<const char*>(&word), sizeof word);
    return bytes;
}

QByteArray encodedImage(const char* format) {
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, format);
    return bytes;
}

/// The beginning of a wrapper, in which nothing looks like a picture but a first glance.
const QByteArray wrapper =
    QByteArray("\x15\x1c\x2e\0\2\0\0\0\x0b\0\x0e\0\x14\0", 14) + "Bitmap BMBM Paint.Picture\xff\xd8\xff\xe0";

class JetValuesTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void texts_data() {
        QTest::addColumn<int>("codePage");  // 0 for Jet 4
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        QTest::newRow("empty") << 0 << QByteArray() << QString();
        QTest::newRow("wide") << 0 << QByteArray("\x47\x72\xa4\x51", 4) << u"片冤"_s;
        QTest::newRow("compressed") << 0
                                    << QByteArray(
                                           "\xff\xfe"
                                           "ab\xe4")
                                    << u"abä"_s;
        QTest::newRow("compressed and back") << 0
                                             << QByteArray(
                                                    "\xff\xfe"
                                                    "a\0\x16\x04\0z",
                                                    8)
                                             << u"aЖz"_s;
        QTest::newRow("surrogate pair") << 0 << QByteArray("\x3d\xd8\0\xde", 4) << u"😀"_s;
        QTest::newRow("half a pair") << 0 << QByteArray("\x3d\xd8x\0", 4) << u"\uFFFDx"_s;
        QTest::newRow("odd length") << 0 << QByteArray("a\0b", 3) << u"a"_s;
        QTest::newRow("cut while wide") << 0
                                        << QByteArray(
                                               "\xff\xfe"
                                               "a\0\x16",
                                               5)
                                        << u"a"_s;
        QTest::newRow("Latin") << 1252
                               << QByteArray(
                                      "\xfc"
                                      "ber")
                               << u"über"_s;
        QTest::newRow("Chinese") << 936 << QByteArray("\xd5\xd5\xc6\xac") << u"照片"_s;
        QTest::newRow("unknown code page") << 4711 << QByteArray("\xd5\xd5\xc6\xac") << u"照片"_s;
        QTest::newRow("no text at all") << 4711 << QByteArray("a\xff\xff") << u"a\uFFFD\uFFFD"_s;
    }

    void texts() {
        QFETCH(int, codePage);
        QFETCH(QByteArray, bytes);
        QFETCH(QString, text);
        const std::string read = codePage == 0 ? jet4Text(bytesOf(bytes)) : jet3Text(bytesOf(bytes), codePage);
        QCOMPARE(QString::fromStdString(read), text);
    }

    void dates_data() {
        QTest::addColumn<double>("days");
        QTest::addColumn<QString>("text");
        QTest::newRow("day 0") << 0.0 << u"1899-12-30 00:00:00"_s;
        QTest::newRow("time alone") << 0.25 << u"1899-12-30 06:00:00"_s;
        QTest::newRow("before day 0 the time counts forward") << -1.75 << u"1899-12-29 18:00:00"_s;
        QTest::newRow("leap day") << 36585.5 << u"2000-02-29 12:00:00"_s;
        QTest::newRow("day behind it") << 36586.0 << u"2000-03-01 00:00:00"_s;
        QTest::newRow("half a second before midnight") << 37895.999995 << u"2003-10-02 00:00:00"_s;
        QTest::newRow("first") << -657434.0 << u"0100-01-01 00:00:00"_s;
        QTest::newRow("last") << 2958465.9999 << u"9999-12-31 23:59:51"_s;
        QTest::newRow("behind the last second") << 2958465.999999 << QString();
        QTest::newRow("too early") << -657435.0 << QString();
        QTest::newRow("huge") << 1e300 << QString();
        QTest::newRow("none") << std::nan("") << QString();
    }

    void dates() {
        QFETCH(double, days);
        QFETCH(QString, text);
        QCOMPARE(QString::fromStdString(dateText(days).value_or("")), text);
    }

    void numbers() {
        const QByteArray money = QByteArray::fromHex("c0d8a7ffffffffff");
        QCOMPARE(currencyValue(bytesOf(money)), -577.7216);
        QCOMPARE(decimalValue(bytesOf('\x80' + wordsOf({0, 0, 0, 12345})), 4), -1.2345);
        QCOMPARE(decimalValue(bytesOf('\0' + wordsOf({0, 1, 0, 0})), 0), 18446744073709551616.0);
        QCOMPARE(shortestDecimal(1234.567F), 1234.567);
        const QByteArray guid = QByteArray::fromHex("33221100554477668899aabbccddeeff");
        QCOMPARE(guidText(bytesOf(guid)), std::string("{00112233-4455-6677-8899-AABBCCDDEEFF}"));
    }

    void picturesComeOutOfTheirWrapper_data() {
        QTest::addColumn<QByteArray>("value");
        QTest::addColumn<QByteArray>("picture");
        const QByteArray bitmap = encodedImage("BMP");
        const QByteArray jpeg = encodedImage("JPG");
        const QByteArray tail(100, '\x7f');
        // A camera's small picture stands inside the large one, before its own pixels.
        const auto length = static_cast<char>((jpeg.size() + 2) >> 8);
        QByteArray camera = jpeg;
        camera.insert(2, QByteArray("\xff\xe1") + length + static_cast<char>(jpeg.size() + 2) + jpeg);
        QTest::newRow("BMP") << wrapper + bitmap + tail << bitmap;
        QTest::newRow("JPEG") << wrapper + jpeg + tail << jpeg;
        QTest::newRow("JPEG of a camera") << wrapper + camera + tail << camera;
        QTest::newRow("JPEG without its end") << wrapper + jpeg.chopped(2) << jpeg.chopped(2);
        QTest::newRow("BMP that hides its length") << wrapper + QByteArray(bitmap).replace(2, 4, QByteArray(4, '\0'))
                                                   << QByteArray(bitmap).replace(2, 4, QByteArray(4, '\0'));
        QTest::newRow("no wrapper") << tail + jpeg << tail + jpeg;
        QTest::newRow("plain picture") << jpeg + tail << jpeg + tail;
        QTest::newRow("something else inside") << wrapper + tail << wrapper + tail;
        QTest::newRow("header of a JPEG alone") << wrapper + jpeg.left(20) << wrapper + jpeg.left(20);
        QTest::newRow("wrapper alone") << QByteArray("\x15\x1c") << QByteArray("\x15\x1c");
    }

    void picturesComeOutOfTheirWrapper() {
        QFETCH(QByteArray, value);
        QFETCH(QByteArray, picture);
        const Bytes found = pictureWithoutWrapper(bytesOf(value));
        const QByteArray taken(reinterpret_cast<const char*>(found.data()), static_cast<qsizetype>(found.size()));
        QVERIFY(taken == picture);
    }
};

Registered<JetValuesTest> registered;

}  // namespace

#include "jet_values_test.moc"
