#include "platform/picture/preview.h"

#include "../../support/run_all.h"
#include "picture_samples.h"

using namespace Qt::Literals::StringLiterals;

namespace {

/// The bytes with another 32-bit number somewhere in the EXIF block, counted from its byte-order mark.
QByteArray withNumber(QByteArray jpeg, qsizetype place, quint32 number) {
    const qsizetype block = jpeg.indexOf("II*");
    qToLittleEndian(number, jpeg.data() + block + place);
    return jpeg;
}

/// A photograph in one colour, whose preview shows the four quadrants.
QByteArray cameraFile(int orientation = 1, bool bigEndian = false) {
    QImage photograph({640, 480}, QImage::Format_RGB32);
    photograph.fill(Qt::gray);
    return withPreview(jpegBytes(photograph), jpegBytes(quadrants({160, 120})), orientation, bigEndian);
}

class TestPreview : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void itStandsUprightInEitherByteOrder() {
        struct Case {
            int orientation;
            bool bigEndian;
            QSize pixels;
            QByteArray quadrants;
        };
        const Case cases[] = {
            {1, false, {160, 120}, "ABCD"}, {1, true, {160, 120}, "ABCD"},  {3, false, {160, 120}, "DCBA"},
            {6, true, {120, 160}, "CADB"},  {8, false, {120, 160}, "BDAC"},
        };
        for (const Case& each : cases) {
            const Picture preview = LoadPreview(cameraFile(each.orientation, each.bigEndian).first(7000));
            QCOMPARE(preview.image().size(), each.pixels);
            QCOMPARE(quadrantsOf(preview.image()), each.quadrants);
        }
    }

    void whereNoneCanBeReadThereIsNone() {
        constexpr qsizetype nextDirectory = 8 + 2 + 2 * 12;
        constexpr qsizetype second = nextDirectory + 4;
        constexpr qsizetype offset = second + 2 + 8;
        constexpr qsizetype length = offset + 12;
        const QByteArray file = cameraFile();
        const QByteArray cases[] = {
            {},
            "\xFF\xD8",
            bmpBytes(24),
            jpegBytes(quadrants({64, 48})),
            jpegBytes(quadrants({64, 48}), {JpegOptions::Kind::baseline, 6}),
            file.first(600),                              // only a part of the segment
            withNumber(file, nextDirectory, 0),           // no second directory
            withNumber(file, nextDirectory, 0xFFFFFFFF),  // one far behind the end
            withNumber(file, offset, 0xFFFFFFF0),
            withNumber(file, length, 0xFFFFFFFF),
            withNumber(file, length, 0),
            withPreview(file, jpegBytes(QImage(1200, 8, QImage::Format_RGB32))),
            withNumber(file, offset, 8),  // no picture there
        };
        for (const QByteArray& bytes : cases)
            QVERIFY2(LoadPreview(bytes).isNull(),
                     bytes.toHex().first(qMin<qsizetype>(40, 2 * bytes.size())).constData());
    }
};

const Registered<TestPreview> registered;

}  // namespace

#include "preview_test.moc"
