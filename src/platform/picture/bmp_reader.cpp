#include "platform/picture/bmp_reader.h"

#include "platform/picture/bmp_header.h"
#include "platform/picture/colour_transform.h"
#include "platform/picture/memory_share.h"
#include "platform/picture/refusal.h"

#include <QImageReader>
#include <QtEndian>
#include <algorithm>
#include <array>
#include <bit>
#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr quint32 longLength = 108;

/// The toolkit knows no headers of 52 and 56 bytes. The one of 108 bytes begins like them.
bool isUnknownToToolkit(quint32 headerLength) {
    return headerLength == 52 || headerLength == 56;
}

/// A BMP as if its header were the longer one that the toolkit knows. The pixels stay where they are.
class LongerHeader : public QIODevice {
  public:
    LongerHeader(QIODevice& file, quint32 headerLength)
        : file_(file), start_(file.pos()), added_(longLength - headerLength) {
        constexpr char standardColours[] = {'B', 'G', 'R', 's'};
        head_ = file_.read(fileHeader + headerLength) + QByteArray(qsizetype(added_), '\0');
        char* const header = head_.data();
        qToLittleEndian(qFromLittleEndian<quint32>(header + 10) + added_, header + 10);
        qToLittleEndian(longLength, header + fileHeader);
        std::ranges::copy(standardColours, header + fileHeader + 56);
        QIODevice::open(ReadOnly | Unbuffered);
    }

    qint64 size() const override { return file_.size() - start_ + added_; }

  protected:
    qint64 readData(char* data, qint64 maxSize) override {
        if (pos() >= head_.size()) return file_.seek(start_ + pos() - added_) ? file_.read(data, maxSize) : -1;
        const QByteArray part = head_.mid(pos(), maxSize);
        std::ranges::copy(part, data);
        return part.size();
    }
    qint64 writeData(const char*, qint64) override { return -1; }

  private:
    static constexpr qint64 fileHeader = 14;
    QIODevice& file_;
    qint64 start_;
    quint32 added_;
    QByteArray head_;
};

/// Bits of red, green and blue in a pixel of the file.
using ColourBits = std::array<int, 3>;
constexpr ColourBits wholeBytes{8, 8, 8};

ColourBits colourBits(QIODevice& device, const BmpHeader& header) {
    constexpr qsizetype compressionAt = 30, masksAt = 54, masksEnd = 66;
    constexpr quint32 firstWithMasks = 3;
    const QByteArray beginning = device.peek(masksEnd);
    if ((header.depth != 16 && header.depth != 32) || beginning.size() < masksEnd) return wholeBytes;
    const auto numberAt = [&](qsizetype at) { return qFromLittleEndian<quint32>(beginning.data() + at); };
    if (numberAt(compressionAt) < firstWithMasks) return header.depth == 16 ? ColourBits{5, 5, 5} : wholeBytes;
    ColourBits bits{};
    for (size_t i = 0; i < bits.size(); ++i) bits[i] = std::max(1, std::popcount(numberAt(masksAt + 4 * qsizetype(i))));
    return bits;
}

/// The toolkit leaves the lower bits of a shade 0 where the file has fewer than eight: white would be grey. They become
/// a copy of the upper ones.
void fillLowerBits(QImage& image, const ColourBits& bits) {
    const auto filled = [](int shade, int known) {
        for (; known < 8; known *= 2) shade |= shade >> known;
        return shade;
    };
    for (int y = 0; y < image.height(); ++y) {
        auto* const row = reinterpret_cast<QRgb*>(image.scanLine(y));
        std::transform(row, row + image.width(), row, [&](QRgb pixel) {
            return qRgb(filled(qRed(pixel), bits[0]), filled(qGreen(pixel), bits[1]), filled(qBlue(pixel), bits[2]));
        });
    }
}

/// Memory that decoding takes: a picture of few colours and its decoded copy are held at once.
qint64 bytesToHold(QSize pixels) {
    return imageBytes(pixels) * 5 / 4;
}

/// What the toolkit's reader says of the header, when nothing speaks against decoding the picture.
QSize checkedSize(QImageReader& reader, const QString& name) {
    const QSize stored = reader.size();
    const QSize pixels(stored.width(), qAbs(stored.height()));  // Negative when the rows run downwards.
    checkSides(pixels, name);
    checkSubstance(pixels, reader.device()->size(), name);
    checkMemory(bytesToHold(pixels), pixels, name);
    return pixels;
}

/// The profile that stands in the file itself; only the longest header can say where.
QByteArray profileOf(QIODevice& device, const BmpHeader& header) {
    constexpr qint64 fileHeader = 14, endOfLongest = 138, longest = 4 << 20;
    const QByteArray beginning = device.peek(endOfLongest);
    if (header.length != endOfLongest - fileHeader || beginning.size() < endOfLongest) return {};
    if (beginning.sliced(70, 4) != "DEBM") return {};
    const qint64 start = device.pos();
    const qint64 place = qFromLittleEndian<quint32>(beginning.data() + 126);
    const qint64 length = qFromLittleEndian<quint32>(beginning.data() + 130);
    QByteArray profile;
    if (length <= longest && device.seek(start + fileHeader + place)) profile = device.read(length);
    device.seek(start);
    return ColourTransform::of(profile, ColourKind::lights) ? profile : QByteArray();
}

Picture decodedBmp(QImageReader& reader, const ColourBits& bits, const QByteArray& profile, const QString& name) {
    const MemoryShare share(bytesToHold(checkedSize(reader, name)));
    QImage image;
    if (!reader.read(&image)) refusePicture(name, u"图片已损坏"_s);
    image.convertTo(QImage::Format_RGB32);
    if (image.isNull()) refusePicture(name, u"内存不足"_s);
    if (std::ranges::any_of(bits, [](int count) { return count < 8; })) fillLowerBits(image, bits);
    return {image, image.size(), profile};
}

BmpHeader requiredHeader(QIODevice& device, const QString& name) {
    const QByteArray beginning = device.peek(BmpHeader::needed);
    const auto header = bmpHeader(beginning);
    if (!header && beginning.size() < BmpHeader::needed) refusePicture(name, u"图片数据不完整"_s);
    if (!header) refusePicture(name, u"图片已损坏，或是不支持的 BMP 格式"_s);
    if (header->pixelOffset >= device.bytesAvailable()) refusePicture(name, u"图片数据不完整"_s);
    return *header;
}

/// What `use` makes of the toolkit's reader for the bytes.
template <typename Use>
auto withReader(QIODevice& device, const BmpHeader& header, const Use& use) {
    // Ours depends on the computer. Set once: several threads read pictures.
    static const bool isUnlimited = (QImageReader::setAllocationLimit(0), true);
    Q_UNUSED(isUnlimited);
    std::optional<LongerHeader> known;
    if (isUnknownToToolkit(header.length)) known.emplace(device, header.length);
    QImageReader reader(known ? &*known : &device, "bmp");
    return use(reader);
}

}  // namespace

Picture readBmp(QIODevice& device, const QString& name) {
    const BmpHeader header = requiredHeader(device, name);
    const ColourBits bits = colourBits(device, header);
    const QByteArray profile = profileOf(device, header);
    return withReader(device, header, [&](QImageReader& reader) { return decodedBmp(reader, bits, profile, name); });
}

QSize bmpSize(QIODevice& device, const QString& name) {
    const BmpHeader header = requiredHeader(device, name);
    return withReader(device, header, [&](QImageReader& reader) { return checkedSize(reader, name); });
}
