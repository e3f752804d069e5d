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

/// What a look at a file has found.
struct Look {
    Fingerprint print = {};  ///< Of a file that has a length of the album; of any other it is empty.
    bool isOpen = false;     ///< It becomes a JPEG.
};

Look lookAt(const QString& path, bool otherFormats, const QSet<qint64>& lengths, const GoesOn& goesOn) {
    QFile file;
    if (!open(file, path)) return {};
    if (otherFormats && isOfOtherFormat(file)) return {.isOpen = true};
    const qint64 length = lengthWithoutZeros(file);
    if (length == 0 || !lengths.contains(length)) return {};
#ifdef Q_OS_UNIX
    posix_fadvise(file.handle(), 0, 0, POSIX_FADV_WILLNEED);  // the disk goes on while the first pieces are hashed
#endif
    return {.print = fingerprintOf(file, goesOn)};
}

/// On two processors: one alone takes as long for hashing as the disk for reading.
std::vector<Look> lookAt(const ChosenFiles& files, const QSet<qint64>& lengths, const GoesOn& goesOn) {
    const QStringList& paths = files.paths;
    std::vector<Look> looks(size_t(paths.size()));
    std::atomic<qsizetype> next = 0;
    const auto work = [&] {
        for (qsizetype i = next++; i < paths.size() && goesOn(); i = next++)
            attempt([&] { looks[size_t(i)] = lookAt(paths[i], files.otherFormats, lengths, goesOn); });
    };
    std::jthread other(work);
    work();
    other.join();
    return looks;
}

}  // namespace

Repetitions countRepetitions(KnownPictures& album, const ChosenFiles& files, const GoesOn& goesOn) {
    const std::vector<Look> looks = lookAt(files, album.lengths(), goesOn);
    Repetitions count;
    for (qsizetype i = 0; i < files.paths.size() && goesOn(); ++i) {
        const auto& [print, isOpen] = looks[size_t(i)];
        bool isRepeated = !print.sha256.isEmpty() && album.has(print);
        if (!isRepeated && !isOpen && files.paths[i].endsWith(u"bmp"_s))
            attempt([&] { isRepeated = isRepeatedAsJpeg(album, files.paths[i]); });
        count.known += isRepeated ? 1 : 0;
        count.open += isOpen ? 1 : 0;
    }
    return count;
}

Repetitions countRepetitions(KnownPictures& album, const CopyOrder& records, const GoesOn& goesOn) {
    const Database source = OpenDatabase(records.sourcePath);
    const SourceReader reader(source, records, false);
    const PictureHashes kept(source);
    Repetitions count;
    for (qsizetype place = 0; place < records.records.size() && goesOn(); ++place)
        attempt([&] {
            const StoredValue picture = reader.picture(source, place);
            if (picture.isNull() || !album.hasLength(lengthWithoutZeros(picture))) return;
            const Fingerprint print = kept.of(picture);
            count.known += album.has(print.sha256.isEmpty() ? fingerprintOf(picture, goesOn) : print) ? 1 : 0;
        });
    return count;
}

RepetitionCount::RepetitionCount(const QString& catalogue, const QString& album, const Things& things,
                                 const std::function<void(const Repetitions&)>& counted)
    : thread_([=](FreeThread::Owner& owner) {
          const GoesOn goesOn = [&] { return owner.isThere(); };
          KnownPictures known(OpenDatabase(catalogue), album, goesOn);
          const Repetitions count =
              std::visit([&](const auto& each) { return countRepetitions(known, each, goesOn); }, things);
          owner.tell([&] { counted(count); });
      }) {}
