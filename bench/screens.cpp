// Times pages of 36 photographs of 12 megapixels on screens of several sizes, and the resizing of the window. Run by
// hand: bench_screens [rounds]

#include "filling.h"
#include "platform/desktop/look.h"
#include "scene.h"
#include "table.h"
#include "viewed_pages.h"

#include <array>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto topic = "screens";
constexpr int scenes = 12;
// The first two pages are decoded ahead as soon as the window rests.
constexpr int pages = 4;
constexpr int newPage = 3;
constexpr double oneFrame = 33;
constexpr double sharpWithin = 300;
constexpr int resizes = 40;
constexpr QSize usual(1280, 900), wide(1920, 1080), huge(3840, 2160);

/// Times a page in a window that has never shown it, until every cell is sharp.
double timeNewPage(QSize size) {
    ViewedPages viewer(size);
    return milliseconds([&] {
        viewer.page(newPage);
        if (!viewer.waitForSharpness()) qFatal("the page never became sharp");
    });
}

/// In turn, so that other work of the machine slows all alike.
void timeSizes(int rounds) {
    std::array<std::vector<double>, 3> times;
    for (int i = 0; i < rounds; ++i) {
        times[0].push_back(timeNewPage(usual));
        times[1].push_back(timeNewPage(wide));
        times[2].push_back(timeNewPage(huge));
    }
    const auto report = [&](const char* what, size_t size, double timesPeer) {
        row(topic, {.what = what,
                    .measured = median(times[size]),
                    .peer = "the same page at 1280 x 900",
                    .peerMeasured = median(times[0]),
                    .timesPeer = timesPeer});
    };
    report("page of 36 at 1920 x 1080, never seen, all sharp", 1, 1.3);
    report("page of 36 at 3840 x 2160, never seen, all sharp", 2, 2.5);
}

/// A person drags the corner of the window: each step is drawn, and the page is sharp soon after the last one.
void timeResizing(int rounds) {
    std::vector<double> steps, sharp;
    for (int i = 0; i < rounds; ++i) {
        ViewedPages viewer(usual);
        viewer.page(newPage);
        viewer.waitForSharpness();
        for (int step = 1; step <= resizes; ++step)
            steps.push_back(milliseconds([&] {
                viewer.resize(usual + QSize(12, 4) * step);
                ViewedPages::paint();
            }));
        sharp.push_back(milliseconds([&] { viewer.waitForSharpness(); }));
    }
    std::ranges::sort(steps);
    row(topic, {.what = "a step of resizing", .measured = median(steps), .atMost = oneFrame});
    row(topic, {.what = "the slowest of a hundred steps", .measured = steps[steps.size() * 99 / 100]});
    row(topic, {.what = "after the last one, all sharp", .measured = median(sharp), .atMost = sharpWithin});
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    applyLook(application);
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 5;
    const SampleCatalogue catalogue;
    std::vector<QByteArray> photographs;
    for (int i = 0; i < scenes; ++i) photographs.push_back(coded(photograph(i)));
    mekTp::catalogue.Execute(u"DELETE FROM [tc01]"_s);
    fillAlbum(mekTp::catalogue, u"tc01"_s, pages * ViewedPages::cells,
              [&](int number) { return photographs[size_t(number % scenes)]; });
    timeSizes(rounds);
    timeResizing(rounds);
}
