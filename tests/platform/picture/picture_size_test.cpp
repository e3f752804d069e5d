#include "platform/picture/picture_size.h"

#include "../../support/run_all.h"
#include "picture_samples.h"
#include "platform/picture/picture.h"

using namespace Qt::Literals::StringLiterals;

namespace {

using Kind = JpegOptions::Kind;

/// A size, or why there is none.
template <typename Size>
std::pair<QSize, QString> answer(const Size& size) {
    QSize found;
    const QString refusal = failureOf([&] { found = size(); });
    return {found, refusal};
}

std::pair<QSize, QString> byHeader(QByteArray bytes) {
    QBuffer device(&bytes);
    device.open(QIODevice::ReadOnly);
    return answer([&] { return pictureSize(device, u"图"_s); });
}

std::pair<QSize, QString> byDecoding(const QByteArray& bytes) {
    return answer([&] { return LoadPicture(bytes, u"图"_s, {1, 1}).pixels(); });
}

QByteArray without(QByteArray jpeg, QByteArrayView marker) {
    const qsizetype at = jpeg.indexOf(marker);
    return jpeg.remove(at, 2 + (quint8(jpeg[at + 2]) << 8 | quint8(jpeg[at + 3])));
}

class TestPictureSize : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void isThatOfThePicture() {
        QList<QByteArray> pictures{bmpBytes(1),  bmpBytes(24),          bmpBytes(32, true),   bmpBytes(8, false, true),
                                   bmpBytes(16), bmpWithHeader(52, 16), bmpWithHeader(56, 32)};
        for (const Kind kind :
             {Kind::baseline, Kind::progressive, Kind::coloursApart, Kind::greyscale, Kind::inks, Kind::arithmetic})
            for (int orientation = 0; orientation <= 9; ++orientation)
                pictures << jpegBytes(quadrants({64, 40}), {kind, orientation});
        for (const QByteArray& bytes : pictures)
            for (const QByteArray& part : {bytes, bytes + QByteArray(50'000, '\0'), bytes.chopped(3)}) {
                QVERIFY(byHeader(part).second.isEmpty());
                QCOMPARE(byHeader(part), byDecoding(part));
            }
    }

    void refusesWhatCannotBeDecoded() {
        const QByteArray jpeg = jpegBytes(quadrants({64, 48}));
        const QByteArray room(4 << 20, '\0');
        for (const QByteArray& bytes :
             {QByteArray(), QByteArray("GIF89a"), QByteArray("\xFF\xD8"), jpeg.first(300), withSides(jpeg, {0, 48}),
              withSides(jpeg, {40'000, 48}), withSides(jpeg, {30'000, 30'000}), without(jpeg, "\xFF\xDB"),
              QByteArray(jpeg).replace("\xFF\xC0", "\xFF\xC3"), without(jpeg, "\xFF\xC0"),
              withSides(jpegBytes(quadrants({64, 48}), {Kind::coloursApart}), {32'767, 32'767}) + room,
              QByteArray("BM"), bmpBytes(24).first(54), withSides(bmpBytes(24), {40'000, 2}),
              withSides(bmpBytes(24), {16'384, 16'385}), QByteArray(bmpBytes(24)).replace(26, 1, "\2")}) {
            QVERIFY2(!byHeader(bytes).second.isEmpty(), bytes.left(200).toHex().constData());
            QCOMPARE(byHeader(bytes), byDecoding(bytes));
        }
    }

    /// What is decoded has the same size; what is refused by its header is refused with the same words.
    void anyDamage() {
        for (const QByteArray& whole :
             {jpegBytes(quadrants({64, 48}), {Kind::baseline, 6}), jpegBytes(quadrants({64, 48}), {Kind::progressive}),
              jpegBytes(quadrants({64, 48}), {Kind::coloursApart, 6}), bmpBytes(8, false, true)})
            for (qsizetype at = 2; at < whole.size(); ++at)
                for (const char value : {'\0', '\x7F', '\xFF'}) {
                    QByteArray damaged = whole;
                    damaged[at] = value;
                    const auto decoded = byDecoding(damaged), header = byHeader(damaged);
                    if (decoded.second.isEmpty() || !header.second.isEmpty()) QCOMPARE(header, decoded);
                }
    }
};

const Registered<TestPictureSize> registered;

}  // namespace

#include "picture_size_test.moc"
