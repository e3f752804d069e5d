#include "picture_samples.h"

#include <QtEndian>
#include <array>
#include <vector>

// clang-format off
#include <cstddef>
#include <cstdio>
#include <jpeglib.h>
// clang-format on

namespace {

using Kind = JpegOptions::Kind;

template <typename Number>
void append(QByteArray& bytes, Number number, bool bigEndian = false) {
    const Number stored = bigEndian ? qToBigEndian(number) : qToLittleEndian(number);
    bytes.append(reinterpret_cast<const char*>(&stored), sizeof stored);
}

struct Entry {
    quint16 tag;
    quint16 type;  ///< 3 for a short number, 4 for a long one.
    quint32 value;
};

void appendDirectory(QByteArray& bytes, const std::vector<Entry>& entries, quint32 next, bool bigEndian) {
    append<quint16>(bytes, quint16(entries.size()), bigEndian);
    for (const Entry& entry : entries) {
        append<quint16>(bytes, entry.tag, bigEndian);
        append<quint16>(bytes, entry.type, bigEndian);
        append<quint32>(bytes, 1, bigEndian);
        if (entry.type == 4) append<quint32>(bytes, entry.value, bigEndian);
        if (entry.type != 4) append<quint16>(bytes, quint16(entry.value), bigEndian);
        if (entry.type != 4) append<quint16>(bytes, 0, bigEndian);
    }
    append<quint32>(bytes, next, bigEndian);
}

/// An APP1 segment with two entries, one of no matter, then the orientation; and with a small picture where there is
/// one.
QByteArray exifSegment(int orientation, bool bigEndian, const QByteArray& preview = {}) {
    constexpr quint32 behindFirst = 8 + 2 + 2 * 12 + 4;
    constexpr quint32 behindSecond = behindFirst + 2 + 2 * 12 + 4;
    QByteArray segment("Exif\0\0", 6);
    segment += bigEndian ? "MM" : "II";
    append<quint16>(segment, 42, bigEndian);
    append<quint32>(segment, 8, bigEndian);
    appendDirectory(segment, {{0x0103, 3, 6}, {0x0112, 3, quint32(orientation)}}, preview.isEmpty() ? 0 : behindFirst,
                    bigEndian);
    if (!preview.isEmpty())
        appendDirectory(segment, {{0x0201, 4, behindSecond}, {0x0202, 4, quint32(preview.size())}}, 0, bigEndian);
    return segment + preview;
}

/// The means of each colour in a scan of its own, as some cameras write them.
constexpr std::array<jpeg_scan_info, 6> scansApart{{
    {1, {0, 0, 0, 0}, 0, 0, 0, 1},
    {1, {1, 0, 0, 0}, 0, 0, 0, 1},
    {1, {2, 0, 0, 0}, 0, 0, 0, 1},
    {1, {0, 0, 0, 0}, 1, 63, 0, 0},
    {1, {1, 0, 0, 0}, 1, 63, 0, 0},
    {1, {2, 0, 0, 0}, 1, 63, 0, 0},
}};

int channelsOf(Kind kind) {
    return kind == Kind::greyscale ? 1 : kind == Kind::inks || kind == Kind::invertedInks ? 4 : 3;
}

void appendPixel(std::vector<JSAMPLE>& row, QRgb colour, Kind kind) {
    if (kind == Kind::greyscale) {
        row.push_back(JSAMPLE(qGray(colour)));
        return;
    }
    const int flip = kind == Kind::inks ? 255 : 0;
    for (const int light : {qRed(colour), qGreen(colour), qBlue(colour)}) row.push_back(JSAMPLE(light ^ flip));
    if (channelsOf(kind) == 4) row.push_back(JSAMPLE(255 ^ flip));
}

void setUp(jpeg_compress_struct& codec, const QImage& image, const JpegOptions& options) {
    const Kind kind = options.kind;
    codec.image_width = unsigned(image.width());
    codec.image_height = unsigned(image.height());
    codec.input_components = channelsOf(kind);
    codec.in_color_space = codec.input_components == 1   ? JCS_GRAYSCALE
                           : codec.input_components == 4 ? JCS_CMYK
                                                         : JCS_RGB;
    jpeg_set_defaults(&codec);
    jpeg_set_quality(&codec, options.quality, TRUE);
    codec.restart_interval = options.restartInterval;
    codec.optimize_coding = options.ownCodes;
    codec.arith_code = kind == Kind::arithmetic;
    if (kind == Kind::lights) jpeg_set_colorspace(&codec, JCS_RGB);
    if (codec.jpeg_color_space == JCS_YCbCr) {
        codec.comp_info[0].h_samp_factor = options.sampling.width();
        codec.comp_info[0].v_samp_factor = options.sampling.height();
    }
    if (kind == Kind::inks) codec.write_Adobe_marker = FALSE;
    if (kind == Kind::progressive) jpeg_simple_progression(&codec);
    if (kind == Kind::coloursApart) {
        codec.scan_info = scansApart.data();
        codec.num_scans = int(scansApart.size());
    }
}

}  // namespace

