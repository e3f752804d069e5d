#include "jet_reader/jet_values.h"

#include "../support/sample_catalogue.h"
#include "jet_reader/code_page.h"
#include "jet_reader/ole_picture.h"
#include "platform/database/file/storage_format.h"

#include <QImage>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

Bytes bytesOf(const QByteArray& bytes) {
    return {reinterpret_cast<const unsigned char*>(bytes.constData()), size_t(bytes.size())};
}

QByteArray wordsOf(std::initializer_list<quint32> words) {
    QByteArray bytes;
    for (const quint32 word : words) bytes.append(reinterpret_cast<const char*>(&word), sizeof word);
    return bytes;
}

/// The beginning of a wrapper, in which nothing looks like a picture but a first glance.
const QByteArray wrapper =
    QByteArray("\x15\x1c\x2e\0\2\0\0\0\x0b\0\x0e\0\x14\0", 14) + "Bitmap BMBM Paint.Picture\xff\xd8\xff\xe0";

class JetValuesTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void texts() {
        const QByteArray compressed("\xff\xfe");
        const std::tuple<int, QByteArray, QString> cases[] = {
            // Jet 4
            {0, {}, {}},
            {0, {"\x47\x72\xa4\x51", 4}, u"片冤"_s},
            {0, compressed + "ab\xe4", u"abä"_s},
            {0, compressed + QByteArray("a\0\x16\x04\0z", 6), u"aЖz"_s},  // to wide characters and back
            {0, {"\x3d\xd8\0\xde", 4}, u"😀"_s},
            {0, {"\x3d\xd8x\0", 4}, u"\uFFFDx"_s},               // half a pair
            {0, {"a\0b", 3}, u"a"_s},                            // odd length
            {0, compressed + QByteArray("a\0\x16", 3), u"a"_s},  // cut while wide
            // Jet 3, the last two in a code page that nobody knows
            {1252, QByteArray("\xfc") + "ber", u"über"_s},
            {936, "\xd5\xd5\xc6\xac", u"照片"_s},
            {1252, "\x80\x81\x99\x9d", u"€\u0081™\u009d"_s},
            {4711, "\xd5\xd5\xc6\xac", u"照片"_s},
            {936, "\xd5\xd5\xc6", u"照\uFFFD"_s},  // cut
            {4711, "a\xff\xff", u"a\uFFFD\uFFFD"_s},
        };
        for (const auto& [codePage, bytes, text] : cases) {
            const std::string read = codePage == 0 ? jet4Text(bytesOf(bytes)) : jet3Text(bytesOf(bytes), codePage);
            QCOMPARE(QString::fromStdString(read), text);
        }
    }

    void codePageOfAFile() {
        const std::tuple<const char*, QList<QByteArray>, int, bool> cases[] = {
            {"nothing beyond ASCII", {"Table1", "lake"}, 1252, false},
            {"two names of columns", {"\xd0\xf2\xba\xc5", "\xb1\xe0\xc2\xeb"}, 936, false},
            {"a rare name among daily words", {"\x94\xea", "\xcd\xbc\xc6\xac\xa3\xac\xb1\xb8\xd7\xa2"}, 936, false},
            {"accents before letters", {"\xe9t\xe9_a_b"}, 1252, false},
            {"accents that make characters", {"\xe9t\xe9", "na\xefve caf\xe9s"}, 1252, false},
            {"one text that cannot be Chinese", {"\xd0\xf2\xba\xc5x", "caf\xe9"}, 1252, true},
            {"the same beside a name of ours", {"\xd0\xf2\xba\xc5", "caf\xe9"}, 936, false},
            {"half of them rare", {"\x94\xea\x94\xea", "\xb1\xe0\xc2\xeb"}, 1252, true},
            {"half of them rare, and a name of ours", {"\x94\xea\x94\xea", "\xb1\xb8\xd7\xa2"}, 936, false},
            {"a cut text among many", {QByteArray("\xd5\xd5\xc6\xac").repeated(30), "\xd5\xd5\xc6"}, 936, false},
        };
        for (const auto& [what, texts, codePage, isInDoubt] : cases) {
            CodePageSurvey survey;
            for (const QByteArray& text : texts) survey.addName(bytesOf(text));
            QVERIFY2(survey.codePage() == codePage && survey.isInDoubt() == isInDoubt, what);
        }
    }

    void dates() {
        const std::tuple<double, QString> cases[] = {
            {0.0, u"1899-12-30 00:00:00"_s},           // day 0
            {0.25, u"1899-12-30 06:00:00"_s},          // time alone
            {-1.75, u"1899-12-29 18:00:00"_s},         // before day 0 the time counts forward
            {36585.5, u"2000-02-29 12:00:00"_s},       // leap day
            {36586.0, u"2000-03-01 00:00:00"_s},       // day behind it
            {37895.999995, u"2003-10-02 00:00:00"_s},  // half a second before midnight
            {-657434.0, u"0100-01-01 00:00:00"_s},     // first
            {2958465.9999, u"9999-12-31 23:59:51"_s},  // last
            {2958465.999999, QString()},               // behind the last second
            {-657435.0, QString()},                    // too early
            {1e300, QString()},                        // huge
            {std::nan(""), QString()},                 // none
        };
        for (const auto& [days, text] : cases) {
            QCOMPARE(QString::fromStdString(dateText(days).value_or("")), text);
        }
    }

    void numbers() {
        const QByteArray money = QByteArray::fromHex("c0d8a7ffffffffff");
        const auto amount = [](qint64 parts) {
            return currencyValue(bytesOf(QByteArray(reinterpret_cast<const char*>(&parts), sizeof parts)));
        };
        const auto decimal = [](char sign, std::initializer_list<quint32> words, int scale) {
            return decimalValue(bytesOf(sign + wordsOf(words)), scale);
        };
        const quint32 all = 0xFFFFFFFF;
        const std::pair<ExactValue, ExactValue> cases[] = {
            {currencyValue(bytesOf(money)), -577.7216},
            {amount(0), 0.0},
            {amount(-1), -0.0001},
            {amount(999'999'999'999'999), 99999999999.9999},
            {amount(1'234'567'890'123'456), "123456789012.3456"},
            {amount(1'234'567'890'123'450'000), 123456789012345.0},
            {amount(std::numeric_limits<qint64>::max()), "922337203685477.5807"},
            {amount(std::numeric_limits<qint64>::min()), "-922337203685477.5808"},
            {decimal('\x80', {0, 0, 0, 12345}, 4), -1.2345},
            {decimal('\x80', {0, 0, 0, 0}, 6), 0.0},
            {decimal('\0', {0, 0, 0, 100}, 2), 1.0},
            {decimal('\0', {0, 0, 0, 7}, 28), 7e-28},
            {decimal('\0', {0, 1, 0, 0}, 0), "18446744073709551616"},
            {decimal('\x80', {0, all, all, all}, 28), "-7.9228162514264337593543950335"},
            {decimal('\0', {0, 0, 1'000'000'000U, 5}, 3), "4294967296000000.005"},
        };
        for (const auto& [read, expected] : cases) {
            if (const auto* digits = std::get_if<std::string>(&expected))
                QCOMPARE(std::get<std::string>(read), *digits);
            else
                QCOMPARE(std::get<double>(read), std::get<double>(expected));
        }
        QCOMPARE(shortestDecimal(1234.567F), 1234.567);
        const QByteArray guid = QByteArray::fromHex("33221100554477668899aabbccddeeff");
        QCOMPARE(guidText(bytesOf(guid)), std::string("{00112233-4455-6677-8899-AABBCCDDEEFF}"));
    }

    void picturesComeOutOfTheirWrapper() {
        const QByteArray bitmap = pictureBytes({40, 30}, Qt::darkCyan, "BMP");
        const QByteArray jpeg = pictureBytes({40, 30}, Qt::darkCyan, "JPG");
        const QByteArray tail(100, '\x7f');
        const auto length = char((jpeg.size() + 2) >> 8);
        QByteArray camera = jpeg;
        camera.insert(2, QByteArray("\xff\xe1") + length + char(jpeg.size() + 2) + jpeg);
        const std::tuple<QByteArray, QByteArray> cases[] = {
            {wrapper + bitmap + tail, bitmap},             // BMP
            {wrapper + jpeg + tail, jpeg},                 // JPEG
            {wrapper + camera + tail, camera},             // JPEG of a camera
            {wrapper + jpeg.chopped(2), jpeg.chopped(2)},  // JPEG without its end
            {wrapper + QByteArray(bitmap).replace(2, 4, QByteArray(4, '\0')),
             QByteArray(bitmap).replace(2, 4, QByteArray(4, '\0'))},  // BMP that hides its length
            {tail + jpeg, tail + jpeg},                               // no wrapper
            {jpeg + tail, jpeg + tail},                               // plain picture
            {wrapper + tail, wrapper + tail},                         // something else inside
            {wrapper + jpeg.left(20), wrapper + jpeg.left(20)},       // header of a JPEG alone
            {QByteArray("\x15\x1c"), QByteArray("\x15\x1c")},         // wrapper alone
        };
        for (const auto& [value, picture] : cases) {
            const Bytes found = pictureWithoutWrapper(bytesOf(value));
            const QByteArray taken(reinterpret_cast<const char*>(found.data()), qsizetype(found.size()));
            QVERIFY(taken == picture);
        }
    }
};

Registered<JetValuesTest> registered;

}  // namespace

#include "jet_values_test.moc"
