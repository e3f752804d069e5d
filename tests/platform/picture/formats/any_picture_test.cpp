#include "platform/picture/formats/any_picture.h"

#include "../../../support/run_all.h"
#include "../picture_samples.h"
#include "../profile_samples.h"
#include "format_samples.h"
#include "platform/picture/exif.h"
#include "platform/picture/wide_colours.h"

using namespace Qt::Literals::StringLiterals;

namespace {

using Kind = TiffOptions::Kind;

constexpr QSize size(64, 48);
const QByteArray packet = "<?xpacket begin=''?><x tiff:Orientation=\"6\">标题</x><?xpacket end='w'?>";

QImage inOneColour(const QColor& colour) {
    QImage image(size, QImage::Format_ARGB32);
    image.fill(colour);
    return image;
}

bool isNear(QRgb a, QRgb b, int most = 3) {
    return std::abs(qRed(a) - qRed(b)) <= most && std::abs(qGreen(a) - qGreen(b)) <= most &&
           std::abs(qBlue(a) - qBlue(b)) <= most;
}

AnyPicture read(const QByteArray& bytes) {
    return readAnyPicture(bytes, u"图"_s);
}

QRgb middleOf(const AnyPicture& any) {
    return inScreenColours(any.picture).image().pixel(any.picture.image().rect().center());
}

struct Sample {
    PictureFormat format;
    QByteArray bytes;
    QSize pixelsOfColour{1, 1};
};

/// The four quadrants in every format, with what goes beside the pixels in those that have places for it.
QList<Sample> samples(const Beside& beside = {}) {
    const QImage image = quadrants(size);
    return {{PictureFormat::png, pngBytes(image, beside)},
            {PictureFormat::webp, webpBytes(image, true, beside)},
            {PictureFormat::webp, webpBytes(image, false, beside), {2, 2}},
            {PictureFormat::heic, heifBytes(image, {}, beside), {2, 2}},
            {PictureFormat::heic, heifBytes(image, {.sharesColours = false}, beside)},
            {PictureFormat::avif, heifBytes(image, {.av1 = true}, beside), {2, 2}},
            {PictureFormat::tiff, tiffBytes(image, {.profile = beside.profile})}};
}

QByteArray nameOf(const Sample& sample) {
    return formatName(sample.format).toUtf8();
}

/// The contents of the first segment with that mark.
QByteArray segmentOf(const QByteArray& jpeg, const QByteArray& mark) {
    const qsizetype at = jpeg.indexOf(mark);
    if (at < 0) return {};
    const qsizetype length = qFromBigEndian<quint16>(jpeg.constData() + at - 2) - 2;
    return jpeg.mid(at + mark.size(), length - mark.size());
}

class TestAnyPicture : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void theContentTellsTheFormat() {
        for (const Sample& sample : samples()) QCOMPARE(pictureFormat(sample.bytes.left(formatBytes)), sample.format);
        const std::pair<QByteArray, PictureFormat> cases[] = {
            {jpegBytes(quadrants({8, 8})), PictureFormat::jpeg},
            {bmpBytes(24), PictureFormat::bmp},
            {gifBytes(), PictureFormat::gif},
            {QByteArray("MM\0*", 4), PictureFormat::tiff},
            {QByteArray("\0\0\0\x18"
                        "ftypmif1\0\0\0\0mif1avif",
                        24),
             PictureFormat::avif},
            {QByteArray("\0\0\0\x18"
                        "ftypmif1\0\0\0\0mif1heic",
                        24),
             PictureFormat::heic},
            {QByteArray("\0\0\0\x18"
                        "ftypisom\0\0\0\0isommp42",
                        24),
             PictureFormat::none},
            {"RIFF1234WAVE", PictureFormat::none},
            {"RIFF", PictureFormat::none},
            {"", PictureFormat::none},
            {"%PDF-1.4 and more", PictureFormat::none},
        };
        for (const auto& [bytes, format] : cases) QCOMPARE(pictureFormat(bytes.left(formatBytes)), format);
    }

    void everyFormatIsReadAndBecomesAJpegLikeIt() {
        for (const Sample& sample : samples()) {
            const AnyPicture any = read(sample.bytes);
            QCOMPARE(any.format, sample.format);
            QCOMPARE(any.picture.pixels(), size);
            QCOMPARE(quadrantsOf(any.picture.image()), QByteArray("ABCD"));
            QVERIFY2(any.pixelsOfColour == sample.pixelsOfColour, nameOf(sample).constData());
            const QByteArray jpeg = jpegOf(any);
            QCOMPARE(quadrantsOf(LoadPicture(jpeg, u"图"_s).image()), QByteArray("ABCD"));
            const qsizetype frame = jpeg.indexOf("\xFF\xC0");
            QCOMPARE(int(jpeg[frame + 11]), sample.pixelsOfColour.width() * 16 + sample.pixelsOfColour.height());
        }
        const QByteArray jpeg = jpegOf(read(jpegBytes(quadrants(size), {.orientation = 6})));
        QCOMPARE(LoadPicture(jpeg, u"图"_s).pixels(), size.transposed());
        QCOMPARE(read(bmpBytes(24)).picture.pixels(), QSize(4, 2));
    }

