// Times the pictures of an album page: 36 photographs of 12 megapixels. Run by hand: bench_picture [rounds]

#include "platform/picture/picture.h"

#include "../tests/platform/picture/profile_samples.h"
#include "jpeg_library.h"
#include "scene.h"
#include "table.h"
#include "timing.h"

#include <QGuiApplication>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto topic = "picture";
constexpr int picturesPerPage = 36;
constexpr QSize thumbnail(200, 150);
constexpr QSize halfPage(600, 450);

void report(const std::string& kind, const QByteArray& picture, int rounds) {
    const auto decode = [&](QSize target) { LoadPicture(picture, u"photograph"_s, target); };
    // In turn, so that other work of the machine slows both alike.
    std::vector<double> own, library;
    for (int i = 0; i < rounds; ++i) {
        own.push_back(milliseconds([&] { onAllProcessors(picturesPerPage, [&](int) { decode(thumbnail); }); }));
        library.push_back(
            milliseconds([&] { onAllProcessors(picturesPerPage, [&](int) { eighthByLibrary(picture); }); }));
    }
    row(topic, {.what = "36 thumbnails of 12 MP, all processors: " + kind,
                .measured = median(own),
                .peer = "JPEG library, 1/8, all processors",
                .peerMeasured = median(library),
                .timesPeer = 1.1});
    row(topic,
        {.what = "one for half a page: " + kind, .measured = medianMilliseconds(rounds, [&] { decode(halfPage); })});
    row(topic, {.what = "one in full: " + kind, .measured = medianMilliseconds(rounds, [&] { decode({}); })});
}

/// As a printer separates lights: most of what the three inks share is black.
QRgb inksOf(QRgb lights) {
    const int cyan = 255 - qRed(lights), magenta = 255 - qGreen(lights), yellow = 255 - qBlue(lights);
    const int black = std::min({cyan, magenta, yellow}) * 3 / 4;
    return qRgba(cyan - black, magenta - black, yellow - black, black);
}

/// Of a pixel that is shown.
void reportColours(const std::string& what, const QByteArray& profile, ColourKind kind, int rounds) {
    const QImage image = photograph().copy(0, 0, 2000, 1000);
    const auto* const first = reinterpret_cast<const QRgb*>(image.constBits());
    std::vector<QRgb> pixels(first, first + image.width() * image.height());
    if (kind == ColourKind::inks) std::ranges::transform(pixels, pixels.begin(), inksOf);
    const auto transform = ColourTransform::of(profile, kind);
    std::vector<double> times;
    for (int i = 0; i < rounds; ++i) {
        std::vector<QRgb> turned = pixels;
        times.push_back(milliseconds([&] { transform->apply(turned.data(), qsizetype(turned.size())); }));
    }
    row(topic, {.what = what + " into the colours of the screen, a pixel",
                .measured = 1e6 / double(pixels.size()) * median(times),
                .unit = "ns",
                .atMost = 8});
}

}  // namespace

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 5;
    const QImage image = photograph();
    report("baseline", coded(image, false), rounds);
    report("progressive", coded(image, true), rounds);
    reportColours("Display P3", displayP3Profile(), ColourKind::lights, rounds);
    reportColours("a table", tableProfile(), ColourKind::lights, rounds);
    reportColours("inks", inkProfile(), ColourKind::inks, rounds);
}
