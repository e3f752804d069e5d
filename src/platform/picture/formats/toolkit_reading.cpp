#include "platform/picture/formats/toolkit_reading.h"

#include "platform/picture/colour_transform.h"
#include "platform/picture/exif.h"
#include "platform/picture/formats/finishing.h"
#include "platform/picture/formats/png_chunks.h"
#include "platform/picture/memory_share.h"
#include "platform/picture/refusal.h"

#include <QImageReader>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The most that the packing of the format can save: a file that claims more has lost its end, or is a trap.
void checkPacking(qint64 bytes, qint64 fileBytes, const QString& name) {
    constexpr qint64 mostTimes = 1032;
    if (bytes / mostTimes > fileBytes) refusePicture(name, u"图片数据不完整"_s);
}

/// Up to eight bytes to the pixel, and a copy for the screen.
qint64 bytesToHold(QSize pixels) {
    return 3 * imageBytes(pixels);
}

QImage decoded(QIODevice& device, const char* format, QSize pixels, const QString& name) {
    QImageReader reader(&device, format);
    reader.setAutoTransform(false);
    if (!QImageReader::supportedImageFormats().contains(format))
        refusePicture(name, u"读取这种格式的部件没有安装，请安装软件包 libqt6gui6"_s);
    if (reader.size() != pixels) refusePicture(name, u"图片已损坏"_s);
    QImage image;
    if (!reader.read(&image)) refusePicture(name, u"图片已损坏"_s);
    return image;
}

}  // namespace

AnyPicture readPng(QIODevice& device, const QString& name) {
    const auto chunks = pngChunks(device);
    if (!chunks) refusePicture(name, u"图片已损坏"_s);
    checkSides(chunks->pixels, name);
    checkPacking(qint64(chunks->pixels.width()) * chunks->pixels.height() * chunks->bitsPerPixel / 8, device.size(),
                 name);
    checkMemory(bytesToHold(chunks->pixels), chunks->pixels, name);
    const MemoryShare share(bytesToHold(chunks->pixels));
    const QImage image = decoded(device, "png", chunks->pixels, name);
    return finished({.format = PictureFormat::png,
                     .image = image,
                     .kind = chunks->isGrey ? ColourKind::grey : ColourKind::lights,
                     .orientation = orientationFromTiff(chunks->exif),
                     .profile = chunks->profile,
                     .exif = chunks->exif,
                     .xmp = chunks->xmp},
                    name);
}

AnyPicture readGif(QIODevice& device, const QString& name) {
    const qint64 start = device.pos();
    const QSize pixels = QImageReader(&device, "gif").size();
    device.seek(start);
    checkSides(pixels, name);
    checkMemory(bytesToHold(pixels), pixels, name);
    checkSubstance(pixels, device.size(), name);
    const MemoryShare share(bytesToHold(pixels));
    return finished({.format = PictureFormat::gif, .image = decoded(device, "gif", pixels, name)}, name);
}
