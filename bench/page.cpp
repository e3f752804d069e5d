// Times the pages of the main window: 36 photographs of 12 megapixels to a page. Run by
// hand: bench_page [rounds] [gigabytes of the album that comes from the disk]

#include "../tests/platform/picture/picture_samples.h"
#include "filling.h"
#include "jpeg_library.h"
#include "platform/base/files.h"
#include "platform/desktop/look.h"
#include "platform/picture/wide_colours.h"
#include "scene.h"
#include "table.h"
#include "timing.h"
#include "viewed_pages.h"

#include <QProcess>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto topic = "page";
constexpr unsigned displayP3 = 12;
constexpr int cells = ViewedPages::cells;
constexpr int scenes = 12;
constexpr double oneFrame = 33;
// The album's pages, counted from 1. The first two are decoded ahead as soon as the window rests.
constexpr int pages = 6;
constexpr int cameraPage = 3, baselinePage = 4, progressivePage = 5, wideColoursPage = 6;
constexpr qsizetype largeBytes = 3'700'000;

struct Photographs {
    std::vector<QByteArray> camera, baseline, progressive, wideColours;

    Photographs() {
        for (int i = 0; i < scenes; ++i) {
            const QImage image = photograph(i);
            baseline.push_back(coded(image, false));
            progressive.push_back(coded(image, true));
            wideColours.push_back(encodeJpeg(image, 85, wideProfile(displayP3)));
            camera.push_back(withPreview(baseline.back(), coded(image.scaled(160, 120), false)));
        }
    }

    const QByteArray& at(int row) const {
        const int page = row / cells + 1;
        const std::vector<QByteArray>& kind = page <= cameraPage        ? camera
                                              : page == baselinePage    ? baseline
                                              : page == progressivePage ? progressive
                                                                        : wideColours;
        return kind[size_t(row % scenes)];
    }
};

/// All photographs of a page at an eighth of their size by the JPEG library alone.
void decodePage(const Photographs& photographs, int firstRow) {
    onAllProcessors(cells, [&](int cell) { eighthByLibrary(photographs.at(firstRow + cell)); });
}

/// Times a page in a window that has never shown it: until every cell shows something, and until every cell is sharp.
std::pair<double, double> timeNewPage(int rounds, int page) {
    std::vector<double> seen, sharp;
    for (int i = 0; i < rounds; ++i) {
        ViewedPages viewer;
        QElapsedTimer timer;
        timer.start();
        viewer.page(page);
        ViewedPages::paint();
        seen.push_back(viewer.showsSomething() ? double(timer.nsecsElapsed()) / 1e6 : failed);
        sharp.push_back(viewer.waitForSharpness() ? double(timer.nsecsElapsed()) / 1e6 : failed);
    }
    return {median(seen), median(sharp)};
}

double timeFirstDraw(int rounds) {
    std::vector<double> times;
    for (int i = 0; i < rounds; ++i) {
        ViewedPages viewer;
        rest(2000);
        const double time = milliseconds([&] {
            viewer.button();
            ViewedPages::paint();
        });
        times.push_back(viewer.isSharp() ? time : failed);
    }
    return median(times);
}

void timeTurning(int rounds) {
    ViewedPages viewer;
    viewer.page(1);
    const auto time = [&](const QString& key) {
        return medianMilliseconds(
            rounds,
            [&] {
                viewer.key(key);
                ViewedPages::paint();
            },
            [&] {
                viewer.waitForSharpness();
                rest(1000);
            },
            [&] { return viewer.isSharp(); });
    };
    row(topic, {.what = "next page after a second of rest", .measured = time(u"xy"_s), .atMost = oneFrame});
    row(topic, {.what = "previous page after a second of rest", .measured = time(u"sy"_s), .atMost = oneFrame});
    row(topic, {.what = "the same page again", .measured = time(u"xs"_s), .atMost = oneFrame});
}

/// The next reading of a file comes from the disk. Another process does that: closing a descriptor of this one would
/// cost the engine its locks.
void emptyCacheOf(const QString& path) {
    QProcess::execute(u"dd"_s, {u"if="_s + path, u"iflag=nocache"_s, u"count=0"_s, u"status=none"_s});
}

