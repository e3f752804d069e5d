#include "../../support/run_all.h"
#include "picture_samples.h"
#include "platform/picture/picture.h"

#include <QImageWriter>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

using Kind = JpegOptions::Kind;

QByteArray encoded(const QImage& image, const char* format) {
    QBuffer buffer;
    QImageWriter(&buffer, format).write(image);
    return buffer.data();
}

QString refusalOf(const QByteArray& bytes) {
    return failureOf([&] { LoadPicture(bytes, u"图.jpg"_s); });
}

/// A file whose disk fails in the middle.
class FailingDevice : public QIODevice {
  public:
    explicit FailingDevice(QByteArray bytes) : bytes_(std::move(bytes)) { open(ReadOnly | Unbuffered); }
    qint64 size() const override { return 2 * bytes_.size(); }

  protected:
    qint64 readData(char* data, qint64 maxSize) override {
        const QByteArray part = bytes_.mid(pos(), maxSize);
        std::copy(part.begin(), part.end(), data);
        return part.isEmpty() ? -1 : part.size();
    }
    qint64 writeData(const char*, qint64) override { return -1; }

  private:
    QByteArray bytes_;
};

qsizetype firstScanByte(const QByteArray& jpeg) {
    const qsizetype scan = jpeg.indexOf(QByteArrayView("\xFF\xDA"));
    return scan + 2 + quint8(jpeg[scan + 3]);
}

/// A tiny JPEG that claims to be as large as pictures can be.
QByteArray ofHugeSides(const JpegOptions& options) {
    const QByteArrayView progressiveFrame("\xFF\xC2");
    const QByteArrayView frame("\xFF\xC0");
    const QByteArray tiny = jpegBytes(quadrants({64, 48}), options);
    const bool progressive = tiny.contains(progressiveFrame);
    QByteArray bytes = QByteArray(tiny).replace(progressiveFrame, frame);
    bytes = withSides(bytes, {longestPictureSide, longestPictureSide});
    return progressive ? bytes.replace(frame, progressiveFrame) : bytes;
}

}  // namespace

