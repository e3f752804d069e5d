// Times the pictures of an album page: 36 photographs of 12 megapixels. Run by hand: bench_picture [rounds]

#include "platform/picture/picture.h"

#include "scene.h"
#include "timing.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImageWriter>
#include <cstdio>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int picturesPerPage = 36;
constexpr QSize thumbnail(200, 150);
constexpr QSize halfPage(600, 450);

QByteArray coded(const QImage& image, bool progressive) {
    QBuffer buffer;
    QImageWriter writer(&buffer, "jpeg");
    writer.setQuality(85);
    writer.setProgressiveScanWrite(progressive);
    writer.write(image);
    return buffer.data();
}

void report(const char* kind, const QByteArray& picture, int rounds) {
    std::printf("%s, %.1f MB\n", kind, double(picture.size()) / 1e6);
    const auto decode = [&](QSize target) { LoadPicture(picture, u"photograph"_s, target); };
    const double page = medianMilliseconds(rounds, [&] {
        for (int i = 0; i < picturesPerPage; ++i) decode(thumbnail);
    });
    std::printf("  page of %d thumbnails   %9.1f ms (%.1f each)\n", picturesPerPage, page, page / picturesPerPage);
    std::printf("  one at half a page      %9.1f ms\n", medianMilliseconds(rounds, [&] { decode(halfPage); }));
    std::printf("  one in full             %9.1f ms\n", medianMilliseconds(rounds, [&] { decode({}); }));
}

}  // namespace

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 5;
    const QImage image = photograph();
    report("baseline", coded(image, false), rounds);
    report("progressive", coded(image, true), rounds);
}
