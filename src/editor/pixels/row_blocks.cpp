#include "editor/pixels/row_blocks.h"

#include "platform/base/error.h"
#include "platform/picture/picture.h"

#include <QThread>
#include <atomic>
#include <cstdlib>
#include <thread>
#include <vector>
#ifdef __linux__
#include <sys/mman.h>
#endif

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int blockPixels = 1 << 18;

/// Fresh memory comes in pages, and each costs more than filling it. So a large picture asks for large ones.
QImage uninitialised(QSize pixels) {
#ifdef MADV_HUGEPAGE
    constexpr qsizetype pageBytes = 1 << 21;
    const qsizetype rowBytes = pixels.width() * qsizetype(sizeof(QRgb));
    const qsizetype pages = (rowBytes * pixels.height() + pageBytes - 1) / pageBytes;
    if (pages > 2) {
        void* memory = std::aligned_alloc(pageBytes, size_t(pages * pageBytes));
        if (memory == nullptr) return {};
        madvise(memory, size_t(pages * pageBytes), MADV_HUGEPAGE);
        return {static_cast<uchar*>(memory), pixels.width(), pixels.height(), rowBytes,
                QImage::Format_RGB32,        std::free,      memory};
    }
#endif
    return {pixels, QImage::Format_RGB32};
}

}  // namespace

QImage blankPicture(QSize pixels) {
    const QString size = u"%1 * %2"_s.arg(pixels.width()).arg(pixels.height());
    if (pixels.isEmpty()) throw Error(u"图片的尺寸 "_s + size + u" 没有面积。"_s);
    if (std::max(pixels.width(), pixels.height()) > longestPictureSide)
        throw Error(u"图片的尺寸 "_s + size + u" 太大：每边最多 "_s + QString::number(longestPictureSide) +
                    u" 个像素。"_s);
    const QImage picture = uninitialised(pixels);
    if (picture.isNull()) throw Error(u"内存不够，不能生成尺寸为 "_s + size + u" 的图片。"_s);
    return picture;
}

QImage inEditorFormat(const QImage& picture) {
    return picture.format() == QImage::Format_RGB32 ? picture : picture.convertToFormat(QImage::Format_RGB32);
}

void forRowBlocks(QSize pixels, const std::function<void(int, int)>& work, const std::function<void(int)>& progress) {
    const int blockRows = std::max(1, blockPixels / pixels.width());
    const int blocks = (pixels.height() + blockRows - 1) / blockRows;
    std::atomic<int> next = 0;
    std::atomic<int> done = 0;
    std::atomic<bool> failed = false;
    const auto takeBlock = [&] {
        const int block = next++;
        if (block >= blocks) return false;
        work(block * blockRows, std::min(pixels.height(), (block + 1) * blockRows));
        ++done;
        return true;
    };
    const auto help = [&] {
        if (!attempt([&] {
                while (takeBlock()) continue;
            }))
            failed = true;
    };

    std::vector<std::jthread> helpers;
    for (int i = 1; i < std::min(QThread::idealThreadCount(), blocks); ++i)
        if (!attempt([&] { helpers.emplace_back(help); })) break;
    while (takeBlock())
        if (progress) progress(done * 100 / blocks);
    helpers.clear();
    if (failed) throw Error(u"内存不够，图片没有处理完。"_s);
}
