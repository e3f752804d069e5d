#include "platform/picture/formats/png_chunks.h"

#include <zlib.h>

#include <QtEndian>

namespace {

constexpr qint64 signatureBytes = 8;
constexpr quint32 longestChunk = 4 << 20;  // of those that are read
constexpr QByteArrayView xmpKeyword("XML:com.adobe.xmp\0", 18);
constexpr int greyType = 0, greyAlphaType = 4;

/// What `packed` holds; empty where that is damaged or longer than any chunk that is read.
QByteArray unpacked(QByteArrayView packed) {
    QByteArray bytes(longestChunk, Qt::Uninitialized);
    uLongf length = longestChunk;
    const auto* from = reinterpret_cast<const Bytef*>(packed.data());
    if (uncompress(reinterpret_cast<Bytef*>(bytes.data()), &length, from, uLong(packed.size())) != Z_OK) return {};
    return bytes.first(qsizetype(length));
}

/// Behind a text and one byte: the bytes that are packed.
QByteArray profileOf(QByteArrayView chunk) {
    const qsizetype end = chunk.indexOf('\0');
    return end < 0 || end + 2 > chunk.size() ? QByteArray() : unpacked(chunk.sliced(end + 2));
}

QByteArray xmpOf(QByteArrayView chunk) {
    if (chunk.size() < xmpKeyword.size() + 2) return {};
    const bool isPacked = chunk[xmpKeyword.size()] != 0;
    const qsizetype language = xmpKeyword.size() + 2;
    const qsizetype translated = chunk.indexOf('\0', language) + 1;
    const qsizetype text = translated > 0 ? chunk.indexOf('\0', translated) + 1 : 0;
    if (text <= 0) return {};
    return isPacked ? unpacked(chunk.sliced(text)) : chunk.sliced(text).toByteArray();
}

bool takeHeader(QByteArrayView chunk, PngChunks& chunks) {
    if (chunk.size() < 13) return false;
    const auto side = [&](int at) { return int(qMin<quint32>(qFromBigEndian<quint32>(chunk.data() + at), 1u << 30)); };
    constexpr int samples[] = {1, 0, 3, 1, 2, 0, 4};
    const int type = uchar(chunk[9]);
    if (type >= int(std::size(samples))) return false;
    chunks.pixels = {side(0), side(4)};
    chunks.bitsPerPixel = uchar(chunk[8]) * samples[type];
    chunks.isGrey = type == greyType || type == greyAlphaType;
    return true;
}

void take(QByteArrayView type, QByteArrayView chunk, PngChunks& chunks) {
    if (type == "iCCP") chunks.profile = profileOf(chunk);
    if (type == "eXIf") chunks.exif = chunk.toByteArray();
    if (type == "iTXt") chunks.xmp = xmpOf(chunk);
}

/// The first of its kind: unpacking thousands of them would take minutes.
bool isFirst(QByteArrayView type, const QByteArray& chunk, QList<QByteArray>& seen) {
    if (type == "iTXt" && !chunk.startsWith(xmpKeyword)) return false;
    if (seen.contains(type)) return false;
    seen.append(type.toByteArray());
    return true;
}

bool isWanted(QByteArrayView type) {
    return type == "IHDR" || type == "iCCP" || type == "eXIf" || type == "iTXt";
}

}  // namespace

std::optional<PngChunks> pngChunks(QIODevice& device) {
    const qint64 start = device.pos();
    PngChunks chunks;
    QList<QByteArray> seen;
    bool hasHeader = false, hasPixels = false;
    qint64 at = start + signatureBytes;
    while (at < device.size() && device.seek(at)) {
        const QByteArray head = device.read(8);
        if (head.size() < 8) break;
        const quint32 length = qFromBigEndian<quint32>(head.constData());
        const QByteArrayView type = QByteArrayView(head).sliced(4);
        hasPixels = type == "IDAT";
        if (hasPixels || type == "IEND") break;
        if (isWanted(type) && length <= longestChunk) {
            const QByteArray chunk = device.read(length);
            if (type == "IHDR")
                hasHeader = takeHeader(chunk, chunks);
            else if (isFirst(type, chunk, seen))
                take(type, chunk, chunks);
        }
        if (!hasHeader) break;
        at += 12 + qint64(length);
    }
    device.seek(start);
    return hasHeader && hasPixels ? std::optional(chunks) : std::nullopt;
}
