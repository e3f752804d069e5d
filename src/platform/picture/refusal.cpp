#include "platform/picture/refusal.h"

#include "platform/base/error.h"
#include "platform/picture/picture.h"

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint64 gigabyte = qint64(1) << 30;

}  // namespace

void refusePicture(const QString& name, const QString& reason) {
    throw Error(u"不能打开图片“%1”：%2。"_s.arg(name, reason));
}

void checkSides(QSize pixels, const QString& name) {
    if (pixels.isEmpty()) refusePicture(name, u"图片已损坏，没有有效的尺寸"_s);
    if (pixels.width() <= longestPictureSide && pixels.height() <= longestPictureSide) return;
    refusePicture(name, u"图片太大（%1 * %2），边长不能超过 %3 像素"_s.arg(pixels.width())
                            .arg(pixels.height())
                            .arg(longestPictureSide));
}

void checkSubstance(QSize pixels, qint64 bytes, const QString& name) {
    constexpr qint64 large = 16'000'000;
    constexpr qint64 pixelsPerByte = 512;  // a bit for each 8 x 8
    const qint64 area = qint64(pixels.width()) * pixels.height();
    if (area > large && bytes < area / pixelsPerByte) refusePicture(name, u"图片数据不完整"_s);
}

qint64 imageBytes(QSize pixels) {
    constexpr qint64 bytesPerPixel = 4;
    return bytesPerPixel * pixels.width() * pixels.height();
}

void checkMemory(qint64 bytes, QSize pixels, const QString& name) {
    if (bytes > pictureMemoryLimit())
        refusePicture(name, u"图片太大（%1 * %2），内存不足"_s.arg(pixels.width()).arg(pixels.height()));
}

qint64 pictureMemoryLimit() {
#ifdef Q_OS_UNIX
    // The system promises more memory than it has and ends the program that uses it. So trying to get it is no test.
    static const qint64 half = qint64(sysconf(_SC_PHYS_PAGES)) * sysconf(_SC_PAGESIZE) / 2;
    return qBound(gigabyte / 2, half, 4 * gigabyte);
#else
    return 2 * gigabyte;
#endif
}
