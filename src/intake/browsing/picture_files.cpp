#include "intake/browsing/picture_files.h"

#include "catalogue/mektp.h"
#include "platform/base/files.h"
#include "platform/base/odd_names.h"
#include "platform/desktop/file_lists.h"
#include "platform/picture/formats/picture_format.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <array>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int filesBetweenQuestions = 64;

bool isPicture(QByteArrayView beginning) {
    return pictureFormat(beginning) != PictureFormat::none;
}

/// The open album. Closing a descriptor of it would cost the engine its locks, under whatever name it was opened.
class OpenAlbum {
  public:
    OpenAlbum() { isThere_ = stat(QFile::encodeName(mekTp::cataloguePath()).constData(), &album_) == 0; }

    bool isAt(const QByteArray& path) const {
        struct stat file {};
        return isThere_ && stat(path.constData(), &file) == 0 && file.st_dev == album_.st_dev &&
               file.st_ino == album_.st_ino;
    }

  private:
    struct stat album_ {};
    bool isThere_ = false;
};

/// A tree may hold many thousands: the toolkit's file asks the system twice as often.
bool isPictureAt(const QString& path, const OpenAlbum& album) {
    const QByteArray name = QFile::encodeName(path);
    if (album.isAt(name)) return false;
    const int file = open(name.constData(), O_RDONLY | O_CLOEXEC);
    if (file >= 0) {
        std::array<char, formatBytes> beginning{};
        const auto length = read(file, beginning.data(), beginning.size());
        close(file);
        return length > 0 && isPicture(QByteArrayView(beginning.data(), length));
    }
    QFile odd;
    return isStandIn(path) && openForReading(odd, path, QIODevice::Unbuffered) && isPicture(odd.read(formatBytes));
}

class PictureWalk {
  public:
    PictureWalk(const QString& root, ListedFiles which, const std::function<bool(qsizetype)>& goesOn)
        : root_(root), which_(which), goesOn_(goesOn) {}

    QStringList run() {
        QStringList waiting{QString()};
        while (!waiting.isEmpty() && !ended_) enter(waiting.takeLast(), waiting);
        if (ended_) return {};
        sortNaturally(found_);
        return found_;
    }

  private:
    /// A folder, by its path from the root with a separator behind it; the root itself is empty.
    void enter(const QString& folder, QStringList& waiting) {
        const QString path = joinedPath(root_, folder);
        if (!isNew(path)) return;
        takeFiles(path, folder);
        QDirIterator inside(path, QDir::Dirs | QDir::NoDotAndDotDot);
        while (inside.hasNext()) {
            inside.next();
            waiting << folder + inside.fileName() + u'/';
        }
        ask();
    }

    bool isNew(const QString& path) {
        const QString real = QFileInfo(path).canonicalFilePath();
        if (real.isEmpty() || entered_.contains(real)) return false;
        entered_ << real;
        return true;
    }

    void takeFiles(const QString& path, const QString& folder) {
        const QStringList patterns = which_ == ListedFiles::byEnding ? picturePattern.split(u';') : QStringList{u"*"_s};
        for (const FolderEntry& entry : filesIn(path, patterns)) {
            if (ended_) return;
            if (which_ == ListedFiles::byEnding || isPictureAt(joinedPath(path, entry.name), album_))
                found_ << folder + entry.name;
            if (++seen_ % filesBetweenQuestions == 0) ask();
        }
    }

    void ask() { ended_ = ended_ || !goesOn_(found_.size()); }

    QString root_;
    ListedFiles which_;
    const std::function<bool(qsizetype)>& goesOn_;
    OpenAlbum album_;
    QStringList found_;
    QSet<QString> entered_;  ///< Folders, by their real paths.
    qsizetype seen_ = 0;
    bool ended_ = false;
};

}  // namespace

bool isPictureByContent(const QString& path) {
    return isPictureAt(path, OpenAlbum());
}

QStringList picturesBelow(const QString& folder, ListedFiles which,
                          const std::function<bool(qsizetype count)>& goesOn) {
    return PictureWalk(folder, which, goesOn).run();
}