QByteArray jpegBytes(const QImage& image, const JpegOptions& options) {
    jpeg_compress_struct codec{};
    jpeg_error_mgr errors{};
    codec.err = jpeg_std_error(&errors);
    jpeg_create_compress(&codec);
    unsigned char* memory = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&codec, &memory, &size);

    setUp(codec, image, options);
    jpeg_start_compress(&codec, TRUE);
    if (options.orientation > 0) {
        const QByteArray segment = exifSegment(options.orientation, options.bigEndian);
        jpeg_write_marker(&codec, JPEG_APP0 + 1, reinterpret_cast<const JOCTET*>(segment.data()),
                          unsigned(segment.size()));
    }
    for (int y = 0; y < image.height(); ++y) {
        std::vector<JSAMPLE> row;
        for (int x = 0; x < image.width(); ++x) appendPixel(row, image.pixel(x, y), options.kind);
        JSAMPROW line = row.data();
        jpeg_write_scanlines(&codec, &line, 1);
    }
    jpeg_finish_compress(&codec);
    jpeg_destroy_compress(&codec);
    const QByteArray bytes(reinterpret_cast<const char*>(memory), qsizetype(size));
    free(memory);
    return bytes;
}

QByteArray withPreview(const QByteArray& jpeg, const QByteArray& preview, int orientation, bool bigEndian) {
    const QByteArray segment = exifSegment(orientation, bigEndian, preview);
    QByteArray marker("\xFF\xE1");
    append<quint16>(marker, quint16(segment.size() + 2), true);
    return QByteArray(jpeg).insert(2, marker + segment);
}

QByteArray withMoreScans(const QByteArray& jpeg, int more) {
    const qsizetype start = jpeg.indexOf(QByteArrayView("\xFF\xDA"));
    const auto isMarker = [&](qsizetype at) {
        const auto code = quint8(jpeg[at + 1]);
        return quint8(jpeg[at]) == 0xFF && code != 0 && (code < 0xD0 || code > 0xD7);
    };
    qsizetype end = start + 2;
    while (!isMarker(end)) ++end;
    return QByteArray(jpeg).insert(start, jpeg.sliced(start, end - start).repeated(more));
}

QImage quadrants(QSize pixels) {
    QImage image(pixels, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
            const bool right = x >= image.width() / 2;
            const bool low = y >= image.height() / 2;
            image.setPixel(x, y, low ? (right ? 0xFFFFFFFF : 0xFF0000FF) : (right ? 0xFF00FF00 : 0xFFFF0000));
        }
    return image;
}

QByteArray quadrantsOf(const QImage& image) {
    QByteArray letters;
    for (const int y : {image.height() / 4, image.height() * 3 / 4})
        for (const int x : {image.width() / 4, image.width() * 3 / 4}) {
            const QRgb colour = image.pixel(x, y);
            const auto is = [&](QRgb other) {
                return qAbs(qRed(colour) - qRed(other)) + qAbs(qGreen(colour) - qGreen(other)) +
                           qAbs(qBlue(colour) - qBlue(other)) <
                       40;
            };
            letters += is(0xFFFF0000) ? 'A' : is(0xFF00FF00) ? 'B' : is(0xFF0000FF) ? 'C' : is(0xFFFFFFFF) ? 'D' : '?';
        }
    return letters;
}

