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

#include <QCoreApplication>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QThread>
#include <cstdlib>
#include <ctime>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr qint64 length = 4'000'000;
constexpr int onAPage = 36, pages = 15;

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

/// Reading the pictures of a page.
double pageTime(const Recordset& album) {
    std::vector<double> times;
    for (int page = 0; page < pages; ++page) {
        times.push_back(milliseconds([&] {
            for (int i = 0; i < onAPage; ++i)
                album.storedAt((page * onAPage + i) % album.rowCount(), u"图片"_s).read(0, length);
        }));
        QThread::msleep(100);
    }
    return median(times);
}

double processorMs() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

void measureBackground() {
    const Recordset album = mekTp::catalogue.OpenRecordset(u"tc01"_s);
    const double alone = pageTime(album);
    requireRun(u"sqlite3"_s, {mekTp::cataloguePath(), u"UPDATE lunq_hashes SET checked = '2001-01-01'"_s});
    const BackgroundHashing proving(
        mekTp::cataloguePath(), [] { return true; }, [] {}, {.start = 0ms});
    QThread::msleep(2000);
    QElapsedTimer timer;
    timer.start();
    const double before = processorMs();
    QThread::msleep(5000);
    row("keeping", {.what = "proof in the background: share of a processor",
                    .measured = 100 * (processorMs() - before) / double(timer.elapsed()),
                    .unit = "%",
                    .atMost = 5});
    row("keeping", {.what = "proof in the background: delay of a page",
                    .measured = std::max(0.0, pageTime(album) - alone),
                    .atMost = 1});
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
