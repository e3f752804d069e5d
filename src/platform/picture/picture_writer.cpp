#include "platform/base/error.h"
#include "platform/base/unnamed_file.h"
#include "platform/picture/on_white.h"
#include "platform/picture/picture.h"

#include <QBuffer>
#include <QDir>
#include <QImageWriter>
#include <QtEndian>
#include <algorithm>
#include <string_view>

using namespace Qt::Literals::StringLiterals;

namespace {

QByteArray encoded(const QImage& image, const char* format, int quality) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, format);
    writer.setQuality(quality);
    if (!writer.write(onWhite(image))) throw Error(u"图片不能编码：%1。"_s.arg(writer.errorString()));
    return bytes;
}

/// A JPEG with a profile behind its first segment, which has to stay the first. It takes as many segments as it needs.
QByteArray jpegWithProfile(QByteArray jpeg, const QByteArray& profile) {
    constexpr int mostInSegment = 65519, lengths = 16, most = 255;
    constexpr QByteArrayView beginning("\xFF\xD8\xFF\xE0");
    const qsizetype count = (profile.size() + mostInSegment - 1) / mostInSegment;
    if (count == 0 || count > most) return jpeg;
    QByteArray segments;
    for (qsizetype i = 0; i < count; ++i) {
        const QByteArray part = profile.mid(i * mostInSegment, mostInSegment);
        const auto length = quint16(part.size() + lengths);
        segments += "\xFF\xE2";
        segments += char(length >> 8);
        segments += char(length & 0xFF);
        segments += QByteArrayView("ICC_PROFILE\0", 12);
        segments += char(i + 1);
        segments += char(count);
        segments += part;
    }
    const bool hasFirst = jpeg.startsWith(beginning);
    const qsizetype place = hasFirst ? 4 + qFromBigEndian<quint16>(jpeg.constData() + 4) : 2;
    return jpeg.insert(place, segments);
}

/// A BMP with the longer header that can name a profile, which stands behind the pixels.
QByteArray bmpWithProfile(QByteArray bmp, const QByteArray& profile) {
    constexpr int fileHeader = 14, shortLength = 40, longLength = 124, perceptual = 4;
    constexpr int added = longLength - shortLength;
    if (profile.isEmpty()) return bmp;
    bmp.insert(fileHeader + shortLength, QByteArray(added, '\0'));
    const auto put = [&](int place, qsizetype number) { qToLittleEndian(quint32(number), bmp.data() + place); };
    put(2, bmp.size() + profile.size());
    put(10, fileHeader + longLength);
    put(fileHeader, longLength);
    std::ranges::copy(std::string_view("DEBM"), bmp.begin() + fileHeader + 56);
    put(fileHeader + 108, perceptual);
    put(fileHeader + 112, bmp.size() - fileHeader);
    put(fileHeader + 116, profile.size());
    return bmp + profile;
}

QByteArray encodedBmp(const QImage& image, const QByteArray& profile) {
    return bmpWithProfile(encoded(image, "bmp", -1), profile);
}

QByteArray encodedJpeg(const QImage& image, int quality, const QByteArray& profile) {
    return jpegWithProfile(encoded(image, "jpeg", quality), profile);
}

const QString complaint = u"不能保存图片“%1”：%2。"_s;

template <typename Encode>
void save(const QImage& image, const QString& path, const Encode& encode) {
    if (image.isNull()) throw Error(complaint.arg(QDir::toNativeSeparators(path), u"没有图片"_s));
    savePictureBytes(encode(), path);
}

}  // namespace

// The encoders take no notice of a write that was cut short: on a disk that fills up, the rest of the picture would be
// lost without a word. So all bytes go to the file at once and are counted.
void savePictureBytes(const QByteArray& bytes, const QString& path) {
    UnnamedFile file(path, complaint);
    file.write(bytes);
    file.replace();
}

void saveJpeg(const QImage& image, const QString& path, int quality, const QByteArray& profile) {
    save(image, path, [&] { return encodedJpeg(image, quality, profile); });
}

QByteArray encodeJpeg(const QImage& image, int quality, const QByteArray& profile) {
    if (image.isNull()) throw Error(u"图片不能变成 JPEG：没有图片。"_s);
    return encodedJpeg(image, quality, profile);
}

void SavePicture(const QImage& image, const QString& path, const QByteArray& profile) {
    save(image, path, [&] { return encodedBmp(image, profile); });
}