QByteArray bmpBytes(int depth, bool topDown, bool runLength) {
    const auto row = [&](bool red) {
        QByteArray pixels;
        const quint8 index = red ? 0 : 1;
        if (runLength) return QByteArray("\x04") + char(index) + QByteArray("\0\0", 2);
        if (depth == 1) return QByteArray(1, red ? '\0' : '\xF0') + QByteArray(3, '\0');
        if (depth == 4) return QByteArray(2, char(index * 0x11)) + QByteArray(2, '\0');
        if (depth == 8) return QByteArray(4, char(index));
        for (int x = 0; x < 4; ++x) {
            if (depth == 16) append<quint16>(pixels, red ? 0x7C00 : 0x001F);
            if (depth >= 24) pixels += red ? QByteArray("\0\0\xFF", 3) : QByteArray("\xFF\0\0", 3);
            if (depth == 32) pixels += '\0';
        }
        return pixels;
    };
    QByteArray palette;
    if (depth <= 8)
        for (int i = 0; i < 1 << depth; ++i) append<quint32>(palette, i == 0 ? 0xFF0000 : 0x0000FF);
    QByteArray pixels = row(topDown) + row(!topDown);
    if (runLength) pixels += QByteArray("\0\1", 2);

    QByteArray bytes("BM");
    append<quint32>(bytes, quint32(54 + palette.size() + pixels.size()));
    append<quint32>(bytes, 0);
    append<quint32>(bytes, quint32(54 + palette.size()));
    append<quint32>(bytes, 40);
    append<qint32>(bytes, 4);
    append<qint32>(bytes, topDown ? -2 : 2);
    append<quint16>(bytes, 1);
    append<quint16>(bytes, quint16(depth));
    append<quint32>(bytes, runLength ? 1 : 0);
    append<quint32>(bytes, quint32(pixels.size()));
    for (int i = 0; i < 4; ++i) append<quint32>(bytes, 0);
    return bytes + palette + pixels;
}

QByteArray withSides(QByteArray picture, QSize pixels) {
    char* bytes = picture.data();
    if (picture.startsWith("BM")) {
        qToLittleEndian<qint32>(pixels.width(), bytes + 18);
        qToLittleEndian<qint32>(pixels.height(), bytes + 22);
        return picture;
    }
    const qsizetype frame = picture.indexOf(QByteArrayView("\xFF\xC0"));
    qToBigEndian<quint16>(quint16(pixels.height()), bytes + frame + 5);
    qToBigEndian<quint16>(quint16(pixels.width()), bytes + frame + 7);
    return picture;
}

QByteArray bmpWithHeader(int length, quint16 depth) {
    const bool hasMasks = depth > 8;
    const QList<quint32> palette = hasMasks ? QList<quint32>() : QList<quint32>{0xFF0000, 0x0000FF};
    const QByteArray row = depth == 16   ? QByteArray("\x00\x0F\x00\x0F", 4)
                           : depth == 32 ? QByteArray("\0\0\xFF\x7F\0\0\xFF\x7F", 8)
                                         : QByteArray("\0\0\0\0", 4);
    const QByteArray other = depth == 16   ? QByteArray("\x0F\x00\x0F\x00", 4)
                             : depth == 32 ? QByteArray("\xFF\0\0\x7F\xFF\0\0\x7F", 8)
                                           : QByteArray("\1\1\0\0", 4);
    QByteArray bytes("BM");
    append<quint32>(bytes, quint32(14 + length + 4 * palette.size() + 2 * row.size()));
    append<quint32>(bytes, 0);
    append<quint32>(bytes, quint32(14 + length + 4 * palette.size()));
    append<quint32>(bytes, quint32(length));
    append<qint32>(bytes, 2);
    append<qint32>(bytes, 2);
    append<quint16>(bytes, 1);
    append<quint16>(bytes, depth);
    append<quint32>(bytes, hasMasks ? 3 : 0);
    append<quint32>(bytes, quint32(2 * row.size()));
    append<quint32>(bytes, 0);
    append<quint32>(bytes, 0);
    append<quint32>(bytes, quint32(palette.size()));
    append<quint32>(bytes, 0);
    const QList<quint32> masks = depth == 16 ? QList<quint32>{0x0F00, 0x00F0, 0x000F, 0xF000}
                                             : QList<quint32>{0xFF0000, 0xFF00, 0xFF, 0xFF000000};
    for (int i = 0; i < (length - 40) / 4; ++i) append<quint32>(bytes, hasMasks ? masks[i] : 0);
    for (const quint32 colour : palette) append<quint32>(bytes, colour);
    return bytes + other + row;
}
