#include "platform/picture/picture.h"

#include "platform/picture/bmp_reader.h"
#include "platform/picture/colour_transform.h"
#include "platform/picture/jpeg_reader.h"
#include "platform/picture/picture_file.h"
#include "platform/picture/picture_size.h"
#include "platform/picture/refusal.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <cmath>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Or else a BMP; refuses all other kinds.
bool isJpeg(QIODevice& device, const QString& name) {
    const QByteArray beginning = device.peek(2);
    if (beginning.isEmpty()) refusePicture(name, u"没有数据"_s);
    if (beginning == QByteArrayView("\xFF\xD8")) return true;
    if (beginning == QByteArrayView("BM")) return false;
    refusePicture(name, u"不是 BMP 或 JPEG 图片"_s);
}

}  // namespace

int Picture::Width() const {
    return hiMetricFromPixels(pixels_.width());
}

int Picture::Height() const {
    return hiMetricFromPixels(pixels_.height());
}

int hiMetricFromPixels(int pixels) {
    constexpr double unitsPerPixel = 2540.0 / 96.0;
    const int lowest = int(std::ceil(pixels * hiMetricPerPixel));
    const int highest = int(std::ceil((pixels + 1) * hiMetricPerPixel)) - 1;
    return qBound(lowest, int(std::lround(pixels * unitsPerPixel)), highest);
}

int pixelsFromHiMetric(int length) {
    return int(std::floor(length / hiMetricPerPixel));
}

Picture inScreenColours(Picture picture) {
    const auto transform = ColourTransform::of(picture.profile(), ColourKind::lights);
    QImage image = picture.image();
    const QSize pixels = picture.pixels();
    picture = {};  // which would hold on to a copy of the image
    if (transform && !transform->changesNothing()) {
        if (image.format() != QImage::Format_RGB32) image.convertTo(QImage::Format_RGB32);
        for (int y = 0; y < image.height(); ++y)
            transform->apply(reinterpret_cast<QRgb*>(image.scanLine(y)), image.width());
    }
    return {image, pixels};
}

Picture LoadPicture(QIODevice& device, const QString& name, QSize target, Colours colours) {
    Picture picture = isJpeg(device, name) ? readJpeg(device, name, target) : readBmp(device, name);
    return colours == Colours::ofScreen ? inScreenColours(std::move(picture)) : picture;
}

QSize pictureSize(QIODevice& device, const QString& name) {
    return isJpeg(device, name) ? jpegSize(device, name) : bmpSize(device, name);
}

Picture LoadPicture(const QByteArray& bytes, const QString& name, QSize target, Colours colours) {
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    return LoadPicture(buffer, name, target, colours);
}

Picture LoadPicture(const QString& path, QSize target, Colours colours) {
    QFile file(path);
    openPicture(file);
    return LoadPicture(file, QDir::toNativeSeparators(path), target, colours);
}

Picture shrunkTo(const Picture& picture, QSize target) {
    const QSize size = picture.image().size();
    const bool shrinks = target.width() <= size.width() && target.height() <= size.height() && target != size;
    if (picture.isNull() || target.isEmpty() || !shrinks) return picture;
    return {picture.image().scaled(target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation), picture.pixels(),
            picture.profile()};
}
