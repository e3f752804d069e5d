#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/picture/picture.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QImageWriter>
#include <QPainter>
#include <QSaveFile>
#include <QStorageInfo>

using namespace Qt::Literals::StringLiterals;

namespace {

QImage onWhite(const QImage& image) {
    if (!image.hasAlphaChannel()) return image.convertToFormat(QImage::Format_RGB32);
    QImage opaque(image.size(), QImage::Format_RGB32);
    opaque.fill(Qt::white);
    QPainter(&opaque).drawImage(QRect(QPoint(), image.size()), image);
    return opaque;
}

/// Why a file could not be written, in words of the user.
QString reasonOf(const QSaveFile& file) {
    const QFileInfo place(file.fileName());
    const QFileInfo folder(place.absolutePath());
    constexpr qint64 hardlyAnything = 1 << 20;
    if (!folder.isDir()) return u"文件夹不存在"_s;
    if (place.isDir()) return u"那里有一个同名的文件夹"_s;
    if (place.exists() && !place.isWritable()) return u"文件是只读的"_s;
    if (!folder.isWritable()) return u"文件夹不能写入"_s;
    const QStorageInfo storage(folder.absoluteFilePath());
    if (storage.isValid() && storage.bytesAvailable() < hardlyAnything) return u"磁盘空间不足"_s;
    return file.errorString();
}

void save(const QImage& image, const QString& path, const char* format, int quality) {
    const QString text = u"不能保存图片“%1”：%2。"_s;
    const QString name = QDir::toNativeSeparators(path);
    if (image.isNull()) throw Error(text.arg(name, u"没有图片"_s));

    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) throw Error(text.arg(name, reasonOf(file)));
    QImageWriter writer(&file, format);
    writer.setQuality(quality);
    if (!writer.write(onWhite(image)) || !commitToDisk(file)) throw Error(text.arg(name, reasonOf(file)));
}

}  // namespace

void saveJpeg(const QImage& image, const QString& path, int quality) {
    save(image, path, "jpeg", quality);
}

QByteArray encodeJpeg(const QImage& image, int quality) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpeg");
    writer.setQuality(quality);
    if (image.isNull() || !writer.write(onWhite(image)))
        throw Error(u"图片不能变成 JPEG：%1。"_s.arg(image.isNull() ? u"没有图片"_s : writer.errorString()));
    return bytes;
}

void SavePicture(const QImage& image, const QString& path) {
    save(image, path, "bmp", -1);
}
