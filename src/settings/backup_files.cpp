#include "settings/backup_files.h"

#include "catalogue/mektp.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/base/unnamed_file.h"

#include <QCoreApplication>
#include <QFile>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Everybody who may read the script may run it.
constexpr QFileDevice::Permissions scriptRights =
    QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner | QFileDevice::ReadGroup |
    QFileDevice::ExeGroup | QFileDevice::ReadOther | QFileDevice::ExeOther;

void makeFolders(const QString& path) {
    for (const QString& folder : folderPrefixes(path)) {
        if (!folderExists(folder)) MkDir(folder);
    }
}

/// Where the file system knows no such rights, the script still runs as an argument of the shell.
void writeScript(const QString& path, const QString& text) {
    UnnamedFile file(path);
    file.write(text.toUtf8());
    file.replace();
    QFile::setPermissions(path, scriptRights);
}

}  // namespace

BackupPlaces placesOfBackup(const QString& backup) {
    return {.copier = joinedPath(QCoreApplication::applicationDirPath(), u"lunq-backup"_s),
            .catalogue = mekTp::cataloguePath(),
            .lock = mekTp::lockPath(),
            .backup = backup};
}

QString backupScriptPath() {
    return joinedPath(programFolder(), u"bf.sh"_s);
}

QString restoreScriptPath(const QString& backup) {
    const QStringList folders = folderPrefixes(backup);
    return (folders.isEmpty() ? QString() : folders.last()) + u"hf.sh"_s;
}

void writeBackupScripts(const BackupPlaces& places) {
    makeFolders(places.backup);
    writeScript(restoreScriptPath(places.backup), restoreScript(places));
    writeScript(backupScriptPath(), backupScript(places));
}