class TestLoadPicture : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void standsUprightByItsOrientation() {
        const char* upright[] = {"ABCD", "ABCD", "BADC", "DCBA", "CDAB", "ACBD", "CADB", "DBCA", "BDAC", "ABCD"};
        for (int orientation = 0; orientation <= 9; ++orientation) {
            const bool onItsSide = orientation >= 5 && orientation <= 8;
            const QSize whole = onItsSide ? QSize(320, 640) : QSize(640, 320);
            for (const bool bigEndian : {false, true})
                for (const QSize target : {QSize(), whole / 4}) {
                    const QByteArray bytes = jpegBytes(quadrants({640, 320}), {Kind::baseline, orientation, bigEndian});
                    const Picture picture = LoadPicture(bytes, u"图"_s, target);
                    QCOMPARE(picture.pixels(), whole);
                    QCOMPARE(picture.image().size(), target.isEmpty() ? whole : target);
                    QCOMPARE(quadrantsOf(picture.image()), QByteArray(upright[orientation]));
                }
        }
    }

    void kindsOfJpeg() {
        for (const Kind kind :
             {Kind::baseline, Kind::progressive, Kind::coloursApart, Kind::greyscale, Kind::inks, Kind::invertedInks}) {
            const QByteArray bytes = jpegBytes(quadrants({160, 128}), {kind});
            for (const QSize target : {QSize(), QSize(40, 30), QSize(20, 16), QSize(5, 5)}) {
                const Picture picture = LoadPicture(bytes, u"图"_s, target);
                QCOMPARE(picture.pixels(), QSize(160, 128));
                QCOMPARE(picture.image().format(), QImage::Format_RGB32);
                QCOMPARE(quadrantsOf(picture.image()), QByteArray(kind == Kind::greyscale ? "???D" : "ABCD"));
            }
        }
    }

    void depthsOfBmp() {
        for (const QByteArray& bytes : {bmpBytes(1), bmpBytes(4), bmpBytes(8), bmpBytes(16), bmpBytes(24), bmpBytes(32),
                                        bmpBytes(24, true), bmpBytes(8, false, true), bmpBytes(24) + '\0'}) {
            const Picture picture = LoadPicture(bytes, u"图"_s);
            QCOMPARE(picture.pixels(), QSize(4, 2));
            QCOMPARE(picture.image().pixel(0, 0), 0xFFFF0000);
            QCOMPARE(picture.image().pixel(3, 1), 0xFF0000FF);
        }
        // Five bits for each colour; those that are not there are filled up.
        const QByteArray grey = bmpBytes(16).replace(QByteArrayView("\0\x7C", 2), QByteArrayView("\x10\x42", 2));
        QCOMPARE(LoadPicture(grey, u"图"_s).image().pixel(0, 0), 0xFF848484);
    }

    void bitmapsWithHeadersOfSomeEditors() {
        for (const int length : {52, 56})
            for (const quint16 depth : {8, 16, 32}) {
                const QImage image = LoadPicture(bmpWithHeader(length, depth), u"图"_s).image();
                QCOMPARE(image.size(), QSize(2, 2));
                for (const int x : {0, 1}) {
                    QCOMPARE(image.pixel(x, 0), 0xFFFF0000);  // 16 bits have four for each colour here.
                    QCOMPARE(image.pixel(x, 1), 0xFF0000FF);
                }
            }
        QVERIFY(!refusalOf(bmpWithHeader(56, 32).first(60)).isEmpty());
    }

    void reducedDecodingCoversTheTarget() {
        const QImage image = quadrants({800, 600});
        for (const auto& [target, decoded] : {std::pair{QSize(1, 1), QSize(100, 75)},
                                              {QSize(100, 75), QSize(100, 75)},
                                              {QSize(101, 75), QSize(200, 150)},  // just more than an eighth
                                              {QSize(450, 10), QSize(500, 375)},
                                              {QSize(10, 450), QSize(600, 450)},
                                              {QSize(5000, 5000), QSize(800, 600)},
                                              {QSize(0, 100), QSize(800, 600)}})
            for (const Kind kind : {Kind::baseline, Kind::progressive}) {
                const Picture picture = LoadPicture(jpegBytes(image, {kind}), u"图"_s, target);
                QCOMPARE(picture.image().size(), decoded);
                QCOMPARE(picture.pixels(), image.size());
            }
    }

    void bytesBehindThePictureDoNotMatter() {
        const QByteArray bytes = jpegBytes(quadrants({160, 128}));
        for (const QByteArray& tail : {QByteArray(40000, '\0'), QByteArray("rubbish"), QByteArray(1, '\0')})
            QCOMPARE(LoadPicture(bytes + tail, u"图"_s).image(), LoadPicture(bytes, u"图"_s).image());
    }

    void showsWhatATruncatedFileHolds() {
        for (const Kind kind : {Kind::baseline, Kind::progressive}) {
            const QByteArray bytes = jpegBytes(quadrants({640, 480}), {kind});
            const QImage whole = LoadPicture(bytes, u"图"_s).image();
            for (const QSize target : {QSize(), QSize(80, 60)}) {
                const Picture part = LoadPicture(bytes.first(bytes.size() * 3 / 4), u"图"_s, target);
                QCOMPARE(part.pixels(), whole.size());
                QCOMPARE(quadrantsOf(part.image()).first(2), QByteArray("AB"));
            }
            QVERIFY(refusalOf(bytes.first(firstScanByte(bytes))).contains(u"不完整"_s));
            QVERIFY(!refusalOf(bytes.first(firstScanByte(bytes) / 2)).isEmpty());
        }
    }

    void endlessScansAreRefused() {
        const QByteArray progressive = jpegBytes(quadrants({64, 48}), {Kind::progressive});
        QCOMPARE(LoadPicture(withMoreScans(progressive, 50), u"图"_s).image(),
                 LoadPicture(progressive, u"图"_s).image());
        QVERIFY(refusalOf(withMoreScans(progressive, 600)).contains(u"损坏"_s));
        const QByteArray apart = jpegBytes(quadrants({64, 48}), {Kind::coloursApart});
        QVERIFY_THROWS_EXCEPTION(Error, LoadPicture(withMoreScans(apart, 600), u"图"_s, {8, 6}));
        // The larger the picture, the fewer.
        const QByteArray large = withMoreScans(withSides(apart, {4000, 4000}), 150);
        QVERIFY_THROWS_EXCEPTION(Error, LoadPicture(large, u"图"_s, {8, 8}));
    }

    void aFewBytesThatClaimAHugePictureAreRefusedAtOnce() {
        const QByteArray progressive = ofHugeSides({Kind::progressive});
        const QByteArray bytesForTheSides(4 << 20, '\0');
        const std::pair<QByteArray, QString> cases[] = {
            {ofHugeSides({}), u"不完整"_s},
            {ofHugeSides({Kind::greyscale, 6}), u"不完整"_s},
            {progressive, u"不完整"_s},
            {withMoreScans(progressive, 400), u"不完整"_s},
            {withSides(bmpBytes(8, false, true), {16000, 16000}), u"不完整"_s},
            // There is room for the picture, but not for the copies that decoding needs.
            {progressive + bytesForTheSides, u"内存不足"_s},
            {ofHugeSides({Kind::coloursApart}) + bytesForTheSides, u"内存不足"_s},
            {ofHugeSides({Kind::baseline, 6}) + bytesForTheSides, u"内存不足"_s},
        };
        for (const auto& [bytes, reason] : cases) {
            const QString refusal = refusalOf(bytes);
            QVERIFY2(refusal.contains(reason), qPrintable(refusal));
        }
    }

    void aFailingDiskIsNoEarlyEnd() {
        const QByteArray bytes = jpegBytes(quadrants({640, 480}));
        FailingDevice device(bytes.first(bytes.size() * 3 / 4));
        const QString text = failureOf([&] { LoadPicture(device, u"图.jpg"_s); });
        QVERIFY2(text.contains(u"读取失败"_s), qPrintable(text));
    }

    void refusesWhatIsNoPicture() {
        const QByteArray jpeg = jpegBytes(quadrants({16, 16}));
        const std::tuple<QByteArray, QString> cases[] = {
            {QByteArray(), u"没有数据"_s},                                      // empty
            {QByteArray(5000, '\0'), u"不是 BMP 或 JPEG 图片"_s},               // zeros
            {QByteArray("not a picture"), u"不是 BMP 或 JPEG 图片"_s},          // text
            {encoded(quadrants({16, 16}), "png"), u"不是 BMP 或 JPEG 图片"_s},  // PNG
            {QByteArray("\xFF\xD8"), u"损坏"_s},                                // two bytes of a JPEG
            {QByteArray("\xFF\xD8\xFF") + QByteArray(3000, 'x'), u"损坏"_s},    // JPEG, then rubbish
            {jpeg.first(firstScanByte(jpeg)) + "\xFF\xD9", u"不完整"_s},        // JPEG without picture data
            {withSides(jpeg, {0, 16}), u"损坏"_s},                              // JPEG without sides
            {withSides(jpeg, {32768, 16}), u"32768 * 16"_s},                    // wide JPEG
            {withSides(jpeg, {16, 65000}), u"16 * 65000"_s},                    // high JPEG
            {QByteArray("BM"), u"不完整"_s},                                    // two bytes of a BMP
            {QByteArray("BM") + QByteArray(3000, '\1'), u"图片"_s},             // BMP, then rubbish
            {bmpBytes(24).first(54), u"不完整"_s},                              // BMP without pixels
            {withSides(bmpBytes(24), {32768, 2}), u"32768 * 2"_s},              // wide BMP
            {withSides(bmpBytes(24), {4, -40000}), u"4 * 40000"_s},             // high BMP
        };
        for (const auto& [bytes, reason] : cases) {
            const QString refusal = refusalOf(bytes);
            QVERIFY2(refusal.contains(reason), qPrintable(refusal));
            QVERIFY2(refusal.contains(u"图.jpg"_s), qPrintable(refusal));
        }
    }

    void damagedBytesNeverEndTheProgram() {
        for (const QByteArray& whole :
             {jpegBytes(quadrants({64, 48}), {Kind::baseline, 6}),
              jpegBytes(quadrants({64, 48}), {Kind::coloursApart, 6}), bmpBytes(8, false, true)})
            for (qsizetype at = 2; at < whole.size(); ++at)
                for (const char value : {'\0', '\x7F', '\xFF'}) {
                    QByteArray damaged = whole;
                    damaged[at] = value;
                    for (const QSize target : {QSize(), QSize(8, 6)})
                        attempt([&] { QVERIFY(!LoadPicture(damaged, u"图"_s, target).isNull()); });
                }
    }

    void filesAreToldApartByContent() {
        const QTemporaryDir folder;
        const auto write = [&](const QString& name, const QByteArray& bytes) {
            QFile file(folder.filePath(name));
            return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() ? file.fileName() : QString();
        };
        QCOMPARE(LoadPicture(write(u"其实是位图.jpg"_s, bmpBytes(24))).pixels(), QSize(4, 2));
        QCOMPARE(LoadPicture(write(u"其实是照片.bmp"_s, jpegBytes(quadrants({16, 8})))).pixels(), QSize(16, 8));

        for (const QString& path : {write(u"其实是PNG.jpg"_s, encoded(quadrants({4, 4}), "png")),
                                    write(u"空.jpg"_s, {}), folder.filePath(u"没有.jpg"_s), folder.path()}) {
            const QString text = failureOf([&] { LoadPicture(path); });
            QVERIFY2(text.contains(QDir::toNativeSeparators(path)), qPrintable(text));
        }
    }

    void sizesInHiMetric() {
        QCOMPARE(hiMetricFromPixels(640), 16933);
        QCOMPARE(hiMetricFromPixels(480), 12700);
        for (int pixels = 1; pixels <= longestPictureSide; ++pixels) {
            const int length = hiMetricFromPixels(pixels);
            QCOMPARE(int(std::floor(length / 26.455)), pixels);
            if (pixels <= 4000) QVERIFY(qAbs(length - pixels * 2540 / 96.0) <= 1.0);
        }
    }
};

static Registered<TestLoadPicture> registered;

#include "load_picture_test.moc"
