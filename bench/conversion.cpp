// Times the conversion of an old catalogue of 1 GB, with the comparing of all its pictures, beside a copy of the file.
// Run by hand: bench_conversion [rounds [megabytes]]

#include "catalogue/conversion/conversion.h"

#include "../tests/support/sample_catalogue.h"
#include "bare_store.h"
#include "catalogue/mektp.h"
#include "jet_maker/old_catalogue.h"
#include "memory.h"
#include "platform/base/error.h"
#include "scene.h"
#include "table.h"

#include <malloc.h>

#include <QApplication>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr auto topic = "conversion";

/// Photographs of that many megabytes in all; no two are alike.
void writeOldCatalogue(const QString& path, int megabytes) {
    const QByteArray photo = coded(photograph());
    const auto count = qsizetype(megabytes) * 1'000'000 / photo.size();
    jet::OldCatalogue old{.albums = {{u"tc01"_s, u"旅行"_s}}, .buttonPicture = pictureBytes({100, 75}, Qt::green)};
    for (qsizetype i = 0; i < count; ++i) {
        QByteArray other = photo;
        other.replace(other.size() / 2, 4, QByteArray::number(1000 + i));
        old.albums[0].pictures << jet::withTail(other);
    }
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(jet::database(jet::oldCatalogueTables(old))) < 0)
        throw Error(u"“%1”不能写入"_s.arg(path));
}

void measure(int rounds, int megabytes) {
    const SampleCatalogue fresh;
    mekTp::catalogue = {};
    const QTemporaryDir folder;
    const QString old = folder.filePath(u"lunq.mdb"_s), made = folder.filePath(u"new.mdb"_s);
    writeOldCatalogue(old, megabytes);
    malloc_trim(0);
    std::vector<double> times, copies;
    double most = 0;
    for (int round = 0; round < rounds; ++round) {
        QFile::remove(made);
        requireRun(u"sync"_s, {});
        forgetPeak();
        const double before = memory("VmRSS:");
        const HelperMemory helpers;
        times.push_back(milliseconds([&] {
            RunWatch watch;
            const RunReport report = convertCatalogue({old, fresh.file(u"lunq.mdb"_s), made}, watch);
            if (!report.cameToEnd) throw Error(report.failure);
        }));
        most = std::max(most, memory("VmHWM:") - before + helpers.most());
        const QString copy = folder.filePath(u"copy.mdb"_s);
        QFile::remove(copy);
        requireRun(u"sync"_s, {});
        copies.push_back(milliseconds([&] { copyAndSync(old, copy); }));
    }
    char what[80];
    std::snprintf(what, sizeof what, "convert and compare a catalogue of %d MB", megabytes);
    row(topic, {.what = what,
                .measured = median(times),
                .peer = "cp and sync of it",
                .peerMeasured = median(copies),
                .timesPeer = 4});
    row(topic, {.what = "the same: memory, helpers included", .measured = most, .unit = "MB", .atMost = 120});
}

}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 3;
    const int megabytes = argc > 2 ? std::max(1, std::atoi(argv[2])) : 1000;
    try {
        measure(rounds, megabytes);
        return EXIT_SUCCESS;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return EXIT_FAILURE;
    }
}
