#include "platform/picture/exif.h"

#include <QTransform>
#include <QtEndian>

namespace {

constexpr quint16 orientationTag = 0x0112;
constexpr int entryLength = 12;

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

}  // namespace

Orientation orientationFromApp1(QByteArrayView segment) {
    const QByteArrayView signature("Exif\0\0", 6);
    if (!segment.startsWith(signature)) return uprightOrientation;

    const Tiff tiff(segment.sliced(signature.size()));
    const qsizetype directory = tiff.longAt(4);
    const int entries = tiff.shortAt(directory);
    for (int i = 0; i < entries; ++i) {
        const qsizetype entry = directory + 2 + qsizetype(i) * entryLength;
        if (tiff.shortAt(entry) != orientationTag) continue;
        const int value = tiff.shortAt(entry + 8);
        return value >= 1 && value <= 8 ? value : uprightOrientation;
    }
    return uprightOrientation;
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
