// Times the page 图片录入 with files, from the click to the closing message, beside a copy of the same files and the
// engine alone with the same bytes. Run by hand: bench_intake [rounds]

#include "../tests/intake/intake_window.h"
#include "bare_store.h"
#include "photo_files.h"
#include "platform/desktop/look.h"
#include "run_meter.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto topic = "intake";

struct Kind {
    int count;
    int width;
    int quality;
    double timesCopy;
    double timesEngine;
};

RunCost intake(const QStringList& paths) {
    IntakeWindow window;
    for (const QString& path : paths) QFile::link(path, window.path(QFileInfo(path).fileName()));
    window.prepare(u"tc02"_s, 1);
    window.click(u"cmdQx"_s);
    const RunCost cost = measureRun(window, u"cmdLr"_s, u"图片录入完成！"_s);
    if (mekTp::catalogue.OpenRecordset(u"tc02"_s).rowCount() != paths.size()) throw Error(u"图片没有全部录入"_s);
    return cost;
}

void compare(const Kind& kind, int rounds) {
    const QTemporaryDir files;
    const PhotoFiles photographs(kind.width, kind.quality);
    const QStringList paths = photographs.write(files.path(), kind.count);
    const double megabytes = double(QFileInfo(paths.back()).size()) / 1e6;
    RunCosts costs;
    std::vector<double> copies, engine;
    for (int i = 0; i < rounds; ++i) {
        requireRun(u"sync"_s, {});
        costs.add(intake(paths));
        const QTemporaryDir copy;
        requireRun(u"sync"_s, {});
        copies.push_back(milliseconds([&] { copyAndSync(files.path(), copy.filePath(u"copy"_s)); }));
        requireRun(u"sync"_s, {});
        const BareStore store(copy.filePath(u"bare.db"_s));
        engine.push_back(milliseconds([&] { store.storeFiles(paths, 8); }));
    }
    char what[80];
    std::snprintf(what, sizeof what, "take in %d files of %.2f MB", kind.count, megabytes);
    const auto tell = [&](const char* peer, const std::vector<double>& times, double atMost) {
        row(topic,
            {.what = what, .measured = costs.time(), .peer = peer, .peerMeasured = median(times), .timesPeer = atMost});
    };
    tell("cp -r and sync", copies, kind.timesCopy);
    tell("bare SQLite, 8 a change", engine, kind.timesEngine);
    costs.tellRest(topic, what);
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    applyLook(application);
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 5;
    try {
        compare({200, 4000, 91, 2.5, 1.3}, rounds);
        compare({1500, 1020, 85, 3.5, 1.5}, rounds);
        return EXIT_SUCCESS;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return EXIT_FAILURE;
    }
}
