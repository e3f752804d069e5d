// Times the page 图片录入 with files, from the click to the closing message, beside a copy of the same files and the
// engine alone with the same bytes; with files of other formats beside programs and libraries that turn them into JPEG.
// Run by hand: bench_intake [rounds]

#include "../tests/intake/intake_window.h"
#include "../tests/platform/picture/formats/format_samples.h"
#include "bare_store.h"
#include "photo_files.h"
#include "platform/desktop/look.h"
#include "png_library.h"
#include "run_meter.h"

#include <malloc.h>

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

void write(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) throw Error(file.errorString());
}

RunCost intake(const QStringList& paths, bool otherFormats = false) {
    IntakeWindow window;
    for (const QString& path : paths) QFile::link(path, window.path(QFileInfo(path).fileName()));
    window.prepare(u"tc02"_s, 1);
    auto& box = window.get<QCheckBox>(u"chkGs"_s);
    if (box.isChecked() != otherFormats) QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, 10));
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

constexpr int jpegQuality = 92;
constexpr int otherFiles = 24;

/// Files of another format, and who else turns those of one folder into JPEG files of another one.
struct OtherKind {
    const char* name;
    QString ending;
    QByteArray bytes;
    const char* peer;
    std::function<void(const QString& from, const QString& to)> byPeer;
};

void heifConvert(const QString& from, const QString& to) {
    const QString all =
        u"cd \"$1\" && ls \"$0\" | xargs -P$(nproc) -I{} heif-convert -q %1 \"$0\"/{} {}.jpg >/dev/null"_s;
    requireRun(u"sh"_s, {u"-c"_s, all.arg(jpegQuality), from, to});
}

void pngByLibraries(const QString& from, const QString& to) {
    const QStringList names = QDir(from).entryList(QDir::Files);
    onAllProcessors(int(names.size()), [&](int number) {
        QFile file(from + u'/' + names[number]);
        if (!file.open(QIODevice::ReadOnly)) qFatal("cannot read");
        write(to + u'/' + names[number], jpegByLibraries(file.readAll(), jpegQuality));
    });
}

/// In a run of its own: looking takes time.
double memoryWithHelpers(const QStringList& paths) {
    malloc_trim(0);  // what the runs before have left
    const HelperMemory helpers;
    const double before = memory("VmRSS:");
    intake(paths, true);
    return helpers.mostTogether() - before;
}

void compareOther(const OtherKind& kind, int rounds) {
    const QTemporaryDir files;
    QStringList paths;
    for (int number = 1; number <= otherFiles; ++number) {
        paths << files.filePath(u"%1.%2"_s.arg(number).arg(kind.ending));
        write(paths.back(), kind.bytes);
    }
    RunCosts costs;
    std::vector<double> peers;
    for (int i = 0; i < rounds; ++i) {
        costs.add(intake(paths, true));
        const QTemporaryDir made;
        peers.push_back(milliseconds([&] { kind.byPeer(files.path(), made.path()); }));
    }
    const std::string what = "take in " + std::to_string(otherFiles) + ' ' + kind.name;
    row(topic,
        {.what = what, .measured = costs.time(), .peer = kind.peer, .peerMeasured = median(peers), .timesPeer = 1.2});
    costs.tellRest(topic, what);
    row(topic, {.what = what + ": memory with helpers", .measured = memoryWithHelpers(paths), .unit = "MB"});
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
        compareOther({"HEIC of 12 MP", u"heic"_s, heifBytes(photograph()), "heif-convert, all processors", heifConvert},
                     rounds);
        compareOther({"PNG of 8 MP", u"png"_s, pngBytes(photograph().copy(0, 0, 3264, 2448)),
                      "libpng and libjpeg-turbo, all processors", pngByLibraries},
                     rounds);
        return EXIT_SUCCESS;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return EXIT_FAILURE;
    }
}
