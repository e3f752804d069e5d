// Times the pages of the main window: 36 photographs of 12 megapixels to a page. Run by hand: bench_page [rounds]

#include "../tests/platform/picture/picture_samples.h"
#include "../tests/viewer/viewer_window.h"
#include "filling.h"
#include "jpeg_library.h"
#include "platform/base/files.h"
#include "platform/desktop/look.h"
#include "platform/picture/wide_colours.h"
#include "scene.h"
#include "table.h"
#include "timing.h"

#include <QBuffer>
#include <QImageWriter>
#include <QProcess>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto topic = "page";
constexpr unsigned displayP3 = 12;
constexpr int columns = 6;
constexpr int cells = columns * columns;
constexpr int scenes = 12;
constexpr double oneFrame = 33;
// Wider than any preview.
constexpr int sharpWidth = 165;
constexpr int patience = 30000;
// The album's pages, counted from 1. The first two are decoded ahead as soon as the window rests.
constexpr int pages = 6;
constexpr int cameraPage = 3, baselinePage = 4, progressivePage = 5, wideColoursPage = 6;
// Of the album that comes from the disk.
constexpr int firstColdPage = 4;
constexpr qsizetype largeBytes = 3'700'000;

QByteArray coded(const QImage& image, bool progressive) {
    QBuffer buffer;
    QImageWriter writer(&buffer, "jpeg");
    writer.setQuality(85);
    writer.setProgressiveScanWrite(progressive);
    writer.write(image);
    return buffer.data();
}

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

void rest(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

/// A window on the album that has shown none of its pages yet.
class Viewer {
  public:
    Viewer() {
        window_.resize(1280, 900);
        window_.show();
        window_.findChild<QAction*>(u"mnuCd(1)"_s)->trigger();
        box(u"txtLs"_s)->setText(QString::number(columns) + u'列');
        QApplication::processEvents();
    }

    void key(const QString& key) { window_.findChild<QToolButton*>(u"tlb1:"_s + key)->click(); }
    void button() { Q_EMIT window_.findChild<ImageBox*>(u"imgAn(0)"_s)->clicked(); }
    void page(int number) {
        box(u"txtYh"_s)->setText(QString::number(number));
        Q_EMIT box(u"txtYh"_s)->textEdited(QString::number(number));
        key(u"xs"_s);
    }
    /// Until the window shows what the click has changed.
    static void paint() { QApplication::processEvents(); }

    bool showsAll(int atLeastPixelsWide) const {
        for (int i = 0; i < cells; ++i)
            if (window_.findChild<ImageBox*>(element(u"imgXs"_s, i))->picture().image().width() < atLeastPixelsWide)
                return false;
        return true;
    }
    bool isSharp() const { return showsAll(sharpWidth); }
    /// Until every cell has its own picture in full sharpness; false when that does not come. The window's clock wakes
    /// the loop.
    bool waitForSharpness() const {
        QElapsedTimer timer;
        timer.start();
        while (!isSharp() && !timer.hasExpired(patience)) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
        paint();
        return isSharp();
    }

  private:
    TextBox* box(const QString& name) { return window_.findChild<TextBox*>(name); }
    RecordingWindows windows_;
    frmTp window_{windows_};
};

/// Times a page in a window that has never shown it: until every cell shows something, and until every cell is sharp.
std::pair<double, double> timeNewPage(int rounds, int page) {
    std::vector<double> seen, sharp;
    for (int i = 0; i < rounds; ++i) {
        Viewer viewer;
        QElapsedTimer timer;
        timer.start();
        viewer.page(page);
        Viewer::paint();
        seen.push_back(viewer.showsAll(1) ? double(timer.nsecsElapsed()) / 1e6 : failed);
        sharp.push_back(viewer.waitForSharpness() ? double(timer.nsecsElapsed()) / 1e6 : failed);
    }
    return {median(seen), median(sharp)};
}

double timeFirstDraw(int rounds) {
    std::vector<double> times;
    for (int i = 0; i < rounds; ++i) {
        Viewer viewer;
        rest(2000);
        const double time = milliseconds([&] {
            viewer.button();
            Viewer::paint();
        });
        times.push_back(viewer.isSharp() ? time : failed);
    }
    return median(times);
}

void timeTurning(int rounds) {
    Viewer viewer;
    viewer.page(1);
    const auto time = [&](const QString& key) {
        return medianMilliseconds(
            rounds,
            [&] {
                viewer.key(key);
                Viewer::paint();
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

/// Pages that come from the disk: photographs of 3.7 MB, beside files of the same size.
void timeColdPages(int rounds, const Photographs& photographs) {
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
    timeColdPages(rounds, photographs);
}
