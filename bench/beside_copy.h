#pragma once

#include "../tests/support/sample_catalogue.h"
#include "memory.h"
#include "scene.h"
#include "table.h"

#include <QApplication>

/// Times what makes a catalogue out of another one, beside `cp` and `sync` of that, and the memory that it takes with
/// its helpers. `work` makes `made`, and throws when that did not work out.
template <typename Work>
void rowsBesideCopy(const char* topic, const std::string& what, const QString& source, const QString& made, int rounds,
                    Work work) {
    std::vector<double> times, copies;
    double most = 0;
    const QString copy = made + QStringLiteral(".copy");
    for (int round = 0; round < rounds; ++round) {
        for (const QString& file : {made, copy}) QFile::remove(file);
        requireRun(QStringLiteral("sync"), {});
        forgetPeak();
        const double before = memory("VmRSS:");
        const HelperMemory helpers;
        times.push_back(milliseconds(work));
        most = std::max(most, memory("VmHWM:") - before + helpers.most());
        requireRun(QStringLiteral("sync"), {});
        copies.push_back(milliseconds([&] { copyAndSync(source, copy); }));
    }
    row(topic, {.what = what,
                .measured = median(times),
                .peer = "cp and sync of it",
                .peerMeasured = median(copies),
                .timesPeer = 4});
    row(topic, {.what = "the same: memory, helpers included", .measured = most, .unit = "MB", .atMost = 120});
}

/// The whole program: its arguments are rounds and megabytes.
inline int runBesideCopy(int argc, char** argv, void (*measure)(int rounds, int megabytes)) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    try {
        measure(argc > 1 ? std::max(1, std::atoi(argv[1])) : 3, argc > 2 ? std::max(20, std::atoi(argv[2])) : 1000);
        return EXIT_SUCCESS;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return EXIT_FAILURE;
    }
}
