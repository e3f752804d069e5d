#include "catalogue/conversion/conversion_files.h"

#include "catalogue/album_tables.h"
#include "platform/base/error.h"
#include "platform/base/files.h"

#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>
#include <filesystem>
#include <system_error>

using namespace Qt::Literals::StringLiterals;

namespace {

QString realPath(const QString& path) {
    const QString real = QFileInfo(path).canonicalFilePath();
    return real.isEmpty() ? path : real;
}

QString journalOf(const QString& database) {
    return database + u"-journal"_s;
}

bool isThere(const QString& path) {
    return QFileInfo::exists(path) || QFileInfo(path).isSymLink();
}

void removeDatabase(const QString& path) {
    for (const QString& file : {path, journalOf(path)}) QFile::remove(file);
}

void rename(const QString& from, const QString& to) {
    std::error_code failed;
    std::filesystem::rename(QFileInfo(from).filesystemFilePath(), QFileInfo(to).filesystemFilePath(), failed);
    if (failed) throw Error(u"文件“%1”不能改名为“%2”：%3。"_s.arg(from, to, writeFailure(to, u"系统不允许"_s)));
}

}  // namespace

ConversionFiles::ConversionFiles(const QString& catalogue) : catalogue_(realPath(catalogue)) {
    const QFileInfo file(catalogue_);
    folder_ = file.absolutePath();
    base_ = joinedPath(folder_, file.completeBaseName());
    half_ = base_ + u"-转换中.mdb"_s;
    whole_ = base_ + u"-转换好.mdb"_s;
}

void ConversionFiles::begin() const {
    if (!isThere(catalogue_)) throw Error(u"旧像册“%1”不见了，不能转换。"_s.arg(catalogue_));
    if (!isWritableNow(folder_))
        throw Error(u"旧像册所在的文件夹“%1”不能写入，不能转换。请把整个文件夹复制到可以写入的地方。"_s.arg(folder_));
    // It would be taken for that of the new file.
    if (const QString journal = journalOf(catalogue_); isThere(journal) && FileLen(journal) > 0)
        throw Error(u"旧像册旁边的“%1”是修复另一个像册要用的，请先移走，再转换。"_s.arg(journal));
    for (const QString& left : {half_, whole_}) removeDatabase(left);
    constexpr qint64 margin = 64 << 20, megabyte = 1'000'000;
    const qint64 wanted = FileLen(catalogue_) + margin, free = QStorageInfo(folder_).bytesAvailable();
    if (free >= 0 && free < wanted)
        throw Error(u"磁盘空间不足，不能转换：“%1”还需要 %2 MB，现在有 %3 MB。"_s.arg(folder_)
                        .arg(wanted / megabyte)
                        .arg(free / megabyte));
}

void ConversionFiles::giveUp() const {
    removeDatabase(half_);
}

void ConversionFiles::close() const {
    {
        QFile file(half_);
        if (!file.open(QIODevice::ReadWrite))
            throw Error(u"新的像册文件“%1”不能写入：%2。"_s.arg(half_, writeFailure(file)));
        syncToDisk(file);
        file.setPermissions(QFile::permissions(catalogue_) | QFile::ReadOwner | QFile::WriteOwner);
    }
    QFile::remove(journalOf(half_));
    rename(half_, whole_);
    syncFolderToDisk(folder_);
}

QString ConversionFiles::swap() const {
    QString old = keepOld();
    syncFolderToDisk(folder_);
    try {
        rename(whole_, catalogue_);
    } catch (const Error&) {
        // Where the disk knows no second names the old file has lost its own.
        if (!isThere(catalogue_)) attempt([&] { rename(old, catalogue_); });
        throw;
    }
    syncFolderToDisk(folder_);
    return old;
}

QString ConversionFiles::nameOfOld() const {
    const auto isFree = [this](const QString& name) { return !isThere(name) || isSameFile(name, catalogue_); };
    QString name = base_ + u"-旧.mdb"_s;
    for (int attempt = 2; !isFree(name); ++attempt) name = base_ + u"-旧%1.mdb"_s.arg(attempt);
    return name;
}

/// A second name where the disk knows such; otherwise the old file goes out of the way.
QString ConversionFiles::keepOld() const {
    QString name = nameOfOld();
    if (isThere(name)) return name;  // a kill came behind the giving of the name
    std::error_code failed;
    std::filesystem::create_hard_link(QFileInfo(catalogue_).filesystemFilePath(), QFileInfo(name).filesystemFilePath(),
                                      failed);
    if (failed) rename(catalogue_, name);
    return name;
}

void ConversionFiles::resume() const {
    if (isThere(catalogue_) || !fileExists(whole_)) return;
    rename(whole_, catalogue_);
    syncFolderToDisk(folder_);
}
