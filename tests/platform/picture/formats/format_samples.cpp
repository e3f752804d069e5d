#include "format_samples.h"

#include <libheif/heif.h>
#include <tiffio.h>
#include <webp/encode.h>
#include <webp/mux.h>
#include <zlib.h>

#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>
#include <memory>
#include <vector>

/// The encoder of the samples keeps some memory for good. It is in no program of ours.
extern "C" const char* __lsan_default_suppressions() {
    return "leak:x265";
}

namespace {

template <typename Number>
QByteArray number(Number value) {
    QByteArray bytes(sizeof value, '\0');
    qToLittleEndian(value, bytes.data());
    return bytes;
}

QByteArray chunk(const QByteArray& type, const QByteArray& content) {
    const QByteArray body = type + content;
    QByteArray length(4, '\0'), sum(4, '\0');
    qToBigEndian(quint32(content.size()), length.data());
    qToBigEndian(quint32(crc32(0, reinterpret_cast<const Bytef*>(body.data()), uInt(body.size()))), sum.data());
    return length + body + sum;
}

WebPData dataOf(const QByteArray& bytes) {
    return {reinterpret_cast<const uint8_t*>(bytes.data()), size_t(bytes.size())};
}

QByteArray taken(WebPData data) {
    const QByteArray bytes(reinterpret_cast<const char*>(data.bytes), qsizetype(data.size));
    WebPDataClear(&data);
    return bytes;
}

void writeRow(TIFF* tiff, const QImage& image, int y, TiffOptions::Kind kind) {
    using Kind = TiffOptions::Kind;
    std::vector<uint8_t> row;
    for (int x = 0; x < image.width(); ++x) {
        const QRgb pixel = image.pixel(x, y);
        const int alpha = qAlpha(pixel), flip = kind == Kind::inks ? 255 : 0;
        if (kind == Kind::greys || kind == Kind::lab) row.push_back(uint8_t(qGray(pixel)));
        if (kind == Kind::lab) row.insert(row.end(), {0, 0});
        if (kind == Kind::greys || kind == Kind::lab) continue;
        for (const int light : {qRed(pixel), qGreen(pixel), qBlue(pixel)}) {
            row.push_back(uint8_t(kind == Kind::lightsWithAlpha ? light * alpha / 255 : light ^ flip));
            if (kind == Kind::deepLights) row.push_back(uint8_t(light));
        }
        if (kind == Kind::inks) row.push_back(0);
        if (kind == Kind::lightsWithAlpha) row.push_back(uint8_t(alpha));
    }
    TIFFWriteScanline(tiff, row.data(), uint32_t(y));
}

void writePage(TIFF* tiff, const QImage& image, const TiffOptions& options) {
    using Kind = TiffOptions::Kind;
    const Kind kind = options.kind;
    const int samples = kind == Kind::greys ? 1 : kind == Kind::inks || kind == Kind::lightsWithAlpha ? 4 : 3;
    const int colours = kind == Kind::greys  ? PHOTOMETRIC_MINISBLACK
                        : kind == Kind::inks ? PHOTOMETRIC_SEPARATED
                        : kind == Kind::lab  ? PHOTOMETRIC_CIELAB
                                             : PHOTOMETRIC_RGB;
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, image.width());
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, image.height());
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, samples);
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, kind == Kind::deepLights ? 16 : 8);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, colours);
    TIFFSetField(tiff, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, COMPRESSION_LZW);
    TIFFSetField(tiff, TIFFTAG_ORIENTATION, options.orientation);
    if (options.isSmallPicture) TIFFSetField(tiff, TIFFTAG_SUBFILETYPE, FILETYPE_REDUCEDIMAGE);
    const uint16_t premultiplied = EXTRASAMPLE_ASSOCALPHA;
    if (kind == Kind::lightsWithAlpha) TIFFSetField(tiff, TIFFTAG_EXTRASAMPLES, 1, &premultiplied);
    if (!options.profile.isEmpty())
        TIFFSetField(tiff, TIFFTAG_ICCPROFILE, uint32_t(options.profile.size()), options.profile.data());
    if (!options.model.isEmpty()) TIFFSetField(tiff, TIFFTAG_MODEL, options.model.constData());
    for (int y = 0; y < image.height(); ++y) writeRow(tiff, image, y, kind);
    TIFFWriteDirectory(tiff);
    if (options.model.isEmpty()) return;
    toff_t place = 0;
    TIFFCreateEXIFDirectory(tiff);
    TIFFSetField(tiff, EXIFTAG_DATETIMEORIGINAL, "2003:10:01 12:30:00");
    TIFFWriteCustomDirectory(tiff, &place);
    TIFFSetDirectory(tiff, 0);
    TIFFSetField(tiff, TIFFTAG_EXIFIFD, place);
    TIFFRewriteDirectory(tiff);
    TIFFCreateDirectory(tiff);
}

