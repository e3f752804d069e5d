#pragma once

#include <QString>
#include <QStringList>

/// What is copied where. All paths are absolute.
struct BackupPlaces {
    QString copier;     ///< The program lunq-backup.
    QString catalogue;  ///< lunq.mdb beside the program.
    QString lock;       ///< Held by the program while it runs.
    QString backup;     ///< The copy.
};

/// The path of the copy for what was typed: a folder gets the catalogue's name. Nothing stays nothing.
QString completedBackupPath(const QString& typed);

/// Every folder that leads to a file, from the outermost: the beginnings of the path that end in a separator.
QStringList folderPrefixes(const QString& path);

/// What is wrong with a path for the copy, as a sentence for the user; empty when nothing is.
QString backupPathFault(const QString& path, const QString& catalogue);

/// A text as one word of a shell script, whatever its characters.
QString shellQuoted(const QString& text);

/// The script that copies the catalogue to the backup path, and the one that brings it back while the program is
/// closed. Each makes its copy beside the target and renames it: a failure leaves the target as it was. The first
/// leaves in its own last line how the copy has ended; `result` is such a line of an earlier copy.
QString backupScript(const BackupPlaces& places, const QString& result = {});
QString restoreScript(const BackupPlaces& places);

/// The file that such a script puts its copy in the place of; empty for another text.
QString targetOfScript(const QString& script);

/// How the last copy has ended, as "上次备份：2026-03-04 05:06，完好"; empty when the script does not tell.
QString resultInScript(const QString& script);
bool tellsOfGoodCopy(const QString& result);

/// The folder that a script brings its backup back to, when that is another one than the catalogue's and still exists.
QString foreignFolder(const QString& restoreScript, const QString& catalogue);
