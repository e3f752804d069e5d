#include "platform/picture/block_means.h"

#include "../../support/run_all.h"
#include "picture_samples.h"
#include "platform/picture/picture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

using Kind = JpegOptions::Kind;

constexpr QSize smallest(1, 1);

/// A device that cannot go back, from which pictures are read by the library alone.
class ForwardOnly : public QIODevice {
  public:
    explicit ForwardOnly(QByteArray* bytes) : rest_(*bytes) {}
    bool isSequential() const override { return true; }

  protected:
    qint64 readData(char* data, qint64 maxSize) override {
        const QByteArrayView part = rest_.first(qMin(maxSize, rest_.size()));
        std::ranges::copy(part, data);
        rest_ = rest_.sliced(part.size());
        return part.size();
    }
    qint64 writeData(const char*, qint64) override { return -1; }

  private:
    QByteArrayView rest_;
};

struct Outcome {
    QImage image;
    QString failure;

    bool operator==(const Outcome&) const = default;
};

template <typename Device>
Outcome outcomeOf(QByteArray bytes) {
    Device device(&bytes);
    device.open(QIODevice::ReadOnly);
    Outcome outcome;
    outcome.failure = failureOf([&] { outcome.image = LoadPicture(device, u"图"_s, smallest).image(); });
    return outcome;
}

/// The picture without the library; null where it is left to it.
QImage readDirectly(QByteArray bytes) {
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    JpegSource source(buffer);
    jpeg_decompress_struct codec{};
    jpeg_error_mgr errors{};
    codec.err = jpeg_std_error(&errors);
    jpeg_create_decompress(&codec);
    codec.src = source.manager();
    jpeg_read_header(&codec, TRUE);
    QImage image(int(codec.image_width + 7) / 8, int(codec.image_height + 7) / 8, QImage::Format_RGB32);
    const bool isRead = readBlockMeans(codec, source, image);
    jpeg_destroy_decompress(&codec);
    return isRead ? image : QImage();
}

/// Fine noise, which fills whole blocks with details, or smooth colours, which fill most of them with none.
QImage painted(QSize pixels, bool fine) {
    QImage image(pixels, QImage::Format_RGB32);
    QRandomGenerator noise(7);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, fine ? noise.generate() : qRgb(x / 8 % 256, y % 256, (x + y) / 10 % 256));
    return image;
}

std::vector<JpegOptions> usualOptions(bool ownCodes) {
    std::vector<JpegOptions> all;
    for (const unsigned restartInterval : {0U, 1U, 7U})
        for (const int quality : {20, 85, 100}) {
            JpegOptions options{
                .kind = Kind::greyscale, .restartInterval = restartInterval, .quality = quality, .ownCodes = ownCodes};
            all.push_back(options);
            for (const QSize sampling : {QSize(1, 1), QSize(2, 1), QSize(1, 2), QSize(2, 2)})
                for (const Kind kind : {Kind::baseline, Kind::progressive}) {
                    options.kind = kind;
                    options.sampling = sampling;
                    all.push_back(options);
                }
        }
    return all;
}

int largestDifference(const QImage& one, const QImage& other) {
    if (one.size() != other.size()) return 256;
    int largest = 0;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            largest = std::max({largest, qAbs(qRed(a) - qRed(b)), qAbs(qGreen(a) - qGreen(b)),
                                qAbs(qBlue(a) - qBlue(b)), qAbs(qAlpha(a) - qAlpha(b))});
        }
    return largest;
}

class TestBlockMeans : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void picturesAreThoseOfTheLibrary() {
        for (const QSize size : {QSize(1, 1), QSize(16, 8), QSize(17, 25), QSize(333, 250), QSize(2000, 31)})
            for (const bool fine : {false, true}) {
                const QImage original = painted(size, fine);
                for (const JpegOptions& options : usualOptions(fine)) {
                    // The library reads coarse colours finer than by their means.
                    const bool isCoarse = options.kind == Kind::baseline && options.sampling == QSize(2, 2);
                    if (isCoarse && fine) continue;
                    const QByteArray bytes = jpegBytes(original, options);
                    const QImage image = readDirectly(bytes);
                    QVERIFY(!image.isNull());
                    QCOMPARE(outcomeOf<QBuffer>(bytes).image, image);
                    const int difference = largestDifference(image, outcomeOf<ForwardOnly>(bytes).image);
                    QVERIFY2(difference <= (isCoarse ? 24 : 0), qPrintable(QString::number(difference)));
                }
            }
    }

    void unusualPicturesAreLeftToTheLibrary() {
        const JpegOptions unusual[] = {{Kind::coloursApart}, {Kind::inks},         {Kind::invertedInks}, {Kind::lights},
                                       {Kind::arithmetic},   {.sampling = {4, 1}}, {.sampling = {1, 4}}};
        for (const JpegOptions& options : unusual) {
            const QByteArray bytes = jpegBytes(quadrants({160, 128}), options);
            QVERIFY(readDirectly(bytes).isNull());
            QCOMPARE(outcomeOf<QBuffer>(bytes), outcomeOf<ForwardOnly>(bytes));
        }
    }

    void damagedPicturesAreThoseOfTheLibrary() {
        const JpegOptions kinds[] = {{.sampling = {1, 1}, .ownCodes = true},
                                     {.sampling = {2, 1}, .restartInterval = 2},
                                     {.kind = Kind::progressive, .sampling = {2, 2}},
                                     {Kind::greyscale, 6}};
        QRandomGenerator chance(3);
        for (const JpegOptions& options : kinds) {
            const QByteArray whole = jpegBytes(painted({44, 30}, true), options);
            for (int i = 0; i < 500; ++i) {
                const qsizetype at = chance.bounded(2, int(whole.size()));
                const char byte = i % 4 == 0 ? '\xFF' : i % 4 == 1 ? '\xD1' : char(chance.generate());
                QByteArray replaced = whole;
                replaced[at] = byte;
                for (const QByteArray& damaged : {replaced, QByteArray(whole).insert(at, byte), whole.first(at)})
                    QCOMPARE(outcomeOf<QBuffer>(damaged), outcomeOf<ForwardOnly>(damaged));
            }
        }
    }
};

const Registered<TestBlockMeans> registered;

}  // namespace

#include "block_means_test.moc"
