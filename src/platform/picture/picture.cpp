#include "platform/picture/picture.h"

#include "platform/picture/bmp_reader.h"
#include "platform/picture/jpeg_reader.h"
#include "platform/picture/refusal.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

int Picture::Width() const {
    return hiMetricFromPixels(pixels_.width());
}

int Picture::Height() const {
    return hiMetricFromPixels(pixels_.height());
}

int hiMetricFromPixels(int pixels) {
    constexpr double unitsPerPixel = 2540.0 / 96.0;
    constexpr double readersDivisor = 26.455;
    const int lowest = int(std::ceil(pixels * readersDivisor));
    const int highest = int(std::ceil((pixels + 1) * readersDivisor)) - 1;
    return qBound(lowest, int(std::lround(pixels * unitsPerPixel)), highest);
}

Picture LoadPicture(QIODevice& device, const QString& name, QSize target) {
    const QByteArray beginning = device.peek(2);
    if (beginning.isEmpty()) refusePicture(name, u"没有数据"_s);
    if (beginning == QByteArrayView("\xFF\xD8")) return readJpeg(device, name, target);
    if (beginning == QByteArrayView("BM")) return readBmp(device, name);
    refusePicture(name, u"不是 BMP 或 JPEG 图片"_s);
}

Picture LoadPicture(const QByteArray& bytes, const QString& name, QSize target) {
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    return LoadPicture(buffer, name, target);
}

Picture LoadPicture(const QString& path, QSize target) {
    const QString name = QDir::toNativeSeparators(path);
    const QFileInfo info(path);
    if (!info.exists()) refusePicture(name, u"找不到文件"_s);
    if (!info.isFile()) refusePicture(name, u"这不是文件"_s);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) refusePicture(name, u"文件不能读取"_s);
    return LoadPicture(file, name, target);
}

Picture shrunkTo(const Picture& picture, QSize target) {
    const QSize size = picture.image().size();
    const bool shrinks = target.width() <= size.width() && target.height() <= size.height() && target != size;
    if (picture.isNull() || target.isEmpty() || !shrinks) return picture;
    return {picture.image().scaled(target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation), picture.pixels()};
}