    void whatIsBesideThePixelsGoesAlong() {
        for (const Sample& sample : samples({displayP3Profile(), exifBlock(1, "Kamera"), packet})) {
            const AnyPicture any = read(sample.bytes);
            QVERIFY2(any.picture.profile() == displayP3Profile(), nameOf(sample).constData());
            const QByteArray jpeg = jpegOf(any);
            QCOMPARE(LoadPicture(jpeg, u"图"_s, {}, Colours::ofFile).profile(), displayP3Profile());
            if (sample.format == PictureFormat::tiff) continue;
            QByteArray expected = exifBlock(1, "Kamera");
            qToLittleEndian<quint32>(size.width(), expected.data() + 60);
            qToLittleEndian<quint32>(size.height(), expected.data() + 72);
            QCOMPARE(segmentOf(jpeg, QByteArray("Exif\0\0", 6)), expected);
            QCOMPARE(segmentOf(jpeg, QByteArray("http://ns.adobe.com/xap/1.0/\0", 29)),
                     QByteArray(packet).replace("\"6\"", "\"1\""));
        }
        const QByteArray exif = read(tiffBytes(quadrants(size), {.model = "Kamera"})).exif;
        QVERIFY(exif.contains("Kamera") && exif.contains("2003:10:01 12:30:00"));
        QVERIFY(read(tiffBytes(quadrants(size))).exif.isEmpty());
        // Too long for their segments, or no EXIF at all.
        const QByteArray rubbish(64 << 10, 'x');
        const AnyPicture any = read(pngBytes(quadrants(size), {{}, exifBlock(1) + rubbish, rubbish}));
        QVERIFY(!jpegOf(any).contains("Exif"));
        QVERIFY(read(pngBytes(quadrants(size), {{}, rubbish, {}})).exif.isEmpty());
    }

    void everyWayOfTurningComesOutUpright() {
        const QImage image = quadrants(size);
        const std::pair<const char*, QByteArray> cases[] = {
            {"png", pngBytes(image, {{}, exifBlock(6), packet})},
            {"webp", webpBytes(image, true, {{}, exifBlock(6), {}})},
            {"tiff", tiffBytes(image, {.orientation = 6})},
            {"heic", heifBytes(image, {.turn = 6}, {{}, exifBlock(6), {}})},
            {"avif", heifBytes(image, {.av1 = true, .turn = 6}, {{}, exifBlock(6), {}})},
        };
        for (const auto& [name, bytes] : cases) {
            const AnyPicture any = read(bytes);
            const Picture shown = LoadPicture(jpegOf(any), u"图"_s);
            for (const Picture& picture : {any.picture, shown}) {
                QVERIFY2(picture.pixels() == size.transposed(), name);
                QCOMPARE(quadrantsOf(picture.image()), QByteArray("CADB"));
            }
            QCOMPARE(orientationFromTiff(any.exif), uprightOrientation);
        }
    }

    void coloursOfAllKindsBecomeThoseOfTheScreen() {
        const QColor colour(200, 120, 60);
        const QRgb inks = qRgba(55, 135, 195, 0);
        const QRgb grey = qRgb(100, 100, 100);
        struct Case {
            const char* name;
            QByteArray bytes;
            QRgb shown;
        };
        const Case cases[] = {
            {"inks", tiffBytes(inOneColour(colour), {.kind = Kind::inks, .profile = inkProfile()}),
             byLibrary(inkProfile(), ColourKind::inks, {inks}).first()},
            {"plain inks", tiffBytes(inOneColour(colour), {.kind = Kind::inks}), colour.rgb()},
            {"greys", tiffBytes(inOneColour(QColor(grey)), {.kind = Kind::greys, .profile = greyProfile(1.0)}),
             byLibrary(greyProfile(1.0), ColourKind::grey, {grey}).first()},
            {"lab", tiffBytes(inOneColour(Qt::white), {.kind = Kind::lab, .profile = inkProfile()}), 0xFFFFFFFF},
            {"16 bits", tiffBytes(inOneColour(colour), {.kind = Kind::deepLights}), colour.rgb()},
            {"16 bits, png", pngBytes(inOneColour(colour).convertToFormat(QImage::Format_RGBX64)), colour.rgb()},
            {"grey png",
             pngBytes(inOneColour(QColor(grey)).convertToFormat(QImage::Format_Grayscale8), {greyProfile(1.0), {}, {}}),
             byLibrary(greyProfile(1.0), ColourKind::grey, {grey}).first()},
            {"primaries", heifBytes(inOneColour(colour), {.av1 = true, .sharesColours = false, .primaries = 12}),
             byLibrary(wideProfile(12), ColourKind::lights, {colour.rgb()}).first()},
        };
        for (const Case& each : cases) {
            const AnyPicture any = read(each.bytes);
            QVERIFY2(isNear(middleOf(any), each.shown),
                     (each.name + QColor(middleOf(any)).name().toUtf8()).constData());
            QVERIFY2(isNear(LoadPicture(jpegOf(any), u"图"_s).image().pixel(9, 9), each.shown, 4), each.name);
        }
    }

