#include "catalogue/runs/repetition_count.h"

#include "catalogue/picture_hashes.h"
#include "catalogue/runs/picture_storing.h"
#include "catalogue/runs/source_record.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/base/odd_names.h"

#include <QFile>
#include <atomic>
#include <thread>
#include <utility>
#include <vector>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#endif

using namespace Qt::Literals::StringLiterals;

namespace {

bool open(QFile& file, const QString& path) {
    // Opening a pipe would wait for ever.
    return (isStandIn(path) || fileExists(path)) && openForReading(file, path, QIODevice::Unbuffered);
}

bool isRepeatedAsJpeg(KnownPictures& album, const QString& path) {
    PictureInHand file(path);
    const QByteArray jpeg = jpegOfBmp(file);
    return !jpeg.isEmpty() && album.has(fingerprintOf(jpeg));
}

/// Of a file that has one of these lengths; of any other it is empty.
Fingerprint printOf(const QString& path, const QSet<qint64>& lengths, const GoesOn& goesOn) {
    QFile file;
    if (!open(file, path)) return {};
    const qint64 length = lengthWithoutZeros(file);
    if (length == 0 || !lengths.contains(length)) return {};
#ifdef Q_OS_UNIX
    posix_fadvise(file.handle(), 0, 0, POSIX_FADV_WILLNEED);  // the disk goes on while the first pieces are hashed
#endif
    return fingerprintOf(file, goesOn);
}

/// On two processors: one alone takes as long for hashing as the disk for reading.
std::vector<Fingerprint> printsOf(const QStringList& paths, const QSet<qint64>& lengths, const GoesOn& goesOn) {
    std::vector<Fingerprint> prints(size_t(paths.size()));
    std::atomic<qsizetype> next = 0;
    const auto work = [&] {
        for (qsizetype i = next++; i < paths.size() && goesOn(); i = next++)
            attempt([&] { prints[size_t(i)] = printOf(paths[i], lengths, goesOn); });
    };
    std::jthread other(work);
    work();
    other.join();
    return prints;
}

}  // namespace

int countRepetitions(KnownPictures& album, const QStringList& paths, const GoesOn& goesOn) {
    const std::vector<Fingerprint> prints = printsOf(paths, album.lengths(), goesOn);
    int count = 0;
    for (qsizetype i = 0; i < paths.size() && goesOn(); ++i) {
        const Fingerprint& print = prints[size_t(i)];
        bool isRepeated = !print.sha256.isEmpty() && album.has(print);
        if (!isRepeated && paths[i].endsWith(u"bmp"_s))
            attempt([&] { isRepeated = isRepeatedAsJpeg(album, paths[i]); });
        count += isRepeated ? 1 : 0;
    }
    return count;
}

int countRepetitions(KnownPictures& album, const CopyOrder& records, const GoesOn& goesOn) {
    const Database source = OpenDatabase(records.sourcePath);
    const SourceReader reader(source, records, false);
    const PictureHashes kept(source);
    int count = 0;
    for (qsizetype place = 0; place < records.records.size() && goesOn(); ++place)
        attempt([&] {
            const StoredValue picture = reader.picture(source, place);
            if (picture.isNull() || !album.hasLength(lengthWithoutZeros(picture))) return;
            const Fingerprint print = kept.of(picture);
            count += album.has(print.sha256.isEmpty() ? fingerprintOf(picture, goesOn) : print) ? 1 : 0;
        });
    return count;
}

RepetitionCount::RepetitionCount(const QString& catalogue, const QString& album, const Things& things,
                                 const std::function<void(int)>& counted)
    : thread_([=](FreeThread::Owner& owner) {
          const GoesOn goesOn = [&] { return owner.isThere(); };
          KnownPictures known(OpenDatabase(catalogue), album, goesOn);
          const int count = std::visit([&](const auto& each) { return countRepetitions(known, each, goesOn); }, things);
          owner.tell([&] { counted(count); });
      }) {}
