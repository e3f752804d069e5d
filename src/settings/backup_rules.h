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
/// closed. Each makes its copy beside the target and renames it: a failure leaves the target as it was.
QString backupScript(const BackupPlaces& places);
QString restoreScript(const BackupPlaces& places);

/// The path of the copy that a script from `backupScript` makes; empty for another text.
QString backupOfScript(const QString& script);