    void whatIsTransparentBecomesWhite() {
        const QColor half(255, 0, 0, 128);
        for (const QByteArray& bytes : {pngBytes(inOneColour(half)), webpBytes(inOneColour(half), true),
                                        tiffBytes(inOneColour(half), {.kind = Kind::lightsWithAlpha})})
            QVERIFY(isNear(middleOf(read(bytes)), qRgb(255, 127, 127)));
        const QImage gif = read(gifBytes()).picture.image();
        QCOMPARE(gif.pixel(0, 0), qRgb(255, 0, 0));
        QCOMPARE(gif.pixel(1, 0), qRgb(255, 255, 255));
    }

    void theFirstOfSeveralIsRead() {
        const AnyPicture any = read(webpBytes(quadrants(size), inOneColour(Qt::white)));
        QCOMPARE(quadrantsOf(any.picture.image()), QByteArray("ABCD"));
        // The raw file of a camera begins with a small picture.
        const QString text = failureOf([] { read(tiffBytes(quadrants(size), {.isSmallPicture = true})); });
        QCOMPARE(text, u"不能打开图片“图”：是不支持的 TIFF 格式。"_s);
    }

    void trapsAreRefusedByTheirHeaders() {
        const auto png = [](quint32 width, quint32 height, qsizetype bytes) {
            QByteArray file = pngBytes(quadrants({8, 8}));
            qToBigEndian(width, file.data() + 16);
            qToBigEndian(height, file.data() + 20);
            return file + QByteArray(bytes, '\0');
        };
        QByteArray longChunk = pngBytes(quadrants({8, 8}), {{}, exifBlock(1), {}});
        qToBigEndian<quint32>(128 << 20, longChunk.data() + longChunk.indexOf("eXIf") - 4);
        QByteArray gif = gifBytes();
        for (const int width : {6, 32}) qToLittleEndian<quint16>(60000, gif.data() + width);
        const std::pair<QByteArray, QString> cases[] = {
            {png(50000, 50000, 200'000), u"图片太大（50000 * 50000），边长不能超过 32767 像素"_s},
            {png(20000, 20000, 200'000), u"图片数据不完整"_s},
            {png(0, 8, 0), u"图片已损坏，没有有效的尺寸"_s},
            {png(0xFFFFFFFF, 8, 0), u"图片太大（1073741824 * 8），边长不能超过 32767 像素"_s},
            {longChunk, u"图片已损坏"_s},
            {gif, u"图片太大（60000 * 1），边长不能超过 32767 像素"_s},
            {"hello, world", u"不是可以读取的图片格式"_s},
            {"", u"没有数据"_s},
        };
        for (const auto& [bytes, reason] : cases)
            QCOMPARE(failureOf([&bytes = bytes] { read(bytes); }), u"不能打开图片“图”：%1。"_s.arg(reason));
    }

    void damageIsAPictureOrAClearText() {
        for (const Sample& sample : samples({displayP3Profile(), exifBlock(6), packet})) {
            for (int i = 1; i < 6; ++i) {
                QByteArray damaged = sample.bytes;
                const qsizetype at = damaged.size() * i / 6;
                const QByteArray cut = damaged.left(at);
                damaged.replace(at, 8, QByteArray(8, '\xFF'));
                for (const QByteArray& bytes : {cut, damaged}) attempt([&] { QVERIFY(!read(bytes).picture.isNull()); });
            }
        }
    }

    void orientationAndSidesAreSetInTheBlock() {
        for (const int orientation : {1, 3, 8}) {
            const QByteArray block = uprightExif(exifBlock(orientation), {30, 20});
            QCOMPARE(orientationFromTiff(block), uprightOrientation);
            QCOMPARE(qFromLittleEndian<quint32>(block.constData() + 60), 30U);
            QCOMPARE(qFromLittleEndian<quint32>(block.constData() + 72), 20U);
        }
        // The small picture lay on its side: it goes.
        const QByteArray file = withPreview(jpegBytes(quadrants(size)), jpegBytes(quadrants({16, 12})), 6);
        const QByteArray block = segmentOf(file, QByteArray("Exif\0\0", 6));
        const QByteArray mark("Exif\0\0", 6);
        QVERIFY(!previewFromApp1(mark + block).isEmpty());
        QVERIFY(previewFromApp1(mark + uprightExif(block, size)).isEmpty());
        for (qsizetype length = 0; length < block.size(); length += 7) uprightExif(block.left(length), size);
    }
};

static Registered<TestAnyPicture> registered;

}  // namespace

#include "any_picture_test.moc"
