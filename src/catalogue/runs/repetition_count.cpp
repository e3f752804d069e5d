#include "catalogue/runs/repetition_count.h"

#include "catalogue/picture_hashes.h"
#include "catalogue/runs/picture_storing.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/base/odd_names.h"

#include <QFile>

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

bool isRepeated(KnownPictures& album, const QString& path, const GoesOn& goesOn) {
    if (path.endsWith(u"bmp"_s) && isRepeatedAsJpeg(album, path)) return true;
    QFile file;
    if (!open(file, path)) return false;
    const qint64 length = lengthWithoutZeros(file);
    return length > 0 && album.hasLength(length) && album.has(fingerprintOf(file, goesOn));
}

/// The disk is to bring the next file while this one is looked at.
void askFor(KnownPictures& album, const QString& path) {
#ifdef Q_OS_UNIX
    QFile file;
    if (open(file, path) && album.hasLength(lengthWithoutZeros(file)))
        posix_fadvise(file.handle(), 0, 0, POSIX_FADV_WILLNEED);
#endif
}

}  // namespace

int countRepetitions(KnownPictures& album, const QStringList& paths, const GoesOn& goesOn) {
    int count = 0;
    for (qsizetype i = 0; i < paths.size() && goesOn(); ++i) {
        if (i + 1 < paths.size()) attempt([&] { askFor(album, paths[i + 1]); });
        attempt([&] { count += isRepeated(album, paths[i], goesOn) ? 1 : 0; });
    }
    return count;
}

RepetitionCount::RepetitionCount(const QString& catalogue, const QString& album, const QStringList& paths,
                                 std::function<void(int)> counted)
    : thread_([=](const std::stop_token& stop) {
          const GoesOn goesOn = [&stop] { return !stop.stop_requested(); };
          attempt([&] {
              KnownPictures known(OpenDatabase(catalogue), album, goesOn);
              const int count = countRepetitions(known, paths, goesOn);
              if (goesOn()) counted(count);
          });
      }) {}
