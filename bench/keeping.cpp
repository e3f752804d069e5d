// Times the verified backup, the proof of all pictures, and what the proof in the background takes. Run by hand:
// bench_keeping [pictures of 4 MB] [rounds]

#include "../tests/support/sample_catalogue.h"
#include "backup/catalogue_copy.h"
#include "bare_store.h"
#include "catalogue/background_hashing.h"
#include "catalogue/backup_file.h"
#include "catalogue/mektp.h"
#include "catalogue/picture_hashes.h"
#include "catalogue/runs/proof_run.h"
#include "filling.h"
#include "platform/database/records/own_values.h"
#include "table.h"

#include <sys/resource.h>

#include <QCoreApplication>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <thread>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr qint64 length = 4'000'000;
constexpr int onAPage = 36, pagesInTurn = 10, turns = 60;

QByteArray picture(int number) {
    static const QByteArray noise = [] {
        QByteArray bytes(length, Qt::Uninitialized);
        QRandomGenerator(1).fillRange(reinterpret_cast<quint32*>(bytes.data()), length / 4);
        return bytes;
    }();
    return QByteArray::number(number) + noise + '\xd9';
}

/// All have fingerprints, and count as decoded.
void makeAlbum(int count) {
    mekTp::openCatalogue();
    mekTp::catalogue.Execute(u"DELETE FROM [tc01]"_s);
    fillAlbum(mekTp::catalogue, u"tc01"_s, count, picture);
    giveIdentity(mekTp::catalogue);
    OwnValues(mekTp::catalogue).setValue(u"proof.decoded"_s, u"1000000000"_s);
    RunWatch watch;
    proveCatalogue(mekTp::cataloguePath(), watch);
}

std::string megabytes(int count) {
    return std::to_string(qint64(count) * length / 1'000'000) + " MB";
}

void timeBackup(int count, int rounds) {
    const QTemporaryDir folder;
    const QString copy = folder.filePath(u"copy.mdb"_s), backup = folder.filePath(u"lunq.mdb"_s);
    const auto removeAll = [&] {
        for (const QFileInfo& file : QDir(folder.path()).entryInfoList(QDir::Files)) QFile::remove(file.filePath());
        requireRun(u"sync"_s, {});
    };
    std::vector<double> times, plain;
    for (int i = 0; i < rounds; ++i) {
        removeAll();
        plain.push_back(milliseconds([&] {
            copyAndSync(mekTp::cataloguePath(), copy);
            requireRun(u"sha256sum"_s, {copy});
        }));
        removeAll();
        times.push_back(milliseconds([&] { copyCatalogue(mekTp::cataloguePath(), backup); }));
    }
    row("keeping", {.what = "backup of " + megabytes(count) + ", verified",
                    .measured = median(times),
                    .peer = "cp and sync, sha256sum of the copy",
                    .peerMeasured = median(plain),
                    .timesPeer = 1.0});
}

void timeProof(int count, int rounds) {
    const double plain = medianMilliseconds(rounds, [] { requireRun(u"sha256sum"_s, {mekTp::cataloguePath()}); });
    const double time = medianMilliseconds(rounds, [&] {
        RunWatch watch;
        if (proveCatalogue(mekTp::cataloguePath(), watch).count < count) throw Error(u"不是全部"_s);
    });
    row("keeping", {.what = "proof of " + megabytes(count) + ", in the file cache",
                    .measured = time,
                    .peer = "sha256sum of the file",
                    .peerMeasured = plain,
                    .timesPeer = 0.5});
}

/// Of all threads of this process.
double processorMs() {
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    const auto ms = [](const timeval& time) { return double(time.tv_sec) * 1e3 + double(time.tv_usec) / 1e3; };
    return ms(used.ru_utime) + ms(used.ru_stime);
}

/// Times of reading the pictures of some pages, with a moment of rest between them.
std::vector<double> readPages(const Recordset& album) {
    std::vector<double> times;
    for (int page = 0; page < pagesInTurn; ++page) {
        times.push_back(milliseconds([&] {
            for (int i = 0; i < onAPage; ++i)
                album.storedAt((page * onAPage + i) % album.rowCount(), u"图片"_s).read(0, length);
        }));
        std::this_thread::sleep_for(20ms);
    }
    return times;
}

double percentile95(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() * 95 / 100];
}

/// At its own pace. It is halted for every other turn of pages, and neighbouring turns are compared: both kinds are to
/// meet the same machine.
void measureBackground() {
    const Recordset album = mekTp::catalogue.OpenRecordset(u"tc01"_s);
    requireRun(u"sqlite3"_s, {mekTp::cataloguePath(), u"UPDATE lunq_hashes SET checked = '2001-01-01'"_s});
    std::atomic<bool> mayWork = true;
    const BackgroundHashing proving(
        mekTp::cataloguePath(), [&] { return mayWork.load(); }, [] {}, {.start = 0ms});
    std::this_thread::sleep_for(1s);
    QElapsedTimer timer;
    timer.start();
    const double before = processorMs();
    std::this_thread::sleep_for(10s);
    row("keeping", {.what = "proof in the background: share of a processor",
                    .measured = 100 * (processorMs() - before) / double(timer.elapsed()),
                    .unit = "%",
                    .atMost = 5});
    std::vector<double> all[2], delays;  // without it, with it
    double last = 0;
    for (int turn = 0; turn < turns; ++turn) {
        mayWork = turn % 2 == 1;
        std::this_thread::sleep_for(300ms);
        const std::vector<double> times = readPages(album);
        all[mayWork].insert(all[mayWork].end(), times.begin(), times.end());
        if (mayWork) delays.push_back(median(times) - last);
        last = median(times);
    }
    row("keeping", {.what = "proof in the background: delay of a page, median",
                    .measured = std::max(0.0, median(delays)),
                    .atMost = 1});
    row("keeping", {.what = "the same: delay of the slowest but one of 20 pages",
                    .measured = std::max(0.0, percentile95(all[1]) - percentile95(all[0]))});
    row("keeping", {.what = "such a page by itself", .measured = median(all[0])});
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const int count = argc > 1 ? std::max(100, std::atoi(argv[1])) : 1000;
    const int rounds = argc > 2 ? std::max(1, std::atoi(argv[2])) : 3;
    try {
        const SampleCatalogue catalogue;
        makeAlbum(count);
        timeProof(count, rounds);
        timeBackup(count, rounds);
        measureBackground();
        return EXIT_SUCCESS;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return EXIT_FAILURE;
    }
}