heif_image* heifImage(const QImage& image) {
    heif_image* made = nullptr;
    const QImage lights = image.convertToFormat(QImage::Format_RGB888);
    heif_image_create(image.width(), image.height(), heif_colorspace_RGB, heif_chroma_interleaved_RGB, &made);
    heif_image_add_plane(made, heif_channel_interleaved, image.width(), image.height(), 24);
    int stride = 0;
    uint8_t* plane = heif_image_get_plane(made, heif_channel_interleaved, &stride);
    for (int y = 0; y < image.height(); ++y)
        std::copy_n(lights.constScanLine(y), 3 * image.width(), plane + qsizetype(y) * stride);
    return made;
}

}  // namespace

QByteArray pngBytes(const QImage& image, const Beside& beside) {
    QBuffer buffer;
    image.save(&buffer, "PNG");
    QByteArray chunks;
    // What the toolkit's function puts in front is the length.
    if (!beside.profile.isEmpty())
        chunks += chunk("iCCP", QByteArray("profile\0\0", 9) + qCompress(beside.profile).sliced(4));
    if (!beside.exif.isEmpty()) chunks += chunk("eXIf", beside.exif);
    if (!beside.xmp.isEmpty()) chunks += chunk("iTXt", QByteArray("XML:com.adobe.xmp\0\0\0\0\0", 22) + beside.xmp);
    constexpr int endOfHeader = 33;
    return QByteArray(buffer.data()).insert(endOfHeader, chunks);
}

QByteArray gifBytes() {
    return QByteArray::fromHex(
        "47494638396102000100800000ff00000000ff21f90401000001002c0000000002000100000202440a003b");
}

QByteArray webpBytes(const QImage& image, bool lossless, const Beside& beside) {
    const QImage lights = image.convertToFormat(QImage::Format_RGBA8888);
    uint8_t* bytes = nullptr;
    const size_t size = lossless ? WebPEncodeLosslessRGBA(lights.constBits(), lights.width(), lights.height(),
                                                          int(lights.bytesPerLine()), &bytes)
                                 : WebPEncodeRGBA(lights.constBits(), lights.width(), lights.height(),
                                                  int(lights.bytesPerLine()), 100, &bytes);
    const WebPData picture{bytes, size};
    WebPMux* const mux = WebPMuxCreate(&picture, 1);
    WebPFree(bytes);
    const auto set = [&](const char* name, const QByteArray& content) {
        const WebPData data = dataOf(content);
        if (!content.isEmpty()) WebPMuxSetChunk(mux, name, &data, 1);
    };
    set("ICCP", beside.profile);
    set("EXIF", beside.exif);
    set("XMP ", beside.xmp);
    WebPData file;
    WebPMuxAssemble(mux, &file);
    WebPMuxDelete(mux);
    return taken(file);
}

QByteArray webpBytes(const QImage& image, const QImage& next) {
    WebPAnimEncoderOptions options;
    WebPAnimEncoderOptionsInit(&options);
    WebPAnimEncoder* const encoder = WebPAnimEncoderNew(image.width(), image.height(), &options);
    int time = 0;
    for (const QImage& each : {image, next}) {
        const QImage lights = each.convertToFormat(QImage::Format_RGBA8888);
        WebPPicture picture;
        WebPPictureInit(&picture);
        picture.use_argb = 1;
        picture.width = lights.width();
        picture.height = lights.height();
        WebPPictureImportRGBA(&picture, lights.constBits(), int(lights.bytesPerLine()));
        WebPAnimEncoderAdd(encoder, &picture, time, nullptr);
        WebPPictureFree(&picture);
        time += 100;
    }
    WebPAnimEncoderAdd(encoder, nullptr, time, nullptr);
    WebPData file;
    WebPAnimEncoderAssemble(encoder, &file);
    WebPAnimEncoderDelete(encoder);
    return taken(file);
}

