#include "platform/base/files.h"

#include "platform/base/error.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

namespace {

QString& otherProgramFolder() {
    static QString folder;
    return folder;
}

QFileInfo existingFile(const QString& path) {
    QFileInfo info(path);
    if (!info.isFile()) throw Error(u"文件“%1”不存在。"_s.arg(path));
    return info;
}

}  // namespace

QString programFolder() {
    const QString& other = otherProgramFolder();
    return QDir::toNativeSeparators(other.isEmpty() ? QCoreApplication::applicationDirPath() : other);
}

void setProgramFolder(const QString& folder) {
    otherProgramFolder() = folder;
}

QString joinedPath(const QString& folder, const QString& name) {
    const bool separated = folder.isEmpty() || folder.endsWith(QDir::separator()) || folder.endsWith(u'/');
    return separated ? folder + name : folder + QDir::separator() + name;
}

qint64 FileLen(const QString& path) {
    return existingFile(path).size();
}

QDateTime FileDateTime(const QString& path) {
    const QDateTime changed = existingFile(path).lastModified();
    const QTime time = changed.time();
    return {changed.date(), QTime(time.hour(), time.minute(), time.second())};
}

bool fileExists(const QString& path) {
    return QFileInfo(path).isFile();
}

bool folderExists(const QString& path) {
    return QFileInfo(path).isDir();
}

void Kill(const QString& path) {
    QFile file(existingFile(path).filePath());
    if (!file.remove()) throw Error(u"文件“%1”不能删除：%2"_s.arg(path, file.errorString()));
}

void MkDir(const QString& path) {
    if (QFileInfo::exists(path)) throw Error(u"文件夹“%1”不能建立：同名的文件或文件夹已存在。"_s.arg(path));
    if (!QDir().mkdir(path)) throw Error(u"文件夹“%1”不能建立。"_s.arg(path));
}

void RmDir(const QString& path) {
    if (!folderExists(path)) throw Error(u"文件夹“%1”不存在。"_s.arg(path));
    if (!QDir().rmdir(path)) throw Error(u"文件夹“%1”不能删除：它不是空的，或没有权限。"_s.arg(path));
}
