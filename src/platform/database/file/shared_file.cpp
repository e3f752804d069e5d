#include "platform/database/file/shared_file.h"

#include "platform/base/error.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <limits>
#include <vector>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using namespace Qt::Literals::StringLiterals;

namespace {

struct Registry {
    std::mutex mutex;
    std::vector<std::weak_ptr<SharedFile>> files;
};

Registry& registry() {
    static Registry one;
    return one;
}

}  // namespace

SharedFile::SharedFile(Identity identity, std::unique_ptr<ForeignCopy> foreign)
    : identity_(std::move(identity)), foreign_(std::move(foreign)) {}

SharedFile::Identity SharedFile::identityOf(const QString& path) {
#ifdef Q_OS_UNIX
    struct stat found {};
    if (stat(QFile::encodeName(path).constData(), &found) == 0)
        return {quint64(found.st_dev), quint64(found.st_ino), QString()};
#endif
    return {0, 0, QFileInfo(path).canonicalFilePath()};
}

std::shared_ptr<SharedFile> SharedFile::find(const QString& path) {
    const Identity wanted = identityOf(path);
    Registry& known = registry();
    const std::lock_guard lock(known.mutex);
    for (const auto& weak : known.files) {
        auto file = weak.lock();
        if (file && file->identity_ == wanted && (!file->foreign_ || file->foreign_->isCurrent())) return file;
    }
    return nullptr;
}

std::shared_ptr<SharedFile> SharedFile::alone(const QString& path, std::unique_ptr<ForeignCopy> foreign) {
    return std::shared_ptr<SharedFile>(new SharedFile(identityOf(path), std::move(foreign)));
}

std::shared_ptr<SharedFile> SharedFile::add(const QString& path, std::unique_ptr<ForeignCopy> foreign) {
    std::shared_ptr<SharedFile> file = alone(path, std::move(foreign));
    Registry& known = registry();
    const std::lock_guard lock(known.mutex);
    std::erase_if(known.files, [](const auto& weak) { return weak.expired(); });
    known.files.push_back(file);
    return file;
}

void SharedFile::noteRowIds(const QString& table, qint64 highest) {
    const std::lock_guard lock(mutex_);
    qint64& noted = highestRowIds_[table.toLower()];
    noted = std::max(noted, highest);
}

qint64 SharedFile::newRowId(const QString& table, qint64 highest) {
    const std::lock_guard lock(mutex_);
    qint64& noted = highestRowIds_[table.toLower()];
    noted = std::max(noted, highest);
    if (noted == std::numeric_limits<qint64>::max()) throw Error(u"表“%1”已满。"_s.arg(table));
    return ++noted;
}
