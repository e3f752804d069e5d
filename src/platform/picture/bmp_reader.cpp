#include "platform/picture/bmp_reader.h"

#include "platform/picture/memory_share.h"
#include "platform/picture/refusal.h"

#include <QImageReader>
#include <QtEndian>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Where the file's header says that the pixels begin.
qint64 pixelOffset(QIODevice& device) {
    const QByteArray header = device.peek(14);
    return header.size() < 14 ? header.size() : qFromLittleEndian<quint32>(header.constData() + 10);
}

}  // namespace

Picture readBmp(QIODevice& device, const QString& name) {
    if (pixelOffset(device) >= device.bytesAvailable()) refusePicture(name, u"图片数据不完整"_s);

    // Ours depends on the computer. Set once: several threads read pictures.
    static const bool isUnlimited = (QImageReader::setAllocationLimit(0), true);
    Q_UNUSED(isUnlimited);
    QImageReader reader(&device, "bmp");
    const QSize stored = reader.size();
    const QSize pixels(stored.width(), qAbs(stored.height()));  // Negative when the rows run downwards.
    checkSides(pixels, name);
    checkSubstance(pixels, device.size(), name);
    const qint64 bytes = imageBytes(pixels) * 5 / 4;  // One of few colours is held beside what becomes of it.
    checkMemory(bytes, pixels, name);
    const MemoryShare share(bytes);

    QImage image;
    if (!reader.read(&image)) refusePicture(name, u"图片已损坏"_s);
    image.convertTo(QImage::Format_RGB32);
    if (image.isNull()) refusePicture(name, u"内存不足"_s);
    return Picture(image);
}
