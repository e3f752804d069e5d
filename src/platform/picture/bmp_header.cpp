#include "platform/picture/bmp_header.h"

#include <QtEndian>
#include <algorithm>
#include <array>

namespace {

constexpr std::array<quint32, 7> knownLengths{12, 40, 52, 56, 64, 108, 124};
constexpr std::array knownDepths{1, 4, 8, 16, 24, 32};
constexpr quint32 oldest = 12;
constexpr qsizetype endOfOldest = 26;
constexpr std::array<quint32, 2> runLengths{1, 2};

template <typename Number>
Number numberAt(QByteArrayView bytes, qsizetype at) {
    return qFromLittleEndian<Number>(bytes.data() + at);
}

qint64 pixelBytes(QSize pixels, int depth) {
    const qint64 bits = qint64(pixels.width()) * depth, rows = qAbs(qint64(pixels.height()));
    return (bits + 31) / 32 * 4 * (rows - 1) + (bits + 7) / 8;
}

}  // namespace

std::optional<BmpHeader> bmpHeader(QByteArrayView beginning) {
    if (beginning.size() < endOfOldest || !beginning.startsWith("BM")) return {};
    BmpHeader header{.length = numberAt<quint32>(beginning, 14),
                     .pixels = {},
                     .depth = 0,
                     .pixelOffset = numberAt<quint32>(beginning, 10),
                     .pixelBytes = 0};
    const bool isOldest = header.length == oldest;
    if (!isOldest && beginning.size() < BmpHeader::needed) return {};
    header.pixels = isOldest ? QSize(numberAt<quint16>(beginning, 18), numberAt<qint16>(beginning, 20))
                             : QSize(numberAt<qint32>(beginning, 18), numberAt<qint32>(beginning, 22));
    header.depth = numberAt<quint16>(beginning, isOldest ? 24 : 28);
    const bool isKnown =
        std::ranges::count(knownLengths, header.length) > 0 && std::ranges::count(knownDepths, header.depth) > 0;
    if (!isKnown || header.pixels.width() <= 0 || header.pixels.height() == 0) return {};

    const bool isRunLength = !isOldest && std::ranges::count(runLengths, numberAt<quint32>(beginning, 30)) > 0;
    header.pixelBytes = isRunLength ? numberAt<quint32>(beginning, 34) : pixelBytes(header.pixels, header.depth);
    return header;
}
