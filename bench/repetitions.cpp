// Times how the files of a choice are found that an album has already, beside the reading of these files. Nothing is in
// the file cache. Run by hand: bench_repetitions [rounds] [pictures in the album]

#include "../tests/support/sample_catalogue.h"
#include "bare_store.h"
#include "catalogue/mektp.h"
#include "catalogue/picture_hashes.h"
#include "catalogue/runs/repetition_count.h"
#include "filling.h"
#include "table.h"
#include "timing.h"

#include <QCoreApplication>
#include <QRandomGenerator>
#include <QSemaphore>
#include <QStorageInfo>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdlib>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int chosen = 200, repeated = 100;
constexpr qint64 usualLength = 4'000'000;
constexpr int usualAlbum = 10000;

/// Bytes like those of a photograph, each number of another length.
QByteArray picture(int number) {
    static const QByteArray noise = [] {
        QByteArray bytes(usualLength + 4 * usualAlbum, Qt::Uninitialized);
        QRandomGenerator(1).fillRange(reinterpret_cast<quint32*>(bytes.data()), bytes.size() / 4);
        return bytes;
    }();
    return QByteArray::number(number) + noise.first(usualLength + 2 * number) + '\xd9';
}

/// The pictures that are chosen have their own fingerprints, all others some of the same kind.
void makeAlbum(int count) {
    mekTp::catalogue.Execute(u"DELETE FROM [tc01]"_s);
    fillAlbum(mekTp::catalogue, u"tc01"_s, count, picture);
    Transaction together(mekTp::catalogue);
    PictureHashes hashes(mekTp::catalogue);
    if (!hashes.areKept()) throw Error(u"像册没有地方保存校验值"_s);
    const Recordset album = mekTp::catalogue.OpenRecordset(u"tc01"_s);
    for (int row = 0; row < count; ++row) {
        const QByteArray bytes = picture(row + 1);
        const Fingerprint print = row < repeated
                                      ? fingerprintOf(bytes)
                                      : Fingerprint{bytes.size(), fingerprintOf(QByteArray::number(row)).sha256};
        hashes.note(album.storedAt(row, u"图片"_s), print);
    }
    together.commit();
}

QStringList writeFiles(const QString& folder) {
    QStringList paths;
    for (int i = 1; i <= chosen; ++i) {
        paths << folder + u"/%1.jpg"_s.arg(i, 5, 10, QChar(u'0'));
        QFile file(paths.back());
        const int number = i <= repeated ? i : usualAlbum + i;
        if (!file.open(QIODevice::WriteOnly) || file.write(picture(number)) < 0) throw Error(file.errorString());
    }
    requireRun(u"sync"_s, {});
    return paths;
}

/// By another program: a descriptor of this one on the open catalogue would cost the engine its locks.
void emptyCache(const QStringList& paths) {
    for (const QString& path : paths)
        requireRun(u"dd"_s, {u"if="_s + path, u"iflag=nocache"_s, u"count=0"_s, u"status=none"_s});
}

int counted(const QStringList& paths) {
    QSemaphore done;
    int count = 0;
    const RepetitionCount repetitions(mekTp::cataloguePath(), u"tc01"_s, ChosenFiles{paths},
                                      [&](const Repetitions& found) {
                                          count = found.known;
                                          done.release();
                                      });
    done.acquire();
    return count;
}

void readAll(const QStringList& paths) {
    for (const QString& path : paths) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) || file.readAll().isEmpty()) throw Error(path);
    }
}

void compare(int rounds, int count) {
    const SampleCatalogue catalogue;
    mekTp::openCatalogue();  // makes room for the fingerprints
    makeAlbum(count);
    const QTemporaryDir folder;
    const QStringList paths = writeFiles(folder.path());
    const QStringList all = paths + QStringList{mekTp::cataloguePath()};
    std::vector<double> times, plain;
    for (int i = 0; i < rounds; ++i) {
        emptyCache(all);
        int found = 0;
        times.push_back(milliseconds([&] { found = counted(paths); }));
        if (found != repeated) throw Error(u"找到 %1 张"_s.arg(found));
        emptyCache(all);
        plain.push_back(milliseconds([&] { readAll(paths.first(repeated)); }));
    }
    row("repeats", {.what = "find " + std::to_string(repeated) + " of " + std::to_string(chosen) + " files among " +
                            std::to_string(count) + " of 4 MB",
                    .measured = median(times),
                    .peer = "reading these " + std::to_string(repeated),
                    .peerMeasured = median(plain),
                    .timesPeer = 1.3});
}

/// As many pictures as the disk has room for.
int roomFor(const QString& folder) {
    return int(
        std::clamp<qint64>(QStorageInfo(folder).bytesAvailable() * 3 / 4 / usualLength, 2 * repeated, usualAlbum));
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    try {
        compare(argc > 1 ? std::max(1, std::atoi(argv[1])) : 5,
                argc > 2 ? std::max(2 * repeated, std::atoi(argv[2])) : roomFor(QDir::tempPath()));
        return EXIT_SUCCESS;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return EXIT_FAILURE;
    }
}
