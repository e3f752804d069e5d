#include "platform/base/error.h"
#include "platform/base/unnamed_file.h"
#include "platform/picture/picture.h"

#include <QBuffer>
#include <QDir>
#include <QImageWriter>
#include <QPainter>

using namespace Qt::Literals::StringLiterals;

namespace {

QImage onWhite(const QImage& image) {
    if (!image.hasAlphaChannel()) return image.convertToFormat(QImage::Format_RGB32);
    QImage opaque(image.size(), QImage::Format_RGB32);
    opaque.fill(Qt::white);
    QPainter(&opaque).drawImage(QRect(QPoint(), image.size()), image);
    return opaque;
}

QByteArray encoded(const QImage& image, const char* format, int quality) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    writer.setQuality(quality);
    if (!writer.write(onWhite(image))) throw Error(u"图片不能编码：%1。"_s.arg(writer.errorString()));
    return bytes;
}

const QString complaint = u"不能保存图片“%1”：%2。"_s;

// The encoders take no notice of a write that was cut short: on a disk that fills up, the rest of the picture would be
// lost without a word. So all bytes go to the file at once and are counted.
void save(const QImage& image, const QString& path, const char* format, int quality) {
    if (image.isNull()) throw Error(complaint.arg(QDir::toNativeSeparators(path), u"没有图片"_s));
    savePictureBytes(encoded(image, format, quality), path);
}

}  // namespace

void savePictureBytes(const QByteArray& bytes, const QString& path) {
    UnnamedFile file(path, complaint);
    file.write(bytes);
    file.replace();
}

void saveJpeg(const QImage& image, const QString& path, int quality) {
    save(image, path, "jpeg", quality);
}

QByteArray encodeJpeg(const QImage& image, int quality) {
    if (image.isNull()) throw Error(u"图片不能变成 JPEG：没有图片。"_s);
    return encoded(image, "jpeg", quality);
}

void SavePicture(const QImage& image, const QString& path) {
    save(image, path, "bmp", -1);
}