QByteArray tiffBytes(const QImage& image, const TiffOptions& options) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("picture.tif"));
    TIFF* const tiff = TIFFOpen(QFile::encodeName(path).constData(), "w");
    writePage(tiff, image, options);
    QImage second(image.size(), QImage::Format_RGB32);
    second.fill(Qt::white);
    writePage(tiff, second, {});
    TIFFClose(tiff);
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray heifBytes(const QImage& image, const HeifOptions& options, const Beside& beside) {
    heif_context* const context = heif_context_alloc();
    heif_encoder* encoder = nullptr;
    heif_context_get_encoder_for_format(context, options.av1 ? heif_compression_AV1 : heif_compression_HEVC, &encoder);
    if (encoder == nullptr) qFatal("The library cannot write this format here.");
    heif_encoder_set_lossy_quality(encoder, 95);
    heif_encoder_set_parameter_string(encoder, "chroma", options.sharesColours ? "420" : "444");
    heif_image* const picture = heifImage(image);
    if (!beside.profile.isEmpty())
        heif_image_set_raw_color_profile(picture, "prof", beside.profile.data(), size_t(beside.profile.size()));
    heif_color_profile_nclx* const colours = heif_nclx_color_profile_alloc();
    colours->color_primaries =
        options.primaries > 0 ? heif_color_primaries(options.primaries) : heif_color_primaries_ITU_R_BT_709_5;
    colours->transfer_characteristics = heif_transfer_characteristic_IEC_61966_2_1;
    colours->matrix_coefficients = heif_matrix_coefficients_ITU_R_BT_601_6;
    colours->full_range_flag = 1;
    if (beside.profile.isEmpty()) heif_image_set_nclx_color_profile(picture, colours);
    heif_encoding_options* const encoding = heif_encoding_options_alloc();
    encoding->image_orientation = heif_orientation(options.turn);
    encoding->macOS_compatibility_workaround_no_nclx_profile = 0;
    heif_image_handle* handle = nullptr;
    heif_context_encode_image(context, picture, encoder, encoding, &handle);
    if (!beside.exif.isEmpty())
        heif_context_add_exif_metadata(context, handle, beside.exif.data(), int(beside.exif.size()));
    if (!beside.xmp.isEmpty())
        heif_context_add_XMP_metadata(context, handle, beside.xmp.data(), int(beside.xmp.size()));
    QByteArray bytes;
    heif_writer writer{1, [](heif_context*, const void* data, size_t size, void* to) {
                           static_cast<QByteArray*>(to)->append(static_cast<const char*>(data), qsizetype(size));
                           return heif_error{heif_error_Ok, heif_suberror_Unspecified, ""};
                       }};
    heif_context_write(context, &writer, &bytes);
    heif_image_handle_release(handle);
    heif_encoding_options_free(encoding);
    heif_nclx_color_profile_free(colours);
    heif_image_release(picture);
    heif_encoder_release(encoder);
    heif_context_free(context);
    return bytes;
}

QByteArray exifBlock(int orientation, const QByteArray& model) {
    const auto entry = [](quint16 tag, quint16 type, quint32 count, quint32 value) {
        return number(tag) + number(type) + number(count) + number(value);
    };
    const QByteArray text = model.leftJustified(16, '\0', true);
    constexpr quint32 first = 8, details = first + 2 + 3 * 12 + 4, textAt = details + 2 + 2 * 12 + 4;
    return QByteArray("II*\0", 4) + number(first) + number(quint16(3)) + entry(0x0110, 2, 16, textAt) +
           entry(0x0112, 3, 1, quint32(orientation)) + entry(0x8769, 4, 1, details) + number(quint32(0)) +
           number(quint16(2)) + entry(0xA002, 4, 1, 1) + entry(0xA003, 4, 1, 1) + number(quint32(0)) + text;
}
