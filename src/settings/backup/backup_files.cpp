#include "settings/backup/backup_files.h"

#include "catalogue/mektp.h"
#include "platform/base/error.h"
#include "platform/base/files.h"
#include "platform/base/unnamed_file.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Everybody who may read the script may run it.
constexpr QFileDevice::Permissions scriptRights =
    QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner | QFileDevice::ReadGroup |
    QFileDevice::ExeGroup | QFileDevice::ReadOther | QFileDevice::ExeOther;

/// Where the file system knows no such rights, the script still runs as an argument of the shell.
void writeScript(const QString& path, const QString& text) {
    if (textOfScript(path) == text) return;
    UnnamedFile file(path);
    file.write(text.toUtf8());
    file.replace();
    QFile::setPermissions(path, scriptRights);
}

/// What is known of the last copy holds for as long as the copy goes to the same place.
QString resultOfCopyTo(const QString& backup) {
    const QString script = textOfScript(backupScriptPath());
    return targetOfScript(script) == backup ? resultInScript(script) : QString();
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

QString textOfScript(const QString& path) {
    QFile file(path);
    return fileExists(path) && file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

void makeBackupFolders(const QString& backup) {
    for (const QString& folder : folderPrefixes(backup)) {
        if (!folderExists(folder)) MkDir(folder);
    }
}

void writeBackupScripts(const BackupPlaces& places) {
    const QString restoring = restoreScriptPath(places.backup);
    if (folderExists(QFileInfo(restoring).path())) writeScript(restoring, restoreScript(places));
    writeScript(backupScriptPath(), backupScript(places, resultOfCopyTo(places.backup)));
}
