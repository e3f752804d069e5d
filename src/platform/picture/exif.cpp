#include "platform/picture/exif.h"

#include <QTransform>
#include <QtEndian>
#include <cstring>
#include <utility>

namespace {

constexpr QByteArrayView signature("Exif\0\0", 6);
constexpr quint16 orientationTag = 0x0112;
constexpr quint16 previewOffsetTag = 0x0201;
constexpr quint16 previewLengthTag = 0x0202;
constexpr quint16 detailsTag = 0x8769;  // leads to the camera's own directory
constexpr quint16 widthTag = 0xA002;
constexpr quint16 heightTag = 0xA003;
constexpr quint16 shortType = 3;
constexpr int typeInEntry = 2;
constexpr int countLength = 2;
constexpr int entryLength = 12;
constexpr int valueInEntry = 8;

/// The numbers of a TIFF block, in its own byte order; 0 behind its end.
class Tiff {
  public:
    explicit Tiff(QByteArrayView bytes) : bytes_(bytes), bigEndian_(bytes.startsWith("MM")) {}

    quint16 shortAt(qsizetype offset) const { return numberAt<quint16>(offset); }
    quint32 longAt(qsizetype offset) const { return numberAt<quint32>(offset); }

  private:
    template <typename Number>
    Number numberAt(qsizetype offset) const {
        if (offset < 0 || offset + qsizetype(sizeof(Number)) > bytes_.size()) return 0;
        const auto* place = bytes_.data() + offset;
        return bigEndian_ ? qFromBigEndian<Number>(place) : qFromLittleEndian<Number>(place);
    }

    QByteArrayView bytes_;
    bool bigEndian_;
};

/// The place of the entry with that tag in a directory of the block, -1 when it has none.
qsizetype entryOf(const Tiff& tiff, qsizetype directory, quint16 tag) {
    const int entries = tiff.shortAt(directory);
    for (int i = 0; i < entries; ++i) {
        const qsizetype entry = directory + countLength + qsizetype(i) * entryLength;
        if (tiff.shortAt(entry) == tag) return entry;
    }
    return -1;
}

}  // namespace

Orientation orientationFromApp1(QByteArrayView segment) {
    return segment.startsWith(signature) ? orientationFromTiff(segment.sliced(signature.size())) : uprightOrientation;
}

Orientation orientationFromTiff(QByteArrayView block) {
    const Tiff tiff(block);
    const qsizetype entry = entryOf(tiff, tiff.longAt(4), orientationTag);
    const int value = entry < 0 ? uprightOrientation : tiff.shortAt(entry + valueInEntry);
    return value >= 1 && value <= 8 ? value : uprightOrientation;
}

QByteArray uprightExif(const QByteArray& block, QSize pixels) {
    if (!block.startsWith("II*") && !block.startsWith(QByteArrayView("MM\0*", 4))) return {};
    const Tiff tiff(block);
    const Orientation orientation = orientationFromTiff(block);
    QByteArray upright = block;
    const auto put = [&](qsizetype place, auto number) {
        if (place + qsizetype(sizeof number) > upright.size()) return;
        const auto stored = block.startsWith("MM") ? qToBigEndian(number) : qToLittleEndian(number);
        std::memcpy(upright.data() + place, &stored, sizeof stored);
    };
    const qsizetype first = tiff.longAt(4);
    const qsizetype details = entryOf(tiff, first, detailsTag);
    const qsizetype directory = details < 0 ? -1 : qsizetype(tiff.longAt(details + valueInEntry));
    for (const auto& [tag, side] : {std::pair(widthTag, pixels.width()), std::pair(heightTag, pixels.height())}) {
        const qsizetype entry = directory < 0 ? -1 : entryOf(tiff, directory, tag);
        if (entry < 0) continue;
        if (tiff.shortAt(entry + typeInEntry) == shortType)
            put(entry + valueInEntry, quint16(side));
        else
            put(entry + valueInEntry, quint32(side));
    }
    if (orientation == uprightOrientation) return upright;
    put(entryOf(tiff, first, orientationTag) + valueInEntry, quint16(uprightOrientation));
    put(first + countLength + qsizetype(tiff.shortAt(first)) * entryLength, quint32(0));
    return upright;
}

// The directory of the small picture follows that of the photograph.
QByteArrayView previewFromApp1(QByteArrayView segment) {
    if (!segment.startsWith(signature)) return {};
    const QByteArrayView block = segment.sliced(signature.size());
    const Tiff tiff(block);
    const qsizetype first = tiff.longAt(4);
    const qsizetype second = tiff.longAt(first + countLength + qsizetype(tiff.shortAt(first)) * entryLength);
    if (second == 0) return {};
    const qsizetype offsetEntry = entryOf(tiff, second, previewOffsetTag);
    const qsizetype lengthEntry = entryOf(tiff, second, previewLengthTag);
    if (offsetEntry < 0 || lengthEntry < 0) return {};
    const qsizetype offset = tiff.longAt(offsetEntry + valueInEntry);
    const qsizetype length = tiff.longAt(lengthEntry + valueInEntry);
    return offset + length <= block.size() ? block.sliced(offset, length) : QByteArrayView();
}

QImage uprightImage(const QImage& stored, Orientation orientation) {
    const auto quarterTurned = [&](int quarters) { return stored.transformed(QTransform().rotate(90 * quarters)); };
    switch (orientation) {
        case 2:
            return stored.mirrored(true, false);
        case 3:
            return stored.mirrored(true, true);
        case 4:
            return stored.mirrored(false, true);
        case 5:
            return quarterTurned(1).mirrored(true, false);
        case 6:
            return quarterTurned(1);
        case 7:
            return quarterTurned(1).mirrored(false, true);
        case 8:
            return quarterTurned(3);
        default:
            return stored;
    }
}