void cat(const QStringList& files) {
    std::vector<char> piece(128 << 10);
    for (const QString& path : files) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) qFatal("cannot read");
        while (file.read(piece.data(), qint64(piece.size())) > 0) {
        }
    }
}

/// Pages that come from the disk: photographs of 3.7 MB, beside files of the same size. They are the last ones of an
/// album that is so large.
void timeColdPages(int rounds, double gigabytes, const Photographs& photographs) {
    const int firstColdPage = std::max(4, int(gigabytes * 1e9 / double(largeBytes * cells)) + 1 - rounds);
    const auto large = [&](int row) {
        QByteArray bytes = photographs.camera[size_t(row % scenes)];
        return bytes.append(QByteArray(std::max<qsizetype>(0, largeBytes - bytes.size()), 'x'));
    };
    mekTp::catalogue.Execute(u"DELETE FROM [tc01]"_s);
    fillAlbum(mekTp::catalogue, u"tc01"_s, (firstColdPage + rounds) * cells, large);
    const QTemporaryDir folder;
    QStringList files;
    for (int i = 0; i < cells; ++i) {
        QFile file(folder.filePath(QString::number(i)));
        if (!file.open(QIODevice::WriteOnly) || file.write(large(i)) < largeBytes) qFatal("cannot write");
        syncToDisk(file);
        files << file.fileName();
    }
    std::vector<double> cold, seen, warm, bare;
    for (int i = 0; i < rounds; ++i) {
        const int page = firstColdPage + i;
        for (const QString& file : files) emptyCacheOf(file);
        bare.push_back(milliseconds([&] { cat(files); }));
        emptyCacheOf(mekTp::cataloguePath());
        const auto [first, all] = timeNewPage(1, page);
        seen.push_back(first);
        cold.push_back(all);
        warm.push_back(timeNewPage(1, page).second);
    }
    row(topic, {.what = "36 of 3.7 MB, file cache empty: something in all 36 cells", .measured = median(seen)});
    row(topic, {.what = "36 of 3.7 MB, file cache empty: all sharp",
                .measured = median(cold),
                .peer = "cat of such files, file cache empty, and the page with a full one",
                .peerMeasured = median(bare) + median(warm),
                .timesPeer = 1.3});
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    applyLook(application);
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 5;
    const double gigabytes = argc > 2 ? std::atof(argv[2]) : 11;
    const SampleCatalogue catalogue;
    const Photographs photographs;
    mekTp::catalogue.Execute(u"DELETE FROM [tc01]"_s);
    fillAlbum(mekTp::catalogue, u"tc01"_s, pages * cells, [&](int number) { return photographs.at(number - 1); });

    timeTurning(std::min(rounds, 3));
    row(topic, {.what = "first page after two seconds on the cover", .measured = timeFirstDraw(rounds), .atMost = 50});
    const auto [seen, sharp] = timeNewPage(rounds, cameraPage);
    const double bare = medianMilliseconds(rounds, [&] { decodePage(photographs, 0); });
    row(topic, {.what = "camera files never seen: something in all 36 cells", .measured = seen, .atMost = 100});
    row(topic, {.what = "camera files never seen: all sharp",
                .measured = sharp,
                .peer = "JPEG library, 1/8, all processors",
                .peerMeasured = bare,
                .timesPeer = 1.1});
    const double baseline = timeNewPage(rounds, baselinePage).second;
    row(topic, {.what = "without previews, all sharp",
                .measured = baseline,
                .peer = "JPEG library, 1/8, all processors",
                .peerMeasured = bare,
                .timesPeer = 1.1});
    row(topic, {.what = "progressive, all sharp",
                .measured = timeNewPage(rounds, progressivePage).second,
                .peer = "the same photographs, baseline",
                .peerMeasured = baseline,
                .timesPeer = 1});
    row(topic, {.what = "with the profile Display P3, all sharp",
                .measured = timeNewPage(rounds, wideColoursPage).second,
                .peer = "the same photographs without a profile",
                .peerMeasured = baseline,
                .timesPeer = 1.1});
    timeColdPages(rounds, gigabytes, photographs);
}
