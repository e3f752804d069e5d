#include "catalogue/conversion/conversion_files.h"

#include "catalogue/album_tables.h"
#include "platform/base/error.h"
#include "platform/base/files.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QStorageInfo>
#include <filesystem>
#include <system_error>
#include <utility>

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

ConversionNames namesOfConversion() {
    return {u"-转换中.mdb"_s, u"-转换好.mdb"_s, u"-旧%1.mdb"_s, u"-新%1.mdb"_s, u"转换"_s};
}

ConversionNames namesOfRescue() {
    const QString now = QDateTime::currentDateTime().toString(u"-yyyyMMdd-HHmm"_s) + u"%1.mdb"_s;
    return {u"-取出中.mdb"_s, u"-取出好.mdb"_s, u"-损坏"_s + now, u"-取出"_s + now, u"取出"_s};
}

ConversionFiles::ConversionFiles(const QString& catalogue, ConversionNames names)
    : names_(std::move(names)), catalogue_(realPath(catalogue)) {
    const QFileInfo file(catalogue_);
    folder_ = file.absolutePath();
    base_ = joinedPath(folder_, file.completeBaseName());
    half_ = base_ + names_.half;
    whole_ = base_ + names_.whole;
}

void ConversionFiles::begin() const {
    if (!isThere(catalogue_)) throw Error(u"旧像册“%1”不见了，不能转换。"_s.arg(catalogue_));
    if (!isWritableNow(folder_))
        throw Error(
            u"像册所在的文件夹“%1”不能写入，不能%2。请把整个文件夹复制到可以写入的地方。"_s.arg(folder_, names_.deed));
    // It would be taken for that of the new file.
    if (const QString journal = journalOf(catalogue_); isThere(journal) && FileLen(journal) > 0)
        throw Error(u"像册旁边的“%1”是修复像册要用的，请先移走，再%2。"_s.arg(journal, names_.deed));
    for (const QString& left : {half_, whole_}) removeDatabase(left);
    constexpr qint64 margin = 64 << 20, megabyte = 1'000'000;
    const qint64 wanted = FileLen(catalogue_) + margin, free = QStorageInfo(folder_).bytesAvailable();
    if (free >= 0 && free < wanted)
        throw Error(u"磁盘空间不足，不能%1：“%2”还需要 %3 MB，现在有 %4 MB。"_s.arg(names_.deed, folder_)
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

QString ConversionFiles::exchange() const {
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

QString ConversionFiles::leave() const {
    QString name = freeName(names_.left);
    rename(whole_, name);
    syncFolderToDisk(folder_);
    return name;
}

QString ConversionFiles::freeName(const QString& pattern) const {
    const auto isFree = [this](const QString& name) { return !isThere(name) || isSameFile(name, catalogue_); };
    const QString separator = pattern[pattern.indexOf(u'%') - 1].isDigit() ? u"-"_s : QString();
    QString name = base_ + pattern.arg(QString());
    for (int attempt = 2; !isFree(name); ++attempt) name = base_ + pattern.arg(separator + QString::number(attempt));
    return name;
}

QString ConversionFiles::nameOfOld() const {
    return freeName(names_.old);
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
