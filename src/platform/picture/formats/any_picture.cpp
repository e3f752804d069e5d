#include "platform/picture/formats/any_picture.h"

#include "platform/picture/formats/helper_reading.h"
#include "platform/picture/formats/toolkit_reading.h"
#include "platform/picture/picture_file.h"
#include "platform/picture/refusal.h"

#include <QBuffer>
#include <QDir>
#include <QFile>

using namespace Qt::Literals::StringLiterals;

AnyPicture readAnyPicture(QIODevice& device, const QString& name) {
    const QByteArray beginning = device.peek(formatBytes);
    const PictureFormat format = pictureFormat(beginning);
    switch (format) {
        case PictureFormat::none:
            refusePicture(name, beginning.isEmpty() ? u"没有数据"_s : u"不是可以读取的图片格式"_s);
        case PictureFormat::jpeg:
        case PictureFormat::bmp:
            return {.format = format, .picture = LoadPicture(device, name, {}, Colours::ofFile)};
        case PictureFormat::png:
            return readPng(device, name);
        case PictureFormat::gif:
            return readGif(device, name);
        case PictureFormat::webp:
        case PictureFormat::tiff:
        case PictureFormat::heic:
        case PictureFormat::avif:
            break;
    }
    return readInHelper(format, device, name);
}

AnyPicture readAnyPicture(const QByteArray& bytes, const QString& name) {
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    return readAnyPicture(buffer, name);
}

AnyPicture readAnyPicture(const QString& path) {
    QFile file(path);
    openPicture(file);
    return readAnyPicture(file, QDir::toNativeSeparators(path));
}
